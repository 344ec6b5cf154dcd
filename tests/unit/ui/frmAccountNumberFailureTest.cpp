#include "controls/AccessKey.h"
#include "unit/ui/AccountDialogTest.h"

namespace korvanta {

namespace {

class TestModeTest : public AccountDialogTest {
  protected:
    TestModeTest() { testMode = true; }
};

}  // namespace

using testing::ElementsAre;
using testing::IsEmpty;

// ---- failures

TEST_F(AccountDialogTest, APrinterWithoutServerIsToldAndTheJobIsGone) {
    auto job = Job(1);
    job->FullPrinterName = u"Laser";
    Dialog().AddJob(job);
    MonitorTick();
    SelectAll(12);
    PressOK();
    EXPECT_THAT(BoxTexts(), ElementsAre(Text(u"lblInternalErrorServerName")));
    EXPECT_EQ(platform.messageBoxes.shown[0].title, title);
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    EXPECT_EQ(NotificationCount(), 0U);
    EXPECT_EQ(Prefs().GetLastSelectedAccount(), 12);
    EXPECT_TRUE(files.Has(prefsFile));
}

TEST_F(AccountDialogTest, AShareThatIsDownWhenOKIsPressedIsTold) {
    Offer(1);
    SelectAll(12);
    files.Down(u"PRINTSRV");
    PressOK();
    EXPECT_THAT(platform.messageBoxes.shown,
                ElementsAre(fakes::FakeMessageBoxes::Box{Text(u"lblNotificationError"), title, MessageButtons::OK,
                                                         MessageIcon::Critical}));
    EXPECT_TRUE(log.Has(u"Upload file failed."));
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    EXPECT_EQ(Prefs().GetLastSelectedAccount(), 12);
    EXPECT_TRUE(files.Has(prefsFile));
    EXPECT_THAT(cancelled, IsEmpty());
}

TEST_F(AccountDialogTest, AWriteOrACloseThatFailsIsTold) {
    for (const char* call : {"Write", "Close"}) {
        Offer(1);
        files.faults.FailOnce(call, 1, windowsError::diskFull);
        PressOK();
        EXPECT_EQ(platform.messageBoxes.shown.back().text, Text(u"lblNotificationError"));
        files.faults.Clear();
        ExpectWhole();
    }
    EXPECT_EQ(platform.messageBoxes.shown.size(), 2U);
}

TEST_F(AccountDialogTest, OneOfSeveralThatFailsDoesNotStopTheOthers) {
    for (const std::int32_t id : {1, 2, 3}) {
        Dialog().AddJob(Job(id));
    }
    files.FailPath(NotificationPath(2), windowsError::accessDenied);
    MonitorTick();
    Dialog().chkSubmitAllDocuments.HandleClick(true);
    PressOK();
    EXPECT_TRUE(Notified(1));
    EXPECT_FALSE(Notified(2));
    EXPECT_TRUE(Notified(3));
    EXPECT_THAT(BoxTexts(), ElementsAre(Text(u"lblNotificationError")));
}

TEST_F(AccountDialogTest, PreferencesThatCannotBeSavedDisturbNothing) {
    files.Down(u"SRV");
    files.FailPath(localPrefsFile, windowsError::accessDenied);
    files.Up(u"SRV");
    Offer(1);
    files.FailPath(prefsFile, windowsError::accessDenied);
    PressOK();
    EXPECT_TRUE(Notified(1));
    EXPECT_THAT(platform.messageBoxes.shown, IsEmpty());
}

TEST_F(AccountDialogTest, AnAccountThatLeftTheListAfterItWasShownIsNotCharged) {
    Offer(1);
    SelectAll(12);
    WriteAccounts({Main(1, u"Sales")});
    Accounts().LoadAccounts();
    PressOK();
    EXPECT_THAT(BoxTexts(), ElementsAre(Text(u"lblSelectAccount")));
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(NotificationCount(), 0U);
}

TEST_F(AccountDialogTest, ACountThatCouldNotBeShownWhenTheJobCameIsShownWithTheDialog) {
    Dialog();
    platform.mutexes.state.waitResults = {WaitResult::Acquired, WaitResult::TimedOut};
    Dialog().AddJob(Job(1));
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    MonitorTick();
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"1");
}

TEST_F(AccountDialogTest, AListThatCannotBeReadWhileTheDialogComesUpLosesNoJob) {
    WriteAccounts({Main(1, u"Sales"), Main(2, u"Research")});
    Dialog().PreLoadAccounts();
    for (std::int32_t failing = 0; failing < 60; ++failing) {
        Dialog().AddJob(Job(failing));
        WriteAccounts({Main(1, u"Sales"), Main(2, u"Research")});
        for (std::int32_t good = 0; good < failing; ++good) {
            platform.mutexes.state.waitResults.push_back(WaitResult::Acquired);
        }
        platform.mutexes.state.waitResults.push_back(WaitResult::TimedOut);
        EXPECT_NO_THROW(MonitorTick());
        platform.mutexes.state.waitResults.clear();
        ExpectWhole();
        MonitorTick();
        if (Dialog().Shown()) {
            PressCancel();
        }
        EXPECT_EQ(cancelled.size(), static_cast<std::size_t>(failing) + 1);
        EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    }
}

TEST_F(AccountDialogTest, ADialogThatCouldNotComeUpIsTriedAgainAtTheNextTick) {
    Dialog().AddJob(Job(1));
    platform.registry.Put(registrySubKey, u"LinkName", u"http://product.example");
    peers.onChanged = [&](Control& control, Aspect) {
        if (&control == &Dialog().ctlBanner1.lblLink) {
            throw std::bad_alloc();
        }
    };
    EXPECT_NO_THROW(MonitorTick());
    peers.onChanged = nullptr;
    EXPECT_FALSE(Dialog().Shown());
    MonitorTick();
    EXPECT_TRUE(Dialog().Shown());
    ExpectWhole();
}

// ---- Cancel

TEST_F(AccountDialogTest, CancelDeletesTheJobAndSaysSo) {
    Offer(7);
    PressCancel();
    EXPECT_THAT(cancelled, ElementsAre(7));
    EXPECT_THAT(platform.messageBoxes.shown,
                ElementsAre(fakes::FakeMessageBoxes::Box{Text(u"lblJobCancelSuccess"), title, MessageButtons::OK,
                                                         MessageIcon::None}));
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    EXPECT_EQ(NotificationCount(), 0U);
    EXPECT_TRUE(files.Has(prefsFile));
    EXPECT_EQ(Prefs().GetLastSelectedAccount(), -1);
}

TEST_F(AccountDialogTest, TheDialogHidesBeforeTheJobIsDeletedAndThePreferencesAreSavedAfterTheMessage) {
    Offer(7);
    bool shown = true;
    onCancel = [&] { shown = Dialog().Shown(); };
    bool savedBefore = true;
    platform.messageBoxes.whileOpen = [&](const auto&) { savedBefore = files.Has(prefsFile); };
    PressCancel();
    EXPECT_FALSE(shown) << "while the job was deleted";
    EXPECT_FALSE(savedBefore) << "while the message was up";
    EXPECT_TRUE(files.Has(prefsFile));
}

TEST_F(AccountDialogTest, ACancelThatFailsSaysSo) {
    cancelSucceeds = false;
    Offer(7);
    PressCancel();
    EXPECT_THAT(BoxTexts(), ElementsAre(Text(u"lblJobCancelError")));
}

TEST_F(AccountDialogTest, CancelTakesOneJobAndTheNextTickOffersTheNext) {
    Dialog().AddJob(Job(1, u"First"));
    Dialog().AddJob(Job(2, u"Second"));
    MonitorTick();
    Dialog().chkSubmitAllDocuments.HandleClick(true);
    PressCancel();
    EXPECT_THAT(cancelled, ElementsAre(1));
    MonitorTick();
    EXPECT_EQ(Dialog().lblDocument.Caption(), u"Second");
}

TEST_F(AccountDialogTest, WithoutAccountsTheJobIsCancelledAndTheUserReadsThatItCouldNotBe) {
    files.RemoveFile(accountsFile);
    Offer(7);
    EXPECT_THAT(
        platform.messageBoxes.shown,
        ElementsAre(
            fakes::FakeMessageBoxes::Box{Text(u"lblAccountListError"), title, MessageButtons::OK, MessageIcon::None},
            fakes::FakeMessageBoxes::Box{Text(u"lblJobCancelError"), title, MessageButtons::OK, MessageIcon::None}));
    EXPECT_THAT(cancelled, ElementsAre(7));
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    ExpectWhole();
}

TEST_F(AccountDialogTest, OnceAccountsLoadAgainACancelSucceedsAgain) {
    files.RemoveFile(accountsFile);
    Offer(7);
    WriteAccounts(StandardAccounts());
    Offer(8);
    PressCancel();
    EXPECT_THAT(cancelled, ElementsAre(7, 8));
    EXPECT_EQ(BoxTexts().back(), Text(u"lblJobCancelSuccess"));
}

TEST_F(AccountDialogTest, WithTheServerDownTheLocalCopyOfTheAccountsServes) {
    Offer(1);
    PressCancel();
    files.Down(u"SRV");
    Offer(2);
    SelectAll(12);
    PressOK();
    EXPECT_TRUE(Notified(2));
}

// ---- odd texts

TEST_F(AccountDialogTest, OddTextsAreShownAndSentUnchanged) {
    const std::u16string odd{u'R', u'&', u'D', u'\0', 0xD800, u'&', u'&', u'\t', 0xDC00};
    WriteAccounts({Main(1, odd, true, true, 1)});
    settings.ShowOnInvoiceLabel(odd);
    Offer(1, odd);
    EXPECT_EQ(Dialog().lblDocument.Caption(), odd);
    EXPECT_FALSE(Dialog().lblDocument.AccessKey());
    EXPECT_FALSE(Dialog().lblPrinter.AccessKey());
    EXPECT_EQ(Dialog().chkInvoice.Caption(), WithPlainAmpersands(odd));
    EXPECT_EQ(Dialog().ctlAccountListAll.flxAccounts.Text(1, 1), odd);
    Dialog().txtComment.HandleChange(odd);
    PressOK();
    EXPECT_EQ(Notification(1)[5], odd);
    EXPECT_EQ(Notification(1)[lineAccountTitle], odd);
    EXPECT_EQ(Notification(1)[lineComment], odd);
}

TEST_F(AccountDialogTest, ADocumentNameOf60000CharactersIsShownAndSent) {
    const std::u16string name(60'000, u'W');
    Offer(1, name);
    EXPECT_EQ(Dialog().lblDocument.Caption(), name);
    PressOK();
    EXPECT_EQ(Notification(1)[5], name);
}

// ---- test mode

TEST_F(TestModeTest, TheDialogCompletesTheJobByItself) {
    WriteAccounts({Main(4, u"Legal", true, true, 1), Main(3, u"Closed", false), Main(5, u"Audit", true, true, 2)});
    for (std::int32_t id = 1; id <= 40; ++id) {
        Offer(id);
    }
    EXPECT_EQ(NotificationCount(), 40U);
    EXPECT_THAT(platform.messageBoxes.shown, IsEmpty());
    std::set<std::u16string> accounts;
    std::set<std::u16string> invoiced;
    for (std::int32_t id = 1; id <= 40; ++id) {
        EXPECT_EQ(Notification(id)[lineComment].substr(0, 11), u"Comment at ");
        accounts.insert(Notification(id)[lineAccountId]);
        invoiced.insert(Notification(id)[lineInvoiceable]);
    }
    EXPECT_THAT(accounts, ElementsAre(u"4", u"5"));
    EXPECT_THAT(invoiced, ElementsAre(u"0", u"1"));
    EXPECT_FALSE(Dialog().Shown());
}

TEST_F(TestModeTest, TheCommentHasTheDateAndTime) {
    WriteAccounts({Main(4, u"Legal", true, true, 1)});
    Dialog();
    clock.Set(2026, 11, 20, 14, 3, 9);
    Offer(1);
    EXPECT_EQ(Notification(1)[lineComment], u"Comment at 2026-11-20 14:03:09");
}

TEST_F(TestModeTest, AnAccountThatMustBeInvoicedStaysSo) {
    WriteAccounts({Main(6, u"Board", true, false)});
    for (std::int32_t id = 1; id <= 20; ++id) {
        Offer(id);
        EXPECT_EQ(Notification(id)[lineInvoiceable], u"1");
    }
}

TEST_F(TestModeTest, ARememberedSearchDoesNotLimitTheChoice) {
    files.WriteUtf16(prefsFile, u"lastsearchremember\u00011\r\nlastsearchstring\u0001nothing like it\r\n");
    WriteAccounts({Main(1, u"Sales")});
    Offer(1);
    EXPECT_TRUE(Notified(1));
    EXPECT_THAT(platform.messageBoxes.shown, IsEmpty());
}

TEST_F(TestModeTest, WithoutTheFlagTheDialogWaits) {
    testMode = false;
    Offer(1);
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(NotificationCount(), 0U);
}

}  // namespace korvanta
