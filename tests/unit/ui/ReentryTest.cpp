#include <algorithm>
#include <map>

#include "unit/ui/DialogFixture.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What may happen while the dialog lets messages run.
enum class Happening {
    OK,
    Cancel,
    DoubleClick,
    OtherTab,
    FirstTab,
    Row,
    MonitorTick,
    FlashTick,
    SearchTicks,
    NewJob,
    NewJobAndTick,
    NewAccounts,
    NewAccountsAndTick,
    NoAccounts,
    SearchChange,
    SearchChangeAndTicks,
    Enter,
    AddPreferred,
    RemovePreferred,
    MoveDown,
    PreLoad,
    CancelAndTick,
    OKAndTick,
    NewRates,
    Resize,
};

constexpr Happening allHappenings[] = {
    Happening::OK,
    Happening::Cancel,
    Happening::DoubleClick,
    Happening::OtherTab,
    Happening::FirstTab,
    Happening::Row,
    Happening::MonitorTick,
    Happening::FlashTick,
    Happening::SearchTicks,
    Happening::NewJob,
    Happening::NewJobAndTick,
    Happening::NewAccounts,
    Happening::NewAccountsAndTick,
    Happening::NoAccounts,
    Happening::SearchChange,
    Happening::SearchChangeAndTicks,
    Happening::Enter,
    Happening::AddPreferred,
    Happening::RemovePreferred,
    Happening::MoveDown,
    Happening::PreLoad,
    Happening::CancelAndTick,
    Happening::OKAndTick,
    Happening::NewRates,
    Happening::Resize,
};

// Everything the tests do here ends with each job answered exactly once and the dialog whole.
class ReentryBase : public DialogFixture {
  protected:
    static constexpr std::int32_t groups = 12;

    ReentryBase() { WriteAccounts(ManyAccounts(groups)); }

    void AddJobs(int count) {
        for (int i = 0; i < count; ++i) {
            Dialog().AddJob(Job(++jobs_));
        }
    }
    void Make(Happening what) {
        frmAccountNumber& dialog = Dialog();
        switch (what) {
            case Happening::OK:
                PressOK();
                break;
            case Happening::Cancel:
                PressCancel();
                break;
            case Happening::DoubleClick:
                dialog.ctlAccountListAll.flxAccounts.HandleDblClick();
                break;
            case Happening::OtherTab:
                dialog.tabView.HandleSelected(3);
                break;
            case Happening::FirstTab:
                dialog.tabView.HandleSelected(1);
                break;
            case Happening::Row:
                dialog.ctlAccountListAll.flxAccounts.HandleRow(2);
                dialog.ctlAccountListAll.flxAccounts.HandleClick();
                break;
            case Happening::MonitorTick:
                MonitorTick();
                break;
            case Happening::FlashTick:
                dialog.tmrFlash.HandleTick();
                break;
            case Happening::SearchTicks:
                SearchTicks(8);
                break;
            case Happening::NewJob:
                AddJobs(1);
                break;
            case Happening::NewJobAndTick:
                AddJobs(1);
                MonitorTick();
                break;
            case Happening::NewAccounts:
                WriteAccounts(ManyAccounts(groups + 3));
                break;
            case Happening::NewAccountsAndTick:
                WriteAccounts(ManyAccounts(groups + 3));
                MonitorTick();
                break;
            case Happening::NoAccounts:
                files.RemoveFile(accountsFile);
                files.RemoveFile(u"C:\\Temp\\tlxact.txt");
                break;
            case Happening::SearchChange:
                Type(u"10");
                break;
            case Happening::SearchChangeAndTicks:
                Type(u"matter 1");
                SearchTicks(8);
                break;
            case Happening::Enter:
                dialog.txtSearch.HandleKeyDown(Key::Enter);
                SearchTicks(2);
                break;
            case Happening::AddPreferred:
                dialog.lblAddPreferred.HandleClick();
                break;
            case Happening::RemovePreferred:
                dialog.lblRemovePreferred.HandleClick();
                break;
            case Happening::MoveDown:
                dialog.lblMoveDown.HandleClick();
                break;
            case Happening::PreLoad:
                dialog.PreLoadAccounts();
                break;
            case Happening::CancelAndTick:
                PressCancel();
                MonitorTick();
                break;
            case Happening::OKAndTick:
                PressOK();
                MonitorTick();
                break;
            case Happening::NewRates:
                rates = std::make_shared<clsChargeRates>(platform.mutexes, platform.clock);
                break;
            case Happening::Resize:
                dialog.HandlePlace({}, dialog.ClientWidth() + 100, dialog.ClientHeight() + 100);
                break;
        }
    }

    // Lets it happen wherever messages run, `deepest` levels deep and `most` times at most.
    void Hook(std::vector<Happening> what, int deepest, int most) {
        auto left = std::make_shared<int>(most);
        auto next = std::make_shared<std::size_t>(0);
        auto depth = std::make_shared<int>(0);
        const auto happen = [this, what = std::move(what), left, next, depth, deepest] {
            if (*left > 0 && *depth < deepest) {
                --*left;
                ++*depth;
                Make(what[(*next)++ % what.size()]);
                --*depth;
            }
        };
        platform.messageLoop.onRunPending = happen;
        platform.messageLoop.onRunPendingOften = happen;
        platform.messageBoxes.whileOpen = [happen](const auto&) { happen(); };
    }
    void Unhook() {
        platform.messageLoop.onRunPending = nullptr;
        platform.messageLoop.onRunPendingOften = nullptr;
        platform.messageBoxes.whileOpen = nullptr;
    }

    // Answers all that is left, one by one, and looks that every job was answered once and no more.
    void ExpectEveryJobIsAnsweredOnce() {
        Unhook();
        ExpectWhole();
        WriteAccounts(ManyAccounts(groups));
        for (int i = 0; i < 3 * jobs_ + 3 && Dialog().lblJobsQueued.Caption() != u"0"; ++i) {
            MonitorTick();
            ASSERT_TRUE(Dialog().Shown()) << "a job waits and the dialog does not show itself";
            ExpectWhole();
            PressCancel();
        }
        EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
        EXPECT_FALSE(Dialog().Shown());
        std::map<std::int32_t, int> answers;
        for (const std::int32_t id : cancelled) {
            ++answers[id];
        }
        for (std::int32_t id = 1; id <= jobs_; ++id) {
            // A notification that was to be and could not be counts as an answer; see Uploads.
            answers[id] += Uploads(id);
            EXPECT_EQ(answers[id], 1) << "job " << id;
        }
        ExpectViewShowsAllAccounts();
    }
    int Uploads(std::int32_t id) {
        return static_cast<int>(std::count(log.lines.begin(), log.lines.end(),
                                           u"Uploading notification file to server: " + NotificationPath(id)));
    }
    void ExpectViewShowsAllAccounts() {
        Type(u"");
        SearchTicks(8);
        Dialog().PreLoadAccounts();
        EXPECT_EQ(AllIds().size(), 2U * groups);
        ExpectWhole();
    }

    std::int32_t jobs_ = 0;
};

class ReentryTest : public ReentryBase, public testing::WithParamInterface<Happening> {};

}  // namespace

TEST_P(ReentryTest, WhileTheDialogShowsItself) {
    AddJobs(3);
    Hook({GetParam()}, 1, 100);
    MonitorTick();
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, OnceAtEachPlaceWhileTheDialogShowsItself) {
    for (int place = 0; place < 8; ++place) {
        WriteAccounts(ManyAccounts(groups + place % 2));  // to be listed anew
        AddJobs(2);
        int passed = 0;
        const auto happen = [&] {
            if (passed++ == place) {
                Make(GetParam());
            }
        };
        platform.messageLoop.onRunPending = happen;
        platform.messageLoop.onRunPendingOften = happen;
        MonitorTick();
        ExpectEveryJobIsAnsweredOnce();
    }
}

TEST_P(ReentryTest, ManyLevelsDeep) {
    AddJobs(3);
    Hook({GetParam(), Happening::MonitorTick}, 6, 60);
    MonitorTick();
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileASearchRuns) {
    AddJobs(2);
    MonitorTick();
    Type(u"account");
    Hook({GetParam()}, 1, 100);
    SearchTicks(8);
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileASearchRunsInsideASearch) {
    AddJobs(2);
    MonitorTick();
    Type(u"account");
    Hook({Happening::SearchChangeAndTicks, GetParam()}, 3, 40);
    SearchTicks(8);
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileTheViewsAreFilledAhead) {
    AddJobs(2);
    Hook({GetParam()}, 2, 100);
    Dialog().PreLoadAccounts();
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileANotificationFailureIsTold) {
    AddJobs(4);
    MonitorTick();
    files.Down(u"PRINTSRV");
    Dialog().chkSubmitAllDocuments.HandleClick(true);
    Hook({GetParam()}, 1, 100);
    PressOK();
    files.Up(u"PRINTSRV");
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileOneNotificationFailureIsToldWithoutSubmitAll) {
    AddJobs(3);
    MonitorTick();
    files.Down(u"PRINTSRV");
    Hook({Happening::MonitorTick, GetParam()}, 2, 50);
    PressOK();
    files.Up(u"PRINTSRV");
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileACancelIsTold) {
    AddJobs(3);
    MonitorTick();
    Hook({GetParam(), Happening::MonitorTick}, 2, 50);
    PressCancel();
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileTheLackOfAccountsIsTold) {
    AddJobs(2);
    MonitorTick();
    PressCancel();
    files.RemoveFile(accountsFile);
    files.RemoveFile(u"C:\\Temp\\tlxact.txt");
    Hook({GetParam()}, 1, 100);
    MonitorTick();
    ExpectEveryJobIsAnsweredOnce();
}

TEST_P(ReentryTest, WhileAnAccountIsAskedFor) {
    AddJobs(2);
    MonitorTick();
    Dialog().tabView.HandleSelected(2);
    Hook({GetParam()}, 1, 100);
    PressOK();
    ExpectEveryJobIsAnsweredOnce();
}

INSTANTIATE_TEST_SUITE_P(Everything, ReentryTest, testing::ValuesIn(allHappenings));

class ReentryDetailTest : public ReentryBase {};

TEST_F(ReentryDetailTest, AJobAnsweredWhileTheDialogComesUpIsNotOfferedAgain) {
    AddJobs(1);
    Dialog().PreLoadAccounts();
    int runs = 0;
    platform.messageLoop.onRunPending = [&] {
        if (++runs == 2) {  // the first comes before the dialog shows
            PressCancel();
        }
    };
    MonitorTick();
    EXPECT_THAT(cancelled, ElementsAre(1));
    EXPECT_FALSE(Dialog().Shown());
    MonitorTick();
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_THAT(cancelled, ElementsAre(1));
}

// What the last job was charged with must not be sent for the next one.
TEST_F(ReentryDetailTest, OKCannotBePressedBeforeTheDialogIsPrepared) {
    Lines lines = ManyAccounts(20);
    lines.push_back(Main(7, u"Last", true, true, 1));
    WriteAccounts(lines);
    AddJobs(2);
    MonitorTick();
    SelectAll(7);
    Dialog().chkInvoice.HandleClick(false);
    Dialog().txtComment.HandleChange(u"for the first");
    PressOK();
    ASSERT_TRUE(Notified(1));
    const auto pressOK = [&] { PressOK(); };
    platform.messageLoop.onRunPending = pressOK;
    platform.messageLoop.onRunPendingOften = pressOK;
    MonitorTick();
    EXPECT_EQ(NotificationCount(), 1U);
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_TRUE(Dialog().chkInvoice.Value());
    EXPECT_EQ(Dialog().txtComment.Text(), u"");
    EXPECT_TRUE(Dialog().cmdOK.Enabled());
}

TEST_F(ReentryDetailTest, ATickInsideATickOffersTheJobOnce) {
    AddJobs(2);
    bool nested = false;
    platform.messageLoop.onRunPending = [&] {
        if (!nested) {
            nested = true;
            MonitorTick();
            EXPECT_TRUE(Dialog().Shown());
        }
    };
    MonitorTick();
    EXPECT_EQ(peers.Of(Dialog()).shown, 1);
    ExpectWhole();
}

TEST_F(ReentryDetailTest, OKCannotBePressedWhileAFillIsUnderWay) {
    AddJobs(1);
    platform.messageLoop.onRunPendingOften = [&] { PressOK(); };
    MonitorTick();
    EXPECT_EQ(NotificationCount(), 0U);
    EXPECT_TRUE(Dialog().Shown());
}

TEST_F(ReentryDetailTest, TheRulesOfTheSelectedAccountHoldAfterASearchOvertookAnother) {
    Lines lines = ManyAccounts(20);
    lines.push_back(Main(7, u"Last", true, false, 2));
    WriteAccounts(lines);
    AddJobs(1);
    MonitorTick();
    Prefs().SetLastSelectedAccount(7);
    EXPECT_FALSE(Dialog().txtComment.Enabled());
    Type(u"account");
    bool nested = false;
    platform.messageLoop.onRunPendingOften = [&] {
        if (!nested) {
            nested = true;
            Type(u"last");
            SearchTicks(8);
        }
    };
    SearchTicks(8);
    EXPECT_THAT(AllIds(), ElementsAre(7));
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 7);
    EXPECT_TRUE(Dialog().txtComment.Enabled());
    EXPECT_FALSE(Dialog().chkInvoice.Enabled());
    ExpectWhole();
}

TEST_F(ReentryDetailTest, ARowChosenOnAnotherTabWhileASearchRunsGetsItsRules) {
    Lines lines = ManyAccounts(20);
    lines.push_back(Main(7, u"Last", true, false, 2));
    WriteAccounts(lines);
    Prefs().AddPreferred(1000);
    Prefs().AddPreferred(7);
    AddJobs(1);
    MonitorTick();
    Dialog().tabView.HandleSelected(2);
    EXPECT_FALSE(Dialog().txtComment.Enabled());
    Type(u"account");
    platform.messageLoop.onRunPendingOften = [&] { Select(Dialog().ctlAccountListPreferred, 7); };
    SearchTicks(8);
    EXPECT_TRUE(Dialog().txtComment.Enabled());
    EXPECT_FALSE(Dialog().chkInvoice.Enabled());
}

TEST_F(ReentryDetailTest, AddingAPreferredAccountWhileASearchRunsLeavesTheWaitCursor) {
    AddJobs(1);
    MonitorTick();
    Type(u"account");
    platform.messageLoop.onRunPendingOften = [&] {
        Dialog().lblAddPreferred.HandleClick();
        EXPECT_EQ(Dialog().Pointer(), MousePointer::Hourglass);
    };
    SearchTicks(8);
    ExpectWhole();
}

TEST_F(ReentryDetailTest, SubmitAllChargesAJobThatComesWhileAFailureIsTold) {
    AddJobs(2);
    MonitorTick();
    files.FailPath(NotificationPath(1), windowsError::accessDenied);
    Dialog().chkSubmitAllDocuments.HandleClick(true);
    platform.messageBoxes.whileOpen = [&](const auto&) {
        AddJobs(1);
        MonitorTick();
    };
    PressOK();
    EXPECT_TRUE(Notified(2));
    EXPECT_TRUE(Notified(3));
    EXPECT_FALSE(Dialog().Shown());
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
}

TEST_F(ReentryDetailTest, AccountsThatChangeWhileTheyAreListedAreListedAnewForTheNextJob) {
    AddJobs(2);
    bool changed = false;
    platform.messageLoop.onRunPendingOften = [&] {
        if (!changed) {
            changed = true;
            WriteAccounts(ManyAccounts(3));
            Accounts().LoadAccounts();
        }
    };
    MonitorTick();
    EXPECT_EQ(AllIds().size(), 2U * groups);
    ExpectWhole();
    platform.messageLoop.onRunPendingOften = nullptr;
    PressCancel();
    MonitorTick();
    EXPECT_EQ(AllIds().size(), 6U);
}

TEST_F(ReentryDetailTest, AJobAnsweredWhileTheDialogComesUpIsNotRejectedForMissingAccounts) {
    AddJobs(1);
    Dialog().PreLoadAccounts();
    int runs = 0;
    platform.messageLoop.onRunPending = [&] {
        if (++runs == 2) {
            PressCancel();
            files.RemoveFile(accountsFile);
            files.RemoveFile(u"C:\\Temp\\tlxact.txt");
        }
    };
    MonitorTick();
    EXPECT_THAT(cancelled, ElementsAre(1));
    EXPECT_THAT(BoxTexts(), ElementsAre(Text(u"lblJobCancelSuccess")));
}

TEST_F(ReentryDetailTest, TheNextJobIsNotRejectedForTheAccountsThatTheLastOneLacked) {
    AddJobs(2);
    files.RemoveFile(accountsFile);
    platform.messageBoxes.whileOpen = [&](const auto& box) {
        if (box.text == Text(u"lblAccountListError")) {
            PressCancel();
            WriteAccounts(ManyAccounts(groups));
            MonitorTick();
        }
    };
    MonitorTick();
    EXPECT_THAT(cancelled, ElementsAre(1));
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(AllIds().size(), 2U * groups);
    platform.messageBoxes.whileOpen = nullptr;
    PressCancel();
    EXPECT_EQ(BoxTexts().back(), Text(u"lblJobCancelSuccess"));
}

TEST_F(ReentryDetailTest, WhatTheUserDoesForTheNextJobWhileTheLastFillEndsIsKept) {
    Lines lines = ManyAccounts(20);
    lines.push_back(Main(7, u"Last", true, true, 1));
    WriteAccounts(lines);
    AddJobs(2);
    bool nested = false;
    platform.messageLoop.onRunPendingOften = [&] {
        if (!nested) {
            nested = true;
            PressCancel();
            MonitorTick();
            SelectAll(7);
            Dialog().chkInvoice.HandleClick(false);
            Dialog().txtComment.HandleChange(u"mine");
        }
    };
    MonitorTick();
    EXPECT_THAT(cancelled, ElementsAre(1));
    EXPECT_TRUE(Dialog().Shown());
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 7);
    EXPECT_EQ(Dialog().txtComment.Text(), u"mine");
    EXPECT_FALSE(Dialog().chkInvoice.Value());
    ExpectWhole();
}

TEST_F(ReentryDetailTest, ACancelThatLetsMessagesRunAnswersItsJobOnce) {
    AddJobs(2);
    MonitorTick();
    platform.messageBoxes.whileOpen = [&](const auto&) {
        MonitorTick();
        PressCancel();
    };
    PressCancel();
    EXPECT_THAT(cancelled, ElementsAre(1, 2));
    EXPECT_EQ(Dialog().lblJobsQueued.Caption(), u"0");
    ExpectWhole();
}

}  // namespace korvanta
