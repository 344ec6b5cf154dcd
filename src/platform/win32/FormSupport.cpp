#include "platform/win32/FormSupport.h"

#include "platform/win32/HostWindow.h"
#include "platform/win32/TextCalls.h"

namespace korvanta {

namespace {

constexpr const wchar_t* ownerClass = L"Korvanta.Owner";
constexpr int arrowCursor = 32512;  // IDC_ARROW

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return textCalls::DefaultProcedure(window, message, wParam, lParam);
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

void RegisterFormClass(const std::u16string& name, WNDPROC procedure) {
    WNDCLASSEXW form{};
    form.cbSize = sizeof(form);
    form.lpfnWndProc = procedure;
    form.hInstance = ::GetModuleHandleA(nullptr);
    form.hCursor = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(arrowCursor));
    form.lpszClassName = textCalls::Wide(name);
    textCalls::RegisterWindowClass(form);
}

HWND OwnerOfHiddenButtons(ProgramWindows& program) {
    if (!program.owner) {
        RegisterFormClass(u"Korvanta.Owner", &OwnerProcedure);
        program.owner.Reset(
            textCalls::MakeWindow(WS_EX_TOOLWINDOW, ownerClass, {}, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr));
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
