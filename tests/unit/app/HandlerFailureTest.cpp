#include <new>

#include "app/frmPrimaryServer.h"
#include "unit/app/ProgramFixture.h"

namespace korvanta {
namespace {

// A notification area whose calls fail as they do when memory is short.
class ExhaustedShell : public fakes::FakeShell {
  public:
    bool exhausted = false;

    bool AddTrayIcon(const TrayIcon& icon) override {
        Check();
        return FakeShell::AddTrayIcon(icon);
    }
    bool DeleteTrayIcon(const TrayIcon& icon) override {
        Check();
        return FakeShell::DeleteTrayIcon(icon);
    }

  private:
    void Check() const {
        if (exhausted) {
            throw std::bad_alloc();
        }
    }
};

// Windows calls the handlers: nothing that they raise may get past them.
class HandlerFailureTest : public fakes::ProgramFixture {
  protected:
    ~HandlerFailureTest() override { program.reset(); }

    void StartProgram() {
        program = std::make_unique<basKorvanta>(platform, &peers, translator);
        ASSERT_TRUE(program->Main());
    }
    frmMain& Form() { return *program->MainForm(); }
    // Memory runs out when the control's peer is told of the change, `times` times.
    void FailAt(const Control& control, Aspect aspect, int times = 1) {
        peers.onChanged = [this, &control, aspect, times](Control& changed, Aspect change) mutable {
            if (&changed == &control && change == aspect && times > 0) {
                --times;
                ++failures;
                throw std::bad_alloc();
            }
        };
    }
    void FailInMessageBoxes() {
        windows.messageBoxes.whileOpen = [this](const auto&) {
            ++failures;
            throw std::bad_alloc();
        };
    }

    ExhaustedShell shell;
    Platform platform{
        windows.files,   windows.codePage,     windows.registry,    windows.spooler, windows.waitableHandles,
        windows.mutexes, windows.internet,     windows.sockets,     shell,           windows.system,
        windows.clock,   windows.messageBoxes, windows.messageLoop, windows.screen,  windows.textMeasure};
    int failures = 0;
};

TEST_F(HandlerFailureTest, TickThatFailsEndsAndTheNextOneRunsNormally) {
    StartProgram();
    FailAt(Form().lblActivity, Aspect::Caption);
    EXPECT_NO_THROW(Tick());
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(Form().Pointer(), MousePointer::Default);
    Tick();
    EXPECT_EQ(Form().lblActivity.Caption(), u"2026-11-20 14:03:11 Polling servers");
}

TEST_F(HandlerFailureTest, TickThatFailsWhileItFollowsTheClockEndsAndTheNextOneRunsNormally) {
    StartProgram();
    FailAt(Form().lblPrinterListScanDue, Aspect::Caption);
    windows.clock.AdvanceMinutes(-60);
    EXPECT_NO_THROW(Tick());
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(Form().Pointer(), MousePointer::Default);
    Tick();
    EXPECT_EQ(Form().lblActivity.Caption(), u"2026-11-20 13:03:11 Polling servers");
}

TEST_F(HandlerFailureTest, TaskThatFailsIsNotTakenForOneThatStillRuns) {
    StartProgram();
    FailAt(Form().lblFullRefreshResult, Aspect::Caption);
    Form().cmdRefresh.HandleClick();
    Tick();
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(Form().Pointer(), MousePointer::Default);
    Form().cmdRefresh.HandleClick();
    Tick();
    EXPECT_EQ(Form().lblFullRefreshResult.Caption(), u"Completed.");
}

TEST_F(HandlerFailureTest, RefreshButtonThatFailsRaisesNothing) {
    StartProgram();
    FailAt(Form().lblFullRefreshDue, Aspect::Caption);
    EXPECT_NO_THROW(Form().cmdRefresh.HandleClick());
    EXPECT_EQ(failures, 1);
}

TEST_F(HandlerFailureTest, PopupMenuThatFailsRaisesNothing) {
    StartProgram();
    peers.onShowPopup = [](korvanta::Form&, PopupMenu&) { throw std::bad_alloc(); };
    EXPECT_NO_THROW(Form().cmdRefresh.HandleRightClick());
}

TEST_F(HandlerFailureTest, QuestionsThatCannotBeAskedChangeNothing) {
    StartProgram();
    FailInMessageBoxes();
    const int height = Form().Position().height;
    EXPECT_NO_THROW(Form().mnuLogging.HandleClick());
    EXPECT_NO_THROW(Form().mnuAdvanced.HandleClick());
    EXPECT_EQ(failures, 2);
    EXPECT_EQ(Form().Position().height, height);
    EXPECT_FALSE(windows.files.Has(programFolder + u"\\tlxlog.txt"));
}

TEST_F(HandlerFailureTest, DoubleClickOnTheIconThatFailsRaisesNothing) {
    StartProgram();
    FailAt(Form(), Aspect::TopMost);
    EXPECT_NO_THROW(Form().HandleTrayIconDoubleClick());
    EXPECT_EQ(failures, 1);
}

TEST_F(HandlerFailureTest, IconThatCannotBeAddedAgainRaisesNothing) {
    StartProgram();
    shell.exhausted = true;
    EXPECT_NO_THROW(Form().HandleTaskbarCreated());
}

TEST_F(HandlerFailureTest, LayoutThatFailsRaisesNothing) {
    StartProgram();
    FailAt(Form().cmdClose, Aspect::Place);
    EXPECT_NO_THROW(Form().HandlePlace({0, 0, 12000, 9000}, 11900, 8500));
    EXPECT_EQ(failures, 1);
}

TEST_F(HandlerFailureTest, CloseQuestionThatCannotBeAskedKeepsTheProgram) {
    StartProgram();
    FailInMessageBoxes();
    EXPECT_NO_THROW(EXPECT_FALSE(Form().Unload(CloseReason::TaskManager)));
    EXPECT_EQ(failures, 1);
    EXPECT_FALSE(windows.messageLoop.quit);
}

TEST_F(HandlerFailureTest, SessionEndsWhateverFailsOnTheWay) {
    StartProgram();
    windows.system.onSleep = [] { throw std::bad_alloc(); };
    shell.exhausted = true;
    EXPECT_NO_THROW(EXPECT_TRUE(Form().Unload(CloseReason::WindowsSession)));
    EXPECT_TRUE(windows.messageLoop.quit);
    EXPECT_FALSE(Form().tmrActivity.Enabled());
    shell.exhausted = false;
}

TEST_F(HandlerFailureTest, ServerDialogWhoseButtonsFailStaysOpenAndRaisesNothing) {
    windows.registry.Put(registryKey, u"TLXPrimaryServer", std::u16string());
    peers.onShowModal = [this](korvanta::Form& form) {
        auto& dialog = dynamic_cast<frmPrimaryServer&>(form);
        FailInMessageBoxes();
        EXPECT_NO_THROW(dialog.OKButton.HandleClick());
        EXPECT_EQ(failures, 1);
        EXPECT_TRUE(dialog.Shown());
        FailAt(dialog.OKButton, Aspect::Place);
        EXPECT_NO_THROW(dialog.HandlePlace({0, 0, 12000, 9000}, 11900, 8500));
        EXPECT_EQ(failures, 2);
        windows.messageBoxes.whileOpen = nullptr;
        dialog.txtServer.HandleChange(u"SRV1");
        dialog.OKButton.HandleClick();
    };
    StartProgram();
    EXPECT_EQ(program->PrimaryServerName(), u"SRV1");
}

TEST_F(HandlerFailureTest, StartThatFailsHalfWayTellsTheStepAndLeavesNoIconBehind) {
    program = std::make_unique<basKorvanta>(platform, &peers, translator);
    peers.onChanged = [](Control& control, Aspect aspect) {
        if (control.Name() == u"lblServerHealthTestDue" && aspect == Aspect::Caption) {
            throw std::bad_alloc();
        }
    };
    EXPECT_FALSE(program->Main());
    ASSERT_EQ(windows.messageBoxes.shown.size(), 1U);
    EXPECT_TRUE(windows.messageBoxes.shown[0].text.ends_with(u"Error 7 (Out of memory/) at point Main:15"));
    peers.onChanged = nullptr;
    EXPECT_EQ(shell.trayIcons.size(), 1U);
    program.reset();
    EXPECT_TRUE(shell.trayIcons.empty());
}

TEST_F(HandlerFailureTest, TaskbarMadeAgainAfterTheEndGetsNoIcon) {
    StartProgram();
    EXPECT_TRUE(Form().Unload(CloseReason::WindowsSession));
    Form().HandleTaskbarCreated();
    EXPECT_TRUE(shell.trayIcons.empty());
    program.reset();
    EXPECT_EQ(shell.deleted.size(), 1U);
}

}  // namespace
}  // namespace korvanta
