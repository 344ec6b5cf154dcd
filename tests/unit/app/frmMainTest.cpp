#include <algorithm>
#include <functional>
#include <set>

#include "common/Conversion.h"
#include "unit/app/ProgramFixture.h"

namespace korvanta {
namespace {

class MainFormTest : public fakes::ProgramFixture {
  protected:
    MainFormTest() { EXPECT_TRUE(Start()); }

    frmMain& Form() { return *program->MainForm(); }
    void DoubleClickIcon() { Form().HandleTrayIconDoubleClick(); }
    std::u16string Activity() { return Form().lblActivity.Caption(); }
};

TEST_F(MainFormTest, IconCarriesTheBannersTitleAndTheFixedNumbers) {
    ASSERT_EQ(windows.shell.added.size(), 1U);
    const TrayIcon& icon = windows.shell.added[0];
    EXPECT_EQ(icon.identifier, 1U);
    EXPECT_EQ(icon.flags, 7U);
    EXPECT_EQ(icon.callbackMessage, 512U);
    EXPECT_EQ(icon.tip, Form().ctlBanner1.Title());
    EXPECT_EQ(icon.window, Form().Window());
}

TEST_F(MainFormTest, TimerTicksOnceASecond) {
    EXPECT_EQ(Form().tmrActivity.Interval(), 1000);
}

TEST_F(MainFormTest, StartSchedulesTheRefreshInMinutesAndTheRestInSeconds) {
    const DateTime now = windows.clock.now;
    EXPECT_EQ(Form().FullRefreshDue(), now.PlusMinutes(60));
    EXPECT_EQ(Form().PrinterListScanDue(), now.PlusSeconds(44));
    EXPECT_EQ(Form().ServerHealthTestDue(), now.PlusSeconds(31));
    EXPECT_EQ(Form().lblFullRefreshDue.Caption(), u"2026-11-20 15:03:09");
}

TEST_F(MainFormTest, DueTasksRunOneATickInTheirOrder) {
    windows.clock.AdvanceMinutes(61);
    Form().tmrActivity.HandleTick();
    EXPECT_EQ(Form().lblFullRefreshResult.Caption(), u"Completed.");
    EXPECT_EQ(Form().lblPrinterListScanResult.Caption(), u"");
    Form().tmrActivity.HandleTick();
    EXPECT_EQ(Form().lblPrinterListScanResult.Caption(), u"Printer list unchanged.");
    EXPECT_EQ(Form().lblServerHealthTestResult.Caption(), u"");
    Form().tmrActivity.HandleTick();
    EXPECT_EQ(Form().lblServerHealthTestResult.Caption(), u"All handles / servers valid.");
    Tick();
    EXPECT_EQ(Activity(), u"2026-11-20 15:04:10 Polling servers");
}

TEST_F(MainFormTest, TaskDueAtThisVeryMomentWaitsForTheNextTick) {
    Form().cmdRefresh.HandleClick();
    Form().tmrActivity.HandleTick();
    EXPECT_EQ(Form().lblFullRefreshResult.Caption(), u"");
    Tick();
    EXPECT_EQ(Form().lblFullRefreshResult.Caption(), u"Completed.");
}

TEST_F(MainFormTest, FailedHealthTestMakesTheVeryNextTickAFullRefresh) {
    windows.clock.AdvanceSeconds(32);
    windows.files.Down(u"SRV1");
    Form().tmrActivity.HandleTick();
    EXPECT_EQ(Form().lblServerHealthTestResult.Caption(), u"Some handles / servers invalid.");
    EXPECT_EQ(Form().FullRefreshDue(), windows.clock.now);
    Tick();
    EXPECT_EQ(Form().lblFullRefreshPerformed.Caption(), u"2026-11-20 14:03:42");
}

TEST_F(MainFormTest, FailedPrinterBringsTheRefreshForwardAndShowsAsFailed) {
    EXPECT_EQ(Form().lvwPrinters.Items().size(), 2U);
    EXPECT_EQ(Form().lvwPrinters.Items()[0].icon, 1);
    windows.files.RemoveFolder(u"\\\\SRV1\\TLXData$\\jobs");
    Form().cmdRefresh.HandleClick();
    Tick();
    ASSERT_EQ(Form().lvwPrinters.Items().size(), 2U);
    EXPECT_EQ(Form().lvwPrinters.Items()[0].text, u"\\\\SRV1\\laser");
    EXPECT_EQ(Form().lvwPrinters.Items()[0].icon, 2);
    EXPECT_EQ(Form().FullRefreshDue(), windows.clock.now.PlusSeconds(30));
}

TEST_F(MainFormTest, SecondReportOfAPrinterIsIgnored) {
    IJobDetectionEventSink& sink = Form();
    sink.FoundPrinter(u"\\\\SRV1\\laser", false);
    EXPECT_EQ(Form().lvwPrinters.Items().size(), 2U);
    EXPECT_EQ(Form().lvwPrinters.Items()[0].icon, 1);
}

TEST_F(MainFormTest, ChangedPrinterListIsFoundByTheScan) {
    windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\Printers.txt", u"laser\r\nplotter\r\n");
    windows.clock.AdvanceSeconds(45);
    Form().tmrActivity.HandleTick();
    EXPECT_EQ(Form().lblPrinterListScanResult.Caption(), u"Printer list changed.");
    ASSERT_EQ(Form().lvwPrinters.Items().size(), 2U);
    EXPECT_EQ(Form().lvwPrinters.Items()[1].text, u"\\\\SRV1\\plotter");
}

TEST_F(MainFormTest, ChangedDetectionMethodReplacesTheDetectorAtAFullRefresh) {
    EXPECT_EQ(Form().lblJobDetectionMethod.Caption(), u"File monitoring");
    const IJobDetectionObject* before = Form().JobDetectionObject();
    PublishSettings(Settings(u"1"));
    Form().cmdRefresh.HandleClick();
    Tick();
    EXPECT_EQ(Form().lblJobDetectionMethod.Caption(), u"Printer monitoring");
    EXPECT_EQ(Form().CurrentDetectionMethod(), DetectionMethod::Printer);
    EXPECT_NE(Form().JobDetectionObject(), before);
    PublishSettings(Settings(u"2"));
    Form().cmdRefresh.HandleClick();
    Tick();
    EXPECT_EQ(Form().lblJobDetectionMethod.Caption(), u"HTTP monitoring");
}

TEST_F(MainFormTest, RefreshWithTheSameMethodKeepsTheDetector) {
    const IJobDetectionObject* before = Form().JobDetectionObject();
    Form().cmdRefresh.HandleClick();
    Tick();
    EXPECT_EQ(Form().JobDetectionObject(), before);
}

TEST_F(MainFormTest, JobOfThisUserReachesTheDialogAndTheLog) {
    Form().mnuLogging.HandleClick();
    EXPECT_FALSE(windows.files.Has(programFolder + u"\\tlxlog.txt")) << "answered with Cancel";
    windows.messageBoxes.answers.push_back(MessageAnswer::OK);
    Form().mnuLogging.HandleClick();
    AnnounceJob(0, u"Letter.doc");
    Tick(2);
    EXPECT_EQ(program->AccountDialog()->lblJobsQueued.Caption(), u"1");
    EXPECT_NE(windows.files.ReadAnsi(programFolder + u"\\tlxlog.txt")
                  .find(u"Adding Job to pending list: Letter.doc,laser\r\n"),
              std::u16string::npos);
    EXPECT_EQ(windows.messageBoxes.shown.back().text,
              u"This will turn on logging. Only do this for debugging purposes.");
    EXPECT_EQ(windows.messageBoxes.shown.back().title, u"Korvanta Costbridge Client");
    EXPECT_EQ(windows.messageBoxes.shown.back().buttons, MessageButtons::OKCancel);
}

TEST_F(MainFormTest, WhoeverTurnsLoggingOnFindsWhatIsWrongWithTheCatalogue) {
    class ProblemTranslator : public fakes::PlainTranslator {
      public:
        std::vector<std::u16string> Problems() const override { return {u"line 7: nonsense", u"line 9: nonsense"}; }
    };
    windows.files.AddFolder(programFolder + u"\\Logs");
    windows.system.claimedInstances.clear();
    ProblemTranslator problems;
    program = std::make_unique<basKorvanta>(windows.platform, &peers, problems);
    ASSERT_TRUE(program->Main());
    const std::u16string eventLog = windows.files.ReadAnsi(programFolder + u"\\Logs\\event.log");
    EXPECT_NE(eventLog.find(u"   line 7: nonsense\r\n"), std::u16string::npos);
    EXPECT_NE(eventLog.find(u"   line 9: nonsense\r\n"), std::u16string::npos);
    windows.messageBoxes.answers.push_back(MessageAnswer::OK);
    Form().mnuLogging.HandleClick();
    const std::u16string log = windows.files.ReadAnsi(programFolder + u"\\tlxlog.txt");
    EXPECT_NE(log.find(u" line 7: nonsense\r\n"), std::u16string::npos);
    EXPECT_NE(log.find(u" line 9: nonsense\r\n"), std::u16string::npos);
    program.reset();
}

TEST_F(MainFormTest, JobOfAnotherUserIsDroppedWithoutDialogOrTraceLine) {
    windows.messageBoxes.answers.push_back(MessageAnswer::OK);
    Form().mnuLogging.HandleClick();
    const auto job = std::make_shared<clsJobInfo>();
    job->UserName = u"somebody";
    job->FullPrinterName = u"\\\\SRV1\\laser";
    IJobDetectionEventSink& sink = Form();
    sink.FoundNewJob(job);
    EXPECT_EQ(program->AccountDialog()->lblJobsQueued.Caption(), u"0");
    EXPECT_EQ(windows.files.ReadAnsi(programFolder + u"\\tlxlog.txt").find(u"Adding Job"), std::u16string::npos);
}

TEST_F(MainFormTest, DoubleClickOnTheIconShowsTheFormInFrontAndASecondOneHidesIt) {
    DoubleClickIcon();
    EXPECT_TRUE(Form().Shown());
    EXPECT_TRUE(Form().TopMost());
    EXPECT_EQ(peers.Of(Form()).broughtToForeground, 1);
    EXPECT_EQ(peers.Of(Form().cmdClose).focused, 1) << "Enter closes it";
    DoubleClickIcon();
    EXPECT_FALSE(Form().Shown());
}

TEST_F(MainFormTest, BannerShowsItsLinkAsTheRegistryHasItWhenTheFormComesUp) {
    windows.registry.Put(registryKey, u"ResellerURL", std::u16string(u"http://reseller.example"));
    DoubleClickIcon();
    EXPECT_EQ(Form().ctlBanner1.lblLink.Caption(), u"http://reseller.example");
}

TEST_F(MainFormTest, DoubleClickOnTheIconPutsTheFormBackInTheMiddleOfTheScreen) {
    const Place middle = Form().Position();
    Form().Move({0, 0, middle.width, middle.height});
    DoubleClickIcon();
    EXPECT_EQ(Form().Position(), middle);
    EXPECT_EQ(middle.left, (windows.screen.WholeScreen().width - middle.width) / 2);
    EXPECT_EQ(middle.top, (windows.screen.WholeScreen().height - middle.height) / 2);
}

TEST_F(MainFormTest, EachTaskSaysThatItIsBeingDone) {
    std::set<std::u16string> refresh;
    std::set<std::u16string> scan;
    std::set<std::u16string> test;
    windows.messageLoop.onRunPending = [&] {
        refresh.insert(Form().lblFullRefreshResult.Caption());
        scan.insert(Form().lblPrinterListScanResult.Caption());
        test.insert(Form().lblServerHealthTestResult.Caption());
    };
    windows.clock.AdvanceMinutes(61);
    for (int ticks = 0; ticks < 3; ++ticks) {
        Form().tmrActivity.HandleTick();
    }
    windows.messageLoop.onRunPending = nullptr;
    EXPECT_TRUE(refresh.contains(u"Executing....."));
    EXPECT_TRUE(scan.contains(u"Executing..."));
    EXPECT_TRUE(test.contains(u"Executing..."));
}

struct TaskCase {
    const char* name;
    int secondsUntilDue;
    std::u16string activity;
    std::u16string call;  // of the file system, once each time that the task is done
};

class TaskTest : public MainFormTest, public testing::WithParamInterface<TaskCase> {
  protected:
    // Ticks when this task is due and nothing before it, and calls in whenever messages run.
    void Tick(const std::function<void()>& whileMessagesRun) {
        windows.clock.AdvanceSeconds(GetParam().secondsUntilDue);
        windows.messageLoop.onRunPending = whileMessagesRun;
        Form().tmrActivity.HandleTick();
        windows.messageLoop.onRunPending = nullptr;
    }
};

TEST_P(TaskTest, SaysWhatItIsBeforeItIsDone) {
    std::vector<std::u16string> said;
    const std::u16string now =
        GeneralDateText(windows.clock.now.PlusSeconds(GetParam().secondsUntilDue), windows.clock);
    Tick([&] { said.push_back(Activity()); });
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said.front(), now + u" " + GetParam().activity);
}

TEST_P(TaskTest, ShowsTheHourglassUntilItIsDone) {
    int looks = 0;
    Tick([&] {
        ++looks;
        EXPECT_EQ(Form().Pointer(), MousePointer::Hourglass);
    });
    EXPECT_GT(looks, 0);
    EXPECT_EQ(Form().Pointer(), MousePointer::Default);
}

TEST_P(TaskTest, IsNotBegunAgainByTicksThatComeMeanwhile) {
    windows.files.log.clear();
    int ticks = 0;
    Tick([&] {
        if (++ticks <= 3) {
            Form().tmrActivity.HandleTick();
        }
    });
    EXPECT_EQ(std::count(windows.files.log.begin(), windows.files.log.end(), GetParam().call), 1);
}

const std::u16string dataShare = u"\\\\SRV1\\TLXData$\\";
INSTANTIATE_TEST_SUITE_P(
    EveryTask, TaskTest,
    testing::Values(
        TaskCase{"ClockTick", 1, u"Idle.", u"FileExists " + dataShare + u"jobs\\jsmith.000"},
        TaskCase{"ServerHealthTest", 32, u"Testing server health.", u"FolderExists " + dataShare + u"jobs"},
        TaskCase{"PrinterListScan", 45, u"Scanning printer list.", u"OpenForReading " + dataShare + u"Printers.txt"},
        TaskCase{"FullRefresh", 3601, u"Full refresh executing.", u"OpenForReading " + dataShare + u"ClientSet.txt"}),
    [](const testing::TestParamInfo<TaskCase>& task) { return std::string(task.param.name); });

TEST_F(MainFormTest, TaskbarThatIsMadeAgainGetsTheIconAgain) {
    windows.shell.trayIcons.clear();
    Form().HandleTaskbarCreated();
    EXPECT_EQ(windows.shell.trayIcons.size(), 1U);
}

TEST_F(MainFormTest, CloseBoxAndProgramCodeOnlyHideTheForm) {
    for (const CloseReason reason : {CloseReason::ControlMenu, CloseReason::Code}) {
        DoubleClickIcon();
        EXPECT_FALSE(Form().Unload(reason));
        EXPECT_FALSE(Form().Shown());
    }
    DoubleClickIcon();
    Form().cmdClose.HandleClick();
    EXPECT_FALSE(Form().Shown());
    EXPECT_FALSE(windows.messageLoop.quit);
    EXPECT_EQ(windows.shell.trayIcons.size(), 1U);
}

TEST_F(MainFormTest, ClosingFromTheTaskManagerAsksAndNoStays) {
    EXPECT_FALSE(Form().Unload(CloseReason::TaskManager));
    ASSERT_EQ(windows.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(windows.messageBoxes.shown[0].title, u"Close Korvanta?");
    EXPECT_EQ(windows.messageBoxes.shown[0].text,
              u"Closing Korvanta will mean that you will not be able to print documents to monitored printers. Are "
              u"you sure you want to close the application?");
    EXPECT_EQ(windows.messageBoxes.shown[0].buttons, MessageButtons::YesNo);
    EXPECT_FALSE(windows.messageLoop.quit);
}

TEST_F(MainFormTest, ClosingFromTheTaskManagerWithYesEndsTheProgram) {
    windows.messageBoxes.answers.push_back(MessageAnswer::Yes);
    EXPECT_TRUE(Form().Unload(CloseReason::TaskManager));
    EXPECT_TRUE(windows.messageLoop.quit);
    EXPECT_TRUE(windows.shell.trayIcons.empty());
}

TEST_F(MainFormTest, SecondCloseWhileTheQuestionIsOpenDoesNotAskTwice) {
    windows.messageBoxes.whileOpen = [this](const auto&) { EXPECT_FALSE(Form().Unload(CloseReason::TaskManager)); };
    EXPECT_FALSE(Form().Unload(CloseReason::TaskManager));
    EXPECT_EQ(windows.messageBoxes.shown.size(), 1U);
}

TEST_F(MainFormTest, SessionEndWhileTheQuestionIsOpenEndsTheProgramOnce) {
    windows.messageBoxes.whileOpen = [this](const auto&) { EXPECT_TRUE(Form().Unload(CloseReason::WindowsSession)); };
    windows.messageBoxes.answers.push_back(MessageAnswer::No);
    Form().Unload(CloseReason::TaskManager);
    EXPECT_TRUE(windows.messageLoop.quit);
    EXPECT_EQ(windows.shell.deleted.size(), 1U);
}

TEST_F(MainFormTest, AdvancedStatusGrowsTheFormToItsHeightWhenConfirmed) {
    const int before = Form().Position().height;
    Form().mnuAdvanced.HandleClick();
    EXPECT_EQ(Form().Position().height, before);
    EXPECT_EQ(windows.messageBoxes.shown.back().text,
              u"This will show you the advanced display. Only do this for debugging purposes. Press cancel otherwise.");
    EXPECT_EQ(windows.messageBoxes.shown.back().title, u"Korvanta Costbridge Client");
    EXPECT_EQ(windows.messageBoxes.shown.back().buttons, MessageButtons::OKCancel);
    windows.messageBoxes.answers.push_back(MessageAnswer::OK);
    Form().mnuAdvanced.HandleClick();
    EXPECT_EQ(Form().Position().height, 8000);
}

TEST_F(MainFormTest, RightMouseButtonOnRefreshShowsTheMenu) {
    PopupMenu* popped = nullptr;
    peers.onShowPopup = [&popped](korvanta::Form&, PopupMenu& menu) { popped = &menu; };
    Form().cmdRefresh.HandleRightClick();
    EXPECT_EQ(popped, &Form().mnuPopop);
}

TEST_F(MainFormTest, TickThatArrivesWhileATaskRunsDoesNotBeginItAgain) {
    int nested = 0;
    windows.messageLoop.onRunPending = [this, &nested] {
        if (nested < 5) {
            ++nested;
            windows.clock.AdvanceSeconds(1);
            Form().tmrActivity.HandleTick();
        }
    };
    windows.clock.AdvanceMinutes(61);
    windows.files.log.clear();
    Form().tmrActivity.HandleTick();
    windows.messageLoop.onRunPending = nullptr;
    EXPECT_EQ(Form().lblFullRefreshResult.Caption(), u"Completed.");
    const auto settingsReads = std::count(windows.files.log.begin(), windows.files.log.end(),
                                          u"OpenForReading \\\\SRV1\\TLXData$\\ClientSet.txt");
    EXPECT_EQ(settingsReads, 1);
    EXPECT_EQ(Form().Pointer(), MousePointer::Default);
}

TEST_F(MainFormTest, RefreshThatReplacesTheDetectorInTheMiddleOfAClockTickLosesNoJob) {
    AnnounceJob(0, u"First.doc");
    bool done = false;
    windows.messageLoop.onRunPending = [this, &done] {
        if (!done && Activity().find(u"Polling servers") != std::u16string::npos) {
            done = true;
            PublishSettings(Settings(u"1"));
            Form().cmdRefresh.HandleClick();
            windows.clock.AdvanceSeconds(1);
            Form().tmrActivity.HandleTick();
        }
    };
    Tick(3);
    windows.messageLoop.onRunPending = nullptr;
    EXPECT_TRUE(done);
    EXPECT_EQ(Form().CurrentDetectionMethod(), DetectionMethod::Printer);
    EXPECT_EQ(program->AccountDialog()->lblJobsQueued.Caption(), u"1");
}

TEST_F(MainFormTest, ClockThatIsSetBackADayTakesTheDueTimesWithIt) {
    Tick();
    const std::int64_t untilRefresh = Form().FullRefreshDue().milliseconds - windows.clock.now.milliseconds;
    windows.clock.AdvanceMinutes(-24 * 60);
    Form().tmrActivity.HandleTick();
    EXPECT_EQ(Form().FullRefreshDue().milliseconds - windows.clock.now.milliseconds, untilRefresh);
    Tick(32);
    EXPECT_NE(Form().lblServerHealthTestPerformed.Caption(), u"");
}

TEST_F(MainFormTest, ClockThatIsSetForwardMakesEverythingDueOnce) {
    windows.clock.AdvanceMinutes(48 * 60);
    Tick(3);
    EXPECT_EQ(Form().lblServerHealthTestResult.Caption(), u"All handles / servers valid.");
    EXPECT_EQ(Form().FullRefreshDue().milliseconds - windows.clock.now.milliseconds, 3598 * 1000);
}

}  // namespace
}  // namespace korvanta
