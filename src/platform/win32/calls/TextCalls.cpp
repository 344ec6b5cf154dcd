#include "platform/win32/calls/TextCalls.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <cwchar>
#include <utility>

#include <shellapi.h>

namespace korvanta::textCalls {

namespace {

constexpr DWORD noLookAlikes = 0x400;  // WC_NO_BEST_FIT_CHARS
constexpr std::size_t pathBuffer = MAX_PATH + 1;
constexpr std::size_t nameBuffer = 256;

DWORD PlatformIdentifier() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof(version);
    return ::GetVersionExA(&version) ? version.dwPlatformId : VER_PLATFORM_WIN32_NT;
}

int Length(std::size_t size) {
    return static_cast<int>(size);
}

wchar_t* WideBuffer(std::u16string& text) {
    return reinterpret_cast<wchar_t*>(text.data());
}

// The A and the W form of a record have the same layout; only their text pointers differ in type.
template <class To, class From>
const To& SameLayout(const From& record) {
    static_assert(sizeof(To) == sizeof(From));
    return reinterpret_cast<const To&>(record);
}

// A text as an argument of a single-byte call.
class Bytes {
  public:
    explicit Bytes(std::u16string_view text) : bytes_(ToCodePage(text)) {}
    operator const char*() const { return bytes_.c_str(); }

  private:
    std::string bytes_;
};

}  // namespace

bool IsWindows9x() {
    static const bool is9x = PlatformIdentifier() == VER_PLATFORM_WIN32_WINDOWS;
    return is9x;
}

std::string ToCodePage(std::u16string_view text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = Length(text.size());
    // Windows 95 and code pages like UTF-8 refuse the flag and the substitute, so the second attempt is without them.
    for (const auto& [flags, substitute] : {std::pair{noLookAlikes, "?"}, std::pair<DWORD, const char*>{0, nullptr}}) {
        const int size = ::WideCharToMultiByte(CP_ACP, flags, wide, length, nullptr, 0, substitute, nullptr);
        if (size > 0) {
            std::string bytes(static_cast<std::size_t>(size), '\0');
            ::WideCharToMultiByte(CP_ACP, flags, wide, length, bytes.data(), size, substitute, nullptr);
            return bytes;
        }
    }
    return {};
}

std::string ToLookAlikes(std::u16string_view text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = Length(text.size());
    const int size = ::WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(std::max(size, 0)), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, wide, length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::u16string FromCodePage(std::string_view bytes) {
    const int size = ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), Length(bytes.size()), nullptr, 0);
    std::u16string text(static_cast<std::size_t>(std::max(size, 0)), u'\0');
    ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), Length(bytes.size()), WideBuffer(text), size);
    return text;
}

std::u16string FromWide(const wchar_t* text, std::size_t length) {
    return {reinterpret_cast<const char16_t*>(text), length};
}

NativeText::NativeText(std::u16string_view text) {
    if (IsWindows9x()) {
        bytes_ = ToCodePage(text);
    } else {
        wide_ = text;
    }
}

wchar_t* NativeText::Pointer() {
    return IsWindows9x() ? reinterpret_cast<wchar_t*>(bytes_.data()) : WideBuffer(wide_);
}

std::size_t NativeText::Size() const {
    return IsWindows9x() ? bytes_.size() : wide_.size() * sizeof(char16_t);
}

std::size_t NativeText::SizeWithZero() const {
    return Size() + (IsWindows9x() ? sizeof(char) : sizeof(char16_t));
}

std::u16string FromNative(const wchar_t* zeroTerminated) {
    if (!zeroTerminated) {
        return {};
    }
    return IsWindows9x() ? FromCodePage(reinterpret_cast<const char*>(zeroTerminated))
                         : std::u16string(reinterpret_cast<const char16_t*>(zeroTerminated));
}

std::u16string FromNativeBytes(const void* bytes, std::size_t size) {
    if (IsWindows9x()) {
        return FromCodePage({static_cast<const char*>(bytes), size});
    }
    std::u16string text(size / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes, text.size() * sizeof(char16_t));
    return text;
}

void CopyNative(std::u16string_view text, wchar_t* buffer, std::size_t capacity) {
    if (capacity == 0) {
        return;
    }
    if (IsWindows9x()) {
        // Drops characters until the bytes fit, so that no double-byte character is cut in half.
        std::string bytes = ToCodePage(text.substr(0, capacity - 1));
        for (std::size_t length = std::min(text.size(), capacity - 1); bytes.size() >= capacity; --length) {
            bytes = ToCodePage(text.substr(0, length - 1));
        }
        std::memcpy(buffer, bytes.c_str(), bytes.size() + 1);
    } else {
        const std::size_t length = std::min(text.size(), capacity - 1);
        std::memcpy(buffer, text.data(), length * sizeof(char16_t));
        buffer[length] = L'\0';
    }
}

char16_t TypedCharacter(WPARAM wParam) {
    if (!IsWindows9x()) {
        return static_cast<char16_t>(wParam);
    }
    const char byte = static_cast<char>(wParam);
    if (::IsDBCSLeadByte(static_cast<BYTE>(byte))) {
        return 0;
    }
    const std::u16string text = FromCodePage({&byte, 1});
    return text.empty() ? u'\0' : text[0];
}

ATOM RegisterWindowClass(const WNDCLASSEXW& windowClass) {
    if (!IsWindows9x()) {
        return ::RegisterClassExW(&windowClass);
    }
    const Bytes name(FromWide(windowClass.lpszClassName, std::wcslen(windowClass.lpszClassName)));
    WNDCLASSEXA singleByte = SameLayout<WNDCLASSEXA>(windowClass);
    singleByte.lpszClassName = name;
    return ::RegisterClassExA(&singleByte);
}

HWND MakeWindow(DWORD extendedStyle, const wchar_t* asciiClassName, const std::u16string& text, DWORD style, int x,
                int y, int width, int height, HWND parent, HMENU menuOrIdentifier, void* parameter) {
    const HINSTANCE instance = ::GetModuleHandleA(nullptr);
    if (IsWindows9x()) {
        const Bytes className(FromWide(asciiClassName, std::wcslen(asciiClassName)));
        return ::CreateWindowExA(extendedStyle, className, Bytes(text), style, x, y, width, height, parent,
                                 menuOrIdentifier, instance, parameter);
    }
    return ::CreateWindowExW(extendedStyle, asciiClassName, Wide(text), style, x, y, width, height, parent,
                             menuOrIdentifier, instance, parameter);
}

std::u16string WindowText(HWND window) {
    return ReadText(window, WM_GETTEXTLENGTH, WM_GETTEXT, 0);
}

void SetText(HWND window, const std::u16string& text) {
    SendText(window, WM_SETTEXT, 0, text);
}

std::u16string ClassName(HWND window) {
    std::array<wchar_t, nameBuffer> wide{};
    if (IsWindows9x()) {
        ::GetClassNameA(window, reinterpret_cast<char*>(wide.data()), Length(wide.size()));
    } else {
        ::GetClassNameW(window, wide.data(), Length(wide.size()));
    }
    return FromNative(wide.data());
}

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return IsWindows9x() ? ::SendMessageA(window, message, wParam, lParam)
                         : ::SendMessageW(window, message, wParam, lParam);
}

LRESULT SendText(HWND window, UINT message, WPARAM wParam, const std::u16string& text) {
    return Send(window, message, wParam, NativeText(text).Parameter());
}

std::u16string ReadText(HWND window, UINT lengthMessage, UINT textMessage, WPARAM wParam) {
    const LRESULT length = Send(window, lengthMessage, wParam);
    if (length <= 0) {
        return {};
    }
    std::vector<wchar_t> buffer(static_cast<std::size_t>(length) + 1);
    // WM_GETTEXT takes the buffer's size; the other messages rely on the length that they have told.
    Send(window, textMessage, textMessage == WM_GETTEXT ? buffer.size() : wParam,
         reinterpret_cast<LPARAM>(buffer.data()));
    return FromNative(buffer.data());
}

bool Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return (IsWindows9x() ? ::PostMessageA(window, message, wParam, lParam)
                          : ::PostMessageW(window, message, wParam, lParam)) != 0;
}

UINT RegisterMessage(const wchar_t* asciiName) {
    return ::RegisterWindowMessageA(Bytes(FromWide(asciiName, std::wcslen(asciiName))));
}

LRESULT DefaultProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return IsWindows9x() ? ::DefWindowProcA(window, message, wParam, lParam)
                         : ::DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CallProcedure(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return IsWindows9x() ? ::CallWindowProcA(procedure, window, message, wParam, lParam)
                         : ::CallWindowProcW(procedure, window, message, wParam, lParam);
}

LONG WindowData(HWND window, int index) {
    return IsWindows9x() ? ::GetWindowLongA(window, index) : ::GetWindowLongW(window, index);
}

LONG SetWindowData(HWND window, int index, LONG value) {
    return IsWindows9x() ? ::SetWindowLongA(window, index, value) : ::SetWindowLongW(window, index, value);
}

int ShowBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT type) {
    return IsWindows9x() ? ::MessageBoxA(owner, Bytes(text), Bytes(title), type)
                         : ::MessageBoxW(owner, Wide(text), Wide(title), type);
}

bool AppendMenuItem(HMENU menu, UINT flags, UINT_PTR identifier, const std::u16string& text) {
    return (IsWindows9x() ? ::AppendMenuA(menu, flags, identifier, Bytes(text))
                          : ::AppendMenuW(menu, flags, identifier, Wide(text))) != 0;
}

bool PeekNextMessage(MSG& message, UINT flags) {
    return (IsWindows9x() ? ::PeekMessageA(&message, nullptr, 0, 0, flags)
                          : ::PeekMessageW(&message, nullptr, 0, 0, flags)) != 0;
}

void Dispatch(const MSG& message) {
    ::TranslateMessage(&message);
    IsWindows9x() ? ::DispatchMessageA(&message) : ::DispatchMessageW(&message);
}

bool IsDialogKey(HWND dialog, MSG& message) {
    return (IsWindows9x() ? ::IsDialogMessageA(dialog, &message) : ::IsDialogMessageW(dialog, &message)) != 0;
}

namespace {

template <class Font>
void Adapt(Font& font, bool bold, int dotsPerInch, int systemDotsPerInch) {
    font.lfWeight = bold ? FW_BOLD : font.lfWeight;
    font.lfHeight = ::MulDiv(font.lfHeight, dotsPerInch, systemDotsPerInch);
}

}  // namespace

HFONT MakeMessageFont(bool bold, int dotsPerInch, int systemDotsPerInch) {
    NONCLIENTMETRICSW wide{};
    wide.cbSize = sizeof(wide);
    if (!IsWindows9x() && ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(wide), &wide, 0)) {
        Adapt(wide.lfMessageFont, bold, dotsPerInch, systemDotsPerInch);
        return ::CreateFontIndirectW(&wide.lfMessageFont);
    }
    NONCLIENTMETRICSA narrow{};
    narrow.cbSize = sizeof(narrow);
    if (!::SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(narrow), &narrow, 0)) {
        ::GetObjectA(::GetStockObject(DEFAULT_GUI_FONT), sizeof(narrow.lfMessageFont), &narrow.lfMessageFont);
    }
    Adapt(narrow.lfMessageFont, bold, dotsPerInch, systemDotsPerInch);
    return ::CreateFontIndirectA(&narrow.lfMessageFont);
}

int Draw(HDC context, const std::u16string& text, RECT& place, UINT flags) {
    if (IsWindows9x()) {
        const std::string bytes = ToCodePage(text);
        return ::DrawTextA(context, bytes.c_str(), Length(bytes.size()), &place, flags);
    }
    return ::DrawTextW(context, Wide(text), Length(text.size()), &place, flags);
}

SIZE TextExtent(HDC context, const std::u16string& text) {
    SIZE size{};
    if (IsWindows9x()) {
        const std::string bytes = ToCodePage(text);
        ::GetTextExtentPoint32A(context, bytes.c_str(), Length(bytes.size()), &size);
    } else {
        ::GetTextExtentPoint32W(context, Wide(text), Length(text.size()), &size);
    }
    return size;
}

bool SameIgnoringCase(std::u16string_view one, std::u16string_view other) {
    NativeText left(one);
    NativeText right(other);
    // -1: up to the terminating zero. A length of 0, for an empty text, would be an error.
    const int same =
        IsWindows9x()
            ? ::CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, reinterpret_cast<const char*>(left.Pointer()), -1,
                               reinterpret_cast<const char*>(right.Pointer()), -1)
            : ::CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, left.Pointer(), -1, right.Pointer(), -1);
    return same == CSTR_EQUAL;
}

HANDLE OpenPath(const std::u16string& path, DWORD access, DWORD sharing, DWORD disposition) {
    return IsWindows9x()
               ? ::CreateFileA(Bytes(path), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr)
               : ::CreateFileW(Wide(path), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

DWORD PathAttributes(const std::u16string& path) {
    return IsWindows9x() ? ::GetFileAttributesA(Bytes(path)) : ::GetFileAttributesW(Wide(path));
}

bool SetPathAttributes(const std::u16string& path, DWORD attributes) {
    return (IsWindows9x() ? ::SetFileAttributesA(Bytes(path), attributes)
                          : ::SetFileAttributesW(Wide(path), attributes)) != 0;
}

bool FindPath(const std::u16string& path, DWORD& attributes, FILETIME& lastWrite) {
    WIN32_FIND_DATAW found{};
    WIN32_FIND_DATAA foundBytes{};
    const HANDLE search =
        IsWindows9x() ? ::FindFirstFileA(Bytes(path), &foundBytes) : ::FindFirstFileW(Wide(path), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    ::FindClose(search);
    attributes = Choose(foundBytes.dwFileAttributes, found.dwFileAttributes);
    lastWrite = Choose(foundBytes.ftLastWriteTime, found.ftLastWriteTime);
    return true;
}

bool CopyPath(const std::u16string& from, const std::u16string& to) {
    return (IsWindows9x() ? ::CopyFileA(Bytes(from), Bytes(to), FALSE) : ::CopyFileW(Wide(from), Wide(to), FALSE)) != 0;
}

bool DeletePath(const std::u16string& path) {
    return (IsWindows9x() ? ::DeleteFileA(Bytes(path)) : ::DeleteFileW(Wide(path))) != 0;
}

std::u16string TemporaryFolder() {
    std::array<wchar_t, pathBuffer> buffer{};
    const DWORD size = static_cast<DWORD>(buffer.size());
    const DWORD length = IsWindows9x() ? ::GetTempPathA(size, reinterpret_cast<char*>(buffer.data()))
                                       : ::GetTempPathW(size, buffer.data());
    return length < size ? FromNative(buffer.data()) : std::u16string();
}

std::u16string ProgramFile() {
    // The longest path that Windows allows: the program may lie deeper than MAX_PATH.
    std::vector<wchar_t> buffer(32768);
    const DWORD size = static_cast<DWORD>(buffer.size() - 1);
    IsWindows9x() ? ::GetModuleFileNameA(nullptr, reinterpret_cast<char*>(buffer.data()), size)
                  : ::GetModuleFileNameW(nullptr, buffer.data(), size);
    return FromNative(buffer.data());
}

LONG OpenKey(HKEY hive, const std::u16string& subKey, REGSAM access, HKEY& key) {
    return IsWindows9x() ? ::RegOpenKeyExA(hive, Bytes(subKey), 0, access, &key)
                         : ::RegOpenKeyExW(hive, Wide(subKey), 0, access, &key);
}

LONG CreateKey(HKEY hive, const std::u16string& subKey, REGSAM access, HKEY& key) {
    return IsWindows9x() ? ::RegCreateKeyExA(hive, Bytes(subKey), 0, nullptr, 0, access, nullptr, &key, nullptr)
                         : ::RegCreateKeyExW(hive, Wide(subKey), 0, nullptr, 0, access, nullptr, &key, nullptr);
}

LONG QueryValue(HKEY key, const std::u16string& name, DWORD& type, std::vector<unsigned char>& data) {
    data.resize(nameBuffer);
    for (;;) {
        DWORD size = static_cast<DWORD>(data.size());
        const LONG result = IsWindows9x() ? ::RegQueryValueExA(key, Bytes(name), nullptr, &type, data.data(), &size)
                                          : ::RegQueryValueExW(key, Wide(name), nullptr, &type, data.data(), &size);
        // Somebody may make the value longer between two calls; then it is asked for again.
        if (result != ERROR_MORE_DATA || size <= data.size()) {
            data.resize(result == ERROR_SUCCESS ? size : 0);
            return result;
        }
        data.resize(size);
    }
}

LONG SetValue(HKEY key, const std::u16string& name, DWORD type, const void* data, std::size_t size) {
    const auto* bytes = static_cast<const BYTE*>(data);
    const DWORD length = static_cast<DWORD>(size);
    return IsWindows9x() ? ::RegSetValueExA(key, Bytes(name), 0, type, bytes, length)
                         : ::RegSetValueExW(key, Wide(name), 0, type, bytes, length);
}

namespace {

// Both calls put the name and a zero into the buffer and leave the rest of it as it is.
template <class SingleByteCall, class WideCall>
DWORD FillName(std::u16string& name, SingleByteCall singleByteCall, WideCall wideCall) {
    DWORD size = nameBuffer;
    if (IsWindows9x()) {
        std::string bytes(nameBuffer, ' ');
        if (!singleByteCall(bytes.data(), &size)) {
            return ::GetLastError();
        }
        name = FromCodePage(bytes);
        return ERROR_SUCCESS;
    }
    std::u16string buffer(nameBuffer, u' ');
    if (!wideCall(WideBuffer(buffer), &size)) {
        return ::GetLastError();
    }
    name = std::move(buffer);
    return ERROR_SUCCESS;
}

}  // namespace

DWORD ComputerName(std::u16string& name) {
    return FillName(name, ::GetComputerNameA, ::GetComputerNameW);
}

DWORD UserName(std::u16string& name) {
    return FillName(name, ::GetUserNameA, ::GetUserNameW);
}

std::u16string CommandLine() {
    return IsWindows9x() ? FromCodePage(::GetCommandLineA())
                         : std::u16string(reinterpret_cast<const char16_t*>(::GetCommandLineW()));
}

HANDLE MakeMutex(bool owned, const std::u16string& name) {
    return IsWindows9x() ? ::CreateMutexA(nullptr, owned, Bytes(name)) : ::CreateMutexW(nullptr, owned, Wide(name));
}

std::u16string LocaleText(LCTYPE type) {
    std::array<wchar_t, nameBuffer> buffer{};
    const int size = Length(buffer.size());
    IsWindows9x() ? ::GetLocaleInfoA(LOCALE_USER_DEFAULT, type, reinterpret_cast<char*>(buffer.data()), size)
                  : ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer.data(), size);
    return FromNative(buffer.data());
}

std::u16string DateText(const SYSTEMTIME& time, DWORD flags) {
    std::array<wchar_t, nameBuffer> buffer{};
    const int size = Length(buffer.size());
    IsWindows9x()
        ? ::GetDateFormatA(LOCALE_USER_DEFAULT, flags, &time, nullptr, reinterpret_cast<char*>(buffer.data()), size)
        : ::GetDateFormatW(LOCALE_USER_DEFAULT, flags, &time, nullptr, buffer.data(), size);
    return FromNative(buffer.data());
}

std::u16string TimeText(const SYSTEMTIME& time, DWORD flags) {
    std::array<wchar_t, nameBuffer> buffer{};
    const int size = Length(buffer.size());
    IsWindows9x()
        ? ::GetTimeFormatA(LOCALE_USER_DEFAULT, flags, &time, nullptr, reinterpret_cast<char*>(buffer.data()), size)
        : ::GetTimeFormatW(LOCALE_USER_DEFAULT, flags, &time, nullptr, buffer.data(), size);
    return FromNative(buffer.data());
}

bool ReportApplicationEvent(const std::u16string& source, WORD type, const std::u16string& text) {
    if (IsWindows9x()) {
        return false;
    }
    const HANDLE log = ::RegisterEventSourceW(nullptr, Wide(source));
    if (!log) {
        return false;
    }
    const wchar_t* strings = Wide(text);
    const bool reported = ::ReportEventW(log, type, 0, 1, nullptr, 1, 0, &strings, nullptr) != 0;
    ::DeregisterEventSource(log);
    return reported;
}

bool OpenDocument(const std::u16string& path) {
    const HINSTANCE result = IsWindows9x()
                                 ? ::ShellExecuteA(nullptr, "open", Bytes(path), nullptr, nullptr, SW_SHOWNORMAL)
                                 : ::ShellExecuteW(nullptr, L"open", Wide(path), nullptr, nullptr, SW_SHOWNORMAL);
    constexpr INT_PTR lastErrorValue = 32;
    return reinterpret_cast<INT_PTR>(result) > lastErrorValue;
}

}  // namespace korvanta::textCalls
