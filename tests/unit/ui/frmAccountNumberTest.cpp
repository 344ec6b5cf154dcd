#include "unit/ui/AccountDialogTest.h"

namespace korvanta {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(AccountDialogTest, TheSearchBoxOrTheListOfTheTabHasTheKeyboardWhenTheDialogComesUp) {
    Offer(1);
    EXPECT_EQ(peers.Of(Dialog().txtSearch).focused, 1);
    PressCancel();
    Prefs().LastTab(3);
    Offer(2);
    EXPECT_EQ(peers.Of(Dialog().ctlAccountListRecent.flxAccounts).focused, 1);
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

TEST_F(AccountDialogTest, TheDialogHidesBeforeTheServerIsNotified) {
    Offer(1);
    std::vector<bool> shown;
    files.onCall = [&](const std::u16string&, const std::u16string& path) {
        if (path == NotificationPath(1)) {
            shown.push_back(Dialog().Shown());
        }
    };
    PressOK();
    files.onCall = nullptr;
    EXPECT_TRUE(Notified(1));
    EXPECT_THAT(shown, ElementsAre(false));
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

TEST_F(AccountDialogTest, ACommentIsNotCutInTheMiddleOfACharacter) {
    const std::u16string start(253, u'A');
    Offer(1);
    SelectAll(4);
    Dialog().txtComment.HandleChange(start + u"\U0001F5A8 and more");
    PressOK();
    EXPECT_EQ(Notification(1)[lineComment], start);
    Offer(2);
    SelectAll(4);
    Dialog().txtComment.HandleChange(start.substr(1) + u"\U0001F5A8 and more");
    PressOK();
    EXPECT_EQ(Notification(2)[lineComment], start.substr(1) + u"\U0001F5A8");
}

TEST_F(AccountDialogTest, LineBreaksInAJobACommentOrARateAreBlanksInTheNotification) {
    rates = std::make_shared<clsChargeRates>(platform.mutexes, clock);
    rates->Add(u"Night\rrate", 2);
    const auto job = Job(1, u"Letter\r\nto\nmany\rpeople");
    job->UserName = u"j\nsmith";
    job->PrinterName = u"La\rser";
    Dialog().AddJob(job);
    MonitorTick();
    SelectAll(4);
    Dialog().txtComment.HandleChange(u"first\n\nthird");
    Dialog().cboChargeRate.HandleChange(1);
    PressOK();
    EXPECT_EQ(files.ReadUtf16(NotificationPath(1)),
              u"1\r\nWS17\r\nLa ser\r\nj smith\r\nLetter to many people\r\n77\r\n4\r\nLegal\r\n1\r\n"
              u"first  third\r\n\r\nNight rate\r\n2\r\n");
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

TEST_F(AccountDialogTest, TheRatesAreThereBeforeTheFirstJob) {
    Dialog().PreLoadAccounts();
    EXPECT_THAT(Dialog().cboChargeRate.Items(), ElementsAre(u"Default", u"Night", u"Charity"));
}

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

TEST_F(AccountDialogTest, AnAmpersandInTheInvoiceLabelOfTheSettingsIsShownAndTakesNoAccessKey) {
    settings.ShowOnInvoiceLabel(u"Bill R&D");
    Offer(1);
    EXPECT_EQ(Dialog().chkInvoice.Caption(), u"Bill R&&D");
}

}  // namespace korvanta
