#include "PeersTest.h"

#include <commctrl.h>

namespace korvanta {
namespace {

using ControlPeers = PeersTest;

TEST_F(ControlPeers, EveryControlIsAStandardWindowUnderItsName) {
    auto& label = Make<Label>(u"lblOne");
    auto& link = Make<Label>(u"lblLink");
    link.Clickable(true);
    auto& textBox = Make<TextBox>(u"txtOne");
    auto& checkBox = Make<CheckBox>(u"chkOne");
    auto& comboBox = Make<ComboBox>(u"cboOne");
    auto& button = Make<CommandButton>(u"cmdOne");
    auto& progressBar = Make<ProgressBar>(u"prgOne");
    auto& tabStrip = Make<TabStrip>(u"tabOne");
    auto& listView = Make<ListView>(u"lvwOne");
    auto& grid = Make<Grid>(u"flxOne");
    auto& image = Make<Image>(u"imgOne");
    auto& line = Make<Line>(u"Line1");
    auto& frame = Make<Frame>(u"fraOne");
    const std::vector<std::pair<Control*, std::u16string>> expected{{&label, u"Static"},
                                                                    {&link, u"Button"},
                                                                    {&textBox, u"Edit"},
                                                                    {&checkBox, u"Button"},
                                                                    {&comboBox, u"ComboBox"},
                                                                    {&button, u"Button"},
                                                                    {&tabStrip, u"SysTabControl32"},
                                                                    {&progressBar, u"msctls_progress32"},
                                                                    {&listView, u"SysListView32"},
                                                                    {&grid, u"SysListView32"},
                                                                    {&image, u"Static"},
                                                                    {&line, u"Static"},
                                                                    {&frame, u"Korvanta.Panel"}};
    for (const auto& [control, kind] : expected) {
        Place(*control);
    }
    Load();
    for (const auto& [control, kind] : expected) {
        const std::string name(control->Name().begin(), control->Name().end());
        const HWND window = Find(name.c_str());
        ASSERT_NE(window, nullptr) << name;
        EXPECT_TRUE(textCalls::SameIgnoringCase(textCalls::ClassName(window), kind)) << name;
    }
}

TEST_F(ControlPeers, StateGoesToTheWindow) {
    auto& label = Make<Label>(u"lblOne");
    label.Caption(u"before");
    Place(label, 150, 300, 3000, 450);
    Load();
    const HWND window = Find("lblOne");
    EXPECT_EQ(textCalls::WindowText(window), u"before");
    label.Caption(u"after");
    label.Enabled(false);
    label.Visible(false);
    label.Move({300, 600, 1500, 255});
    EXPECT_EQ(textCalls::WindowText(window), u"after");
    EXPECT_FALSE(::IsWindowEnabled(window));
    EXPECT_EQ(textCalls::WindowData(window, GWL_STYLE) & WS_VISIBLE, 0);
    RECT place{};
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, FormHandle(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, fonts.Pixels(300));
    EXPECT_EQ(place.bottom, fonts.Pixels(855));
}

TEST_F(ControlPeers, TextWithAZeroIsCutThereOnTheScreenOnly) {
    auto& label = Make<Label>(u"lblOne");
    auto& textBox = Make<TextBox>(u"txtOne");
    Place(label);
    Place(textBox, 150, 600);
    Load();
    int changes = 0;
    textBox.Change.Connect([&] { ++changes; });
    const std::u16string text(u"ab\0cd", 5);
    label.Caption(text);
    textBox.Text(text);
    EXPECT_EQ(textCalls::WindowText(Find("lblOne")), u"ab");
    EXPECT_EQ(textBox.Text(), text);
    EXPECT_EQ(changes, 1);
}

TEST_F(ControlPeers, TextBoxTellsOfEachChangeOnce) {
    auto& textBox = Make<TextBox>(u"txtOne");
    Place(textBox);
    Show();
    int changes = 0;
    textBox.Change.Connect([&] { ++changes; });
    textBox.Text(u"program");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(textCalls::WindowText(Find("txtOne")), u"program");
    Send(Find("txtOne"), EM_SETSEL, 0, -1);
    Send(Find("txtOne"), WM_CHAR, 'u');
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(textBox.Text(), u"u");
}

TEST_F(ControlPeers, HandlerMayChangeTheTextThatIsBeingTyped) {
    auto& textBox = Make<TextBox>(u"txtOne");
    Place(textBox);
    Show();
    textBox.Change.Connect([&] { textBox.Text(u"fixed"); });
    Send(Find("txtOne"), WM_CHAR, 'x');
    EXPECT_EQ(textBox.Text(), u"fixed");
    EXPECT_EQ(textCalls::WindowText(Find("txtOne")), u"fixed");
}

TEST_F(ControlPeers, SwallowedKeyPressesNoDefaultButtonAndTypesNothing) {
    auto& textBox = Make<TextBox>(u"txtOne");
    auto& ok = Make<CommandButton>(u"cmdOK");
    ok.Default(true);
    Place(textBox);
    Place(ok, 150, 900, 1500, 375);
    Show();
    bool swallow = true;
    std::vector<Key> keys;
    int pressed = 0;
    textBox.KeyDown.Connect([&](Key key, bool& swallowed) {
        keys.push_back(key);
        swallowed = swallow;
    });
    ok.Click.Connect([&] { ++pressed; });
    textBox.TakeFocus();
    PressKey(Find("txtOne"), VK_RETURN);
    PressKey(Find("txtOne"), VK_DOWN);
    PressKey(Find("txtOne"), 'A');
    EXPECT_EQ(keys, (std::vector<Key>{Key::Enter, Key::Down, Key::Other}));
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(textBox.Text(), u"");
    swallow = false;
    PressKey(Find("txtOne"), VK_RETURN);
    EXPECT_EQ(pressed, 1) << "an Enter that nobody wants presses the default button";
    PressKey(Find("txtOne"), VK_ESCAPE);
    EXPECT_EQ(keys.back(), Key::Escape);
    EXPECT_EQ(pressed, 1);
}

TEST_F(ControlPeers, EnterReachesADefaultButtonInsideAPanel) {
    auto& checkBox = Make<CheckBox>(u"chkOne");
    auto& frame = Make<Frame>(u"fraOne");
    auto& ok = Make<CommandButton>(u"cmdOK");
    ok.Default(true);
    ok.Move({0, 0, 1500, 375});
    frame.Add(ok);
    Place(checkBox);
    Place(frame, 150, 900, 3000, 900);
    Show();
    int pressed = 0;
    ok.Click.Connect([&] { ++pressed; });
    PressKey(Find("chkOne"), VK_RETURN);
    EXPECT_EQ(pressed, 1);
    ok.Enabled(false);
    PressKey(Find("chkOne"), VK_RETURN);
    EXPECT_EQ(pressed, 1);
}

TEST_F(ControlPeers, AccessKeysReachTheNextControlAndTextsFromOutsideHaveNone) {
    auto& document = Make<Label>(u"lblDocument");
    auto& name = Make<Label>(u"lblName");
    auto& textBox = Make<TextBox>(u"txtName");
    auto& other = Make<CheckBox>(u"chkOther");
    document.AccessKey(false);
    document.Caption(u"Costs &n more");
    name.Caption(u"&Name:");
    Place(document);
    Place(other, 150, 600);
    Place(name, 150, 1050);
    Place(textBox, 150, 1500);
    Show();
    constexpr LPARAM withAlt = 0x20000001;
    ::SetFocus(Find("chkOther"));
    textCalls::Post(Find("chkOther"), WM_SYSCHAR, 'n', withAlt);
    loop.RunPending();
    EXPECT_EQ(::GetFocus(), Find("txtName"));
    EXPECT_EQ(textCalls::WindowText(Find("lblDocument")), u"Costs &n more");
}

TEST_F(ControlPeers, CheckBoxFollowsTheUserAndTheProgram) {
    auto& checkBox = Make<CheckBox>(u"chkOne");
    Place(checkBox);
    Show();
    int clicks = 0;
    checkBox.Click.Connect([&] { ++clicks; });
    Send(Find("chkOne"), BM_CLICK);
    EXPECT_TRUE(checkBox.Value());
    EXPECT_EQ(clicks, 1);
    checkBox.Value(false);
    EXPECT_EQ(Send(Find("chkOne"), BM_GETCHECK), BST_UNCHECKED);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ControlPeers, ComboBoxFollowsTheUserAndTheProgramAndFitsItsPlace) {
    auto& comboBox = Make<ComboBox>(u"cboOne");
    comboBox.Items({u"one", u"two", u"drei ü"});
    Place(comboBox);
    Show();
    const HWND window = Find("cboOne");
    EXPECT_EQ(Send(window, CB_GETCOUNT), 3);
    EXPECT_EQ(Send(window, CB_GETCURSEL), CB_ERR);
    comboBox.ListIndex(2);
    EXPECT_EQ(textCalls::WindowText(window), u"drei ü");
    int changes = 0;
    comboBox.Change.Connect([&] { ++changes; });
    PressKey(window, VK_UP);
    EXPECT_EQ(comboBox.ListIndex(), 1);
    EXPECT_EQ(changes, 1);
    RECT place{};
    ::GetWindowRect(window, &place);
    EXPECT_EQ(place.bottom - place.top, fonts.Pixels(480) - fonts.Pixels(150));
}

TEST_F(ControlPeers, ButtonIsPressedByLeftAndRightClick) {
    auto& button = Make<CommandButton>(u"cmdOne");
    Place(button);
    Show();
    int left = 0;
    int right = 0;
    button.Click.Connect([&] { ++left; });
    button.RightClick.Connect([&] { ++right; });
    Click(Find("cmdOne"));
    Send(Find("cmdOne"), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 3));
    Send(Find("cmdOne"), WM_RBUTTONUP, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(left, 1);
    EXPECT_EQ(right, 1);
    Send(Find("cmdOne"), WM_RBUTTONUP, 0, MAKELPARAM(3000, 3));
    EXPECT_EQ(right, 1) << "released beside the button";
}

TEST_F(ControlPeers, LinkIsPressedOncePerPress) {
    auto& link = Make<Label>(u"lblLink");
    link.Clickable(true);
    link.Caption(u"&Press");
    Place(link);
    Show();
    const HWND window = Find("lblLink");
    int clicks = 0;
    link.Click.Connect([&] { ++clicks; });
    Send(window, BM_CLICK);
    EXPECT_EQ(clicks, 1);
    Click(window);
    EXPECT_EQ(clicks, 2);
    Send(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
    Send(window, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(clicks, 3) << "a second quick press is a press";
    PressKey(window, VK_SPACE);
    EXPECT_EQ(clicks, 4);
    PressKey(window, VK_RETURN);
    EXPECT_EQ(clicks, 5);
    link.Enabled(false);
    PressKey(window, VK_RETURN);
    EXPECT_EQ(clicks, 5);
}

// The user's scheme while it is another one: white on black.
class BlackScheme {
  public:
    explicit BlackScheme(HWND window) : window_(window) {
        for (std::size_t i = 0; i < count; ++i) {
            before_[i] = ::GetSysColor(elements[i]);
        }
        const COLORREF white = RGB(255, 255, 255);
        const COLORREF colors[count] = {0, white, 0, white, RGB(0, 255, 255)};
        Choose(colors);
    }
    BlackScheme(const BlackScheme&) = delete;
    BlackScheme& operator=(const BlackScheme&) = delete;
    ~BlackScheme() { Choose(before_); }

  private:
    static constexpr std::size_t count = 5;
    static constexpr int elements[count] = {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_BTNFACE, COLOR_BTNTEXT, 26};
    void Choose(const COLORREF* colors) const {
        ::SetSysColors(static_cast<int>(count), elements, colors);
        textCalls::Send(window_, WM_SYSCOLORCHANGE);
    }
    HWND window_;
    COLORREF before_[count] = {};
};

TEST_F(ControlPeers, EveryColorFollowsTheUsersSchemeWhileTheProgramRuns) {
    auto& label = Make<Label>(u"lblOne");
    auto& box = Make<TextBox>(u"txtOne");
    auto& grid = Make<Grid>(u"grdOne");
    auto& list = Make<ListView>(u"lvwOne");
    Place(label);
    Place(box, 150, 600);
    Place(grid, 150, 1050, 3000, 600);
    Place(list, 150, 1800, 3000, 600);
    Show();
    const BlackScheme scheme(FormHandle());
    const COLORREF white = RGB(255, 255, 255);
    for (const char* name : {"grdOne", "lvwOne"}) {
        EXPECT_EQ(static_cast<COLORREF>(Send(Find(name), LVM_GETBKCOLOR)), 0U) << name;
        EXPECT_EQ(static_cast<COLORREF>(Send(Find(name), LVM_GETTEXTBKCOLOR)), 0U) << name;
        EXPECT_EQ(static_cast<COLORREF>(Send(Find(name), LVM_GETTEXTCOLOR)), white) << name;
    }
    const HDC context = ::GetDC(FormHandle());
    for (const auto& [message, name] : {std::pair(WM_CTLCOLORSTATIC, "lblOne"), std::pair(WM_CTLCOLOREDIT, "txtOne")}) {
        const auto brush =
            reinterpret_cast<HBRUSH>(Send(FormHandle(), static_cast<UINT>(message), reinterpret_cast<WPARAM>(context),
                                          reinterpret_cast<LPARAM>(Find(name))));
        LOGBRUSH filled{};
        ::GetObjectA(brush, sizeof(filled), &filled);
        EXPECT_EQ(::GetTextColor(context), white) << name;
        EXPECT_EQ(filled.lbColor, 0U) << name;
    }
    ::ReleaseDC(FormHandle(), context);
}

TEST_F(ControlPeers, TabsAreChosenByKeysFromAnywhereOnTheForm) {
    auto& tabs = Make<TabStrip>(u"tabOne");
    tabs.Tabs({u"&One", u"&Two", u"T&hree"});
    auto& box = Make<TextBox>(u"txtOne");
    Place(tabs, 150, 150, 4500, 3000);
    Place(box, 150, 3300);
    Show();
    const HWND window = Find("txtOne");
    textCalls::Post(window, WM_SYSCHAR, 'h', 0x20000001);
    loop.RunPending();
    EXPECT_EQ(tabs.Selected(), 3);
    EXPECT_EQ(Send(Find("tabOne"), TCM_GETCURSEL), 2);
    const auto pressWith = [&](std::initializer_list<int> held, WPARAM key) {
        BYTE keys[256] = {};
        for (const int modifier : held) {
            keys[modifier] = 0x80;
        }
        ::SetKeyboardState(keys);
        PressKey(window, key);
        const BYTE none[256] = {};
        ::SetKeyboardState(const_cast<BYTE*>(none));
        return tabs.Selected();
    };
    EXPECT_EQ(pressWith({VK_CONTROL}, VK_TAB), 1);
    EXPECT_EQ(pressWith({VK_CONTROL, VK_SHIFT}, VK_TAB), 3);
    EXPECT_EQ(pressWith({VK_CONTROL}, VK_PRIOR), 2);
    EXPECT_EQ(pressWith({VK_CONTROL}, VK_NEXT), 3);
    EXPECT_EQ(pressWith({}, VK_NEXT), 3) << "without Ctrl it is no key of the tabs";
    tabs.Enabled(false);
    EXPECT_EQ(pressWith({VK_CONTROL}, VK_TAB), 3);
}

TEST_F(ControlPeers, TabStripFollowsTheUserAndTheProgramAndSaysHowHighTheTabsAre) {
    auto& tabs = Make<TabStrip>(u"tabOne");
    tabs.Tabs({u"one", u"two", u"three"});
    Place(tabs, 150, 150, 4500, 3000);
    Show();
    const HWND window = Find("tabOne");
    EXPECT_EQ(Send(window, TCM_GETITEMCOUNT), 3);
    EXPECT_GT(tabs.HeaderHeight(), 150);
    EXPECT_LT(tabs.HeaderHeight(), 900);
    int clicks = 0;
    tabs.Click.Connect([&] { ++clicks; });
    tabs.Selected(3);
    EXPECT_EQ(Send(window, TCM_GETCURSEL), 2);
    EXPECT_EQ(clicks, 1);
    Send(window, TCM_SETCURFOCUS, 1);
    EXPECT_EQ(tabs.Selected(), 2);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ControlPeers, TabStripLeavesWhatLiesOnItsPageToTheMouse) {
    auto& tabs = Make<TabStrip>(u"tabOne");
    tabs.Tabs({u"one"});
    auto& page = Make<Frame>(u"fraOne");
    Place(tabs, 150, 150, 4500, 3000);
    Place(page, 300, 900, 3000, 1500);
    Show();
    const HWND strip = Find("tabOne");
    const auto covers = [&](int left, int top) {
        const Handle<GraphicsTraits<HRGN>> region(::CreateRectRgn(0, 0, 0, 0));
        return ::GetWindowRgn(strip, region.Get()) != ERROR &&
               ::PtInRegion(region.Get(), fonts.Pixels(left - 150), fonts.Pixels(top - 150));
    };
    EXPECT_EQ(::GetWindow(FormHandle(), GW_CHILD), strip) << "the tabs come first in the tab order";
    EXPECT_TRUE(covers(300, 300));
    EXPECT_FALSE(covers(1500, 1500));
    POINT onPage{fonts.Pixels(1500), fonts.Pixels(1500)};
    ::ClientToScreen(FormHandle(), &onPage);
    EXPECT_EQ(::WindowFromPoint(onPage), Find("fraOne"));
    page.Visible(false);
    EXPECT_TRUE(covers(1500, 1500));
}

TEST_F(ControlPeers, ProgressBarShowsItsValue) {
    auto& bar = Make<ProgressBar>(u"prgOne");
    Place(bar);
    Load();
    bar.Maximum(100000);
    bar.Value(70000);
    EXPECT_EQ(Send(Find("prgOne"), PBM_GETPOS), 70000);
    EXPECT_EQ(Send(Find("prgOne"), PBM_GETRANGE, FALSE), 100000);
}

TEST_F(ControlPeers, FocusDoesNotStayWithAControlThatIsDisabledOrHidden) {
    auto& first = Make<TextBox>(u"txtFirst");
    auto& second = Make<TextBox>(u"txtSecond");
    Place(first);
    Place(second, 150, 900);
    Show();
    ::SetFocus(Find("txtFirst"));
    ASSERT_EQ(::GetFocus(), Find("txtFirst"));
    first.Enabled(false);
    EXPECT_EQ(::GetFocus(), Find("txtSecond"));
    first.Enabled(true);
    second.Visible(false);
    EXPECT_EQ(::GetFocus(), Find("txtFirst"));
}

}  // namespace
}  // namespace korvanta
