// The road of a print job: from the file that announces it, through the dialog, to the notification on the server.

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

// The same road on both families of Windows; the parameter says whether it is the Windows 98 family.
class RoadTest : public SystemTest, public ::testing::WithParamInterface<bool> {
  protected:
    RoadTest() { driver::PretendWindows98(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Family, RoadTest, ::testing::Bool(), [](const ::testing::TestParamInfo<bool>& family) {
    return family.param ? "Windows98" : "WindowsNT";
});

TEST_P(RoadTest, AnnouncedJobIsOfferedAndChargedToTheChosenAccount) {
    PublishAll();
    StartMonitoring();

    const driver::Job job = Announce(L"Offer 7.doc", 56);
    ASSERT_TRUE(DialogOffers(L"Offer 7.doc"));
    EXPECT_EQ(DialogControl(L"lblPrinter").Text(), L"Laser");
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"1");
    EXPECT_EQ(Titles(L"All"), (std::vector<std::wstring>{L"Smith", L"Audit", L"Tax", L"Jones", L"North", L"Closed",
                                                         L"Comment needed", L"Comment welcome", L"Always invoiced"}));

    ASSERT_TRUE(ChooseAccount(L"Comment welcome"));
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"txtComment").Enabled(); }));
    DialogControl(L"txtComment").Type(L"Second copy");
    driver::Notification expected = Expected(job, LastJobFile(), 31, L"Comment welcome");
    expected.comment = L"Second copy";
    PressOk();

    ExpectNotification(expected);
    EXPECT_EQ(Server().NotificationNames(), std::vector<std::wstring>{expected.FileName()});
    EXPECT_TRUE(Client().WaitForHidden(L"frmAccountNumber"));
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"0");
}

TEST_P(RoadTest, TheClientKnowsWhichFamilyOfWindowsItRunsOn) {
    PublishAll({.jobDetectionMethod = 0, .jobDetectionMethodWindows9x = 1});
    StartMonitoring();
    EXPECT_EQ(Status(L"lblJobDetectionMethod").Text(), GetParam() ? L"Printer monitoring" : L"File monitoring");
}

TEST_P(RoadTest, JobOfTheSameUserFromAnotherMachineIsOfferedOnWindows98Only) {
    PublishAll();
    StartMonitoring();
    AnnounceJob({.machine = L"ELSEWHERE", .document = L"Remote.doc"});
    if (GetParam()) {
        EXPECT_TRUE(DialogOffers(L"Remote.doc"));
    } else {
        EXPECT_TRUE(DialogStaysHidden());
    }
}

TEST_P(RoadTest, DoubleClickOnAnAccountCountsAsOk) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = Announce(L"Double.doc");
    ASSERT_TRUE(DialogOffers(L"Double.doc"));
    const driver::Notification expected = Expected(job, LastJobFile(), 2, L"Smith / Audit");
    View(L"All").DoubleClickRow(View(L"All").FindRow(1, L"Audit"));
    ExpectNotification(expected);
}

TEST_P(RoadTest, NamesInManyScriptsAndVeryLongOnesReachTheNotificationUnchanged) {
    PublishAll({.jobMatchMethod = 2});
    StartMonitoring();
    const std::wstring document =
        L"\"R\u00e9sum\u00e9\" 'na\u00efve' & \u65e5\u672c\u8a9e \u0436 100% " + std::wstring(200, L'x');
    // The machine is part of the notification's file name, for which Windows 98 has its code page only.
    const driver::Job job = AnnounceJob({.id = 2147483647,
                                         .printer = L"B\u00fcro & \"Laser\" " + std::wstring(200, L'p'),
                                         .machine = GetParam() ? L"R\u00e4chner" : L"R\u00e4chner-\u0434",
                                         .document = document,
                                         .printerHandle = -5});
    ASSERT_TRUE(WaitFor([&] { return DialogIsReady(); }));
    if (!GetParam()) {
        EXPECT_EQ(DialogControl(L"lblDocument").Text(), document);
    }
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    const driver::Notification expected = Expected(job, LastJobFile(), 1, L"Smith");
    PressOk();
    ExpectNotification(expected);
}

using NotificationTest = SystemTest;

TEST_F(NotificationTest, GoesToTheServerThatHoldsThePrinter) {
    PublishAll();
    const driver::PrintServer other(SharesFolder(), ServerName(L"B"));
    StartMonitoring();
    const driver::Job job = AnnounceJob({.id = 9,
                                         .printer = L"Colour",
                                         .document = L"Poster.pdf",
                                         .fullPrinter = L"\\\\" + other.Name() + L"\\Colour",
                                         .printerHandle = 1234});
    ASSERT_TRUE(DialogOffers(L"Poster.pdf"));
    ASSERT_TRUE(ChooseAccount(L"North"));
    const driver::Notification expected = Expected(job, LastJobFile(), 11, L"Jones / North");
    PressOk();
    ExpectNotification(expected, other);
    EXPECT_TRUE(Server().NotificationNames().empty());
    other.Remove();
}

TEST_F(NotificationTest, CommentOf300CharactersIsSentAsItsFirst254) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = Announce(L"Long comment.doc");
    ASSERT_TRUE(DialogOffers(L"Long comment.doc"));
    ASSERT_TRUE(ChooseAccount(L"Comment welcome"));
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"txtComment").Enabled(); }));
    std::wstring comment;
    for (wchar_t letter = L'a'; comment.size() < 300;
         letter = letter == L'z' ? L'a' : static_cast<wchar_t>(letter + 1)) {
        comment.push_back(letter);
    }
    DialogControl(L"txtComment").SetText(comment);
    driver::Notification expected = Expected(job, LastJobFile(), 31, L"Comment welcome");
    expected.comment = comment.substr(0, 254);
    PressOk();
    ExpectNotification(expected);
}

TEST_F(NotificationTest, CommentTypedForAnotherAccountIsNotSentForOneWithoutComment) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = Announce(L"Changed mind.doc");
    ASSERT_TRUE(DialogOffers(L"Changed mind.doc"));
    ASSERT_TRUE(ChooseAccount(L"Comment welcome"));
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"txtComment").Enabled(); }));
    DialogControl(L"txtComment").Type(L"For the other one");
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    EXPECT_TRUE(WaitFor([&] { return !DialogControl(L"txtComment").Enabled(); }));
    const driver::Notification expected = Expected(job, LastJobFile(), 1, L"Smith");
    PressOk();
    ExpectNotification(expected);
}

TEST_F(NotificationTest, ClearedInvoiceBoxAndChosenRateAreSent) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = Announce(L"Internal.doc");
    ASSERT_TRUE(DialogOffers(L"Internal.doc"));
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    const driver::Window invoice = DialogControl(L"chkInvoice");
    ASSERT_TRUE(invoice.Checked()) << "each job starts with a ticked box";
    invoice.Click();
    ASSERT_TRUE(WaitFor([&] { return !invoice.Checked(); }));
    const driver::ComboWindow rates(DialogControl(L"cboChargeRate"));
    EXPECT_EQ(rates.Items(), (std::vector<std::wstring>{L"Standard", L"Reduced"}));
    rates.Select(1);
    driver::Notification expected = Expected(job, LastJobFile(), 1, L"Smith");
    expected.invoiceable = false;
    expected.chargeRate = L"Reduced";
    expected.chargeRateValue = L"0.5";
    PressOk();
    ExpectNotification(expected);
}

TEST_F(NotificationTest, AccountThatMustBeInvoicedForcesATickedBoxThatCannotBeCleared) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = Announce(L"Invoice.doc");
    ASSERT_TRUE(DialogOffers(L"Invoice.doc"));
    const driver::Window invoice = DialogControl(L"chkInvoice");
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    invoice.Click();
    ASSERT_TRUE(WaitFor([&] { return !invoice.Checked(); }));
    ASSERT_TRUE(ChooseAccount(L"Always invoiced"));
    EXPECT_TRUE(WaitFor([&] { return invoice.Checked() && !invoice.Enabled(); }));
    const driver::Notification expected = Expected(job, LastJobFile(), 40, L"Always invoiced");
    PressOk();
    ExpectNotification(expected);
}

TEST_F(NotificationTest, AServerThatCannotBeReachedIsReportedAndTheJobLeavesTheQueue) {
    PublishAll();
    StartMonitoring();
    Announce(L"Unlucky.doc");
    ASSERT_TRUE(DialogOffers(L"Unlucky.doc"));
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    Server().Unplug();
    PressOk();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Title(), message::title);
    EXPECT_EQ(box->Text(), message::notificationError);
    EXPECT_TRUE(box->HasIcon());
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    Server().PlugIn();
    EXPECT_TRUE(DialogStaysHidden());
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"0");
}

TEST_F(NotificationTest, JobWhosePrinterHasNoServerIsReportedAsAnInternalError) {
    PublishAll();
    StartMonitoring();
    AnnounceJob({.document = L"Nowhere.doc", .fullPrinter = L"Laser"});
    ASSERT_TRUE(DialogOffers(L"Nowhere.doc"));
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    PressOk();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_TRUE(
        box->Text().starts_with(L"Internal error - unable to determine server name for printer. Report this to "));
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(NotificationTest, TestModeChargesJobsByItself) {
    driver::ClientSettings settings;
    Server().PublishAll(settings, {{.id = 5, .mainTitle = L"First", .requireComment = 1},
                                   {.id = 6, .mainTitle = L"Second", .requireComment = 1}});
    Server().WriteCounter(driver::CurrentUserLowerCase(), 0);
    StartMonitoring(L"/TEST");
    const driver::Job job = Announce(L"Automatic.doc", 77);
    const std::wstring name = driver::Notification::For(job, LastJobFile()).FileName();
    ASSERT_TRUE(WaitFor([&] {
        const std::optional<std::string> bytes = driver::TryReadBytes(Server().NotificationFolder() + L"\\" + name);
        return bytes && driver::Lines(driver::Utf16Text(*bytes)).size() == 13;
    }));
    const driver::Notification sent = driver::Notification::Decode(Server().NotificationBytes(name));
    EXPECT_EQ(sent.jobId, 77);
    EXPECT_EQ(sent.document, L"Automatic.doc");
    EXPECT_TRUE((sent.accountId == 5 && sent.accountTitle == L"First") ||
                (sent.accountId == 6 && sent.accountTitle == L"Second"));
    EXPECT_TRUE(sent.comment.starts_with(L"Comment at ")) << driver::Utf8Bytes(sent.comment);
    EXPECT_TRUE(Client().WaitForHidden(L"frmAccountNumber"));
}

}  // namespace
