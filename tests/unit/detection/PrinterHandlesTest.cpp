// What becomes of printer handles and change handles: none is left behind, none is closed too early, and a bad one
// costs no other printer anything.

#include <gtest/gtest.h>

#include <algorithm>

#include "detection/basPrinterUtil.h"
#include "unit/detection/PrinterDetection.h"

namespace korvanta::tests {
namespace {

const std::u16string laser = u"\\\\srv\\laser";
const std::u16string colour = u"\\\\srv\\colour";

class PrinterHandles : public PrinterDetection {
  protected:
    Texts Names(int count) {
        Texts names;
        for (int i = 0; i < count; ++i) {
            names.push_back(u"p" + NumberText(i));
        }
        return names;
    }
    static std::u16string Printer(int number) { return u"\\\\srv\\p" + NumberText(number); }
    static ChangeHandle Signal(int number) { return 0x2000 + number; }
    void ExpectHandles(std::size_t printers) {
        EXPECT_EQ(spooler_.OpenHandles(), printers);
        EXPECT_EQ(spooler_.OpenChangeHandles(), printers);
    }
};

TEST_F(PrinterHandles, RefreshesOfADayLeaveTheirNumberWhereItWas) {
    Publish(Names(3));
    Start();
    for (int refresh = 0; refresh < 2'880; ++refresh) {
        spooler_.log.clear();
        Detector().FullRefresh();
    }
    ExpectHandles(3);
}

TEST_F(PrinterHandles, RefreshesOfManyPrintersWithOneOutOfReachLeaveTheirNumberWhereItWas) {
    Publish(Names(200));
    spooler_.RemovePrinter(Printer(7));
    Start();
    for (int refresh = 0; refresh < 10; ++refresh) {
        spooler_.faults.FailOnce("FindFirstChange", spooler_.faults.Calls("FindFirstChange") + 70, 5);
        AddJob(Printer(100 + refresh), u"job");
        Tick();
        sink_.jobs.clear();
        Detector().FullRefresh();
    }
    ExpectHandles(198);
}

TEST_F(PrinterHandles, FormerOnesAreClosedWhenTheNewOnesAreThereChangeHandlesFirst) {
    Publish({u"laser"});
    Start();
    spooler_.log.clear();
    Detector().FullRefresh();
    EXPECT_EQ(CallsBut("EnumJobs"), (Texts{u"OpenPrinter \\\\srv\\laser", u"FindFirstChange 4097 256",
                                           u"FindCloseChange 8192", u"ClosePrinter 4096"}));
}

TEST_F(PrinterHandles, JobThatWaitsKeepsItsPrinterOpenAndCanBeCancelled) {
    Publish({u"laser", u"colour"});
    Start();
    AddJob(laser, u"first");
    AddJob(laser, u"second");
    Tick();
    ASSERT_EQ(sink_.jobs.size(), 2U);
    Detector().FullRefresh();
    Publish({u"colour"});
    Detector().PrinterListChanged();
    EXPECT_EQ(spooler_.OpenHandles(), 2U) << "colour, and the one under which the jobs were found";
    EXPECT_EQ(spooler_.OpenChangeHandles(), 1U);
    EXPECT_TRUE(CancelPrintJob(spooler_, &Detector(), *sink_.jobs[0]));
    sink_.jobs.pop_back();
    EXPECT_EQ(spooler_.OpenHandles(), 2U);
    sink_.jobs.pop_back();
    EXPECT_EQ(spooler_.OpenHandles(), 1U) << "the history remembers jobs and holds no printer open";
}

TEST_F(PrinterHandles, DetectorThatIsReplacedClosesAllButThoseOfWaitingJobs) {
    Publish({u"laser", u"colour"});
    {
        clsJobDetectionPrinter detector(spooler_, handles_, organisation_.printersMonitored, organisation_.settings,
                                        organisation_.platform.mutexes, organisation_.platform.messageLoop,
                                        organisation_.systemInformation, organisation_.log);
        IJobDetectionObject& object = detector;
        object.Start(sink_);
        AddJob(laser, u"waits");
        object.MonitorClockTick();
    }
    EXPECT_EQ(spooler_.OpenHandles(), 1U);
    EXPECT_EQ(spooler_.OpenChangeHandles(), 0U);
    EXPECT_TRUE(CancelPrintJob(spooler_, nullptr, *sink_.jobs[0]));
    sink_.jobs.clear();
    EXPECT_EQ(spooler_.OpenHandles(), 0U);
}

TEST_F(PrinterHandles, PrintersAreClosedOnWindows9xWhereThereIsNoChangeHandle) {
    organisation_.systemInformation.BeWindows9x();
    Publish({u"laser"});
    Start();
    spooler_.log.clear();
    Detector().FullRefresh();
    EXPECT_EQ(CallsBut("EnumJobs"), (Texts{u"OpenPrinter \\\\srv\\laser", u"ClosePrinter 4096"}));
}

TEST_F(PrinterHandles, OneThatStaysSignalledKeepsNoOtherPrinterFromItsTurn) {
    Start();
    for (const int printers : {2, 130}) {
        sink_.jobs.clear();
        Publish(Names(printers));
        Detector().PrinterListChanged();
        handles_.onPoll = [this] {
            handles_.signalled.insert(handles_.polls.back().begin(), handles_.polls.back().end());
        };
        AddJob(Printer(printers - 1), u"behind " + NumberText(printers));
        Tick();
        handles_.onPoll = nullptr;
        handles_.signalled.clear();
        EXPECT_EQ(sink_.Documents(), Texts{u"behind " + NumberText(printers)});
    }
}

TEST_F(PrinterHandles, OneThatCannotBeArmedAgainIsGivenUpAndReportedWhileTheOthersGoOn) {
    Publish({u"laser", u"colour"});
    Start();
    sink_.printers.clear();
    AddJob(laser, u"first");
    AddJob(colour, u"second");
    spooler_.faults.FailOnce("FindNextChange", 1, 6);
    spooler_.faults.FailOnce("FindNextChange", 2, 6);
    Tick();
    EXPECT_EQ(sink_.printers, (Reports{{laser, false}}));
    EXPECT_EQ(sink_.Documents(), (Texts{u"first", u"second"})) << "in the same tick";
    EXPECT_TRUE(organisation_.log.Has(
        u"Warning - unable to watch printer \\\\srv\\laser any longer (change handle not armed again. Error: 6)"));
    EXPECT_EQ(spooler_.OpenHandles(), 2U) << "it may be tested, and its jobs be cancelled";
    EXPECT_EQ(spooler_.OpenChangeHandles(), 1U);
    handles_.polls.clear();
    Tick();
    EXPECT_EQ(handles_.polls, (std::vector<std::vector<ChangeHandle>>{{8193}}));
    EXPECT_EQ(sink_.printers.size(), 1U) << "reported once";
    AddJob(laser, u"third");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), (Texts{u"first", u"second", u"third"}));
    sink_.jobs.clear();
    ExpectHandles(2);
}

TEST_F(PrinterHandles, InvalidOnesAreFoundSinglyAndTheOthersGoOnInTheSameTick) {
    Publish(Names(200));
    Start();
    sink_.printers.clear();
    for (const int invalid : {3, 5, 150}) {
        handles_.invalid.insert(Signal(invalid));
    }
    for (const int printer : {0, 4, 70, 151, 199}) {
        AddJob(Printer(printer), NumberText(printer));
    }
    Tick();
    Texts documents = sink_.Documents();
    std::sort(documents.begin(), documents.end());
    EXPECT_EQ(documents, (Texts{u"0", u"151", u"199", u"4", u"70"}));
    EXPECT_EQ(sink_.printers, (Reports{{Printer(3), false}, {Printer(5), false}, {Printer(150), false}}));
    EXPECT_TRUE(organisation_.log.Has(u"MonitorPrintersCallback:WaitForMultipleObjects Wait Failed"));
    EXPECT_TRUE(
        organisation_.log.Has(u"Warning - unable to watch printer \\\\srv\\p150 any longer (invalid change handle)"));
    EXPECT_EQ(spooler_.OpenChangeHandles(), 197U);
    Tick();
    EXPECT_EQ(sink_.printers.size(), 3U);
}

TEST_F(PrinterHandles, WaitThatFailsWithoutAnInvalidOneEndsTheTickAlsoInAnEarlierGroup) {
    Publish(Names(100));
    Start();
    AddJob(Printer(99), u"waiting");
    handles_.scriptedResults.push_back(fakes::FakeWaitableHandles::failed);
    for (int i = 0; i < 64; ++i) {
        handles_.scriptedResults.push_back(fakes::FakeWaitableHandles::timedOut);
    }
    sink_.printers.clear();
    Tick();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    EXPECT_EQ(sink_.printers.size(), 0U);
    handles_.scriptedResults = {200};
    Tick();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    EXPECT_TRUE(organisation_.log.Has(u"MonitorPrintersCallback:WaitForMultipleObjects Case Else!"));
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"waiting"});
}

TEST_F(PrinterHandles, LogNamesThePrinterByItsPlaceInTheListWhereverTheWaitBegan) {
    Publish({u"laser", u"colour"});
    Start();
    AddJob(colour, u"a");
    Tick();
    organisation_.log.lines.clear();
    AddJob(laser, u"b");
    Tick();
    EXPECT_EQ(organisation_.log.lines.front(),
              u"MonitorPrintersCallback:WaitForMultipleObjects Succeeded handle triggered: 0");
}

class LongQueue : public PrinterDetection {
  protected:
    void AddJobs(int first, int last) {
        for (int i = first; i <= last; ++i) {
            AddJob(laser, NumberText(i));
        }
    }
};

TEST_F(LongQueue, EveryJobIsAskedAboutOnceHoweverOftenItIsLookedAt) {
    Publish({u"laser"});
    AddJobs(1, 50);
    Start();
    AddJobs(51, 300);
    Tick();
    ASSERT_EQ(sink_.jobs.size(), 250U);
    for (int look = 0; look < 3; ++look) {
        Detector().FullRefresh();
        AddJob(laser, u"new " + NumberText(look));
        Tick();
    }
    EXPECT_EQ(sink_.jobs.size(), 253U);
}

TEST_F(LongQueue, JobsFromBeforeTheStartAreNeverReportedHoweverMany) {
    Publish({u"laser"});
    AddJobs(1, 300);
    Start();
    Detector().FullRefresh();
    AddJob(laser, u"new");
    Tick();
    EXPECT_EQ(sink_.Documents(), Texts{u"new"});
}

TEST_F(LongQueue, LookThatBreaksOffLosesAndRepeatsNothing) {
    Publish({u"laser"});
    Start();
    AddJobs(1, 250);
    int reports = 0;
    sink_.onJob = [&reports] {
        if (++reports == 200) {
            throw std::bad_alloc();
        }
    };
    Detector().FullRefresh();
    EXPECT_EQ(sink_.jobs.size(), 200U);
    Detector().FullRefresh();
    ASSERT_EQ(sink_.jobs.size(), 251U);
    EXPECT_EQ(sink_.jobs[199]->Document, sink_.jobs[200]->Document) << "lost to the lack of memory the first time";
    Detector().FullRefresh();
    EXPECT_EQ(sink_.jobs.size(), 251U);
}

TEST_F(LongQueue, QueueThatCannotBeReadForALookIsRemembered) {
    Publish({u"laser"});
    Start();
    AddJobs(1, 250);
    Tick();
    spooler_.faults.FailFrom("EnumJobs", 1, 1722);
    Detector().FullRefresh();
    spooler_.faults.Clear();
    Detector().FullRefresh();
    EXPECT_EQ(sink_.jobs.size(), 250U);
}

TEST_F(LongQueue, JobThatLeftAndIsForgottenIsNewWhenItComesBack) {
    Publish({u"laser"});
    Start();
    AddJob(laser, u"comes back");
    const fakes::FakeJob job = Jobs(laser)[0];
    Tick();
    spooler_.RemoveJob(laser, job.id);
    AddJobs(1, 150);
    Tick();
    spooler_.AddJob(laser, job);
    Tick();
    EXPECT_EQ(sink_.Documents().back(), u"comes back");
    EXPECT_EQ(sink_.jobs.size(), 152U);
}

}  // namespace
}  // namespace korvanta::tests
