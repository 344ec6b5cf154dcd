#include <windows.h>

#include <commctrl.h>

#include "PeersTest.h"
#include "controls/KeyGuard.h"

namespace korvanta {
namespace {

using FormPeer = PeersTest;

TEST_F(FormPeer, FormStartsHiddenUnderItsNameWithItsCaption) {
    Load();
    ASSERT_NE(FormHandle(), nullptr);
    EXPECT_FALSE(::IsWindowVisible(FormHandle()));
    EXPECT_EQ(textCalls::ClassName(FormHandle()), u"Korvanta.frmTest");
    EXPECT_NE(::GetPropA(FormHandle(), "Korvanta.frmTest"), nullptr);
    EXPECT_EQ(textCalls::WindowText(FormHandle()), u"Test");
    form.Caption(u"Größe");
    EXPECT_EQ(textCalls::WindowText(FormHandle()), u"Größe");
    EXPECT_NE(Send(FormHandle(), WM_GETICON, ICON_BIG), 0);
    EXPECT_NE(Send(FormHandle(), WM_GETICON, ICON_SMALL), 0);
}

TEST_F(FormPeer, ClientAreaIsAsLargeAsTheFormAsksAndIsReported) {
    Load();
    RECT client{};
    ::GetClientRect(FormHandle(), &client);
    EXPECT_EQ(client.right, fonts.Pixels(6000));
    EXPECT_EQ(client.bottom, fonts.Pixels(4500));
    EXPECT_EQ(form.ClientWidth(), fonts.Twips(client.right));
    EXPECT_GT(form.Position().height, form.ClientHeight()) << "the whole window, with its caption";
}

TEST_F(FormPeer, MovingTheFormMovesTheWindowAndMovingTheWindowMovesTheForm) {
    Load();
    form.Move({1500, 3000, 7500, 6000});
    RECT window{};
    ::GetWindowRect(FormHandle(), &window);
    EXPECT_EQ(window.left, fonts.Pixels(1500));
    EXPECT_EQ(window.top, fonts.Pixels(3000));
    EXPECT_EQ(window.right - window.left, fonts.Pixels(7500));
    const int before = form.resizes;
    ::SetWindowPos(FormHandle(), nullptr, 40, 30, 700, 600, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(form.Position(),
              (::korvanta::Place{fonts.Twips(40), fonts.Twips(30), fonts.Twips(700), fonts.Twips(600)}));
    EXPECT_GT(form.resizes, before);
}

TEST_F(FormPeer, SizableFormKeepsItsMinimumSize) {
    form.MinimumSize(4500, 3000);
    Load();
    MINMAXINFO limits{};
    Send(FormHandle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    EXPECT_EQ(limits.ptMinTrackSize.x, fonts.Pixels(4500));
    EXPECT_EQ(limits.ptMinTrackSize.y, fonts.Pixels(3000));
}

TEST_F(FormPeer, FixedDialogCannotBeSizedAndWithoutTaskbarButtonHasAHiddenOwner) {
    form.Border(BorderStyle::FixedDialog);
    form.ShowInTaskbar(false);
    Load();
    EXPECT_EQ(textCalls::WindowData(FormHandle(), GWL_STYLE) & WS_THICKFRAME, 0);
    const HWND owner = ::GetWindow(FormHandle(), GW_OWNER);
    ASSERT_NE(owner, nullptr);
    EXPECT_FALSE(::IsWindowVisible(owner));
}

TEST_F(FormPeer, CloseReasonsAreToldApart) {
    Load();
    Send(FormHandle(), WM_SYSCOMMAND, SC_CLOSE);
    Send(FormHandle(), WM_CLOSE);
    EXPECT_NE(Send(FormHandle(), WM_QUERYENDSESSION), 0);
    Send(FormHandle(), WM_ENDSESSION, FALSE);
    Send(FormHandle(), WM_ENDSESSION, TRUE);
    EXPECT_EQ(form.closeReasons, (std::vector<CloseReason>{CloseReason::ControlMenu, CloseReason::TaskManager,
                                                           CloseReason::WindowsSession}));
    EXPECT_TRUE(::IsWindow(FormHandle())) << "a form that stays keeps its window";
}

TEST_F(FormPeer, OnlyADoubleClickOnTheNotificationIconIsTold) {
    constexpr WPARAM icon = 1;
    Load();
    for (const UINT other :
         {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK}) {
        Send(FormHandle(), WM_MOUSEMOVE, icon, static_cast<LPARAM>(other));
    }
    Send(FormHandle(), WM_MOUSEMOVE, 0, MAKELPARAM(WM_LBUTTONDBLCLK, 40));  // the mouse itself, over the form
    EXPECT_EQ(form.iconDoubleClicks, 0);
    Send(FormHandle(), WM_MOUSEMOVE, icon, WM_LBUTTONDBLCLK);
    EXPECT_EQ(form.iconDoubleClicks, 1);
}

TEST_F(FormPeer, NewTaskbarIsTold) {
    Load();
    Send(FormHandle(), ::RegisterWindowMessageA("TaskbarCreated"));
    EXPECT_EQ(form.taskbars, 1);
}

TEST_F(FormPeer, TimerTicksWhileEnabledAndMayTickWithinATick) {
    auto& timer = Make<Timer>(u"tmrTest");
    form.Add(timer);
    Load();
    timer.Interval(20);
    int ticks = 0;
    int deepest = 0;
    int depth = 0;
    timer.Tick.Connect([&] {
        ++ticks;
        deepest = std::max(deepest, ++depth);
        if (depth == 1 && ticks > 1) {
            RunUntil([&] { return deepest > 1; });
        }
        --depth;
    });
    timer.Enabled(true);
    EXPECT_TRUE(RunUntil([&] { return deepest > 1; }));
    timer.Enabled(false);
    const int counted = ticks;
    Send(FormHandle(), WM_TIMER, 100);
    EXPECT_EQ(ticks, counted) << "a disabled timer is silent";
}

TEST_F(FormPeer, ModalFormReturnsWhenHiddenAndKeepsOthersFromInputMeanwhile) {
    Show();
    TestForm dialog(u"frmDialog");
    CommandButton button(u"cmdClose");
    button.Move({150, 150, 1500, 375});
    dialog.Add(button);
    dialog.Load(factory.get());
    bool otherWasEnabled = true;
    button.Click.Connect([&] {
        otherWasEnabled = ::IsWindowEnabled(FormHandle()) != 0;
        dialog.Hide();
    });
    textCalls::Post(FindIn(reinterpret_cast<HWND>(dialog.Window()), "cmdClose"), BM_CLICK);
    dialog.ShowModal();
    EXPECT_FALSE(dialog.Shown());
    EXPECT_FALSE(otherWasEnabled);
    EXPECT_TRUE(::IsWindowEnabled(FormHandle()));
    dialog.Detach();
}

TEST_F(FormPeer, ModalFormReturnsWhenTheProgramEnds) {
    TestForm dialog(u"frmDialog");
    dialog.Load(factory.get());
    auto& timer = Make<Timer>(u"tmrEnd");
    form.Add(timer);
    Load();
    timer.Interval(20);
    timer.Tick.Connect([&] { loop.Quit(); });
    timer.Enabled(true);
    dialog.ShowModal();
    EXPECT_TRUE(loop.Quitting());
    dialog.Detach();
}

TEST_F(FormPeer, FormMayLoseItsWindowsWhileOneOfThemIsHandlingAClick) {
    auto& button = Make<CommandButton>(u"cmdEnd");
    Place(button);
    Show();
    const HWND window = FormHandle();
    bool clicked = false;
    button.Click.Connect([&] {
        clicked = true;
        form.Detach();
    });
    Click(Find("cmdEnd"));
    EXPECT_TRUE(clicked);
    EXPECT_EQ(form.Window(), 0U);
    EXPECT_TRUE(RunUntil([&] { return !::IsWindow(window); }));
}

TEST_F(FormPeer, MenuEntryIsChosenByItsCommand) {
    auto& menu = Make<PopupMenu>(u"mnuTest");
    auto& first = Make<MenuEntry>(u"mnuFirst");
    auto& second = Make<MenuEntry>(u"mnuSecond");
    menu.Add(first);
    menu.Add(second);
    form.Add(menu);
    Load();
    int chosen = 0;
    first.Click.Connect([&] { chosen = 1; });
    second.Click.Connect([&] { chosen = 2; });
    Send(FormHandle(), WM_COMMAND, 0x9001);
    EXPECT_EQ(chosen, 2);
    Send(FormHandle(), WM_COMMAND, 0x9005);
    EXPECT_EQ(chosen, 2) << "there is no such entry";
    second.Enabled(false);
    first.Click.Raise();
    Send(FormHandle(), WM_COMMAND, 0x9001);
    EXPECT_EQ(chosen, 1) << "a disabled entry cannot be chosen";
}

TEST_F(FormPeer, PopupReturnsAfterTheEntryChosenFromOutside) {
    auto& menu = Make<PopupMenu>(u"mnuTest");
    auto& entry = Make<MenuEntry>(u"mnuEntry");
    entry.Caption(u"Entry");
    menu.Add(entry);
    Show();
    bool clicked = false;
    entry.Click.Connect([&] { clicked = true; });
    textCalls::Post(FormHandle(), WM_COMMAND, 0x9000);
    form.ShowPopup(menu);
    EXPECT_TRUE(clicked);
}

TEST_F(FormPeer, FormThatGuardsItsKeysHeedsNoneThatWereMeantForAnotherWindow) {
    auto& box = Make<TextBox>(u"txtOne");
    auto& button = Make<CommandButton>(u"cmdOK");
    button.Default(true);
    Place(box);
    Place(button, 150, 900);
    int presses = 0;
    button.Click.Connect([&] { ++presses; });
    form.GuardsKeys(true);
    Show();
    ASSERT_EQ(::GetActiveWindow(), FormHandle());
    const HWND window = Find("txtOne");
    PressKey(window, 'X');
    PressKey(window, VK_RETURN);
    textCalls::Post(window, WM_CHAR, L'y', 1);
    loop.RunPending();
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(box.Text(), u"");
    // The user turns to the window, still holding Enter down.
    textCalls::Post(FormHandle(), WM_MBUTTONDOWN, MK_MBUTTON);
    textCalls::Post(window, WM_KEYDOWN, VK_RETURN, 0x40000001);
    loop.RunPending();
    EXPECT_EQ(presses, 0);
    PressKey(window, VK_RETURN);
    EXPECT_EQ(presses, 1);
}

TEST_F(FormPeer, FormThatGuardsItsKeysHeedsThemAgainWhenTheKeyboardHasRested) {
    auto& box = Make<TextBox>(u"txtOne");
    Place(box);
    form.GuardsKeys(true);
    Show();
    const DWORD shown = ::GetTickCount();
    ASSERT_TRUE(RunUntil([&] { return ::GetTickCount() - shown > KeyGuard::quietTime + 50; }));
    PressKey(Find("txtOne"), 'X');
    EXPECT_NE(box.Text(), u"");
}

TEST_F(FormPeer, FormTakesTheResolutionOfTheScreenItMovesTo) {
    auto& label = Make<Label>(u"lblOne");
    auto& grid = Make<Grid>(u"grdOne");
    auto& tabs = Make<TabStrip>(u"tabOne");
    tabs.Tabs({u"one", u"two"});
    Place(label);
    Place(tabs, 150, 600, 3000, 1200);
    Place(grid, 150, 2000, 3000, 1200);
    Show();
    const int before = fonts.DotsPerInch();
    const int twice = 2 * before;
    const auto sizeOf = [](HWND window) {
        RECT place{};
        ::GetWindowRect(window, &place);
        return SIZE{place.right - place.left, place.bottom - place.top};
    };
    const auto letters = [](HWND window) {
        LOGFONTA font{};
        ::GetObjectA(reinterpret_cast<HFONT>(Send(window, WM_GETFONT)), sizeof(font), &font);
        return font.lfHeight;
    };
    const SIZE window = sizeOf(FormHandle());
    const LONG height = letters(Find("lblOne"));
    const int clientWidth = form.ClientWidth();
    const int headerHeight = tabs.HeaderHeight();
    RECT wanted{20, 30, 20 + 2 * window.cx, 30 + 2 * window.cy};
    constexpr UINT dpiChanged = 0x02E0;
    Send(FormHandle(), dpiChanged, MAKEWPARAM(twice, twice), reinterpret_cast<LPARAM>(&wanted));
    EXPECT_EQ(fonts.DotsPerInch(), twice);
    EXPECT_EQ(sizeOf(FormHandle()).cx, 2 * window.cx);
    EXPECT_EQ(sizeOf(FormHandle()).cy, 2 * window.cy);
    EXPECT_EQ(letters(Find("lblOne")), 2 * height);
    EXPECT_EQ(letters(Find("tabOne")), 2 * height);
    EXPECT_EQ(sizeOf(Find("lblOne")).cx, fonts.Pixels(3000));
    EXPECT_EQ(sizeOf(Find("grdOne")).cy, fonts.Pixels(1200));
    EXPECT_NEAR(form.ClientWidth(), clientWidth, 150) << "in inches the form is as large as before";
    EXPECT_NEAR(tabs.HeaderHeight(), headerHeight, 60);
    EXPECT_EQ(form.fontChanges, 1);
    int imageWidth = 0;
    int imageHeight = 0;
    const auto images = reinterpret_cast<HIMAGELIST>(Send(Find("grdOne"), LVM_GETIMAGELIST, LVSIL_SMALL));
    ::ImageList_GetIconSize(images, &imageWidth, &imageHeight);
    EXPECT_EQ(imageWidth, 2 * ::GetSystemMetrics(SM_CXSMICON));
}

TEST_F(FormPeer, TopMostFormStaysAboveOthers) {
    Load();
    form.TopMost(true);
    EXPECT_NE(textCalls::WindowData(FormHandle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    form.TopMost(false);
    EXPECT_EQ(textCalls::WindowData(FormHandle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(FormPeer, HourglassIsShownOverTheFormAndItsControlsWhileTheFormSaysSo) {
    auto& label = Make<Label>(u"lblOne");
    Place(label);
    Show();
    const auto pointerOver = [&](HWND window) {
        Send(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return ::GetCursor();
    };
    const HCURSOR hourglass = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32514));
    EXPECT_NE(pointerOver(FormHandle()), hourglass);
    form.Pointer(MousePointer::Hourglass);
    EXPECT_EQ(pointerOver(FormHandle()), hourglass);
    EXPECT_EQ(pointerOver(Find("lblOne")), hourglass);
    form.Pointer(MousePointer::Default);
    EXPECT_NE(pointerOver(Find("lblOne")), hourglass);
}

TEST_F(FormPeer, ShownFormIsVisibleAndHiddenOneIsNot) {
    Show();
    EXPECT_TRUE(::IsWindowVisible(FormHandle()));
    form.Hide();
    EXPECT_FALSE(::IsWindowVisible(FormHandle()));
    form.Show();
    EXPECT_TRUE(::IsWindowVisible(FormHandle()));
}

}  // namespace
}  // namespace korvanta
