#include "platform/win32/services/WindowsMessageLoop.h"

#include "TestWindow.h"
#include "platform/win32/calls/TextCalls.h"

namespace korvanta {
namespace {

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

}  // namespace
}  // namespace korvanta
