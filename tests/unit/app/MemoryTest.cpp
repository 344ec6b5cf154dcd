#include <functional>

#include "unit/app/FailingMemory.h"
#include "unit/app/ProgramFixture.h"

namespace korvanta {
namespace {

using fakes::FailingMemory;

// Memory runs out at every single allocation of a handler, one after the other; the handler then ends early, and the
// program goes on.
class MemoryTest : public fakes::ProgramFixture {
  protected:
    // How often the action was tried until it needed no further allocation.
    int FailEachAllocation(const std::function<void()>& action, const std::function<void()>& afterwards) {
        for (int nth = 1;; ++nth) {
            bool failed = false;
            {
                const FailingMemory memory(nth);
                EXPECT_NO_THROW(action()) << "allocation " << nth;
                failed = FailingMemory::Failed();
            }
            afterwards();
            if (!failed || HasFailure()) {
                return nth;
            }
        }
    }
    frmMain& Form() { return *program->MainForm(); }
    frmAccountNumber& Dialog() { return *program->AccountDialog(); }
    void QueueJob() {
        auto job = std::make_shared<clsJobInfo>();
        job->JobID = ++jobs_;
        job->PrinterName = u"laser";
        job->MachineName = u"WS01";
        job->UserName = u"jsmith";
        job->Document = u"report " + Decimal(jobs_);
        job->FullPrinterName = u"\\\\SRV1\\laser";
        Dialog().AddJob(job);
    }
    void OfferJob() {
        QueueJob();
        Dialog().tmrMonitor.HandleTick();
        Dialog().ctlAccountListAll.SelectedID(1);
        windows.messageBoxes.shown.clear();
    }
    // The answer to the job has either done its work or told that it has not, unless the dialog still asks.
    void ExpectAnAnswer(bool done) {
        if (Dialog().Shown()) {
            EXPECT_EQ(Dialog().lblDocument.Caption(), u"report " + Decimal(jobs_));
        } else {
            EXPECT_TRUE(done || !windows.messageBoxes.shown.empty()) << "job " << jobs_;
        }
        Dialog().cmdCancel.HandleClick();
        Dialog().tmrMonitor.HandleTick();
        EXPECT_FALSE(Dialog().Shown()) << "job " << jobs_;
    }
    bool Notified() { return windows.files.Has(u"\\\\SRV1\\TLXActN$\\WS01.0." + Decimal(jobs_) + u".tlx"); }

  private:
    int jobs_ = 0;
};

TEST_F(MemoryTest, AJobThatCannotBeOfferedForWantOfMemoryIsOfferedByALaterTick) {
    ASSERT_TRUE(Start());
    QueueJob();
    const int tries = FailEachAllocation([this] { Dialog().tmrMonitor.HandleTick(); },
                                         [this] {
                                             Dialog().tmrMonitor.HandleTick();
                                             EXPECT_TRUE(Dialog().Shown());
                                             Dialog().cmdCancel.HandleClick();
                                             EXPECT_FALSE(Dialog().Shown());
                                             QueueJob();
                                         });
    EXPECT_GT(tries, 20);
}

TEST_F(MemoryTest, AJobThatIsFoundWithoutMemoryIsFoundOnce) {
    for (const std::u16string method : {u"0", u"1"}) {
        windows.system.claimedInstances.clear();
        windows.spooler.AddPrinter(u"\\\\SRV1\\laser");
        windows.spooler.AddPrinter(u"\\\\SRV1\\colour");
        windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\jobs\\jsmith.tlu", u"1");
        PublishSettings(Settings(method));
        ASSERT_TRUE(Start());
        // More than a tick needs that finds a job.
        constexpr int most = 250;
        for (int nth = 1; nth <= most && !HasFailure(); ++nth) {
            if (method == u"0") {
                AnnounceJob(nth, u"doc " + Decimal(nth));
            } else {
                fakes::FakeJob job{nth, u"\\\\WS01", u"JSmith", u"doc " + Decimal(nth)};
                job.time[3] = static_cast<std::uint32_t>(nth);
                windows.spooler.AddJob(u"\\\\SRV1\\laser", job);
            }
            windows.clock.AdvanceSeconds(1);
            {
                const FailingMemory memory(nth);
                EXPECT_NO_THROW(Form().tmrActivity.HandleTick());
            }
            Form().cmdRefresh.HandleClick();
            Tick(5);
            EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"1") << "allocation " << nth;
            Dialog().tmrMonitor.HandleTick();
            Dialog().cmdCancel.HandleClick();
            windows.spooler.RemoveJob(u"\\\\SRV1\\laser", nth);
        }
    }
}

TEST_F(MemoryTest, AJobThatIsAcceptedWithoutMemoryIsNotifiedOrTold) {
    ASSERT_TRUE(Start());
    OfferJob();
    const int tries = FailEachAllocation([this] { Dialog().cmdOK.HandleClick(); },
                                         [this] {
                                             ExpectAnAnswer(Notified());
                                             OfferJob();
                                         });
    EXPECT_GT(tries, 20);
}

TEST_F(MemoryTest, AJobThatIsCancelledWithoutMemoryIsTold) {
    ASSERT_TRUE(Start());
    OfferJob();
    const int tries = FailEachAllocation([this] { Dialog().cmdCancel.HandleClick(); },
                                         [this] {
                                             ExpectAnAnswer(false);
                                             OfferJob();
                                         });
    EXPECT_GT(tries, 5);
}

TEST_F(MemoryTest, FullRefreshThatRunsOutOfMemoryIsDoneByALaterTick) {
    ASSERT_TRUE(Start());
    const int tries = FailEachAllocation(
        [this] {
            windows.clock.AdvanceMinutes(61);
            Form().tmrActivity.HandleTick();
        },
        [this] {
            EXPECT_EQ(Form().Pointer(), MousePointer::Default);
            Form().cmdRefresh.HandleClick();
            Tick(4);
            EXPECT_EQ(Form().lblFullRefreshResult.Caption(), u"Completed.");
            EXPECT_EQ(Form().lvwPrinters.Items().size(), 2U);
        });
    EXPECT_GT(tries, 100);
}

TEST_F(MemoryTest, HandlersOfTheStatusFormLiveWithoutMemory) {
    ASSERT_TRUE(Start());
    const int tries = FailEachAllocation(
        [this] {
            Form().cmdRefresh.HandleClick();
            Form().cmdRefresh.HandleRightClick();
            Form().mnuLogging.HandleClick();
            Form().mnuAdvanced.HandleClick();
            Form().HandleTrayIconDoubleClick();
            Form().HandlePlace({0, 0, 9000, 9000}, 8900, 8500);
            Form().HandleTaskbarCreated();
            Form().Unload(CloseReason::TaskManager);
        },
        [this] {
            EXPECT_FALSE(windows.messageLoop.quit);
            Form().HandlePlace({0, 0, 8000, 8000}, 7900, 7500);
        });
    EXPECT_GT(tries, 20);
}

TEST_F(MemoryTest, LogsLoseALineForWantOfMemoryAndSayNothing) {
    windows.files.AddFolder(programFolder + u"\\Logs");
    clsErrorLog errorLog(windows.files, windows.codePage, windows.clock, programFolder);
    errorLog.CurrentDebugLevel(2);
    basLog log(windows.files, windows.codePage, windows.clock, programFolder);
    log.LoggingEnabled(true);
    const std::u16string text = u"a line that is longer than a short text";
    FailEachAllocation(
        [&] {
            errorLog.Message(text);
            log.Log(text);
        },
        [this] { EXPECT_LE(windows.files.OpenFiles(), 1); });
    EXPECT_TRUE(windows.files.ReadBytes(programFolder + u"\\tlxlog.txt").ends_with("longer than a short text\r\n"));
}

TEST_F(MemoryTest, StartThatRunsOutOfMemoryTellsSoOrGoesOn) {
    int nth = 1;
    for (bool failed = true; failed && !HasFailure(); nth += 7) {
        windows.system.claimedInstances.clear();
        windows.messageBoxes.shown.clear();
        program = std::make_unique<basKorvanta>(windows.platform, &peers, translator);
        bool started = false;
        {
            const FailingMemory memory(nth);
            EXPECT_NO_THROW(started = program->Main()) << "allocation " << nth;
            failed = FailingMemory::Failed();
        }
        EXPECT_NE(started, windows.messageBoxes.shown.size() == 1U) << "allocation " << nth;
        program.reset();
        EXPECT_TRUE(windows.shell.trayIcons.empty());
    }
    EXPECT_GT(nth, 500);
}

}  // namespace
}  // namespace korvanta
