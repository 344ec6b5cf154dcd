#include "platform/win32/services/DialogWindows.h"

#include <algorithm>
#include <utility>

#include "platform/win32/calls/PlainWindows.h"
#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

bool IsInput(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
        case WM_NCMBUTTONDOWN:
        case WM_NCRBUTTONDOWN:
            return true;
        default:
            return IsKeyMessage(message);
    }
}

}  // namespace

void DialogWindows::Add(HWND window, InputFilter filter) {
    entries_.push_back({window, std::move(filter)});
}

void DialogWindows::Remove(HWND window) {
    std::erase_if(entries_, [window](const Entry& entry) { return entry.window == window; });
}

std::vector<DialogWindows::Entry>::iterator DialogWindows::Find(HWND window) {
    return std::find_if(entries_.begin(), entries_.end(),
                        [window](const Entry& entry) { return entry.window == window; });
}

HWND DialogWindows::Owner(HWND target) const {
    for (const Entry& entry : entries_) {
        if (entry.window == target || ::IsChild(entry.window, target)) {
            return entry.window;
        }
    }
    return nullptr;
}

bool DialogWindows::Translate(MSG& message) {
    if (!message.hwnd) {
        return false;
    }
    const HWND window = Owner(message.hwnd);
    if (!window) {
        const HWND box = MessageBoxOf(message.hwnd);
        return box && textCalls::IsDialogKey(box, message);
    }
    if (IsInput(message.message)) {
        // A copy, since the filter may make or destroy windows and so change the entries.
        const InputFilter filter = Find(window)->filter;
        if (filter && filter(message)) {
            return true;
        }
        if (Find(window) == entries_.end()) {
            return true;
        }
    }
    return textCalls::IsDialogKey(window, message);
}

}  // namespace korvanta
