#include "PeersTest.h"

#include <commctrl.h>

namespace korvanta {

namespace {

struct Wanted {
    std::string property;
    HWND found = nullptr;
};

BOOL CALLBACK LookAt(HWND window, LPARAM parameter) {
    auto& wanted = *reinterpret_cast<Wanted*>(parameter);
    if (::GetPropA(window, wanted.property.c_str())) {
        wanted.found = window;
        return FALSE;
    }
    return TRUE;
}

}  // namespace

PeersTest::PeersTest() {
    ::InitCommonControls();
}

PeersTest::~PeersTest() {
    form.Detach();
    MSG message;
    while (textCalls::PeekNextMessage(message, PM_REMOVE)) {
        textCalls::Dispatch(message);
    }
}

HWND PeersTest::FindIn(HWND parent, const char* name) {
    Wanted wanted{std::string("Korvanta.") + name};
    ::EnumChildWindows(parent, &LookAt, reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

bool PeersTest::RunUntil(const std::function<bool()>& condition) {
    const DWORD start = ::GetTickCount();
    while (!condition()) {
        if (::GetTickCount() - start > 5000) {
            return false;
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        loop.RunPending();
    }
    return true;
}

void PeersTest::PressKey(HWND window, WPARAM key) {
    textCalls::Post(window, WM_KEYDOWN, key, 1);
    textCalls::Post(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001U));
    loop.RunPending();
}

void PeersTest::Click(HWND window, int x, int y) {
    // The release waits in the queue, where a list looks for it while it handles the press.
    textCalls::Post(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    Send(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    MSG message;
    while (textCalls::PeekNextMessage(message, PM_REMOVE)) {
        textCalls::Dispatch(message);
    }
}

std::u16string PeersTest::ItemText(HWND list, int row, int column) {
    wchar_t buffer[260] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = buffer;
    item.cchTextMax = 260;
    Send(list, textCalls::Choose(LVM_GETITEMTEXTA, LVM_GETITEMTEXTW), static_cast<WPARAM>(row),
         reinterpret_cast<LPARAM>(&item));
    return textCalls::FromNative(buffer);
}

}  // namespace korvanta
