#include "detection/clsJobDetectionPrinter.h"

#include <gtest/gtest.h>

#include "unit/detection/PrinterDetection.h"

namespace korvanta::tests {
namespace {

const std::u16string laser = u"\\\\srv\\laser";
const std::u16string colour = u"\\\\srv\\colour";

// Bytes of one job block with its texts, as the fake spooler lays them.
std::int64_t BytesOf(const std::u16string& printer, const fakes::FakeJob& job) {
    const std::size_t texts = printer.size() + job.machine.size() + job.user.size() + job.document.size() + 3;
    return static_cast<std::int64_t>(64 + texts + 5);
}

class JobDetectionPrinter : public PrinterDetection {};

TEST_F(JobDetectionPrinter, StartOpensEachPrinterAsksForItsSignalAndReportsIt) {
    Publish({u"laser", u"colour"});
    Start();
    EXPECT_EQ(CallsBut("EnumJobs"), (Texts{u"OpenPrinter \\\\srv\\laser", u"FindFirstChange 4096 256",
                                           u"OpenPrinter \\\\srv\\colour", u"FindFirstChange 4097 256"}));
    EXPECT_EQ(sink_.printers, (Reports{{laser, true}, {colour, true}}));
}

TEST_F(JobDetectionPrinter, JobsQueuedBeforeStartAreNeverReported) {
    Publish({u"laser"});
    AddJob(laser, u"old");
    Start();
    Tick();
    Detector().FullRefresh();
    Detector().PrinterListChanged();
    EXPECT_EQ(sink_.jobs.size(), 0U);
}

TEST_F(JobDetectionPrinter, JobQueuedAfterStartIsReportedOnceWithItsPrintersNameAndHandle) {
    Publish({u"laser", u"colour"});
    Start();
    AddJob(colour, u"new");
    Tick();
    Tick();
    Detector().FullRefresh();
    Detector().PrinterListChanged();
    ASSERT_EQ(sink_.Documents(), Texts{u"new"});
    EXPECT_EQ(sink_.jobs[0]->FullPrinterName, colour);
    EXPECT_EQ(sink_.jobs[0]->PrinterHandle, 4097);
    EXPECT_EQ(sink_.jobs[0]->UserName, u"jsmith");
}

TEST_F(JobDetectionPrinter, FullRefreshAndPrinterListChangedReportWhatNoTickHasSeen) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"first");
    Detector().FullRefresh();
    AddJob(laser, u"second");
    Detector().PrinterListChanged();
    EXPECT_EQ(sink_.Documents(), (Texts{u"first", u"second"}));
}

TEST_F(JobDetectionPrinter, HistoryOutlivesAPrinterThatLeavesAndComesBack) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"seen");
    Tick();
    Publish({u"colour"});
    Detector().PrinterListChanged();
    Publish({u"laser"});
    Detector().PrinterListChanged();
    EXPECT_EQ(sink_.Documents(), Texts{u"seen"});
}

TEST_F(JobDetectionPrinter, RebuildLooksEachPrinterUpInTheNewList) {
    Publish({u"laser"});
    Start();
    sink_.printers.clear();
    Publish({u"colour"});
    Detector().PrinterListChanged();
    EXPECT_EQ(sink_.printers, (Reports{{colour, true}}));
    AddJob(laser, u"not watched");
    AddJob(colour, u"watched");
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"watched"});
}

TEST_F(JobDetectionPrinter, PrinterThatDoesNotOpenIsReportedLoggedAndSkipped) {
    Publish({u"laser", u"colour"});
    spooler_.RemovePrinter(laser);
    Start();
    EXPECT_EQ(sink_.printers, (Reports{{laser, false}, {colour, true}}));
    EXPECT_TRUE(
        organisation_.log.Has(u"Warning - unable to open printer \\\\srv\\laser (OpenPrinter call failed: 1801)"));
    EXPECT_EQ(EnumeratedHandles(), (std::set<std::u16string>{u"4096"}));
    Tick();
    EXPECT_EQ(handles_.polls.back().size(), 1U);
}

TEST_F(JobDetectionPrinter, PrinterWithoutASignalIsReportedLoggedClosedAndSkipped) {
    for (const ChangeHandle failed : {0, -1}) {
        Publish({u"laser", u"colour"});
        sink_.printers.clear();
        spooler_.log.clear();
        spooler_.failedChangeHandle = failed;
        spooler_.faults.FailOnce("FindFirstChange", 1, 120);
        organisation_.log.lines.clear();
        Start();
        EXPECT_EQ(sink_.printers, (Reports{{laser, false}, {colour, true}}));
        EXPECT_TRUE(organisation_.log.Has(
            u"Warning - unable to open printer \\\\srv\\laser (invalid change handle returned. Error: 120)"));
        EXPECT_EQ(EnumeratedHandles().size(), 1U);
        Tick();
        EXPECT_EQ(handles_.polls.back().size(), 1U);
    }
    EXPECT_EQ(spooler_.OpenHandles(), 1U);
}

TEST_F(JobDetectionPrinter, ReportOfAFailedPrinterComesBeforeItsLine) {
    Publish({u"gone"});
    spooler_.RemovePrinter(u"\\\\srv\\gone");
    bool lineWasThere = true;
    sink_.onPrinter = [&] { lineWasThere = organisation_.log.HasStart(u"Warning"); };
    Start();
    EXPECT_FALSE(lineWasThere);
    EXPECT_TRUE(organisation_.log.HasStart(u"Warning"));
}

TEST_F(JobDetectionPrinter, LineOfAFailedPrinterHasTheErrorOfTheFailureAndNotOfWhatTheSinkDid) {
    Publish({u"gone", u"mute"});
    spooler_.RemovePrinter(u"\\\\srv\\gone");
    spooler_.faults.FailOnce("FindFirstChange", 1, 120);
    sink_.onPrinter = [this] { spooler_.lastError = 5; };
    Start();
    EXPECT_TRUE(
        organisation_.log.Has(u"Warning - unable to open printer \\\\srv\\gone (OpenPrinter call failed: 1801)"));
    EXPECT_TRUE(organisation_.log.Has(
        u"Warning - unable to open printer \\\\srv\\mute (invalid change handle returned. Error: 120)"));
}

TEST_F(JobDetectionPrinter, JobThatComesWithTheMessagesBeforeAnEnumerationIsInIt) {
    Publish({u"laser"});
    Start();
    organisation_.platform.messageLoop.onRunPending = Once([this] { AddJob(laser, u"just in time"); });
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), Texts{u"just in time"});
}

TEST_F(JobDetectionPrinter, EnumerationWithAResultBelowZeroHasSucceeded) {
    Publish({u"laser"});
    Start();
    spooler_.successResult = -1;
    AddJob(laser, u"job");
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
    EXPECT_TRUE(organisation_.log.Has(u"ProcessNewJob: Enum Jobs return value: -1"));
    EXPECT_TRUE(Detector().TestServerHealth());
}

TEST_F(JobDetectionPrinter, ProcessingAsksForTheSizeThenForTheJobsAndLogsEachStep) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"Report.doc");
    spooler_.log.clear();
    spooler_.wordCounts.clear();
    organisation_.log.lines.clear();
    Tick();
    const std::int64_t needed = BytesOf(laser, Jobs(laser)[0]);
    EXPECT_EQ(spooler_.log, (Texts{u"FindNextChange 8192", u"EnumJobs 4096 0 4294967295 0",
                                   u"EnumJobs 4096 0 4294967295 " + NumberText(needed)}));
    EXPECT_EQ(spooler_.wordCounts, (std::vector<std::size_t>{0, static_cast<std::size_t>(needed / 4 + 2)}));
    EXPECT_EQ(organisation_.log.lines,
              (Texts{u"MonitorPrintersCallback:WaitForMultipleObjects Succeeded handle triggered: 0",
                     u"ProcessNewJob - called", u"ProcessNewJob: Enum Jobs return value: 1",
                     u"ProcessNewJob: Number of jobs: 1",
                     u"clsJobHistory:CheckNewJob - called for job \\\\srv\\laser, jsmith, Report.doc",
                     u"clsJobHistory:CheckNewJob - blnFound = False"}));
    EXPECT_EQ(sink_.activities, Texts{u"Checking for new jobs"});
}

TEST_F(JobDetectionPrinter, QueueWithoutJobsIsLoggedAsZero) {
    Publish({u"laser"});
    Start();
    EXPECT_EQ(organisation_.log.lines.back(), u"ProcessNewJob: Number of jobs: 0");
    EXPECT_EQ(spooler_.wordCounts, (std::vector<std::size_t>{0, 2}));
}

TEST_F(JobDetectionPrinter, FailedEnumerationIsTriedOnceMoreWithAThousandBytesMore) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"first");
    const std::int64_t needed = BytesOf(laser, Jobs(laser)[0]);
    spooler_.faults.FailOnce("EnumJobs", 2, 5);
    spooler_.log.clear();
    spooler_.wordCounts.clear();
    Tick();
    EXPECT_EQ(spooler_.log, (Texts{u"FindNextChange 8192", u"EnumJobs 4096 0 4294967295 0",
                                   u"EnumJobs 4096 0 4294967295 " + NumberText(needed),
                                   u"EnumJobs 4096 0 4294967295 " + NumberText(needed + 1000)}));
    EXPECT_EQ(spooler_.wordCounts.back(), static_cast<std::size_t>((needed + 1000) / 4 + 2));
    EXPECT_EQ(sink_.Documents(), Texts{u"first"});
}

TEST_F(JobDetectionPrinter, JobThatArrivesBetweenTheCallsIsFoundHoweverLong) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"first");
    int calls = 0;
    spooler_.onEnumJobs = [&] {
        if (++calls == 2) {
            AddJob(laser, std::u16string(60'000, u'x'));
        }
    };
    Detector().FullRefresh();
    ASSERT_EQ(sink_.jobs.size(), 2U);
    EXPECT_EQ(sink_.jobs[1]->Document.size(), 60'000U);
}

TEST_F(JobDetectionPrinter, ThereIsNoFurtherRetryAndTheResultIsLogged) {
    Publish({u"laser", u"colour"});
    Start();
    AddJob(laser, u"first");
    AddJob(colour, u"second");
    spooler_.faults.FailOnce("EnumJobs", 2, 5);
    spooler_.faults.FailOnce("EnumJobs", 3, 5);
    organisation_.log.lines.clear();
    Tick();
    EXPECT_EQ(organisation_.log.lines[2], u"ProcessNewJob: Enum Jobs return value: 0");
    EXPECT_EQ(organisation_.log.lines[3],
              u"MonitorPrintersCallback:WaitForMultipleObjects Succeeded handle triggered: 1");
    EXPECT_EQ(sink_.Documents(), Texts{u"second"}) << "the next printer is served all the same";
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), (Texts{u"second", u"first"})) << "and the job is not lost";
}

TEST_F(JobDetectionPrinter, EnumerationThatClaimsMoreJobsThanItGaveEndsAtTheBuffersEnd) {
    Publish({u"laser", u"colour"});
    Start();
    spooler_.claimedJobs = 1'000'000;
    AddJob(laser, u"first");
    AddJob(colour, u"second");
    Tick();
    EXPECT_EQ(sink_.Documents(), (Texts{u"first", u"second"}));
    EXPECT_TRUE(organisation_.log.Has(u"ProcessNewJob: Number of jobs: 1000000"));
    spooler_.claimedJobs = -1;
    AddJob(laser, u"third");
    Tick();
    EXPECT_EQ(sink_.jobs.size(), 2U) << "fewer than one";
}

TEST_F(JobDetectionPrinter, JobWithNullTextPointersIsReportedWithEmptyTexts) {
    Publish({u"laser"});
    Start();
    spooler_.nullTexts = true;
    AddJob(laser, u"unseen");
    Tick();
    ASSERT_EQ(sink_.jobs.size(), 1U);
    EXPECT_EQ(sink_.jobs[0]->Document, u"");
    EXPECT_EQ(sink_.jobs[0]->UserName, u"");
}

TEST_F(JobDetectionPrinter, ErrorFromTheSinkEndsThatPrinterOnlyAndLosesNoOtherJob) {
    Publish({u"laser", u"colour"});
    Start();
    AddJob(laser, u"raises");
    AddJob(laser, u"behind it");
    AddJob(colour, u"elsewhere");
    sink_.onJob = Once([] { throw Error(5, u"sink", u"failed"); });
    Tick();
    EXPECT_EQ(sink_.Documents(), (Texts{u"raises", u"elsewhere"}));
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), (Texts{u"raises", u"elsewhere", u"behind it"}));
}

TEST_F(JobDetectionPrinter, TickWithoutPrintersReportsNothing) {
    Start();
    Tick();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    EXPECT_EQ(handles_.polls, (std::vector<std::vector<ChangeHandle>>{{}}));
    EXPECT_EQ(organisation_.log.lines.back(), u"MonitorPrintersCallback:WaitForMultipleObjects Wait Failed");
}

TEST_F(JobDetectionPrinter, TickWithoutASignalAsksNoPrinter) {
    Publish({u"laser"});
    Start();
    organisation_.log.lines.clear();
    spooler_.log.clear();
    Tick();
    EXPECT_EQ(spooler_.log, Texts());
    EXPECT_EQ(organisation_.log.lines, Texts());
}

TEST_F(JobDetectionPrinter, HandleSignalledAgainAndAgainIsServedOncePerPass) {
    Publish({u"laser", u"colour"});
    Start();
    // Each wait begins behind the printer that was served last.
    handles_.scriptedResults = {1, 1, 0, 1, fakes::FakeWaitableHandles::timedOut};
    spooler_.log.clear();
    Tick();
    EXPECT_EQ(CallsBut("EnumJobs"),
              (Texts{u"FindNextChange 8193", u"FindNextChange 8193", u"FindNextChange 8192", u"FindNextChange 8192"}));
    EXPECT_EQ(spooler_.log.size(), 4U + 4U * 2U) << "and enumerated each time";
    EXPECT_EQ(handles_.polls.size(), 5U);
}

TEST_F(JobDetectionPrinter, FailedWaitEndsTheTickWithItsLine) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"waiting");
    handles_.scriptedResults = {0xFFFFFFFF};
    Tick();
    EXPECT_EQ(organisation_.log.lines.back(), u"MonitorPrintersCallback:WaitForMultipleObjects Wait Failed");
    EXPECT_EQ(sink_.jobs.size(), 0U);
    handles_.scriptedResults = {128};
    Tick();
    EXPECT_EQ(organisation_.log.lines.back(), u"MonitorPrintersCallback:WaitForMultipleObjects Case Else!");
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"waiting"});
}

TEST_F(JobDetectionPrinter, ReArmingIsTriedTwiceWithMessagesInBetween) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"job");
    spooler_.faults.FailOnce("FindNextChange", 1, 6);
    spooler_.log.clear();
    const int before = organisation_.platform.messageLoop.pendingRuns;
    std::size_t callsBeforeMessages = 0;
    organisation_.platform.messageLoop.onRunPending = Once([&] { callsBeforeMessages = spooler_.log.size(); });
    Tick();
    EXPECT_EQ(CallsBut("EnumJobs"), (Texts{u"FindNextChange 8192", u"FindNextChange 8192"}));
    EXPECT_EQ(callsBeforeMessages, 1U);
    EXPECT_EQ(organisation_.platform.messageLoop.pendingRuns, before + 2) << "the other one begins the enumeration";
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionPrinter, ReArmingIsNotTriedAThirdTimeAndTheJobsAreReadAllTheSame) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"job");
    spooler_.faults.FailOnce("FindNextChange", 1, 6);
    spooler_.faults.FailOnce("FindNextChange", 2, 6);
    Tick();
    EXPECT_EQ(spooler_.faults.Calls("FindNextChange"), 2);
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionPrinter, MorePrintersThanOneWaitTakesAreAllWatched) {
    Texts names;
    for (int i = 0; i < 300; ++i) {
        names.push_back(u"p" + NumberText(i));
    }
    Publish(names);
    Start();
    AddJob(u"\\\\srv\\p63", u"a");
    AddJob(u"\\\\srv\\p64", u"b");
    AddJob(u"\\\\srv\\p258", u"c");
    AddJob(u"\\\\srv\\p299", u"d");
    Tick();
    EXPECT_EQ(sink_.Documents(), (Texts{u"a", u"b", u"c", u"d"}));
    EXPECT_TRUE(
        organisation_.log.Has(u"MonitorPrintersCallback:WaitForMultipleObjects Succeeded handle triggered: 299"));
}

TEST_F(JobDetectionPrinter, FailureInATickEndsItAndTheNextOneRuns) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"job");
    sink_.onActivity = Once([] { throw Error(5, u"sink", u"failed"); });
    EXPECT_NO_THROW(Tick());
    EXPECT_EQ(sink_.jobs.size(), 0U);
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
    organisation_.systemInformation.versionFails = true;
    EXPECT_NO_THROW(Tick());
}

TEST_F(JobDetectionPrinter, HealthTestAsksEachPrinterForOneJob) {
    Publish({u"laser", u"colour"});
    Start();
    spooler_.log.clear();
    spooler_.wordCounts.clear();
    EXPECT_TRUE(Detector().TestServerHealth());
    EXPECT_EQ(spooler_.log, (Texts{u"EnumJobs 4096 0 1 4000", u"EnumJobs 4097 0 1 4000"}));
    EXPECT_EQ(spooler_.wordCounts, (std::vector<std::size_t>{1001, 1001}));
}

TEST_F(JobDetectionPrinter, HealthTestEnlargesItsBufferForALongJob) {
    Publish({u"laser"});
    Start();
    AddJob(laser, std::u16string(60'000, u'x'));
    const std::int64_t needed = BytesOf(laser, Jobs(laser)[0]);
    spooler_.log.clear();
    spooler_.wordCounts.clear();
    EXPECT_TRUE(Detector().TestServerHealth());
    EXPECT_EQ(spooler_.log, (Texts{u"EnumJobs 4096 0 1 4000", u"EnumJobs 4096 0 1 " + NumberText(needed)}));
    EXPECT_EQ(spooler_.wordCounts, (std::vector<std::size_t>{1001, static_cast<std::size_t>(needed / 4 + 2)}));
}

TEST_F(JobDetectionPrinter, HealthTestTakesAJobThatJustFillsItsBuffer) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"");
    AddJob(laser, std::u16string(static_cast<std::size_t>(4000 - BytesOf(laser, Jobs(laser)[0])), u'x'));
    spooler_.RemoveJob(laser, Jobs(laser)[0].id);
    ASSERT_EQ(BytesOf(laser, Jobs(laser)[0]), 4000);
    spooler_.log.clear();
    EXPECT_TRUE(Detector().TestServerHealth());
    EXPECT_EQ(spooler_.log, Texts{u"EnumJobs 4096 0 1 4000"});
}

TEST_F(JobDetectionPrinter, HealthTestFailsAtTheFirstInvalidHandleWithItsLine) {
    Publish({u"laser", u"colour", u"third"});
    Start();
    spooler_.BreakHandles(colour);
    spooler_.log.clear();
    EXPECT_FALSE(Detector().TestServerHealth());
    EXPECT_EQ(spooler_.log.size(), 2U);
    EXPECT_EQ(organisation_.log.lines.back(), u"TestPrinterHandles found an invalid handle for :\\\\srv\\colour");
    Detector().FullRefresh();
    EXPECT_TRUE(Detector().TestServerHealth());
}

TEST_F(JobDetectionPrinter, HealthTestOfNoPrinterPasses) {
    Start();
    EXPECT_TRUE(Detector().TestServerHealth());
}

class JobDetectionPrinterOnWindows9x : public PrinterDetection {
  protected:
    JobDetectionPrinterOnWindows9x() { organisation_.systemInformation.BeWindows9x(); }
};

TEST_F(JobDetectionPrinterOnWindows9x, NoSignalIsAskedFor) {
    Publish({u"laser"});
    Start();
    EXPECT_EQ(CallsBut("EnumJobs"), Texts{u"OpenPrinter \\\\srv\\laser"});
    EXPECT_EQ(sink_.printers, (Reports{{laser, true}}));
}

TEST_F(JobDetectionPrinterOnWindows9x, EveryTickAfterAsManyIdleOnesAsTheIntervalPolls) {
    organisation_.settings.PrinterPollingInterval(2);
    Publish({u"laser"});
    Start();
    for (int i = 0; i < 7; ++i) {
        Tick();
    }
    EXPECT_EQ(sink_.activities,
              (Texts{u"Idle", u"Idle", u"Polling printers", u"Idle", u"Idle", u"Polling printers", u"Idle"}));
    EXPECT_EQ(handles_.polls.size(), 0U);
}

TEST_F(JobDetectionPrinterOnWindows9x, IntervalOfZeroPollsAtEveryTick) {
    organisation_.settings.PrinterPollingInterval(0);
    Publish({u"laser"});
    Start();
    AddJob(laser, u"a");
    Tick();
    AddJob(laser, u"b");
    Tick();
    EXPECT_EQ(sink_.Documents(), (Texts{u"a", u"b"}));
    EXPECT_EQ(sink_.activities, (Texts{u"Polling printers", u"Polling printers"}));
}

TEST_F(JobDetectionPrinterOnWindows9x, PollThatNobodyCouldBeToldOfIsMadeUpForAtTheNextTick) {
    organisation_.settings.PrinterPollingInterval(1);
    Publish({u"laser"});
    Start();
    Tick();
    AddJob(laser, u"job");
    sink_.onActivity = Once([] { throw Error(5, u"sink", u"failed"); });
    Tick();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    Tick();
    EXPECT_EQ(sink_.activities, (Texts{u"Idle", u"Polling printers", u"Polling printers"}));
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionPrinterOnWindows9x, IntervalThatChangesHoldsFromTheNextTick) {
    organisation_.settings.PrinterPollingInterval(3);
    Publish({u"laser"});
    Start();
    Tick();
    Tick();
    organisation_.settings.PrinterPollingInterval(2);
    Tick();
    organisation_.settings.PrinterPollingInterval(0);
    Tick();
    EXPECT_EQ(sink_.activities, (Texts{u"Idle", u"Idle", u"Polling printers", u"Polling printers"}));
}

TEST_F(JobDetectionPrinterOnWindows9x, PollLetsMessagesRunBeforeEachPrinterAndReadsThemInOrder) {
    organisation_.settings.PrinterPollingInterval(0);
    Publish({u"laser", u"colour"});
    Start();
    const int before = organisation_.platform.messageLoop.pendingRuns;
    spooler_.log.clear();
    Tick();
    EXPECT_EQ(organisation_.platform.messageLoop.pendingRuns, before + 4) << "once more in each enumeration";
    EXPECT_EQ(spooler_.log, (Texts{u"EnumJobs 4096 0 4294967295 0", u"EnumJobs 4096 0 4294967295 0",
                                   u"EnumJobs 4097 0 4294967295 0", u"EnumJobs 4097 0 4294967295 0"}));
}

}  // namespace
}  // namespace korvanta::tests
