// Messages that run during an operation call the detector again, at every point where they can: each job must still be
// reported exactly once, and each printer be open and watched exactly once.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "unit/detection/FileDetection.h"
#include "unit/detection/PrinterDetection.h"

namespace korvanta::tests {
namespace {

enum class Point { Printer, Job, Activity, Messages };
enum class Action { Tick, FullRefresh, PrinterListChanged, OtherPrinters, HealthTest, JobAndTick };

std::string NameOf(Point point) {
    constexpr const char* names[] = {"Printer", "Job", "Activity", "Messages"};
    return names[static_cast<int>(point)];
}

std::string NameOf(Action action) {
    constexpr const char* names[] = {"Tick",          "FullRefresh", "PrinterListChanged",
                                     "OtherPrinters", "HealthTest",  "JobAndTick"};
    return names[static_cast<int>(action)];
}

using Case = std::tuple<Point, Action>;

std::string NameOfCase(const testing::TestParamInfo<Case>& info) {
    return NameOf(std::get<Action>(info.param)) + "During" + NameOf(std::get<Point>(info.param));
}

const auto everyCase = testing::Combine(testing::Values(Point::Printer, Point::Job, Point::Activity, Point::Messages),
                                        testing::Values(Action::Tick, Action::FullRefresh, Action::PrinterListChanged,
                                                        Action::OtherPrinters, Action::HealthTest, Action::JobAndTick));

Texts Sorted(Texts texts) {
    std::sort(texts.begin(), texts.end());
    return texts;
}

// Runs the action at the point, so many times in all, also inside itself.
class Intruder {
  public:
    Intruder(RecordingSink& sink, fakes::FakeMessageLoop& messages, Point point, std::function<void()> action)
        : action_(std::move(action)) {
        const auto intrude = [this] { Intrude(); };
        switch (point) {
            case Point::Printer:
                sink.onPrinter = intrude;
                break;
            case Point::Job:
                sink.onJob = intrude;
                break;
            case Point::Activity:
                sink.onActivity = intrude;
                break;
            case Point::Messages:
                messages.onRunPending = intrude;
                break;
        }
    }
    void Allow(int times) { left_ = times; }
    int Done() const { return done_; }

  private:
    void Intrude() {
        if (left_ > 0) {
            --left_;
            ++done_;
            action_();
        }
    }

    std::function<void()> action_;
    int left_ = 0;
    int done_ = 0;
};

// Has the detector do it; the test says how its printers become others, and how a job comes.
void DoWith(IJobDetectionObject& detector, Action action, const std::function<void()>& publishOthers,
            const std::function<void()>& addJob) {
    switch (action) {
        case Action::Tick:
            detector.MonitorClockTick();
            break;
        case Action::FullRefresh:
            detector.FullRefresh();
            break;
        case Action::PrinterListChanged:
            detector.PrinterListChanged();
            break;
        case Action::OtherPrinters:
            publishOthers();
            detector.PrinterListChanged();
            break;
        case Action::HealthTest:
            EXPECT_TRUE(detector.TestServerHealth());
            break;
        case Action::JobAndTick:
            addJob();
            detector.MonitorClockTick();
            break;
    }
}

class PrinterDetectionReentry : public PrinterDetection, public testing::WithParamInterface<Case> {
  protected:
    void Act(Action action) {
        DoWith(
            Detector(), action,
            [this] {
                Publish(++publications_ % 2 == 1 ? Texts{u"third", u"colour"} : Texts{u"laser", u"colour", u"third"});
            },
            [this] { AddExpected(u"\\\\srv\\colour"); });
    }
    void AddExpected(const std::u16string& printer) {
        expected_.push_back(u"job " + NumberText(static_cast<std::int64_t>(expected_.size())));
        AddJob(printer, expected_.back());
    }
    // Starts and lets jobs come in, the intruder being let loose in each operation.
    void Run(Intruder& intruder) {
        Publish({u"laser", u"colour", u"third"});
        AddJob(u"\\\\srv\\laser", u"old");
        AddJob(u"\\\\srv\\colour", u"old too");
        intruder.Allow(std::get<Action>(GetParam()) == Action::JobAndTick ? 0 : 4);
        Start();
        for (int round = 0; round < 3; ++round) {
            AddExpected(u"\\\\srv\\laser");
            AddExpected(u"\\\\srv\\colour");
            AddExpected(u"\\\\srv\\colour");
            intruder.Allow(4);
            Tick();
            intruder.Allow(4);
            Detector().FullRefresh();
        }
        intruder.Allow(0);
        Publish({u"laser", u"colour", u"third"});
        Detector().PrinterListChanged();
        EXPECT_GT(intruder.Done(), 0);
    }

    Texts expected_;
    int publications_ = 0;
};

TEST_P(PrinterDetectionReentry, LeavesEachJobReportedOnceAndEachPrinterWatchedOnce) {
    const auto [point, action] = GetParam();
    organisation_.settings.PrinterPollingInterval(0);
    Intruder intruder(sink_, organisation_.platform.messageLoop, point, [this, wanted = action] { Act(wanted); });
    Run(intruder);
    EXPECT_EQ(Sorted(sink_.Documents()), Sorted(expected_));
    handles_.polls.clear();
    Tick();
    ASSERT_EQ(handles_.polls.size(), 1U);
    EXPECT_EQ(handles_.polls[0].size(), 3U);
}

TEST_P(PrinterDetectionReentry, OnWindows9xLeavesEachJobReportedOnce) {
    const auto [point, action] = GetParam();
    organisation_.systemInformation.BeWindows9x();
    organisation_.settings.PrinterPollingInterval(0);
    Intruder intruder(sink_, organisation_.platform.messageLoop, point, [this, wanted = action] { Act(wanted); });
    Run(intruder);
    EXPECT_EQ(Sorted(sink_.Documents()), Sorted(expected_));
}

INSTANTIATE_TEST_SUITE_P(EveryPoint, PrinterDetectionReentry, everyCase, NameOfCase);

class PrinterDetectionMessages : public PrinterDetection {};

TEST_F(PrinterDetectionMessages, TickDuringStartLeavesOldJobsOfThePrintersToComeUnreported) {
    Publish({u"laser", u"colour"});
    AddJob(u"\\\\srv\\colour", u"old");
    organisation_.platform.messageLoop.onRunPending = Once([this] {
        handles_.Signal(8193);
        Tick();
    });
    Start();
    Tick();
    EXPECT_EQ(sink_.jobs.size(), 0U);
}

TEST_F(PrinterDetectionMessages, JobThatComesDuringStartBehindItsPrintersSnapshotIsReportedAfterwards) {
    Publish({u"laser", u"colour"});
    int runs = 0;
    organisation_.platform.messageLoop.onRunPending = [this, &runs] {
        if (++runs == 2) {
            AddJob(u"\\\\srv\\laser", u"new");
            Tick();
        }
    };
    Start();
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"new"});
}

TEST_F(PrinterDetectionMessages, TicksDuringATickDoNotPileUp) {
    Publish({u"laser"});
    Start();
    AddJob(u"\\\\srv\\laser", u"job");
    int ticks = 0;
    organisation_.platform.messageLoop.onRunPending = [this, &ticks] {
        if (++ticks < 1000) {
            Tick();
        }
    };
    Tick();
    EXPECT_LT(ticks, 10);
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(PrinterDetectionMessages, HandleThatStaysSignalledIsLeftWhenTheListChanges) {
    Publish({u"laser"});
    Start();
    AddJob(u"\\\\srv\\laser", u"job");
    handles_.onPoll = [this] { handles_.signalled.insert(8192); };
    int runs = 0;
    organisation_.platform.messageLoop.onRunPending = [this, &runs] {
        ++runs;
        if (runs == 20) {
            Publish({u"colour"});
            Detector().PrinterListChanged();
        } else if (runs == 100) {
            handles_.onPoll = nullptr;
        }
    };
    Tick();
    EXPECT_LT(runs, 30);
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
    EXPECT_EQ(sink_.printers.back().first, u"\\\\srv\\colour");
}

TEST_F(PrinterDetectionMessages, RebuildThatWasAskedForInAFailingOperationIsNotLost) {
    Publish({u"laser"});
    Start();
    sink_.onPrinter = Once([this] {
        Publish({u"colour"});
        Detector().PrinterListChanged();
        throw Error(5, u"sink", u"failed");
    });
    EXPECT_THROW(Detector().FullRefresh(), Error);
    Tick();
    EXPECT_EQ(sink_.printers.back().first, u"\\\\srv\\colour");
}

// Over HTTP messages run while a server answers.
class FileDetectionReentry : public FileDetection, public testing::WithParamInterface<Case> {
  protected:
    FileDetectionReentry() {
        organisation_.settings.FilePollingInterval(0);
        organisation_.serverInterfaces.Renew();
        organisation_.serverInterfaces.InterfaceType(1);
        internet_.unknownUrlBody = "file not found";
        internet_.PutUtf16(u"http://SRV/TLXData/ClientSet.txt", u"settings");
        PublishOverHttp({u"laser", u"colour"});
    }

    void PublishOverHttp(const Texts& printers) {
        internet_.PutUtf16(u"http://SRV/TLXData/Printers.txt", Join(printers, u"\r\n"));
        organisation_.printersMonitored.RefreshPrinterLists();
    }
    // The server writes the next file, then its counter.
    void AddJob(const std::u16string& document) {
        const int number = serverCounter_;
        serverCounter_ = (serverCounter_ + 1) % 1000;
        internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(number, 3),
                           Organisation::JobText(u"\\\\srv\\laser", document));
        PutCounter();
    }
    void PutCounter() { internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.tlu", NumberText(serverCounter_)); }
    void AddExpected() {
        expected_.push_back(u"job " + NumberText(static_cast<std::int64_t>(expected_.size())));
        AddJob(expected_.back());
    }
    void Act(Action action) {
        DoWith(
            Detector(), action,
            [this] {
                PublishOverHttp(++publications_ % 2 == 1 ? Texts{u"third"} : Texts{u"laser", u"colour"});
            },
            [this] {
                AddExpected();
                detector_.PollServers();
            });
    }

    fakes::FakeInternet& internet_ = organisation_.platform.internet;
    int serverCounter_ = 10;
    Texts expected_;
    int publications_ = 0;
};

TEST_P(FileDetectionReentry, LeavesEachJobReportedOnce) {
    const auto [point, action] = GetParam();
    for (int i = 0; i < serverCounter_; ++i) {
        internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(i, 3),
                           Organisation::JobText(u"\\\\srv\\laser", u"old " + NumberText(i)));
    }
    PutCounter();
    Intruder intruder(sink_, organisation_.platform.messageLoop, point, [this, wanted = action] { Act(wanted); });
    intruder.Allow(action == Action::JobAndTick ? 0 : 4);
    Start();
    for (int round = 0; round < 4; ++round) {
        AddExpected();
        AddExpected();
        AddExpected();
        intruder.Allow(4);
        Tick();
        intruder.Allow(4);
        Detector().FullRefresh();
        intruder.Allow(4);
        detector_.PollServers();
    }
    intruder.Allow(0);
    PublishOverHttp({u"laser", u"colour"});
    Detector().PrinterListChanged();
    detector_.PollServers();
    EXPECT_GT(intruder.Done(), 0);
    EXPECT_EQ(Sorted(sink_.Documents()), Sorted(expected_));
}

INSTANTIATE_TEST_SUITE_P(EveryPoint, FileDetectionReentry, everyCase, NameOfCase);

class FileDetectionMessages : public FileDetection {};

TEST_F(FileDetectionMessages, RefreshInAPollThatPassesTheEndOfTheNumbersLosesNoFile) {
    SetCounter(u"998");
    Start();
    WriteJob(998, u"a");
    WriteJob(999, u"b");
    WriteJob(0, u"c");
    SetCounter(u"1");
    sink_.onJob = Once([this] { Detector().FullRefresh(); });
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"a", u"b", u"c"}));
    EXPECT_EQ(sink_.printers.size(), 2U) << "the refresh has run by then";
}

TEST_F(FileDetectionMessages, PollWhileAFileIsReadNeitherReadsItTwiceNorPassesTheNextOver) {
    SetCounter(u"5");
    Start();
    WriteJobs(5, 7);
    files_.onRead = [this](const std::u16string&) { detector_.PollServers(); };
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"7"}));
    EXPECT_EQ(Calls(u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith.006"), 1);
}

TEST_F(FileDetectionMessages, PollWhileTheFirstCounterIsReadLeavesOldFilesAlone) {
    WriteJobs(0, 4);
    SetCounter(u"5");
    files_.onRead = [this](const std::u16string&) { detector_.PollServers(); };
    Start();
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U);
}

TEST_F(FileDetectionMessages, TickThatWouldPollDuringAPollIsMadeUpForByTheNext) {
    organisation_.settings.FilePollingInterval(2);
    SetCounter(u"5");
    Start();
    sink_.onActivity = Once([this] {
        Tick();
        Tick();
        EXPECT_EQ(sink_.activities.size(), 1U);
    });
    Tick();
    Tick();
    Tick();
    EXPECT_EQ(sink_.activities.size(), 1U);
    Tick();
    EXPECT_EQ(sink_.activities.size(), 2U);
}

}  // namespace
}  // namespace korvanta::tests
