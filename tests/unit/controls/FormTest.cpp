#include "controls/Form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "fakes/FakePeers.h"

namespace korvanta {
namespace {

using Changes = std::vector<Aspect>;

class TestForm : public Form {
  public:
    TestForm() : Form(u"frmTest") {
        Add(button);
        Border(BorderStyle::FixedDialog);
        ShowInTaskbar(false);
        MinimumSize(3000, 2000);
        ClientSize(5000, 4000);
    }
    ~TestForm() override { Detach(); }

    CommandButton button{u"cmdOK"};
    std::vector<std::u16string> log;
    std::function<bool(CloseReason)> onQueryUnload;
    std::function<void()> onUnload;

  protected:
    void OnLoad() override { log.push_back(u"load"); }
    bool OnQueryUnload(CloseReason reason) override {
        log.push_back(u"query");
        return !onQueryUnload || onQueryUnload(reason);
    }
    void OnUnload() override {
        log.push_back(u"unload");
        if (onUnload) {
            onUnload();
        }
    }
    void OnResize() override { log.push_back(u"resize"); }
    void OnTrayIconDoubleClick() override { log.push_back(u"icon"); }
    void OnTaskbarCreated() override { log.push_back(u"taskbar"); }
};

class FormTest : public testing::Test {
  protected:
    using Log = std::vector<std::u16string>;
    fakes::FakePeers peers;
    TestForm form;
};

TEST_F(FormTest, DesignTimePropertiesAreKept) {
    EXPECT_EQ(form.Border(), BorderStyle::FixedDialog);
    EXPECT_FALSE(form.ShowInTaskbar());
    EXPECT_EQ(form.MinimumWidth(), 3000);
    EXPECT_EQ(form.MinimumHeight(), 2000);
    EXPECT_EQ(form.ClientWidth(), 5000);
    EXPECT_EQ(form.ClientHeight(), 4000);
}

TEST_F(FormTest, LoadMakesThePeersAndRaisesOnLoadOnce) {
    EXPECT_FALSE(form.Loaded());
    form.Load(&peers);
    form.Load(&peers);
    EXPECT_TRUE(form.Loaded());
    EXPECT_EQ(form.log, (Log{u"load", u"resize"}));
    EXPECT_EQ(peers.PeersAlive(), 2);
    EXPECT_EQ(peers.Of(form).made, 1);
    EXPECT_FALSE(form.Shown());
    EXPECT_EQ(peers.Of(form).shown, 0);
}

TEST_F(FormTest, LoadWithoutAFactoryMakesAFormWithoutAWindow) {
    form.Load(nullptr);
    EXPECT_EQ(form.log, (Log{u"load", u"resize"}));
    EXPECT_EQ(form.Window(), 0U);
    form.Show();
    EXPECT_TRUE(form.Shown());
    form.Hide();
    EXPECT_FALSE(form.Shown());
    form.ShowModal();
    EXPECT_TRUE(form.Shown());
    form.BringToForeground();
    form.Flash();
    form.TopMost(true);
    form.Pointer(MousePointer::Hourglass);
    EXPECT_TRUE(form.TopMost());
    EXPECT_EQ(form.Pointer(), MousePointer::Hourglass);
}

TEST_F(FormTest, AFactoryThatRefusesMakesAFormWithoutAWindow) {
    peers.refuse = true;
    form.Load(&peers);
    form.Show();
    form.ShowModal();
    EXPECT_EQ(form.Window(), 0U);
    EXPECT_EQ(peers.PeersAlive(), 0);
}

TEST_F(FormTest, ShowAndHideTellTheWindowOfChangesAlone) {
    form.Load(&peers);
    form.Hide();
    form.Show();
    form.Show();
    EXPECT_TRUE(form.Shown());
    EXPECT_EQ(peers.Of(form).shown, 1);
    form.Hide();
    form.Hide();
    EXPECT_FALSE(form.Shown());
    EXPECT_EQ(peers.Of(form).hidden, 1);
    EXPECT_NE(form.Window(), 0U);
}

TEST_F(FormTest, ShowModalReturnsWhenTheFormHasBeenHidden) {
    form.Load(&peers);
    form.button.Click.Connect([this] { form.Hide(); });
    bool shownMeanwhile = false;
    peers.modalScripts.push_back([&](Form& shown) {
        shownMeanwhile = shown.Shown();
        form.button.HandleClick();
    });
    form.ShowModal();
    EXPECT_TRUE(shownMeanwhile);
    EXPECT_FALSE(form.Shown());
    EXPECT_EQ(peers.Of(form).shownModally, 1);
}

TEST_F(FormTest, TheWindowCarriesOutTheRest) {
    form.Load(&peers);
    form.BringToForeground();
    form.Flash();
    form.Flash();
    form.TopMost(true);
    form.Pointer(MousePointer::Hourglass);
    form.Pointer(MousePointer::Hourglass);
    const fakes::PeerRecord& record = peers.Of(form);
    EXPECT_EQ(record.broughtToForeground, 1);
    EXPECT_EQ(record.flashed, 2);
    EXPECT_EQ(record.changes, (Changes{Aspect::TopMost, Aspect::Pointer}));
}

TEST_F(FormTest, AFormThatIsTopMostAlreadyIsPutInFrontOfTheOthersAgain) {
    form.Load(&peers);
    form.TopMost(true);
    form.TopMost(true);
    EXPECT_EQ(peers.Of(form).Count(Aspect::TopMost), 2);
}

TEST_F(FormTest, TheChosenEntryOfAPopupClicksBeforeItReturns) {
    form.Load(&peers);
    PopupMenu menu(u"mnu");
    MenuEntry entry(u"mnuEntry");
    menu.Add(entry);
    int clicks = 0;
    entry.Click.Connect([&clicks] { ++clicks; });
    peers.onShowPopup = [&entry](Form&, PopupMenu&) { entry.HandleClick(); };
    form.ShowPopup(menu);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(peers.Of(form).popups, 1);
}

TEST_F(FormTest, UnloadAsksAndThenUnloadsOnce) {
    form.Load(nullptr);
    form.log.clear();
    EXPECT_TRUE(form.Unload(CloseReason::Code));
    EXPECT_TRUE(form.Unload(CloseReason::Code));
    EXPECT_EQ(form.log, (Log{u"query", u"unload"}));
}

TEST_F(FormTest, AFormMayRefuseToUnload) {
    CloseReason asked = CloseReason::Code;
    form.onQueryUnload = [&asked](CloseReason reason) {
        asked = reason;
        return reason != CloseReason::ControlMenu;
    };
    EXPECT_FALSE(form.Unload(CloseReason::ControlMenu));
    EXPECT_EQ(asked, CloseReason::ControlMenu);
    EXPECT_EQ(form.log, Log{u"query"});
    EXPECT_TRUE(form.Unload(CloseReason::WindowsSession));
    EXPECT_EQ(asked, CloseReason::WindowsSession);
}

TEST_F(FormTest, AFormThatIsUnloadedWhileItIsAskedUnloadsOnce) {
    bool asking = false;
    form.onQueryUnload = [&](CloseReason) {
        if (!asking) {
            asking = true;
            EXPECT_TRUE(form.Unload(CloseReason::Code));
        }
        return true;
    };
    EXPECT_TRUE(form.Unload(CloseReason::Code));
    EXPECT_EQ(std::count(form.log.begin(), form.log.end(), u"unload"), 1);
}

TEST_F(FormTest, AFormThatUnloadsItselfWhileUnloadingDoesSoOnce) {
    form.onUnload = [this] { EXPECT_TRUE(form.Unload(CloseReason::Code)); };
    EXPECT_TRUE(form.Unload(CloseReason::Code));
    EXPECT_EQ(std::count(form.log.begin(), form.log.end(), u"unload"), 1);
}

TEST_F(FormTest, AnUnloadedFormKeepsItsState) {
    form.Load(&peers);
    form.button.Caption(u"kept");
    form.Unload(CloseReason::Code);
    EXPECT_EQ(form.button.Caption(), u"kept");
}

TEST_F(FormTest, DetachEndsThePeersOfAllItsControls) {
    form.Load(&peers);
    form.Detach();
    EXPECT_EQ(peers.PeersAlive(), 0);
    form.Show();
    form.Flash();
    EXPECT_EQ(form.Window(), 0U);
    EXPECT_EQ(peers.Of(form).flashed, 0);
}

TEST_F(FormTest, AMovedWindowIsNoResize) {
    form.Load(&peers);
    form.log.clear();
    form.HandlePlace({100, 100, 5300, 4300}, 5000, 4000);
    EXPECT_EQ(form.Position(), (Place{100, 100, 5300, 4300}));
    EXPECT_EQ(form.log, Log());
    form.HandlePlace({100, 100, 6300, 4300}, 6000, 4000);
    EXPECT_EQ(form.log, Log{u"resize"});
    EXPECT_EQ(form.ClientWidth(), 6000);
    EXPECT_EQ(peers.Of(form).changes, Changes());  // the window knows already
}

TEST_F(FormTest, MoveTellsTheWindow) {
    form.Load(&peers);
    form.Move({10, 20, 5300, 4300});
    EXPECT_EQ(peers.Of(form).changes, Changes{Aspect::Place});
}

TEST_F(FormTest, TheNotificationIconAndTheTaskbarReachTheForm) {
    form.HandleTrayIconDoubleClick();
    form.HandleTaskbarCreated();
    EXPECT_EQ(form.log, (Log{u"icon", u"taskbar"}));
}

}  // namespace
}  // namespace korvanta
