// Printer monitoring: jobs are found in the spooler, by its change notifications or by polling.

#include <algorithm>
#include <map>

#include "SpoolerTest.h"
#include "driver/Files.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

// On both families of Windows; the parameter says whether it is the Windows 98 family, where the client polls.
class PrinterMonitoringTest : public SpoolerTest, public ::testing::WithParamInterface<bool> {
  protected:
    PrinterMonitoringTest() : SpoolerTest(GetParam()) {}

    // From now on the trace log tells what is queued.
    void EnableLogging() {
        Client().ChooseMenuEntry(0);
        ExpectMessage(L"This will turn on logging. Only do this for debugging purposes.");
    }
    // What the client has queued, as "document,printer" in the order of queueing.
    std::vector<std::string> Queued() {
        static const std::string mark = "Adding Job to pending list: ";
        const std::string log = driver::TryReadBytes(Client().Folder() + L"\\tlxlog.txt").value_or("");
        std::vector<std::string> queued;
        for (std::size_t at = log.find(mark); at != std::string::npos; at = log.find(mark, at)) {
            at += mark.size();
            queued.push_back(log.substr(at, log.find("\r\n", at) - at));
        }
        return queued;
    }
};

INSTANTIATE_TEST_SUITE_P(Family, PrinterMonitoringTest, ::testing::Bool(),
                         [](const ::testing::TestParamInfo<bool>& family) {
                             return family.param ? "Windows98" : "WindowsNT";
                         });

TEST_P(PrinterMonitoringTest, OnlyJobsFromAfterTheStartAreOfferedAndEachOnce) {
    Spooler().SetJobs({OwnJob(3, L"Yesterday.doc")});
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    ASSERT_NO_FATAL_FAILURE(ExpectOnlyNewJobsOffered(7));
    const driver::Job first = Seen(7, L"Proof 7.doc");
    RefreshEverything();
    EXPECT_NE(HandleOf(), first.printerHandle) << "the printer was opened anew";
    Print(8, L"Second.doc");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    ASSERT_NO_FATAL_FAILURE(Charge(first));
    EXPECT_TRUE(Spooler().Commands().empty());
    EXPECT_EQ(Calls("FindFirstPrinterChangeNotification").empty(), GetParam());
}

TEST_P(PrinterMonitoringTest, TextsOfTheCodePageComeOutRight) {
    const std::wstring printer = L"B\u00fcro \u00bd";
    const std::wstring document = L"Gr\u00f6\u00dfe \u2013 r\u00e9sum\u00e9 \u20ac.doc";
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(PrinterMonitoring(), {printer}));
    ASSERT_TRUE(IsWatched(printer));
    Print(7, document, printer);
    ASSERT_NO_FATAL_FAILURE(Charge(Seen(7, document, printer)));
}

TEST_P(PrinterMonitoringTest, OkAndCancelReachTheRightJobOfTheRightUser) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(PrinterMonitoring(), {L"Laser", L"Color"}));
    spooler::Job theirs = OwnJob(6, L"Theirs.doc");
    theirs.user = "somebody-else";
    spooler::Job theirsToo = OwnJob(8, L"Theirs too.doc");
    theirsToo.user = "somebody-else";
    Print({theirs, OwnJob(7, L"First.doc"), theirsToo, OwnJob(9, L"Second.doc")});
    // The client may be between the two printers just then: the second one's jobs come when the first one's are known.
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    // The same numbers on both printers, as numbers are each printer's own.
    Print({OwnJob(7, L"Third.doc", L"Color"), OwnJob(9, L"Fourth.doc", L"Color")});
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"4"; }));
    ASSERT_NO_FATAL_FAILURE(Cancel(Seen(7, L"First.doc")));
    ASSERT_NO_FATAL_FAILURE(Charge(Seen(9, L"Second.doc")));
    ASSERT_NO_FATAL_FAILURE(Charge(Seen(7, L"Third.doc", L"Color")));
    ASSERT_NO_FATAL_FAILURE(Cancel(Seen(9, L"Fourth.doc", L"Color")));
    EXPECT_EQ(Server().NotificationNames().size(), 2U);
    EXPECT_EQ(Spooler().Jobs().size(), 4U) << "what was charged waits for its release, the other user's is left alone";
}

TEST_P(PrinterMonitoringTest, BurstOnFivePrintersIsOfferedOnceEachInOrder) {
    const std::vector<std::wstring> printers{L"P1", L"P2", L"P3", L"P4", L"P5"};
    driver::ClientSettings settings = PrinterMonitoring();
    // Each poll writes a lot into the log.
    settings.printerPollingInterval = 2;
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(settings, printers));
    EnableLogging();
    std::vector<spooler::Job> jobs;
    std::map<std::string, std::vector<std::string>> expected;
    for (int id = 1; id <= 200; ++id) {
        const std::wstring& printer = printers[static_cast<std::size_t>(id) % printers.size()];
        jobs.push_back(OwnJob(id, L"Sheet " + std::to_wstring(id), printer));
        expected[driver::AnsiBytes(printer)].push_back(*jobs.back().document);
    }
    Print(jobs);
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"200"; }));
    RefreshEverything();
    std::map<std::string, std::vector<std::string>> queued;
    for (const std::string& line : Queued()) {
        const std::size_t comma = line.rfind(',');
        queued[line.substr(comma + 1)].push_back(line.substr(0, comma));
    }
    EXPECT_EQ(queued, expected);
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"200");
}

TEST_P(PrinterMonitoringTest, SpoolerThatDiesAndReturnsIsFoundAgain) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(Hurried()));
    Print(7, L"Before.doc");
    ASSERT_TRUE(DialogOffers(L"Before.doc"));
    Spooler().Stop();
    ASSERT_TRUE(HasFailed());
    EXPECT_EQ(Status(L"lblServerHealthTestResult").Text(), L"Some handles / servers invalid.");
    EXPECT_TRUE(Client().Answers());
    Spooler().Start();
    ASSERT_TRUE(IsWatched());
    Print(8, L"After.doc");
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    ASSERT_TRUE(DialogOffers(L"Before.doc"));
    PressCancel();
    ExpectMessage(message::jobCancelError);
    ASSERT_NO_FATAL_FAILURE(Charge(Seen(8, L"After.doc")));
}

TEST_P(PrinterMonitoringTest, ChangedMethodSwapsTheDetectorAtAFullRefresh) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    PublishPrinters({}, {L"Laser"});
    RefreshEverything();
    EXPECT_EQ(Status(L"lblJobDetectionMethod").Text(), L"File monitoring");
    const std::size_t calls = Spooler().Calls().size();
    Print(7, L"Unseen.doc");
    const driver::Job announced = Announce(L"From a file.doc", 8);
    ASSERT_TRUE(DialogOffers(L"From a file.doc"));
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"1");
    EXPECT_EQ(Spooler().Calls().size(), calls) << "the spooler is not asked any more";

    // Cancelling it takes a handle of its own for the while.
    Spooler().AddJobs({OwnJob(8, L"From a file.doc")});
    ASSERT_NO_FATAL_FAILURE(Cancel(announced));
    const std::vector<std::string> made = Spooler().Calls();
    ASSERT_EQ(made.size(), calls + 3);
    EXPECT_TRUE(made[calls].starts_with("OpenPrinterA " + PrinterName()));
    EXPECT_TRUE(made[calls + 1].starts_with("SetJobA "));
    EXPECT_TRUE(made[calls + 2].starts_with("ClosePrinter "));

    PublishPrinters(PrinterMonitoring(), {L"Laser"});
    RefreshEverything();
    EXPECT_EQ(Status(L"lblJobDetectionMethod").Text(), L"Printer monitoring");
    ASSERT_NO_FATAL_FAILURE(ExpectOnlyNewJobsOffered(9));
}

}  // namespace
