#include <algorithm>
#include <utility>

#include "TestWindow.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/MessageBoxGuard.h"
#include "platform/win32/services/WindowsMessageBoxes.h"

namespace korvanta {
namespace {

// Looks at the message box of this thread every few milliseconds and may answer it or send it input.
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

    // Presses the button, and remembers what the box says.
    void Answer(int button) {
        constexpr int textOfABox = 0xFFFF;
        title = textCalls::WindowText(box_);
        text = textCalls::WindowText(::GetDlgItem(box_, textOfABox));
        owner = ::GetWindow(box_, GW_OWNER);
        textCalls::Post(box_, WM_COMMAND, static_cast<WPARAM>(button));
    }
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

    std::u16string title;
    std::u16string text;
    HWND owner = nullptr;
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

class MessageBoxTests : public MessageLoopTests {
  protected:
    MessageBoxGuard guard_;
    WindowsMessageBoxes boxes_{loop_, guard_};
};

TEST_F(MessageBoxTests, TheAnswerIsTheButtonPressed) {
    const auto answer = [&](int button, MessageButtons buttons) {
        const BoxUser user([button](BoxUser& self) { self.Answer(button); });
        return boxes_.Show(u"Text", u"Title", buttons, MessageIcon::Question);
    };
    EXPECT_EQ(answer(IDOK, MessageButtons::OK), MessageAnswer::OK);
    EXPECT_EQ(answer(IDOK, MessageButtons::OKCancel), MessageAnswer::OK);
    EXPECT_EQ(answer(IDCANCEL, MessageButtons::OKCancel), MessageAnswer::Cancel);
    EXPECT_EQ(answer(IDYES, MessageButtons::YesNo), MessageAnswer::Yes);
    EXPECT_EQ(answer(IDNO, MessageButtons::YesNo), MessageAnswer::No);
}

TEST_F(MessageBoxTests, TitleAndTextAreShown) {
    const BoxUser user([](BoxUser& self) { self.Answer(IDOK); });
    boxes_.Show(u"Größe\r\nund Höhe", u"Für René", MessageButtons::OK, MessageIcon::Critical);
    EXPECT_EQ(user.title, u"Für René");
    EXPECT_EQ(user.text, u"Größe\r\nund Höhe");
    EXPECT_EQ(user.owner, nullptr);
}

TEST_F(MessageBoxTests, TheBoxStandsInFrontOfTheActiveWindow) {
    ::ShowWindow(window_.Get(), SW_SHOW);
    ::SetActiveWindow(window_.Get());
    ASSERT_EQ(::GetActiveWindow(), window_.Get());
    const BoxUser user([](BoxUser& self) { self.Answer(IDOK); });
    boxes_.Show(u"Text", u"Title", MessageButtons::OK, MessageIcon::None);
    EXPECT_EQ(user.owner, window_.Get());
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

}  // namespace
}  // namespace korvanta
