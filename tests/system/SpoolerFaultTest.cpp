// Printer monitoring with a spooler that refuses calls, or answers with nonsense.

#include <algorithm>

#include "SpoolerTest.h"
#include "driver/Files.h"
#include "driver/Wait.h"

using driver::WaitFor;
namespace fault = spooler::fault;

namespace {

class SpoolerFaultTest : public SpoolerTest {
  protected:
    // The sizes of the buffers in which the client asked for this printer's jobs.
    std::vector<int> BufferSizes() const {
        std::vector<int> sizes;
        for (const std::string& call : Calls("EnumJobsA")) {
            sizes.push_back(std::stoi(call.substr(call.find("size ") + 5)));
        }
        return sizes;
    }
    static int Needed(const std::string& call) { return std::stoi(call.substr(call.find("needed ") + 7)); }
};

TEST_F(SpoolerFaultTest, PrinterThatCannotBeOpenedShowsAsFailedAndIsTriedAgainSoon) {
    Spooler().Inject({fault::open, PrinterName(L"Locked")});
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(Hurried(), {L"Locked", L"Laser"}));
    EXPECT_TRUE(HasFailed(L"Locked"));
    EXPECT_TRUE(IsWatched(L"Laser"));
    ASSERT_NO_FATAL_FAILURE(ExpectOnlyNewJobsOffered(7));
    RefreshEverything();
    EXPECT_TRUE(HasFailed(L"Locked"));
    Spooler().Heal(fault::open);
    EXPECT_TRUE(IsWatched(L"Locked")) << "the next full refresh would else be in an hour";
    Print(8, L"Unlocked.doc", L"Locked");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
}

TEST_F(SpoolerFaultTest, PrinterWithoutChangeHandleShowsAsFailedAndIsLeftAlone) {
    Spooler().Inject({fault::watch, PrinterName(L"Invalid")});
    Spooler().Inject({fault::watchNull, PrinterName(L"None")});
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(PrinterMonitoring(), {L"Invalid", L"None", L"Laser"}));
    EXPECT_TRUE(HasFailed(L"Invalid"));
    EXPECT_TRUE(HasFailed(L"None"));
    EXPECT_TRUE(IsWatched(L"Laser"));
    Print({OwnJob(7, L"Unseen.doc", L"Invalid"), OwnJob(7, L"Unseen.doc", L"None")});
    ASSERT_NO_FATAL_FAILURE(ExpectOnlyNewJobsOffered(8));
    for (const std::string& call : Calls("EnumJobsA")) {
        EXPECT_NE(call.find("(" + PrinterName(L"Laser") + ")"), std::string::npos) << call;
    }
    EXPECT_TRUE(WaitFor([&] { return Calls("ClosePrinter").size() == 2; })) << "neither is left open";
}

TEST_F(SpoolerFaultTest, LibraryWithoutChangeNotificationsLetsTheClientStart) {
    Install(L"winspool95.drv");
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    EXPECT_TRUE(HasFailed());
    EXPECT_TRUE(Client().Answers());
}

TEST_F(SpoolerFaultTest, JobThatArrivesBetweenTheTwoCallsIsOffered) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    const std::size_t before = BufferSizes().size();
    Spooler().Inject({fault::grow, "", 0, 1});
    Print({OwnJob(7, L"First.doc"), OwnJob(8, L"Just in time.doc")});
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    const std::vector<std::string> calls = Calls("EnumJobsA");
    const std::vector<int> sizes = BufferSizes();
    ASSERT_EQ(sizes.size(), before + 3);
    EXPECT_EQ(sizes[before], 0);
    EXPECT_EQ(sizes[before + 1], Needed(calls[before]));
    EXPECT_EQ(sizes[before + 2], Needed(calls[before + 1]) + 1000);
}

TEST_F(SpoolerFaultTest, EnumerationThatClaimsMoreJobsThanItReturnsDoesNoHarm) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    // One or two more lie where the texts are, the others far outside.
    int jobs = 0;
    for (const DWORD more : {1UL, 2UL, 1000000UL, 0x7FFFFF00UL}) {
        ++jobs;
        Spooler().Inject({fault::overclaim, "", more, 1});
        Print(jobs, std::wstring(300, L'x') + std::to_wstring(jobs));
        ASSERT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == std::to_wstring(jobs); }));
    }
    // More than there are numbers, which reads as fewer than none.
    Spooler().Inject({fault::overclaim, "", 0x80000000UL, 1});
    Print(++jobs, L"Hidden by its number.doc");
    ASSERT_TRUE(WaitFor([&] { return Calls("EnumJobsA").back().ends_with("returned 2147483653"); }));
    RefreshEverything();
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == std::to_wstring(jobs); }));
    EXPECT_TRUE(Client().Answers());
}

TEST_F(SpoolerFaultTest, NullAndEmptyTextsAreEmpty) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    spooler::Job nothing{PrinterName(), 5};
    spooler::Job empty{PrinterName(), 6, "", "", ""};
    spooler::Job nameless = OwnJob(7, L"");
    nameless.document.reset();
    Print({nothing, empty, nameless, OwnJob(8, L"After.doc")});
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; })) << "nobody's jobs are not";
    ASSERT_NO_FATAL_FAILURE(Charge(Seen(7, L"")));
}

TEST_F(SpoolerFaultTest, DocumentNameOfSixtyThousandCharactersComesThrough) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(Hurried()));
    std::wstring document;
    while (document.size() < 60000) {
        document += L"Abschlu\u00df " + std::to_wstring(document.size()) + L' ';
    }
    document += L'.';
    Print(7, document);
    ASSERT_NO_FATAL_FAILURE(Charge(Seen(7, document)));
    EXPECT_TRUE(WaitFor([&] { return Status(L"lblServerHealthTestResult").Text() == L"All handles / servers valid."; }))
        << "although its buffer is too small for the first answer";
}

TEST_F(SpoolerFaultTest, InvalidHandleBringsAFullRefresh) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(Hurried()));
    const int handle = HandleOf();
    Spooler().Inject({fault::handle, "", 0, 1});
    ASSERT_TRUE(WaitFor([&] { return HandleOf() != handle; }));
    EXPECT_EQ(Status(L"lblServerHealthTestResult").Text(), L"Some handles / servers invalid.");
    ASSERT_NO_FATAL_FAILURE(ExpectOnlyNewJobsOffered(7));
}

TEST_F(SpoolerFaultTest, RefusedEnumerationLosesNoJob) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    const std::size_t before = Calls("EnumJobsA").size();
    Spooler().Inject({fault::enumerate, "", ERROR_NOT_ENOUGH_MEMORY, 3});
    Print(7, L"Late.doc");
    ASSERT_TRUE(WaitFor([&] { return Calls("EnumJobsA").size() == before + 3; }));
    RefreshEverything();
    EXPECT_TRUE(DialogOffers(L"Late.doc"));
}

TEST_F(SpoolerFaultTest, RefusedCancelSaysSo) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    Spooler().Inject({fault::setJob});
    Print(7, L"Stuck.doc");
    ASSERT_TRUE(DialogOffers(L"Stuck.doc"));
    PressCancel();
    ExpectMessage(message::jobCancelError);
    EXPECT_TRUE(Spooler().Commands().empty());
    EXPECT_TRUE(Client().WaitForHidden(L"frmAccountNumber"));
}

TEST_F(SpoolerFaultTest, ReArmingIsTriedTwice) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    Spooler().Inject({fault::rearm, "", ERROR_INVALID_HANDLE, 1});
    Print(7, L"First.doc");
    ASSERT_TRUE(DialogOffers(L"First.doc"));
    EXPECT_EQ(Calls("FindNextPrinterChangeNotification").size(), 2U);
    Print(8, L"Second.doc");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    EXPECT_EQ(Calls("FindNextPrinterChangeNotification").size(), 3U);
}

TEST_F(SpoolerFaultTest, HandleThatCannotBeWaitedOnHoldsNothingUp) {
    Spooler().Inject({fault::wait, PrinterName(L"Broken")});
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(Hurried(), {L"Broken", L"Laser"}));
    Print(7, L"Found by the signal.doc");
    ASSERT_TRUE(DialogOffers(L"Found by the signal.doc"));
    Print(8, L"Found by the refresh.doc", L"Broken");
    Spooler().Heal(fault::wait);
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }))
        << "the refresh is brought forward";
    Print(9, L"Found by the signal.doc", L"Broken");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"3"; }));
}

TEST_F(SpoolerFaultTest, SpoolerThatRestartsIsWatchedAgainSoonAndItsHandlesAreClosed) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring(Hurried(), {L"Laser", L"Colour"}));
    Print(7, L"Before.doc");
    ASSERT_NO_FATAL_FAILURE(Charge(Seen(7, L"Before.doc")));
    const int handle = HandleOf();
    Spooler().Restart();
    Print(8, L"After.doc", L"Colour");
    ASSERT_TRUE(DialogOffers(L"After.doc"));
    ASSERT_TRUE(WaitFor([&] { return HandleOf() != handle; }));
    EXPECT_TRUE(WaitFor([&] { return Calls("FindClosePrinterChangeNotification").size() >= 2; }));
    Print(9, L"Signalled.doc");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
}

}  // namespace
