#include "detection/clsJobDetectionFile.h"

#include <gtest/gtest.h>

#include "unit/detection/FileDetection.h"

namespace korvanta::tests {
namespace {

const std::u16string laser = u"\\\\srv\\laser";

class JobDetectionFile : public FileDetection {};

TEST_F(JobDetectionFile, FilesFromBeforeStartAreNeverReported) {
    WriteJobs(0, 56);
    SetCounter(u"57");
    Start();
    detector_.PollServers();
    Detector().FullRefresh();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    WriteJob(57, u"new");
    detector_.PollServers();
    detector_.PollServers();
    ASSERT_EQ(sink_.Documents(), Texts{u"new"});
    EXPECT_EQ(sink_.jobs[0]->JobID, 17);
    EXPECT_EQ(sink_.jobs[0]->FullPrinterName, laser);
}

TEST_F(JobDetectionFile, RecordCarriesTheNameOfItsFileWithTheUsersNameAsWindowsGivesIt) {
    SetCounter(u"7");
    Start();
    WriteJob(7, u"job");
    detector_.PollServers();
    ASSERT_EQ(sink_.jobs.size(), 1U);
    EXPECT_EQ(sink_.jobs[0]->JobEventFilename, u"JSmith.007");
}

TEST_F(JobDetectionFile, NumbersStartAgainBehind999WithinOnePoll) {
    SetCounter(u"998");
    Start();
    WriteJob(998, u"a");
    WriteJob(999, u"b");
    WriteJob(0, u"c");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"a", u"b", u"c"}));
    WriteJob(1, u"d");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents().back(), u"d");
}

TEST_F(JobDetectionFile, FileThatIsMissingAtOnePollIsReadAtTheNext) {
    SetCounter(u"5");
    Start();
    detector_.PollServers();
    WriteJob(5, u"late");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"late"});
}

TEST_F(JobDetectionFile, FileThatCannotBeReadIsTriedTwiceAndSkippedWithinThePoll) {
    SetCounter(u"5");
    Start();
    SpoilJob(5);
    SpoilJob(6);
    WriteJob(7, u"good");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"good"});
    EXPECT_EQ(system_.sleeps, (std::vector<std::uint32_t>{200, 200}));
    EXPECT_EQ(Calls(u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith.005"), 2);
    EXPECT_EQ(Calls(u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith.006"), 2);
}

TEST_F(JobDetectionFile, FileThatIsCompleteAtTheSecondReadIsTaken) {
    SetCounter(u"5");
    Start();
    SpoilJob(5);
    system_.onSleep = [this] { WriteJob(5, u"complete now"); };
    detector_.PollServers();
    ASSERT_EQ(sink_.Documents(), Texts{u"complete now"});
    EXPECT_EQ(sink_.jobs[0]->JobEventFilename, u"JSmith.005");
    EXPECT_EQ(system_.sleeps, (std::vector<std::uint32_t>{200}));
}

TEST_F(JobDetectionFile, FileThatVanishesWhileItCannotBeReadIsTriedAgainAtTheNextPoll) {
    SetCounter(u"5");
    Start();
    SpoilJob(5);
    system_.onSleep = [this] { RemoveJob(5); };
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    WriteJob(5, u"back again");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"back again"});
}

TEST_F(JobDetectionFile, PollWritesItsLinesInOrder) {
    SetCounter(u"5");
    organisation_.AddServer(u"idle");
    Publish({u"laser"}, {u"idle"});
    Start();
    WriteJob(5, u"good");
    SpoilJob(6);
    organisation_.log.lines.clear();
    detector_.PollServers();
    EXPECT_EQ(OwnLines(),
              (Texts{u"Checking server for print jobs: srv", u"Testing for job notification file 5",
                     u"Reading job event file 5", u"Valid job event file processed", u"Reading job event file 6",
                     u"Invalid job event file processed", u"Checking server for print jobs: idle"}))
        << "a server without printers was not tested and so is not healthy";
}

TEST_F(JobDetectionFile, RebuildWritesItsLinesInOrder) {
    organisation_.log.lines.clear();
    Start();
    EXPECT_EQ(OwnLines(),
              (Texts{u"clsJobDetectionFile: Finding printers", u"clsJobDetectionFile: Getting server counters"}));
}

TEST_F(JobDetectionFile, CounterThatWentUpHasItsFilesReadAndIsTakenOver) {
    SetCounter(u"5");
    Start();
    WriteJobs(5, 9);
    SpoilJob(7);
    SetCounter(u"9");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"8"})) << "the files below the counter";
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"8", u"9"}));
}

TEST_F(JobDetectionFile, CounterThatWentDownIsTakenOverWithoutReading) {
    SetCounter(u"998");
    Start();
    WriteJobs(998, 999);
    WriteJobs(0, 2);
    SetCounter(u"2");
    Detector().PrinterListChanged();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"2"});
}

TEST_F(JobDetectionFile, UnchangedCounterReadsNothing) {
    WriteJobs(0, 5);
    SetCounter(u"5");
    Start();
    files_.log.clear();
    Detector().FullRefresh();
    EXPECT_EQ(Calls(u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith.004"), 0);
    EXPECT_EQ(Calls(u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith.005"), 0);
}

TEST_F(JobDetectionFile, ServerBehindOneWithoutACounterHasItsFilesRead) {
    organisation_.AddServer(u"other");
    Publish({u"laser", u"\\\\other\\laser"}, {u"other"});
    organisation_.SetCounter(u"other", u"5");
    Start();
    organisation_.WriteJob(u"other", 5, u"job");
    organisation_.SetCounter(u"other", u"6");
    SetCounter(u"no number");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionFile, CounterStaysWhenTheSinkRaisesSoThatTheFilesBehindAreReadNextTime) {
    SetCounter(u"5");
    Start();
    WriteJobs(5, 7);
    SetCounter(u"8");
    sink_.onJob = Once([] { throw Error(5, u"sink", u"failed"); });
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), Texts{u"5"});
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"7"}));
}

TEST_F(JobDetectionFile, PollStaysAtAFileWhoseReportRaises) {
    SetCounter(u"5");
    Start();
    WriteJobs(5, 6);
    sink_.onJob = Once([] { throw Error(5, u"sink", u"failed"); });
    EXPECT_THROW(detector_.PollServers(), Error);
    organisation_.log.lines.clear();
    detector_.PollServers();
    EXPECT_EQ(OwnLines()[1], u"Testing for job notification file 5");
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6"})) << "the history knows the first";
}

TEST_F(JobDetectionFile, CounterMayEndWithALineBreak) {
    WriteJobs(0, 4);
    SetCounter(u" 5 \r\n");
    Start();
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U) << "taken as 5";
    WriteJob(5, u"new");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"new"});
}

TEST_F(JobDetectionFile, CounterThatNoFileCanHaveIsNoneAndHangsNothing) {
    SetCounter(u"5");
    Start();
    for (const std::u16string counter :
         {u"2000000000", u"2147483648", u"1001", u"-1", u"-2147483648", u"", u"abc", u"6x", u"\r\n"}) {
        SetCounter(counter);
        Detector().FullRefresh();
        EXPECT_EQ(system_.sleeps.size(), 0U) << "no file was read";
    }
    WriteJob(5, u"still found");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"still found"});
}

TEST_F(JobDetectionFile, CounterAtTheEndOfTheRangeHasTheLastFilesReadAndStandsForItsStart) {
    SetCounter(u"998");
    Start();
    WriteJobs(998, 999);
    SetCounter(u"1000");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), (Texts{u"998", u"999"}));
    WriteJobs(1, 2);
    Detector().FullRefresh();
    EXPECT_EQ(sink_.jobs.size(), 2U) << "nothing has come since";
    WriteJob(0, u"0");
    RemoveJob(1);
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"998", u"999", u"0"}));
}

TEST_F(JobDetectionFile, FileWithLineFeedsAloneIsSkipped) {
    SetCounter(u"5");
    Start();
    files_.WriteUtf16(Organisation::JobFilePath(u"srv", 5),
                      Replace(Organisation::JobText(laser, u"a"), u"\r\n", u"\n"));
    WriteJob(6, u"b");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"b"});
}

TEST_F(JobDetectionFile, ServerThatGoesDownWhileAFileIsReadLosesNoJob) {
    SetCounter(u"5");
    Start();
    WriteJobs(5, 6);
    files_.onRead = [this](const std::u16string& path) {
        if (path.ends_with(u"jsmith.005")) {
            files_.Down(u"srv");
            files_.faults.FailOnce("Read", 1, windowsError::badNetPath);
        }
    };
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    files_.onRead = nullptr;
    files_.Up(u"srv");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6"}));
}

TEST_F(JobDetectionFile, PrinterNamesOfManyBackslashesAreTakenApartAfterTheirPairs) {
    organisation_.AddServer(u"a");
    Publish({u"\\\\\\\\srv\\laser", u"\\\\a\\b\\c", u"\\\\\\a\\b", u"\\\\srv\\\\laser", u"behind"});
    Start();
    EXPECT_EQ(sink_.printers, (Reports{{u"\\\\\\\\srv\\laser", true}, {u"\\\\a\\b\\c", true}, {u"\\\\\\a\\b", false}}))
        << "the server of the third is the empty name, the fourth has none and ends the pass";
}

TEST_F(JobDetectionFile, UserWithoutACounterHasHisFirstJobRead) {
    Start();
    detector_.PollServers();
    WriteJob(0, u"first ever");
    SetCounter(u"1");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), Texts{u"first ever"});
}

TEST_F(JobDetectionFile, ServerThatComesUpLaterHasItsOldFilesLeftAlone) {
    files_.Down(u"srv");
    Start();
    EXPECT_EQ(sink_.printers, (Reports{{laser, false}}));
    WriteJobs(0, 4);
    SetCounter(u"5");
    detector_.PollServers();
    files_.Up(u"srv");
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U) << "not yet found healthy";
    Detector().FullRefresh();
    EXPECT_EQ(sink_.printers.back(), (std::pair<std::u16string, bool>{laser, true}));
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    WriteJob(5, u"new");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"new"});
}

TEST_F(JobDetectionFile, ServerThatWasDownForAWhileLosesNoJob) {
    SetCounter(u"5");
    Start();
    files_.Down(u"srv");
    Detector().FullRefresh();
    WriteJobs(5, 7);
    SetCounter(u"8");
    files_.Up(u"srv");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"7"}));
}

TEST_F(JobDetectionFile, ServerOfTwoPrintersIsTestedOnceAPass) {
    Publish({u"laser", u"colour"});
    files_.log.clear();
    Start();
    EXPECT_EQ(Calls(u"FolderExists \\\\SRV\\TLXData$\\jobs"), 1);
    EXPECT_EQ(sink_.printers, (Reports{{laser, true}, {u"\\\\srv\\colour", true}}));
    Detector().FullRefresh();
    EXPECT_EQ(Calls(u"FolderExists \\\\SRV\\TLXData$\\jobs"), 2);
}

TEST_F(JobDetectionFile, ServerWhosePrintersAreNoLongerMonitoredIsNoLongerPolled) {
    SetCounter(u"5");
    Start();
    Publish({u"\\\\other\\laser"});
    Detector().PrinterListChanged();
    WriteJob(5, u"not asked for");
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U);
}

TEST_F(JobDetectionFile, ServerNamesInAnyLetterCaseShareHealthAndCounter) {
    SetCounter(u"5");
    Publish({u"\\\\SRV\\laser", u"\\\\Srv\\laser"}, {u"Srv"});
    files_.log.clear();
    Start();
    EXPECT_EQ(Calls(u"FolderExists \\\\SRV\\TLXData$\\jobs"), 1);
    WriteJobs(5, 6);
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6"})) << "listed twice, read once";
}

TEST_F(JobDetectionFile, PrinterNameWithoutAServerEndsThePassAndCountersAreReadAllTheSame) {
    SetCounter(u"5");
    Publish({u"laser", u"\\\\nowhere", u"colour"});
    Start();
    EXPECT_EQ(sink_.printers, (Reports{{laser, true}}));
    WriteJob(5, u"job");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionFile, HistoryKeepsAJobFromBeingReportedTwice) {
    SetCounter(u"5");
    Start();
    WriteJob(5, u"job");
    WriteJob(6, u"job");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionFile, HealthTestEndsAtTheFirstUnhealthyServer) {
    organisation_.AddServer(u"b");
    organisation_.AddServer(u"c");
    Publish({u"laser"}, {u"b", u"c"});
    EXPECT_TRUE(Detector().TestServerHealth());
    files_.Down(u"b");
    files_.log.clear();
    EXPECT_FALSE(Detector().TestServerHealth());
    EXPECT_EQ(files_.log, (Texts{u"FolderExists \\\\SRV\\TLXData$\\jobs", u"FolderExists \\\\B\\TLXData$\\jobs"}));
}

TEST_F(JobDetectionFile, HealthTestOfNoServerPasses) {
    const clsPrintersMonitored nothing(organisation_.serverInterfaces, organisation_.platform.mutexes,
                                       organisation_.log, u"srv");
    clsJobDetectionFile detector(organisation_.serverInterfaces, nothing, organisation_.settings,
                                 organisation_.platform.mutexes, organisation_.platform.clock, system_, spooler_,
                                 organisation_.log, u"JSmith");
    IJobDetectionObject& object = detector;
    files_.Down(u"srv");
    EXPECT_TRUE(object.TestServerHealth());
}

class JobDetectionFileTicks : public JobDetectionFile {
  protected:
    // How many polls each of the next ticks made.
    std::vector<std::size_t> PollsOfTicks(int count) {
        std::vector<std::size_t> polls;
        for (int i = 0; i < count; ++i) {
            const std::size_t before = sink_.activities.size();
            Tick();
            polls.push_back(sink_.activities.size() - before);
        }
        return polls;
    }
};

TEST_F(JobDetectionFileTicks, FirstPollComesAtTheIntervalsNextTickAndThenEveryInterval) {
    organisation_.settings.FilePollingInterval(3);
    Start();
    EXPECT_EQ(PollsOfTicks(10), (std::vector<std::size_t>{0, 0, 0, 1, 0, 0, 1, 0, 0, 1}));
}

TEST_F(JobDetectionFileTicks, IntervalOfOnePollsAtEveryTickFromTheSecond) {
    organisation_.settings.FilePollingInterval(1);
    Start();
    EXPECT_EQ(PollsOfTicks(4), (std::vector<std::size_t>{0, 1, 1, 1}));
}

TEST_F(JobDetectionFileTicks, IntervalOfZeroPollsAtEveryTick) {
    organisation_.settings.FilePollingInterval(0);
    Start();
    EXPECT_EQ(PollsOfTicks(3), (std::vector<std::size_t>{1, 1, 1}));
    EXPECT_EQ(sink_.activities, (Texts{u"Polling servers", u"Polling servers", u"Polling servers"}));
}

TEST_F(JobDetectionFileTicks, IntervalThatChangesHoldsFromTheNextTick) {
    organisation_.settings.FilePollingInterval(5);
    Start();
    EXPECT_EQ(PollsOfTicks(3), (std::vector<std::size_t>{0, 0, 0}));
    organisation_.settings.FilePollingInterval(2);
    EXPECT_EQ(PollsOfTicks(4), (std::vector<std::size_t>{1, 0, 1, 0}));
    organisation_.settings.FilePollingInterval(4);
    EXPECT_EQ(PollsOfTicks(4), (std::vector<std::size_t>{0, 0, 1, 0}));
}

TEST_F(JobDetectionFileTicks, PollsOfFilesAndOfCountersAlternate) {
    organisation_.settings.FilePollingInterval(0);
    SetCounter(u"5");
    Start();
    organisation_.log.lines.clear();
    PollsOfTicks(4);
    const Texts filePoll = {u"Checking server for print jobs: srv", u"Testing for job notification file 5"};
    const std::u16string counterPoll = u"clsJobDetectionFile: Getting server counters";
    EXPECT_EQ(OwnLines(), (Texts{filePoll[0], filePoll[1], counterPoll, filePoll[0], filePoll[1], counterPoll}));
}

TEST_F(JobDetectionFileTicks, CounterPollReadsTheFilesThatCameMeanwhile) {
    organisation_.settings.FilePollingInterval(0);
    SetCounter(u"5");
    Start();
    Tick();
    WriteJob(6, u"6");
    SetCounter(u"7");
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"6"}) << "file 5 never came, file 6 is found through the counter";
}

class JobDetectionOverHttp : public JobDetectionFile {
  protected:
    JobDetectionOverHttp() {
        organisation_.serverInterfaces.Renew();
        organisation_.serverInterfaces.InterfaceType(1);
    }
    // Else a web server is taken to have every file.
    void SayWhatIsMissing() {
        internet_.unknownUrlBody = "<html>File not found</html>";
        internet_.PutUtf16(u"http://SRV/TLXData/ClientSet.txt", u"settings");
    }
    void PutCounter(const std::u16string& text) { internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.tlu", text); }

    fakes::FakeInternet& internet_ = organisation_.platform.internet;
};

TEST_F(JobDetectionOverHttp, ServerThatHasEveryFileAndNoneIsNotAskedForAllOfThem) {
    PutCounter(u"998");
    Start();
    detector_.PollServers();
    EXPECT_EQ(system_.sleeps.size(), 5U) << "one retry for each number";
    EXPECT_EQ(sink_.jobs.size(), 0U);
    internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.998", Organisation::JobText(laser, u"job"));
    organisation_.log.lines.clear();
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
    EXPECT_EQ(OwnLines()[1], u"Testing for job notification file 998") << "no number was passed over";
}

TEST_F(JobDetectionOverHttp, ServerThatLetsWaitAndHasNothingIsLeftAloneUntilTheNextPoll) {
    PutCounter(u"5");
    Start();
    internet_.Down(u"SRV");
    organisation_.platform.messageLoop.onRunPending = [this] { organisation_.platform.clock.AdvanceSeconds(2); };
    detector_.PollServers();
    EXPECT_EQ(system_.sleeps.size(), 1U);
    organisation_.platform.messageLoop.onRunPending = nullptr;
    internet_.Up(u"SRV");
    internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.005", Organisation::JobText(laser, u"job"));
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionOverHttp, EmptyFilesArePassedOverToAJobBehindThem) {
    SayWhatIsMissing();
    PutCounter(u"5");
    Start();
    for (int number = 5; number <= 14; ++number) {
        internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(number, 3),
                           number % 5 == 4 ? Organisation::JobText(laser, NumberText(number)) : u"");
    }
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"9", u"14"}));
}

TEST_F(JobDetectionOverHttp, ServerThatGoesDownWhileItsFilesAreReadLosesNoJob) {
    SayWhatIsMissing();
    PutCounter(u"5");
    Start();
    for (int number = 5; number <= 7; ++number) {
        internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(number, 3),
                           Organisation::JobText(laser, NumberText(number)));
    }
    sink_.onJob = Once([this] { internet_.Down(u"SRV"); });
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"5"});
    EXPECT_LT(internet_.requests.size(), 50U);
    internet_.Up(u"SRV");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"7"}));
}

TEST_F(JobDetectionOverHttp, ServerThatComesBackDuringAPollIsAskedAgainForWhatItSeemedToHave) {
    SayWhatIsMissing();
    PutCounter(u"5");
    Start();
    internet_.Down(u"SRV");
    organisation_.platform.messageLoop.onRunPending = [this] {
        if (system_.sleeps.size() == 3) {
            internet_.Up(u"SRV");
        }
    };
    detector_.PollServers();
    EXPECT_EQ(system_.sleeps.size(), 3U);
    // The next job, before anything else can have found out that the number is the same as ever.
    internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.005", Organisation::JobText(laser, u"job"));
    PutCounter(u"6");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionOverHttp, JobsOfAServerThatComesBackDuringAPollAreAllRead) {
    SayWhatIsMissing();
    PutCounter(u"5");
    Start();
    for (int number = 5; number <= 7; ++number) {
        internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(number, 3),
                           Organisation::JobText(laser, NumberText(number)));
    }
    internet_.Down(u"SRV");
    organisation_.platform.messageLoop.onRunPending = [this] {
        if (system_.sleeps.size() == 2) {
            internet_.Up(u"SRV");
        }
    };
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"7"}));
}

// As with a web server whose page for a missing file does not say so.
TEST_F(JobDetectionOverHttp, JobsThatComeWhileTheirNumbersAreTriedAreAllRead) {
    PutCounter(u"5");
    Start();
    system_.onSleep = [this] {
        if (system_.sleeps.size() == 2) {
            for (int number = 5; number <= 6; ++number) {
                internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(number, 3),
                                   Organisation::JobText(laser, NumberText(number)));
            }
        }
    };
    detector_.PollServers();
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6"}));
}

// The page for a missing file is longer than the job's file and leaves its end behind it, once.
TEST_F(JobDetectionOverHttp, JobThatComesBehindALongPageIsReadAtTheNextPoll) {
    internet_.unknownUrlBody = std::string(1'000, 'x');
    PutCounter(u"5");
    Start();
    system_.onSleep = [this] {
        if (system_.sleeps.size() == 1) {
            std::u16string text = Organisation::JobText(laser, u"job");
            while (text.ends_with(u"\r\n")) {
                text.resize(text.size() - 2);
            }
            internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.005", text);
        }
    };
    detector_.PollServers();
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionFile, CounterBehindTheLastNumberIsKeptByAPollThatFindsNothing) {
    SetCounter(u"1000");
    Start();
    WriteJobs(1, 999);
    detector_.PollServers();
    Detector().FullRefresh();
    EXPECT_EQ(sink_.jobs.size(), 0U);
}

TEST_F(JobDetectionFile, EmptyFileBehindTheLastJobIsTriedAgainUntilTheCounterPassesIt) {
    SetCounter(u"5");
    Start();
    files_.WriteUtf16(Organisation::JobFilePath(u"srv", 5), u"");
    organisation_.log.lines.clear();
    for (int poll = 0; poll < 50; ++poll) {
        detector_.PollServers();
        Pass(10);
    }
    EXPECT_EQ(std::count(organisation_.log.lines.begin(), organisation_.log.lines.end(), u"Reading job event file 5"),
              50)
        << "the server may be about to write it";
    SetCounter(u"6");
    Detector().FullRefresh();
    organisation_.log.lines.clear();
    WriteJob(6, u"job");
    detector_.PollServers();
    EXPECT_FALSE(organisation_.log.Has(u"Reading job event file 5"));
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(JobDetectionOverHttp, EveryNumberIsAskedForOnceWhenNoneOfThemIsAJob) {
    PutCounter(u"5");
    Start();
    for (int number = 0; number <= 999; ++number) {
        internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(number, 3), u"no job");
    }
    organisation_.log.lines.clear();
    detector_.PollServers();
    EXPECT_EQ(
        std::count(organisation_.log.lines.begin(), organisation_.log.lines.end(), u"Invalid job event file processed"),
        1000);
    EXPECT_EQ(sink_.jobs.size(), 0U);
}

TEST_F(JobDetectionOverHttp, FilesAreReadThroughTheWebService) {
    SayWhatIsMissing();
    PutCounter(u"5");
    Start();
    EXPECT_EQ(sink_.printers, (Reports{{laser, true}}));
    internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.005", Organisation::JobText(laser, u"job"));
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

}  // namespace
}  // namespace korvanta::tests
