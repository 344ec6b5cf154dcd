#include "platform/win32/services/MessageBoxGuard.h"

#include "platform/win32/calls/PlainWindows.h"
#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

// In milliseconds: a box that comes up so soon after the user has done something is taken for the answer to it.
constexpr DWORD recently = 3'000;
constexpr const char* guardProperty = "Korvanta.MessageBoxGuard";

BOOL CALLBACK FindGuard(HWND window, LPARAM parameter) {
    auto& found = *reinterpret_cast<HANDLE*>(parameter);
    found = ::GetPropA(window, guardProperty);
    return found == nullptr;
}

bool IsPress(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_NCLBUTTONDOWN;
}

}  // namespace

bool KeepsOut(KeyGuard& guard, const MSG& input) {
    const auto key = static_cast<int>(input.wParam & 0xFFU);
    switch (input.message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: {
            constexpr LPARAM wasDown = 0x40000000;
            return !guard.TakesPress(key, (input.lParam & wasDown) != 0, input.time);
        }
        case WM_KEYUP:
        case WM_SYSKEYUP:
            return !guard.TakesRelease(key);
        default:
            if (IsKeyMessage(input.message)) {
                return !guard.TakesCharacter(input.time);
            }
            guard.MousePressed(input.time);
            return false;
    }
}

// Hooks the input of this thread's message boxes. Windows tells a hook nothing but the message, so the hook finds its
// guard through a property of a hidden window of the thread.
class MessageBoxGuard::Watch {
  public:
    explicit Watch(MessageBoxGuard& guard) : guard_(guard) {
        const std::u16string className = u"Korvanta.MessageBoxGuard";
        RegisterPlainClass(className);
        anchor_.Reset(textCalls::MakeWindow(WS_EX_TOOLWINDOW, textCalls::Wide(className), {}, WS_POPUP, 0, 0, 0, 0,
                                            nullptr, nullptr, nullptr));
        if (anchor_) {
            ::SetPropA(anchor_.Get(), guardProperty, &guard);
            hook_.Reset(::SetWindowsHookExA(WH_MSGFILTER, &MessageBoxGuard::Filter, nullptr, ::GetCurrentThreadId()));
        }
        guard_.watch_ = this;
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch() {
        guard_.watch_ = nullptr;
        hook_.Reset();
        if (anchor_) {
            ::RemovePropA(anchor_.Get(), guardProperty);
        }
    }

    HHOOK Hook() const { return hook_.Get(); }

  private:
    MessageBoxGuard& guard_;
    WindowHandle anchor_;
    Handle<HookTraits> hook_;
};

void MessageBoxGuard::UserActed(DWORD time) {
    lastAct_ = time;
    acted_ = true;
}

bool MessageBoxGuard::JustActed(DWORD now) const {
    return acted_ && now - lastAct_ < recently;
}

int MessageBoxGuard::Show(const std::function<int()>& showBox) {
    const DWORD now = ::GetTickCount();
    if (JustActed(now)) {
        return showBox();
    }
    guard_.Activated(now, true);
    if (watch_) {
        return showBox();
    }
    const Watch watch(*this);
    return showBox();
}

LRESULT CALLBACK MessageBoxGuard::Filter(int code, WPARAM wParam, LPARAM lParam) {
    HANDLE found = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindGuard, reinterpret_cast<LPARAM>(&found));
    auto* self = static_cast<MessageBoxGuard*>(found);
    if (self && code == MSGF_DIALOGBOX && self->KeepsOut(*reinterpret_cast<const MSG*>(lParam))) {
        return TRUE;
    }
    return ::CallNextHookEx(self && self->watch_ ? self->watch_->Hook() : nullptr, code, wParam, lParam);
}

bool MessageBoxGuard::KeepsOut(const MSG& input) {
    const bool forBox = (IsKeyMessage(input.message) || IsPress(input.message)) && MessageBoxOf(input.hwnd) != nullptr;
    if (!forBox || korvanta::KeepsOut(guard_, input)) {
        return forBox;
    }
    UserActed(input.time);
    return false;
}

}  // namespace korvanta
