#include "platform/win32/services/WindowsMessageBoxes.h"

#include <windows.h>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/MessageBoxGuard.h"
#include "platform/win32/services/WindowsMessageLoop.h"

namespace korvanta {

namespace {

UINT Type(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::OKCancel:
            return MB_OKCANCEL;
        case MessageButtons::YesNo:
            return MB_YESNO;
        case MessageButtons::OK:
            break;
    }
    return MB_OK;
}

UINT Type(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Critical:
            return MB_ICONERROR;
        case MessageIcon::Exclamation:
            return MB_ICONWARNING;
        case MessageIcon::Question:
            return MB_ICONQUESTION;
        case MessageIcon::Information:
            return MB_ICONINFORMATION;
        case MessageIcon::None:
            break;
    }
    return 0;
}

MessageAnswer Refusal(MessageButtons buttons) {
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

}  // namespace

MessageAnswer WindowsMessageBoxes::Show(const std::u16string& text, const std::u16string& title, MessageButtons buttons,
                                        MessageIcon icon) {
    if (messageLoop_.Quitting()) {
        return Refusal(buttons);
    }
    HWND owner = ::GetActiveWindow();
    UINT type = Type(buttons) | Type(icon);
    if (!owner || !::IsWindowVisible(owner)) {
        // Without an owner the box could come up behind other programs or behind a topmost form.
        owner = nullptr;
        type |= MB_TASKMODAL | MB_SETFOREGROUND | MB_TOPMOST;
    }
    const int answer = guard_.Show([&] { return textCalls::ShowBox(owner, text, title, type); });
    if (messageLoop_.Quitting()) {
        return Refusal(buttons);
    }
    switch (answer) {
        case IDOK:
            return MessageAnswer::OK;
        case IDYES:
            return MessageAnswer::Yes;
        default:
            return Refusal(buttons);
    }
}

}  // namespace korvanta
