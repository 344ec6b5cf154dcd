#include "unit/ui/DialogFixture.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Numbers of the notification's lines.
constexpr std::size_t lineAccountId = 7;
constexpr std::size_t lineAccountTitle = 8;
constexpr std::size_t lineInvoiceable = 9;
constexpr std::size_t lineComment = 10;
constexpr std::size_t lineRate = 12;
constexpr std::size_t lineRateValue = 13;

class AccountDialogTest : public DialogFixture {
  protected:
    // Offers the job, chooses the account and presses OK.
    void Charge(std::int32_t jobId, std::int32_t accountId) {
        Offer(jobId);
        SelectAll(accountId);
        PressOK();
    }
    Color CommentColor() { return Dialog().txtComment.BackColor(); }
};

class TestModeTest : public AccountDialogTest {
  protected:
    TestModeTest() { testMode = true; }
};

}  // namespace

// ---- the queue and showing

TEST_F(AccountDialogTest, AddingAJobCountsItAndShowsNothing) {
    Dialog().AddJob(Job(1));
    Dialog().AddJob(Job(2));
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"2");
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_EQ(platform.messageLoop.pendingRuns, 0);
}

TEST_F(AccountDialogTest, ATickWithoutJobsShowsNothing) {
    MonitorTick();
    EXPECT_FALSE(Dialog().Shown());
}

TEST_F(AccountDialogTest, TheTimersTickAtTheirIntervals) {
    EXPECT_EQ(Dialog().tmrMonitor.Interval(), 1000);
    EXPECT_EQ(Dialog().tmrFlash.Interval(), 1000);
    EXPECT_EQ(Dialog().tmrSearch.Interval(), 100);
    EXPECT_TRUE(Dialog().tmrMonitor.Enabled());
}

TEST_F(AccountDialogTest, ATickShowsTheDialogInFrontForTheOldestJob) {
    Dialog().AddJob(Job(1, u"First"));
    Dialog().AddJob(Job(2, u"Second"));
    MonitorTick();
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(peers.Of(Dialog()).broughtToForeground, 1);
    EXPECT_EQ(Dialog().lblDocument.Caption(), u"First");
    EXPECT_EQ(Dialog().lblPrinter.Caption(), u"Laser");
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"2");
    ExpectWhole();
    MonitorTick();
    EXPECT_EQ(peers.Of(Dialog()).shown, 1);
}

TEST_F(AccountDialogTest, AJobThatComesWhileItIsOfferingOnlyRaisesTheCount) {
    Offer(1, u"First");
    Dialog().AddJob(Job(2, u"Second"));
    MonitorTick();
    EXPECT_EQ(Dialog().lblDocument.Caption(), u"First");
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"2");
}

TEST_F(AccountDialogTest, TheWindowFlashesWhileItIsShownAndNotOtherwise) {
    Dialog().tmrFlash.HandleTick();
    EXPECT_EQ(peers.Of(Dialog()).flashed, 0);
    Offer(1);
    Dialog().tmrFlash.HandleTick();
    Dialog().tmrFlash.HandleTick();
    EXPECT_EQ(peers.Of(Dialog()).flashed, 2);
    PressCancel();
    Dialog().tmrFlash.HandleTick();
    EXPECT_EQ(peers.Of(Dialog()).flashed, 2);
}

TEST_F(AccountDialogTest, TheCloseBoxLeavesTheDialogAndTheEndOfTheSessionDoesNot) {
    Offer(1);
    EXPECT_FALSE(Dialog().Unload(CloseReason::ControlMenu));
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_TRUE(Dialog().Unload(CloseReason::WindowsSession));
}

TEST_F(AccountDialogTest, TheDialogIsTopmostWhenTheSettingSaysSoAndNotWhenItIsTakenBack) {
    settings.ClientPopupOnTop(true);
    Offer(1);
    EXPECT_TRUE(Dialog().TopMost());
    PressCancel();
    settings.ClientPopupOnTop(false);
    Offer(2);
    EXPECT_FALSE(Dialog().TopMost());
}

TEST_F(AccountDialogTest, TheBannerDecidesOnItsLinkAtEachShowing) {
    platform.registry.Put(registrySubKey, u"ResellerURL", u"http://reseller.example");
    Offer(1);
    EXPECT_EQ(Dialog().ctlBanner1.lblLink.Caption(), u"http://reseller.example");
}

// ---- OK

TEST_F(AccountDialogTest, OKWritesTheNotificationByteForByte) {
    Offer(56, u"Quarter & more");
    SelectAll(12);
    Dialog().chkInvoice.HandleClick(false);
    Dialog().cboChargeRate.HandleChange(1);
    PressOK();
    std::string expected = "\xFF\xFE";
    for (const char unit :
         std::string("56\r\nWS17\r\nLaser\r\njsmith\r\nQuarter & more\r\n77\r\n12\r\nSales / South\r\n"
                     "0\r\n\r\n\r\nNight\r\n150.5\r\n")) {
        expected += unit;
        expected += '\0';
    }
    EXPECT_EQ(files.ReadBytes(NotificationPath(56)), expected);
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    EXPECT_THAT(platform.messageBoxes.shown, IsEmpty());
    EXPECT_TRUE(log.Has(u"Uploading notification file to server: " + NotificationPath(56)));
    EXPECT_FALSE(log.Has(u"Upload file failed."));
    ExpectWhole();
}

TEST_F(AccountDialogTest, TheNotificationOfAFileJobCarriesItsFileAndGoesToThePrintersServer) {
    files.AddFolder(u"\\\\OTHER\\TLXActN$");
    auto job = Job(5);
    job->PrinterHandle = 0;
    job->FullPrinterName = u"\\\\OTHER\\Laser";
    job->JobEventFilename = u"0005.job";
    Dialog().AddJob(job);
    MonitorTick();
    SelectAll(1);
    PressOK();
    const Lines lines = Split(files.ReadUtf16(u"\\\\OTHER\\TLXActN$\\WS17.0.5.tlx"), u"\r\n");
    ASSERT_EQ(lines.size(), 14U);
    EXPECT_EQ(lines[10], u"0005.job");
    EXPECT_EQ(NotificationCount(), 0U);
}

TEST_F(AccountDialogTest, ThreeJobsAndSubmitAllWriteThreeNotificationsAndEmptyTheQueue) {
    for (const std::int32_t id : {1, 2, 3}) {
        Dialog().AddJob(Job(id, u"Document " + NumberText(id)));
    }
    MonitorTick();
    SelectAll(21);
    Dialog().chkSubmitAllDocuments.HandleClick(true);
    PressOK();
    EXPECT_EQ(NotificationCount(), 3U);
    for (const std::int32_t id : {1, 2, 3}) {
        EXPECT_EQ(Notification(id)[5], u"Document " + NumberText(id));
        EXPECT_EQ(Notification(id)[lineAccountId], u"21");
    }
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    MonitorTick();
    EXPECT_FALSE(Dialog().Shown());
}

TEST_F(AccountDialogTest, ThreeJobsWithoutSubmitAllWriteOneAndTheNextTickOffersTheNext) {
    for (const std::int32_t id : {1, 2, 3}) {
        Dialog().AddJob(Job(id, u"Document " + NumberText(id)));
    }
    MonitorTick();
    SelectAll(21);
    PressOK();
    EXPECT_EQ(NotificationCount(), 1U);
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"2");
    MonitorTick();
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblDocument.Caption(), u"Document 2");
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 21);
}

TEST_F(AccountDialogTest, WithoutASelectedAccountOKAsksForOneAndStays) {
    Offer(1);
    Dialog().tabView.HandleSelected(3);
    PressOK();
    EXPECT_THAT(platform.messageBoxes.shown,
                ElementsAre(fakes::FakeMessageBoxes::Box{Text(u"lblSelectAccount"), title, MessageButtons::OK,
                                                         MessageIcon::None}));
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"1");
}

TEST_F(AccountDialogTest, AnInactiveAccountIsRefused) {
    Charge(1, 3);
    EXPECT_THAT(BoxTexts(), ElementsAre(Text(u"lblAccountNotBillable")));
    EXPECT_EQ(platform.messageBoxes.shown[0].title, title);
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(NotificationCount(), 0U);
}

TEST_F(AccountDialogTest, ARequiredCommentOfOnlyBlanksIsRefused) {
    Offer(1);
    SelectAll(5);
    for (const char16_t* blank : {u"", u"   "}) {
        Dialog().txtComment.HandleChange(blank);
        PressOK();
        EXPECT_EQ(platform.messageBoxes.shown.back(),
                  (fakes::FakeMessageBoxes::Box{Dialog().lblCommentMandatory.Caption(), Dialog().Caption(),
                                                MessageButtons::OK, MessageIcon::Critical}));
        EXPECT_TRUE(Dialog().Shown());
    }
    EXPECT_EQ(NotificationCount(), 0U);
    Dialog().txtComment.HandleChange(u" x ");
    PressOK();
    EXPECT_EQ(Notification(1)[lineComment], u" x ");
}

TEST_F(AccountDialogTest, AnOptionalCommentMayBeEmpty) {
    Charge(1, 4);
    EXPECT_EQ(Notification(1)[lineComment], u"");
    EXPECT_TRUE(Notified(1));
}

TEST_F(AccountDialogTest, ACommentOf300CharactersIsSentAsItsFirst254) {
    Offer(1);
    SelectAll(4);
    std::u16string comment;
    for (char16_t i = 0; i < 300; ++i) {
        comment += static_cast<char16_t>(u'A' + i % 26);
    }
    Dialog().txtComment.HandleChange(comment);
    PressOK();
    EXPECT_EQ(Notification(1)[lineComment], comment.substr(0, 254));
}

TEST_F(AccountDialogTest, AnAccountWithoutCommentSendsNone) {
    RememberSettings();
    settings.DefaultComment(u"left over");
    Offer(1);
    SelectAll(1);
    EXPECT_EQ(Dialog().txtComment.Text(), u"left over");
    PressOK();
    EXPECT_EQ(Notification(1)[lineComment], u"");
}

TEST_F(AccountDialogTest, TheCommentBoxIsEnabledInTheWindowColorForAccountsThatTakeOne) {
    Offer(1);
    for (const auto& [account, takes] : {std::pair{1, false}, {4, true}, {1, false}, {5, true}, {11, false}}) {
        SelectAll(account);
        EXPECT_EQ(Dialog().txtComment.Enabled(), takes);
        EXPECT_EQ(CommentColor(), takes ? systemColor::windowBackground : systemColor::buttonFace);
    }
}

TEST_F(AccountDialogTest, AnAccountThatMustBeInvoicedForcesATickedDisabledBox) {
    Offer(1);
    SelectAll(1);
    Dialog().chkInvoice.HandleClick(false);
    SelectAll(6);
    EXPECT_TRUE(Dialog().chkInvoice.Value());
    EXPECT_FALSE(Dialog().chkInvoice.Enabled());
    PressOK();
    EXPECT_EQ(Notification(1)[lineInvoiceable], u"1");
    Offer(2);
    SelectAll(1);
    EXPECT_TRUE(Dialog().chkInvoice.Enabled());
}

TEST_F(AccountDialogTest, TheInvoiceFlagIsTheTick) {
    Offer(1);
    SelectAll(1);
    Dialog().chkInvoice.HandleClick(false);
    PressOK();
    EXPECT_EQ(Notification(1)[lineInvoiceable], u"0");
    Charge(2, 1);
    EXPECT_EQ(Notification(2)[lineInvoiceable], u"1");
}

TEST_F(AccountDialogTest, ADoubleClickOnAnyListIsAPressOfOK) {
    Prefs().AddPreferred(12);
    Offer(1);
    Select(Dialog().ctlAccountListAll, 2);
    Dialog().ctlAccountListAll.flxAccounts.HandleDblClick();
    EXPECT_EQ(Notification(1)[lineAccountId], u"2");
    Offer(2);
    Dialog().tabView.HandleSelected(2);
    Dialog().ctlAccountListPreferred.flxAccounts.HandleDblClick();
    EXPECT_EQ(Notification(2)[lineAccountId], u"12");
    Offer(3);
    Dialog().tabView.HandleSelected(3);
    Select(Dialog().ctlAccountListRecent, 2);
    Dialog().ctlAccountListRecent.flxAccounts.HandleDblClick();
    EXPECT_EQ(Notification(3)[lineAccountId], u"2");
}

TEST_F(AccountDialogTest, OKTakesTheAccountOfTheTabThatIsShown) {
    Prefs().AddPreferred(21);
    Offer(1);
    SelectAll(1);
    Dialog().tabView.HandleSelected(2);
    PressOK();
    EXPECT_EQ(Notification(1)[lineAccountTitle], u"Research / Probes");
}

TEST_F(AccountDialogTest, OKAndCancelDoNothingWhileNoJobIsOffered) {
    Dialog().PreLoadAccounts();
    SelectAll(1);
    Dialog().AddJob(Job(1));
    PressOK();
    PressCancel();
    EXPECT_THAT(platform.messageBoxes.shown, IsEmpty());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"1");
    EXPECT_THAT(cancelled, IsEmpty());
    EXPECT_EQ(NotificationCount(), 0U);
}

TEST_F(AccountDialogTest, OKSavesTheChosenAccountTheSearchAndTheTab) {
    Offer(1);
    SelectAll(12);
    Dialog().chkRememberSearch.HandleClick(true);
    Type(u"sales");
    SearchTicks(7);
    SelectAll(12);
    PressOK();
    EXPECT_EQ(files.ReadUtf16(prefsFile),
              u"lasttab\u00011\r\nlastsearchremember\u00011\r\nlastsearchstring\u0001sales\r\n"
              u"history\u000112\r\npreferred\u0001\r\n");
    EXPECT_EQ(files.ReadBytes(localPrefsFile), files.ReadBytes(prefsFile));
}

TEST_F(AccountDialogTest, ASearchThatIsNotToBeRememberedIsForgotten) {
    files.WriteUtf16(prefsFile, u"lastsearchremember\u00011\r\nlastsearchstring\u0001sales\r\n");
    Offer(1);
    Dialog().chkRememberSearch.HandleClick(false);
    PressOK();
    EXPECT_FALSE(Prefs().LastSearchRemember());
    EXPECT_EQ(Prefs().LastSearchString(), u"");
}

TEST_F(AccountDialogTest, ARememberedSearchWithSeparatorsAndLineBreaksDoesNotCorruptThePreferences) {
    Offer(1);
    Dialog().chkRememberSearch.HandleClick(true);
    Dialog().tabView.HandleSelected(1);
    SelectAll(12);
    Dialog().txtSearch.HandleChange(u"a\u0001b\r\nhistory\u000199,x\n\u0001");
    PressOK();
    const clsTLXPrefs again(files, platform.mutexes, u"SRV", u"jsmith");
    EXPECT_THAT(Numbers(*again.History()), ElementsAre(12));
    EXPECT_TRUE(again.LastSearchRemember());
    EXPECT_EQ(again.LastSearchString(), u"a");
}

// ---- charge rates

TEST_F(AccountDialogTest, TheRatesAreOfferedAndWithoutAChoiceTheFieldsStayUnset) {
    Charge(1, 1);
    EXPECT_THAT(Dialog().cboChargeRate.Items(), ElementsAre(u"Default", u"Night", u"Charity"));
    EXPECT_EQ(Notification(1)[lineRate], u"");
    EXPECT_EQ(Notification(1)[lineRateValue], u"0");
}

TEST_F(AccountDialogTest, TheRatesValueIsWrittenInTheUsersNumberFormat) {
    clock.decimalSeparator = u",";
    Offer(1);
    Dialog().cboChargeRate.HandleChange(2);
    PressOK();
    EXPECT_EQ(Notification(1)[lineRate], u"Charity");
    EXPECT_EQ(Notification(1)[lineRateValue], u"0,25");
}

TEST_F(AccountDialogTest, ARefreshOfTheRatesWhileTheDialogIsOpenDoesNotChangeWhatWasChosen) {
    Offer(1);
    Dialog().cboChargeRate.HandleChange(1);
    rates->Delete(2);
    rates->Delete(1);
    rates = std::make_shared<clsChargeRates>(platform.mutexes, platform.clock);
    rates->Add(u"Something else", 7);
    PressOK();
    EXPECT_EQ(Notification(1)[lineRate], u"Night");
    EXPECT_EQ(Notification(1)[lineRateValue], u"150.5");
    Offer(2);
    EXPECT_THAT(Dialog().cboChargeRate.Items(), ElementsAre(u"Default", u"Something else"));
    EXPECT_EQ(Dialog().cboChargeRate.ListIndex(), -1);
}

TEST_F(AccountDialogTest, AChosenRateStaysChosenForTheNextJob) {
    Offer(1);
    Dialog().cboChargeRate.HandleChange(1);
    PressOK();
    Charge(2, 1);
    EXPECT_EQ(Notification(2)[lineRate], u"Night");
}

TEST_F(AccountDialogTest, ARateBeyondThe32767thIsSentToo) {
    for (int i = 0; i < 33'000; ++i) {
        rates->Add(u"Rate " + NumberText(i), i);
    }
    Offer(1);
    Dialog().cboChargeRate.HandleChange(33'002);
    PressOK();
    EXPECT_EQ(Notification(1)[lineRate], u"Rate 32999");
}

// ---- settings

TEST_F(AccountDialogTest, EveryJobStartsTickedAndWithoutComment) {
    settings.DefaultComment(u"never seen");
    Offer(1);
    SelectAll(4);
    EXPECT_EQ(Dialog().txtComment.Text(), u"");
    EXPECT_TRUE(Dialog().chkInvoice.Value());
    Dialog().txtComment.HandleChange(u"mine");
    Dialog().chkInvoice.HandleClick(false);
    PressOK();
    Offer(2);
    EXPECT_EQ(Dialog().txtComment.Text(), u"");
    EXPECT_TRUE(Dialog().chkInvoice.Value());
}

TEST_F(AccountDialogTest, RememberedSettingsKeepTheTickAndTheComment) {
    RememberSettings();
    Offer(1);
    SelectAll(4);
    Dialog().txtComment.HandleChange(u"mine");
    Dialog().chkInvoice.HandleClick(false);
    PressOK();
    Offer(2);
    EXPECT_EQ(Dialog().txtComment.Text(), u"mine");
    EXPECT_FALSE(Dialog().chkInvoice.Value());
}

TEST_F(AccountDialogTest, WithRememberedSettingsTheDefaultCommentIsPutInAtEachShowing) {
    RememberSettings();
    settings.DefaultComment(u"house");
    Offer(1);
    SelectAll(4);
    EXPECT_EQ(Dialog().txtComment.Text(), u"house");
    Dialog().txtComment.HandleChange(u"mine");
    PressOK();
    EXPECT_EQ(Notification(1)[lineComment], u"mine");
    Offer(2);
    EXPECT_EQ(Dialog().txtComment.Text(), u"house");
}

TEST_F(AccountDialogTest, TheInvoiceBoxTakesTheCaptionOfTheSettingsAndGivesItBack) {
    const std::u16string own = Dialog().chkInvoice.Caption();
    settings.ShowOnInvoiceLabel(u"Bill the client");
    Offer(1);
    EXPECT_EQ(Dialog().chkInvoice.Caption(), u"Bill the client");
    PressCancel();
    settings.ShowOnInvoiceLabel(u"");
    Offer(2);
    EXPECT_EQ(Dialog().chkInvoice.Caption(), own);
}

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
    EXPECT_THAT(BoxTexts(), ElementsAre(Text(u"lblAccountListError"), Text(u"lblJobCancelError")));
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
    EXPECT_EQ(Dialog().chkInvoice.Caption(), odd);
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

TEST_F(AccountDialogTest, ACommentCutInsideAPairIsCutAllTheSame) {
    Offer(1);
    SelectAll(4);
    std::u16string comment(253, u'x');
    comment += u"\U0001F600tail";
    Dialog().txtComment.HandleChange(comment);
    PressOK();
    EXPECT_EQ(Notification(1)[lineComment], comment.substr(0, 254));
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
