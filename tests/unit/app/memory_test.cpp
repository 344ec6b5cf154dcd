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
};

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
            Form().HandleMouseMove(1, 515 * windows.screen.TwipsPerPixel(), 0);
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
