// Several jobs at once, cancelling, and the rules that keep the dialog open.

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

class QueueTest : public SystemTest {
  protected:
    // Starts with three jobs of which the first is offered.
    void OfferThree() {
        PublishAll();
        StartMonitoring();
        for (int id = 1; id <= 3; ++id) {
            jobs_.push_back(Announce(L"Sheet " + std::to_wstring(id), id));
            jobFiles_.push_back(LastJobFile());
        }
        ASSERT_TRUE(DialogOffers(L"Sheet 1"));
        ASSERT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"3"; }));
    }

    std::vector<driver::Job> jobs_;
    std::vector<std::wstring> jobFiles_;
};

TEST_F(QueueTest, OneOkChargesAllQueuedJobsWhenTheBoxIsTicked) {
    ASSERT_NO_FATAL_FAILURE(OfferThree());
    DialogControl(L"chkSubmitAllDocuments").Click();
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"chkSubmitAllDocuments").Checked(); }));
    ASSERT_TRUE(ChooseAccount(L"Tax"));
    std::vector<driver::Notification> expected;
    for (std::size_t i = 0; i < 3; ++i) {
        expected.push_back(Expected(jobs_[i], jobFiles_[i], 3, L"Smith / Tax"));
    }
    PressOk();
    for (const driver::Notification& notification : expected) {
        ExpectNotification(notification);
    }
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"0"; }));
    EXPECT_TRUE(DialogStaysHidden());
}

TEST_F(QueueTest, EachJobIsOfferedInItsTurnWhenTheBoxIsNotTicked) {
    ASSERT_NO_FATAL_FAILURE(OfferThree());
    const std::vector<std::pair<int, std::wstring>> choices{{1, L"Smith"}, {10, L"Jones"}, {1, L"Smith"}};
    for (std::size_t i = 0; i < 3; ++i) {
        ASSERT_TRUE(DialogOffers(jobs_[i].document));
        EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), std::to_wstring(3 - i));
        ASSERT_TRUE(ChooseAccount(choices[i].second));
        const driver::Notification expected = Expected(jobs_[i], jobFiles_[i], choices[i].first, choices[i].second);
        PressOk();
        ExpectNotification(expected);
        EXPECT_EQ(Server().NotificationNames().size(), i + 1);
    }
    EXPECT_TRUE(DialogStaysHidden());
}

TEST_F(QueueTest, CancelReportsThatTheSpoolerKeptTheJobAndOffersTheNext) {
    ASSERT_NO_FATAL_FAILURE(OfferThree());
    PressCancel();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Title(), message::title);
    EXPECT_EQ(box->Text(), message::jobCancelError);
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    ASSERT_TRUE(DialogOffers(L"Sheet 2"));
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"2");
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(QueueTest, JobsThatArriveWhileOneIsOfferedOnlyRaiseTheCount) {
    PublishAll();
    StartMonitoring();
    Announce(L"First");
    ASSERT_TRUE(DialogOffers(L"First"));
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"1");
    Announce(L"Second");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    EXPECT_EQ(DialogControl(L"lblDocument").Text(), L"First");
}

TEST_F(QueueTest, TheCloseBoxAndEscapeLeaveTheOfferedJobAsItIs) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = Announce(L"Kept.doc");
    ASSERT_TRUE(DialogOffers(L"Kept.doc"));
    ASSERT_TRUE(ChooseAccount(L"Audit"));
    Dialog().Post(WM_SYSCOMMAND, SC_CLOSE);
    Dialog().Post(WM_CLOSE);
    View(L"All").PressKey(VK_ESCAPE);
    // A click behind them in the dialog's queue shows that they have been dealt with.
    DialogControl(L"chkSubmitAllDocuments").Click();
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"chkSubmitAllDocuments").Checked(); }));
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_TRUE(driver::MessageWindowsOf(Client().ProcessId()).empty());
    const driver::Notification expected = Expected(job, LastJobFile(), 2, L"Smith / Audit");
    PressOk();
    ExpectNotification(expected);
}

using RuleTest = SystemTest;

TEST_F(RuleTest, RequiredCommentIsDemandedAndThenAccepted) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = Announce(L"Strict.doc");
    ASSERT_TRUE(DialogOffers(L"Strict.doc"));
    ASSERT_TRUE(ChooseAccount(L"Comment needed"));
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"txtComment").Enabled(); }));
    const std::wstring demand = DialogControl(L"lblCommentMandatory").Text();
    ASSERT_FALSE(demand.empty());

    DialogControl(L"txtComment").Type(L"   ");
    PressOk();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Text(), demand);
    EXPECT_EQ(box->Title(), Dialog().Text());
    EXPECT_TRUE(box->HasIcon());
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_TRUE(Server().NotificationNames().empty());

    DialogControl(L"txtComment").SetText(L"Matter 12");
    driver::Notification expected = Expected(job, LastJobFile(), 30, L"Comment needed");
    expected.comment = L"Matter 12";
    PressOk();
    ExpectNotification(expected);
}

TEST_F(RuleTest, InactiveAccountIsRefused) {
    PublishAll();
    StartMonitoring();
    Announce(L"Old.doc");
    ASSERT_TRUE(DialogOffers(L"Old.doc"));
    ASSERT_TRUE(ChooseAccount(L"Closed"));
    PressOk();
    ExpectMessage(message::accountNotActive);
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(RuleTest, OkWithoutASelectedAccountAsksForOne) {
    PublishAll();
    StartMonitoring();
    Announce(L"Nobody.doc");
    ASSERT_TRUE(DialogOffers(L"Nobody.doc"));
    ASSERT_TRUE(ShowTab(2));
    ASSERT_EQ(View(L"Preferred").RowCount(), 0);
    PressOk();
    ExpectMessage(message::selectAccount);
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(RuleTest, EveryJobStartsWithoutCommentUnlessTheMachineRemembersSettings) {
    PublishAll({.defaultComment = L"Standing order", .showOnInvoiceLabel = L"Put it on the bill"});
    StartMonitoring();
    Announce(L"Plain.doc");
    ASSERT_TRUE(DialogOffers(L"Plain.doc"));
    EXPECT_EQ(DialogControl(L"txtComment").Text(), L"");
    EXPECT_EQ(DialogControl(L"chkInvoice").Text(), L"Put it on the bill");
}

TEST_F(RuleTest, MachineThatRemembersSettingsKeepsTheDefaultComment) {
    driver::SetMachineSetting(L"TLXClientRemembersSettings", 1UL);
    PublishAll({.defaultComment = L"Standing order"});
    StartMonitoring();
    Announce(L"Plain.doc");
    ASSERT_TRUE(Client().WaitForVisible(L"frmAccountNumber"));
    EXPECT_TRUE(WaitFor(
        [&] { return DialogControl(L"cmdOK").Enabled() && DialogControl(L"txtComment").Text() == L"Standing order"; }));
    EXPECT_TRUE(ChooseAccount(L"Smith"));
    EXPECT_EQ(DialogControl(L"txtComment").Text(), L"Standing order");
}

TEST_F(RuleTest, DialogStaysAboveOtherWindowsWhenTheSettingsSaySo) {
    PublishAll({.popupOnTop = true});
    StartMonitoring();
    Announce(L"Top.doc");
    ASSERT_TRUE(DialogOffers(L"Top.doc"));
    EXPECT_TRUE(WaitFor([&] { return Dialog().TopMost(); }));
}

}  // namespace
