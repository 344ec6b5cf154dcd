#include "platform/win32/services/WindowsShell.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/resources/Resources.h"

namespace korvanta {

namespace {

// The oldest form of the record, which every Windows knows: 88 bytes, 64 of them for the tip.
constexpr DWORD recordSize = 88;
constexpr std::size_t tipSize = 64;
static_assert(NOTIFYICONDATAA_V1_SIZE == recordSize);

// LR_SHARED: the icon belongs to Windows and must not be destroyed.
HICON ProgramIcon() {
    const HANDLE icon = ::LoadImageA(::GetModuleHandleA(nullptr), MAKEINTRESOURCEA(KORVANTA_PROGRAM_ICON), IMAGE_ICON,
                                     ::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON), LR_SHARED);
    return static_cast<HICON>(icon);
}

// As many characters as fit with a terminating zero; no double-byte character is cut in half.
std::string FittingTip(std::u16string_view tip) {
    tip = tip.substr(0, tipSize - 1);
    std::string bytes = textCalls::ToCodePage(tip);
    while (bytes.size() >= tipSize) {
        tip.remove_suffix(1);
        bytes = textCalls::ToCodePage(tip);
    }
    return bytes;
}

bool Notify(DWORD message, const TrayIcon& icon) {
    NOTIFYICONDATAA record{};
    record.cbSize = recordSize;
    record.hWnd = reinterpret_cast<HWND>(icon.window);
    record.uID = icon.identifier;
    record.uFlags = icon.flags;
    record.uCallbackMessage = icon.callbackMessage;
    record.hIcon = ProgramIcon();
    const std::string tip = FittingTip(icon.tip);
    std::copy(tip.begin(), tip.end(), record.szTip);
    return ::Shell_NotifyIconA(message, &record) != 0;
}

}  // namespace

bool WindowsShell::OpenDocument(const std::u16string& path) {
    return textCalls::OpenDocument(path);
}

bool WindowsShell::AddTrayIcon(const TrayIcon& icon) {
    return Notify(NIM_ADD, icon);
}

bool WindowsShell::DeleteTrayIcon(const TrayIcon& icon) {
    return Notify(NIM_DELETE, icon);
}

}  // namespace korvanta
