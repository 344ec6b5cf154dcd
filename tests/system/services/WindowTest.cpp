#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"
#include "platform/win32/services/DialogWindows.h"
#include "platform/win32/services/Fonts.h"
#include "platform/win32/services/MessageBoxGuard.h"
#include "platform/win32/services/WindowsMessageBoxes.h"
#include "platform/win32/services/WindowsMessageLoop.h"
#include "platform/win32/services/WindowsPlatform.h"
#include "platform/win32/services/WindowsScreen.h"
#include "platform/win32/services/WindowsShell.h"
#include "platform/win32/services/WindowsTextMeasure.h"

namespace korvanta {
namespace {

constexpr UINT testMessage = WM_APP + 1;
constexpr wchar_t className[] = L"KorvantaServicesTests";

// A top-level window that hands its messages to a function; true from it means dealt with.
class TestWindow {
  public:
    explicit TestWindow(const std::u16string& title = u"") {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof(windowClass);
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = ::GetModuleHandleA(nullptr);
        windowClass.lpszClassName = className;
        textCalls::RegisterWindowClass(windowClass);
        window_ = WindowHandle(textCalls::MakeWindow(0, className, title, WS_OVERLAPPEDWINDOW, 100, 100, 300, 200,
                                                     nullptr, nullptr, this));
        EXPECT_TRUE(window_);
        textCalls::SetWindowData(Get(), GWL_USERDATA, static_cast<LONG>(reinterpret_cast<LONG_PTR>(this)));
    }
    ~TestWindow() { window_.Reset(); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    HWND Get() const { return window_.Get(); }
    HWND Child(const wchar_t* childClass, int identifier) {
        return textCalls::MakeWindow(0, childClass, u"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, identifier * 60, 0, 50, 20,
                                     Get(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), nullptr);
    }

    std::function<bool(UINT, WPARAM, LPARAM)> onMessage;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<TestWindow*>(static_cast<LONG_PTR>(textCalls::WindowData(window, GWL_USERDATA)));
        if (self && self->onMessage && self->onMessage(message, wParam, lParam)) {
            return 0;
        }
        return textCalls::DefaultProcedure(window, message, wParam, lParam);
    }

    WindowHandle window_;
};

TEST(TextCallsTests, ATitleOfTheCodePageComesBack) {
    const TestWindow window(u"Größe für René");
    EXPECT_EQ(textCalls::WindowText(window.Get()), u"Größe für René");
    textCalls::SetText(window.Get(), u"");
    EXPECT_EQ(textCalls::WindowText(window.Get()), u"");
    EXPECT_EQ(textCalls::ClassName(window.Get()), u"KorvantaServicesTests");
}

TEST(TextCallsTests, WindowsAreWideOnTheNtFamilyOnly) {
    const TestWindow window(u"漢字");
    EXPECT_EQ(::IsWindowUnicode(window.Get()) != 0, !textCalls::IsWindows9x());
    EXPECT_EQ(textCalls::WindowText(window.Get()), textCalls::IsWindows9x() ? u"??" : u"漢字");
}

TEST(TextCallsTests, TextsOfMessagesArriveInAControl) {
    TestWindow window;
    const HWND list = window.Child(L"LISTBOX", 1);
    textCalls::SendText(list, LB_ADDSTRING, 0, u"Tür");
    textCalls::SendText(list, LB_ADDSTRING, 0, u"");
    EXPECT_EQ(textCalls::ReadText(list, LB_GETTEXTLEN, LB_GETTEXT, 1), u"");
    EXPECT_EQ(textCalls::ReadText(list, LB_GETTEXTLEN, LB_GETTEXT, 0), u"Tür");
}

TEST(TextCallsTests, ATypedCharacterIsTheOneOfTheCodePage) {
    EXPECT_EQ(textCalls::TypedCharacter('a'), u'a');
    EXPECT_EQ(textCalls::TypedCharacter(0xE9), u'é');
    EXPECT_EQ(textCalls::TypedCharacter(0x80), textCalls::IsWindows9x() ? u'€' : u'\x80');
}

TEST(TextCallsTests, ATextIsCutToItsBuffer) {
    std::array<wchar_t, 4> buffer{};
    textCalls::CopyNative(u"für immer", buffer.data(), buffer.size());
    EXPECT_EQ(textCalls::FromNative(buffer.data()), u"für");
    textCalls::CopyNative(u"ja", buffer.data(), buffer.size());
    EXPECT_EQ(textCalls::FromNative(buffer.data()), u"ja");
}

class MessageLoopTests : public ::testing::Test {
  protected:
    // A quit left over from one test must not end the next one's loop.
    ~MessageLoopTests() override {
        MSG message;
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        }
    }

    DialogWindows dialogs_;
    WindowsMessageLoop loop_{dialogs_};
    TestWindow window_;
};

TEST_F(MessageLoopTests, WhatIsWaitingIsHandled) {
    int handled = 0;
    window_.onMessage = [&](UINT message, WPARAM, LPARAM) { return message == testMessage && ++handled > 0; };
    textCalls::Post(window_.Get(), testMessage);
    textCalls::Post(window_.Get(), testMessage);
    loop_.RunPending();
    EXPECT_EQ(handled, 2);
    loop_.RunPending();
    EXPECT_EQ(handled, 2);
}

TEST_F(MessageLoopTests, TightLoopsLookOnlyEveryTenMilliseconds) {
    int handled = 0;
    window_.onMessage = [&](UINT message, WPARAM, LPARAM) { return message == testMessage && ++handled > 0; };
    DWORD before = 0;
    do {
        loop_.RunPending();
        handled = 0;
        before = ::GetTickCount();
        textCalls::Post(window_.Get(), testMessage);
        loop_.RunPendingOften();
    } while (::GetTickCount() - before >= 5);
    EXPECT_EQ(handled, 0);
    while (::GetTickCount() - before < 12) {
    }
    loop_.RunPendingOften();
    EXPECT_EQ(handled, 1);
}

TEST_F(MessageLoopTests, ATimerThatIsAlwaysDueKeepsNobody) {
    int ticks = 0;
    window_.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == WM_TIMER) {
            ++ticks;
            ::Sleep(30);
        }
        return message == WM_TIMER;
    };
    ::SetTimer(window_.Get(), 1, 10, nullptr);
    const DWORD start = ::GetTickCount();
    while (ticks == 0 && ::GetTickCount() - start < 5000) {
        loop_.RunPending();
    }
    ::KillTimer(window_.Get(), 1);
    EXPECT_GE(ticks, 1);
    EXPECT_LE(ticks, 2);
}

TEST_F(MessageLoopTests, QuittingBeforeTheLoopEndsItAtOnce) {
    loop_.Quit();
    loop_.Run();
    EXPECT_TRUE(loop_.Quitting());
}

TEST_F(MessageLoopTests, AQuitMetWhilePendingMessagesRunEndsTheLoop) {
    window_.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == testMessage) {
            ::PostQuitMessage(0);
        }
        return message == testMessage;
    };
    textCalls::Post(window_.Get(), testMessage);
    loop_.RunPending();
    EXPECT_TRUE(loop_.Quitting());
    MSG message;
    EXPECT_TRUE(::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    loop_.Run();
}

TEST_F(MessageLoopTests, AQuitInAModalLoopEndsTheOuterOneToo) {
    bool inner = false;
    window_.onMessage = [&](UINT message, WPARAM wParam, LPARAM) {
        if (message == testMessage && wParam == 1) {
            textCalls::Post(window_.Get(), testMessage, 2);
            loop_.RunWhile([] { return true; });
            inner = true;
        } else if (message == testMessage) {
            loop_.Quit();
        }
        return message == testMessage;
    };
    textCalls::Post(window_.Get(), testMessage, 1);
    loop_.Run();
    EXPECT_TRUE(inner);
}

TEST_F(MessageLoopTests, AModalLoopEndsWithItsConditionAndTheProgramGoesOn) {
    bool shown = true;
    window_.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == testMessage) {
            shown = false;
        }
        return message == testMessage;
    };
    textCalls::Post(window_.Get(), testMessage);
    loop_.RunWhile([&] { return shown; });
    EXPECT_FALSE(shown);
    EXPECT_FALSE(loop_.Quitting());
}

// Sends a window the test's message from another thread as soon as `ready` is signalled.
struct Sender {
    HWND window;
    KernelHandle ready{::CreateEventA(nullptr, TRUE, FALSE, nullptr)};

    static DWORD WINAPI Run(void* parameter) {
        const auto& self = *static_cast<Sender*>(parameter);
        ::WaitForSingleObject(self.ready.Get(), 5000);
        textCalls::Send(self.window, testMessage);
        return 0;
    }
};

TEST_F(MessageLoopTests, AModalLoopEndsWhenAnotherThreadsMessageEndsItsCondition) {
    bool shown = true;
    window_.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == testMessage) {
            shown = false;
        }
        return message == testMessage;
    };
    Sender sender{window_.Get()};
    const KernelHandle thread(::CreateThread(nullptr, 0, Sender::Run, &sender, 0, nullptr));
    // What wakes the loop when the message does not.
    const UINT_PTR alarm = ::SetTimer(nullptr, 0, 3000, nullptr);
    const DWORD start = ::GetTickCount();
    loop_.RunWhile([&] {
        ::SetEvent(sender.ready.Get());
        return shown && ::GetTickCount() - start < 2500;
    });
    EXPECT_LT(::GetTickCount() - start, 2500U);
    EXPECT_FALSE(shown);
    ::KillTimer(nullptr, alarm);
    EXPECT_EQ(::WaitForSingleObject(thread.Get(), 5000), WAIT_OBJECT_0);
}

TEST_F(MessageLoopTests, TabMovesTheFocusInARegisteredWindowOnly) {
    const HWND first = window_.Child(L"EDIT", 1);
    const HWND second = window_.Child(L"EDIT", 2);
    ::ShowWindow(window_.Get(), SW_SHOW);
    ::SetFocus(first);
    textCalls::Post(first, WM_KEYDOWN, VK_TAB);
    loop_.RunPending();
    EXPECT_EQ(::GetFocus(), first);
    dialogs_.Add(window_.Get());
    textCalls::Post(first, WM_KEYDOWN, VK_TAB);
    loop_.RunPending();
    EXPECT_EQ(::GetFocus(), second);
    dialogs_.Remove(window_.Get());
    textCalls::Post(second, WM_KEYDOWN, VK_TAB);
    loop_.RunPending();
    EXPECT_EQ(::GetFocus(), second);
}

TEST_F(MessageLoopTests, AFilterSeesAKeyBeforeTheDialogDoes) {
    const HWND first = window_.Child(L"EDIT", 1);
    window_.Child(L"EDIT", 2);
    ::ShowWindow(window_.Get(), SW_SHOW);
    ::SetFocus(first);
    WPARAM seen = 0;
    dialogs_.Add(window_.Get(), [&](const MSG& message) {
        seen = message.wParam;
        return true;
    });
    textCalls::Post(first, WM_KEYDOWN, VK_TAB);
    loop_.RunPending();
    EXPECT_EQ(seen, static_cast<WPARAM>(VK_TAB));
    EXPECT_EQ(::GetFocus(), first);
    dialogs_.Remove(window_.Get());
}

TEST_F(MessageLoopTests, AFilterMayEndItsWindow) {
    const HWND first = window_.Child(L"EDIT", 1);
    dialogs_.Add(window_.Get(), [&](const MSG&) {
        dialogs_.Remove(window_.Get());
        ::DestroyWindow(first);
        return false;
    });
    textCalls::Post(first, WM_KEYDOWN, VK_TAB);
    loop_.RunPending();
    EXPECT_FALSE(::IsWindow(first));
}

// Presses a button of the next message box of this thread, and remembers what the box said.
class BoxPresser {
  public:
    explicit BoxPresser(int button) : button_(button) {
        Current() = this;
        timer_ = ::SetTimer(nullptr, 0, 20, Look);
    }
    ~BoxPresser() {
        ::KillTimer(nullptr, timer_);
        Current() = nullptr;
    }
    BoxPresser(const BoxPresser&) = delete;
    BoxPresser& operator=(const BoxPresser&) = delete;

    std::u16string title;
    std::u16string text;
    HWND owner = nullptr;

  private:
    static BoxPresser*& Current() {
        static BoxPresser* current = nullptr;
        return current;
    }
    static BOOL CALLBACK Press(HWND window, LPARAM parameter) {
        auto& self = *reinterpret_cast<BoxPresser*>(parameter);
        if (textCalls::ClassName(window) != u"#32770" || !::IsWindowVisible(window)) {
            return TRUE;
        }
        constexpr int textOfABox = 0xFFFF;
        self.title = textCalls::WindowText(window);
        self.text = textCalls::WindowText(::GetDlgItem(window, textOfABox));
        self.owner = ::GetWindow(window, GW_OWNER);
        textCalls::Post(window, WM_COMMAND, static_cast<WPARAM>(self.button_));
        return FALSE;
    }
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
        ::EnumThreadWindows(::GetCurrentThreadId(), Press, reinterpret_cast<LPARAM>(Current()));
    }

    int button_;
    UINT_PTR timer_ = 0;
};

class MessageBoxTests : public MessageLoopTests {
  protected:
    MessageBoxGuard guard_;
    WindowsMessageBoxes boxes_{loop_, guard_};
};

TEST_F(MessageBoxTests, TheAnswerIsTheButtonPressed) {
    const auto answer = [&](int button, MessageButtons buttons) {
        const BoxPresser presser(button);
        return boxes_.Show(u"Text", u"Title", buttons, MessageIcon::Question);
    };
    EXPECT_EQ(answer(IDOK, MessageButtons::OK), MessageAnswer::OK);
    EXPECT_EQ(answer(IDOK, MessageButtons::OKCancel), MessageAnswer::OK);
    EXPECT_EQ(answer(IDCANCEL, MessageButtons::OKCancel), MessageAnswer::Cancel);
    EXPECT_EQ(answer(IDYES, MessageButtons::YesNo), MessageAnswer::Yes);
    EXPECT_EQ(answer(IDNO, MessageButtons::YesNo), MessageAnswer::No);
}

TEST_F(MessageBoxTests, TitleAndTextAreShown) {
    const BoxPresser presser(IDOK);
    boxes_.Show(u"Größe\r\nund Höhe", u"Für René", MessageButtons::OK, MessageIcon::Critical);
    EXPECT_EQ(presser.title, u"Für René");
    EXPECT_EQ(presser.text, u"Größe\r\nund Höhe");
    EXPECT_EQ(presser.owner, nullptr);
}

TEST_F(MessageBoxTests, TheBoxStandsInFrontOfTheActiveWindow) {
    ::ShowWindow(window_.Get(), SW_SHOW);
    ::SetActiveWindow(window_.Get());
    ASSERT_EQ(::GetActiveWindow(), window_.Get());
    const BoxPresser presser(IDOK);
    boxes_.Show(u"Text", u"Title", MessageButtons::OK, MessageIcon::None);
    EXPECT_EQ(presser.owner, window_.Get());
}

TEST_F(MessageBoxTests, AProgramThatIsEndingShowsNothingAndRefuses) {
    loop_.Quit();
    EXPECT_EQ(boxes_.Show(u"Text", u"Title", MessageButtons::OK, MessageIcon::None), MessageAnswer::Cancel);
    EXPECT_EQ(boxes_.Show(u"Text", u"Title", MessageButtons::OKCancel, MessageIcon::None), MessageAnswer::Cancel);
    EXPECT_EQ(boxes_.Show(u"Text", u"Title", MessageButtons::YesNo, MessageIcon::None), MessageAnswer::No);
}

// While a box is up, what the program does at intervals goes on, and may let messages run.
TEST_F(MessageBoxTests, KeysForABoxReachItWhereverMessagesRun) {
    const auto answerOfKey = [&](WPARAM key) {
        const DWORD start = ::GetTickCount();
        bool pressed = false;
        window_.onMessage = [&](UINT message, WPARAM, LPARAM) {
            if (message != WM_TIMER) {
                return false;
            }
            const HWND box = ::GetActiveWindow();
            const bool late = ::GetTickCount() - start > 5000;
            if (late) {
                textCalls::Post(box, WM_COMMAND, IDCANCEL);
            } else if (!pressed && textCalls::ClassName(box) == u"#32770" && ::IsChild(box, ::GetFocus())) {
                pressed = true;
                textCalls::Post(::GetFocus(), WM_KEYDOWN, key);
                loop_.RunPending();
            }
            return true;
        };
        ::SetTimer(window_.Get(), 1, 20, nullptr);
        guard_.UserActed(start);
        const MessageAnswer answer = boxes_.Show(u"Text", u"Title", MessageButtons::OKCancel, MessageIcon::Question);
        ::KillTimer(window_.Get(), 1);
        return answer;
    };
    EXPECT_EQ(answerOfKey(VK_RETURN), MessageAnswer::OK);
    const DWORD start = ::GetTickCount();
    EXPECT_EQ(answerOfKey(VK_ESCAPE), MessageAnswer::Cancel);
    EXPECT_LT(::GetTickCount() - start, DWORD{5000}) << "the key, not the end of the test";
}

TEST_F(MessageBoxTests, AQuitEndsTheBoxAndThenTheLoop) {
    window_.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == WM_TIMER) {
            loop_.Quit();
        }
        return message == WM_TIMER;
    };
    ::SetTimer(window_.Get(), 1, 50, nullptr);
    EXPECT_EQ(boxes_.Show(u"Text", u"Title", MessageButtons::YesNo, MessageIcon::None), MessageAnswer::No);
    ::KillTimer(window_.Get(), 1);
    loop_.Run();
}

// Looks at the message box of this thread every few milliseconds and may send it input.
class BoxUser {
  public:
    using Act = std::function<void(BoxUser&)>;

    explicit BoxUser(Act act) : act_(std::move(act)) {
        Current() = this;
        timer_ = ::SetTimer(nullptr, 0, 20, Look);
    }
    ~BoxUser() {
        ::KillTimer(nullptr, timer_);
        Current() = nullptr;
    }
    BoxUser(const BoxUser&) = delete;
    BoxUser& operator=(const BoxUser&) = delete;

    void PressEnter() {
        const DWORD now = ::GetTickCount();
        longestPause = std::max(longestPause, now - lastPress_);
        lastPress_ = now;
        ++presses;
        textCalls::Post(::GetWindow(box_, GW_CHILD), WM_KEYDOWN, VK_RETURN, 0x001C0001);
        textCalls::Post(::GetWindow(box_, GW_CHILD), WM_KEYUP, VK_RETURN, static_cast<LPARAM>(0xC01C0001));
    }
    void PressMouse() const { textCalls::Post(box_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2)); }
    DWORD SincePress() const { return ::GetTickCount() - lastPress_; }
    DWORD SinceStart() const { return ::GetTickCount() - start_; }

    int presses = 0;
    DWORD longestPause = 0;  // before a press, from the start on

  private:
    static BoxUser*& Current() {
        static BoxUser* current = nullptr;
        return current;
    }
    static BOOL CALLBACK Find(HWND window, LPARAM parameter) {
        auto& self = *reinterpret_cast<BoxUser*>(parameter);
        const bool isBox = textCalls::ClassName(window) == u"#32770" && ::IsWindowVisible(window);
        if (isBox) {
            self.box_ = window;
            self.act_(self);
        }
        return !isBox;
    }
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
        ::EnumThreadWindows(::GetCurrentThreadId(), Find, reinterpret_cast<LPARAM>(Current()));
    }

    Act act_;
    HWND box_ = nullptr;
    UINT_PTR timer_ = 0;
    DWORD start_ = ::GetTickCount();
    DWORD lastPress_ = start_;
};

TEST_F(MessageBoxTests, WhoeverWritesElsewhereDoesNotAnswerABoxThatComesUpUnasked) {
    constexpr DWORD writing = 1'500;
    constexpr DWORD rest = KeyGuard::quietTime + 200;
    constexpr DWORD longestPause = KeyGuard::quietTime - 100;
    // A machine that is held up makes pauses of its own, which say nothing.
    for (int tries = 0; tries < 20; ++tries) {
        int pressesAfterRest = 0;
        DWORD pauseWhileWriting = 0;
        const BoxUser user([&](BoxUser& self) {
            if (self.SinceStart() < writing) {
                self.PressEnter();
                pauseWhileWriting = self.longestPause;
            } else if (self.SincePress() >= rest) {
                ++pressesAfterRest;
                self.PressEnter();
            }
        });
        boxes_.Show(u"Text", u"Title", MessageButtons::YesNo, MessageIcon::None);
        if (pauseWhileWriting < longestPause) {
            EXPECT_EQ(pressesAfterRest, 1) << "after " << user.presses << " presses in all";
            return;
        }
    }
    GTEST_SKIP() << "the machine is too busy to write on it";
}

TEST_F(MessageBoxTests, ABoxThatFollowsOnAKeyOfTheUsersTakesKeysAtOnce) {
    BoxUser user([](BoxUser& self) {
        if (self.presses == 0) {
            self.PressEnter();
        }
    });
    guard_.UserActed(::GetTickCount());
    EXPECT_EQ(boxes_.Show(u"Text", u"Title", MessageButtons::YesNo, MessageIcon::None), MessageAnswer::Yes);
    EXPECT_EQ(user.presses, 1);
}

TEST_F(MessageBoxTests, APressOfTheMouseInABoxOpensItToTheKeyboard) {
    BoxUser user([](BoxUser& self) {
        if (self.presses == 0) {
            self.PressMouse();
            self.PressEnter();
        }
    });
    EXPECT_EQ(boxes_.Show(u"Text", u"Title", MessageButtons::YesNo, MessageIcon::None), MessageAnswer::Yes);
    EXPECT_EQ(user.presses, 1);
}

TEST(ColorsTests, AHighlightPalesOnlyAsFarAsItIsSeen) {
    constexpr COLORREF white = RGB(255, 255, 255);
    EXPECT_EQ(PaleHighlight(RGB(0, 0, 128), white), RGB(191, 191, 223));
    EXPECT_EQ(PaleHighlight(RGB(51, 153, 255), white), RGB(204, 229, 255));
    EXPECT_EQ(PaleHighlight(RGB(128, 0, 128), RGB(0, 0, 0)), RGB(128, 0, 128)) << "white on black";
    EXPECT_EQ(PaleHighlight(RGB(255, 255, 0), white), RGB(255, 255, 0));
}

TEST(FontsTests, LengthsAreConvertedAtTheScreensResolution) {
    const Fonts fonts;
    EXPECT_EQ(fonts.Pixels(1440), fonts.DotsPerInch());
    EXPECT_EQ(fonts.Twips(fonts.DotsPerInch()), 1440);
    EXPECT_EQ(fonts.Pixels(-1440), -fonts.DotsPerInch());
    EXPECT_NE(fonts.Normal(), nullptr);
    LOGFONTA bold{};
    ::GetObjectA(fonts.Bold(), sizeof(bold), &bold);
    EXPECT_EQ(bold.lfWeight, FW_BOLD);
}

TEST(ScreenTests, TheWorkAreaIsPartOfTheScreen) {
    const Fonts fonts;
    WindowsScreen screen(fonts);
    EXPECT_DOUBLE_EQ(screen.TwipsPerPixel(), 1440.0 / fonts.DotsPerInch());
    const Place whole = screen.WholeScreen();
    const Place work = screen.WorkArea();
    EXPECT_EQ(whole.left, 0);
    EXPECT_EQ(whole.top, 0);
    EXPECT_EQ(whole.width, fonts.Twips(::GetSystemMetrics(SM_CXSCREEN)));
    EXPECT_GT(work.width, 0);
    EXPECT_GT(work.height, 0);
    EXPECT_LE(work.Right(), whole.Right());
    EXPECT_LE(work.Bottom(), whole.Bottom());
    EXPECT_EQ(screen.WorkAreaAt({0, 0, 3000, 3000}), work);
    EXPECT_EQ(screen.WorkAreaAt({1'000'000, -1'000'000, 3000, 3000}), work) << "the nearest monitor, here the only one";
}

TEST(TextMeasureTests, AnAccessKeysMarkTakesNoRoom) {
    const Fonts fonts;
    WindowsTextMeasure measure(fonts);
    EXPECT_EQ(measure.Width(u"", false), 0);
    EXPECT_EQ(measure.Width(u"&OK", false), measure.Width(u"OK", false));
    EXPECT_GT(measure.Width(u"R&&D", false), measure.Width(u"RD", false));
    EXPECT_EQ(measure.Width(u"&&", false) * 2, measure.Width(u"&&&&", false));
    EXPECT_EQ(measure.Width(u"OK&", false), measure.Width(u"OK", false));
}

TEST(TextMeasureTests, LongerAndBolderTextsTakeMoreRoom) {
    const Fonts fonts;
    WindowsTextMeasure measure(fonts);
    EXPECT_GT(measure.Width(u"Wider", false), measure.Width(u"Wide", false));
    EXPECT_GT(measure.Width(u"A text that is wide", true), measure.Width(u"A text that is wide", false));
    EXPECT_GT(measure.LineHeight(false), 0);
    EXPECT_GE(measure.LineHeight(true), measure.LineHeight(false));
}

TEST(ShellTests, AMissingDocumentIsAFailure) {
    WindowsShell shell;
    EXPECT_FALSE(shell.OpenDocument(u"C:\\no such folder\\no such file.htm"));
}

TEST(ShellTests, AnIconIsAddedOnceAndDeletedOnce) {
    const TestWindow window;
    WindowsShell shell;
    const TrayIcon icon{reinterpret_cast<WindowId>(window.Get()), 1, 7, WM_MOUSEMOVE,
                        u"Größe " + std::u16string(100, u'x')};
    EXPECT_TRUE(shell.AddTrayIcon(icon));
    EXPECT_TRUE(shell.DeleteTrayIcon(icon));
    EXPECT_FALSE(shell.DeleteTrayIcon(icon));
}

TEST(PlatformTests, EveryServiceIsThere) {
    WindowsPlatform platform;
    Platform& services = platform.Services();
    EXPECT_FALSE(services.files.TemporaryFolder().empty());
    EXPECT_EQ(services.screen.TwipsPerPixel(), 1440.0 / platform.DialogFonts().DotsPerInch());
    EXPECT_EQ(&services.messageLoop, &platform.Loop());
}

}  // namespace
}  // namespace korvanta
