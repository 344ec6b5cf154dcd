#include "platform/win32/peers/FormSupport.h"

#include "platform/win32/calls/PlainWindows.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/HostWindow.h"

namespace korvanta {

namespace {

// Other programs (the Task Manager) can close all windows of the program. Destroying the owner would destroy the forms
// that it owns, so it ignores WM_CLOSE.
LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_CLOSE ? 0 : textCalls::DefaultProcedure(window, message, wParam, lParam);
}

struct Message {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

BOOL CALLBACK TellOne(HWND window, LPARAM parameter) {
    const auto& message = *reinterpret_cast<const Message*>(parameter);
    textCalls::Send(window, message.message, message.wParam, message.lParam);
    return TRUE;
}

}  // namespace

HWND OwnerOfFormsWithoutButton(ProgramWindows& program) {
    if (!program.owner) {
        const std::u16string ownerClass = u"Korvanta.Owner";
        RegisterPlainClass(ownerClass, &OwnerProcedure);
        program.owner.Reset(textCalls::MakeWindow(WS_EX_TOOLWINDOW, textCalls::Wide(ownerClass), {}, WS_POPUP, 0, 0, 0,
                                                  0, nullptr, nullptr, nullptr));
    }
    return program.owner.Get();
}

void FillMenu(HMENU handle, const PopupMenu& menu) {
    int identifier = firstMenuIdentifier;
    for (const Control* entry : menu.Children()) {
        const auto place = static_cast<UINT_PTR>(identifier++);
        if (!entry->Visible()) {
            continue;
        }
        const bool separator = entry->Caption() == u"-";
        const UINT state = entry->Enabled() ? MF_ENABLED : MF_GRAYED;
        textCalls::AppendMenuItem(handle, separator ? MF_SEPARATOR : MF_STRING | state, place, entry->Caption());
    }
}

void SelectWholeText(HWND control) {
    if ((textCalls::Send(control, WM_GETDLGCODE) & DLGC_HASSETSEL) != 0) {
        textCalls::Send(control, EM_SETSEL, 0, -1);
    }
}

void TellDescendants(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const Message told{message, wParam, lParam};
    ::EnumChildWindows(window, &TellOne, reinterpret_cast<LPARAM>(&told));
}

}  // namespace korvanta
