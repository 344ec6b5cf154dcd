#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

// The one place that chooses between the wide (W) and the single-byte (A) calls of Windows: wide ones on the NT family,
// single-byte ones on Windows 95, 98 and Me, where the wide ones are stubs. The rest of the adapter passes UTF-16 to
// these functions. A function that is named after a call takes and returns what that call does, and leaves a failure in
// GetLastError.
namespace korvanta::textCalls {

// Whether this is Windows 95, 98 or Me.
bool IsWindows9x();

// A character that the code page lacks becomes "?" and never a similar one, which could turn a name into another name.
std::string ToCodePage(std::u16string_view text);
// As the system converts by itself: what the code page lacks becomes a similar character, or "?".
std::string ToLookAlikes(std::u16string_view text);
std::u16string FromCodePage(std::string_view bytes);

inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
std::u16string FromWide(const wchar_t* text, std::size_t length);

// A text as the running Windows takes it. Some records differ between A and W only in the type of their text pointer
// (LVITEMA and LVITEMW, TCITEMA and TCITEMW): fill the wide record, with Pointer() as its text, and send it with the
// message that Choose picks.
class NativeText {
  public:
    explicit NativeText(std::u16string_view text);
    // Zero-terminated: UTF-16, or on Windows 9x bytes of the code page. Valid as long as this object.
    wchar_t* Pointer();
    LPARAM Parameter() { return reinterpret_cast<LPARAM>(Pointer()); }
    // In bytes, without and with the terminating zero.
    std::size_t Size() const;
    std::size_t SizeWithZero() const;

  private:
    std::u16string wide_;
    std::string bytes_;
};

template <class Value>
Value Choose(Value singleByte, Value wide) {
    return IsWindows9x() ? singleByte : wide;
}

// A text that Windows has put into a buffer: up to its first zero, or all of `size` bytes.
std::u16string FromNative(const wchar_t* zeroTerminated);
std::u16string FromNativeBytes(const void* bytes, std::size_t size);
// Copies the text, cut to fit and zero-terminated, into a buffer of Windows. `capacity` is in characters of the running
// Windows.
void CopyNative(std::u16string_view text, wchar_t* buffer, std::size_t capacity);
// The character of a WM_CHAR message; 0 for the first half of a double-byte character.
char16_t TypedCharacter(WPARAM wParam);

// Windows. The class's name is ASCII, and its menu is none or a number.
ATOM RegisterWindowClass(const WNDCLASSEXW& windowClass);
HWND MakeWindow(DWORD extendedStyle, const wchar_t* asciiClassName, const std::u16string& text, DWORD style, int x,
                int y, int width, int height, HWND parent, HMENU menuOrIdentifier, void* parameter);
std::u16string WindowText(HWND window);
void SetText(HWND window, const std::u16string& text);
std::u16string ClassName(HWND window);
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
// For messages whose lParam is a text (CB_ADDSTRING, EM_REPLACESEL).
LRESULT SendText(HWND window, UINT message, WPARAM wParam, const std::u16string& text);
// For texts that take two messages, one for the length and one for the text (CB_GETLBTEXTLEN and CB_GETLBTEXT).
std::u16string ReadText(HWND window, UINT lengthMessage, UINT textMessage, WPARAM wParam);
bool Post(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
UINT RegisterMessage(const wchar_t* asciiName);
LRESULT DefaultProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CallProcedure(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LONG WindowData(HWND window, int index);
LONG SetWindowData(HWND window, int index, LONG value);
int ShowBox(HWND owner, const std::u16string& text, const std::u16string& title, UINT type);
bool AppendMenuItem(HMENU menu, UINT flags, UINT_PTR identifier, const std::u16string& text);

// Messages.
bool PeekNextMessage(MSG& message, UINT flags);
void Dispatch(const MSG& message);
bool IsDialogKey(HWND dialog, MSG& message);

// Drawing. `flags` are those of DrawText.
// The user's message font, scaled from the system's resolution, for which Windows gives it, to `dotsPerInch`.
HFONT MakeMessageFont(bool bold, int dotsPerInch, int systemDotsPerInch);
int Draw(HDC context, const std::u16string& text, RECT& place, UINT flags);
SIZE TextExtent(HDC context, const std::u16string& text);

// Whether two texts differ at most in case, by the user's locale.
bool SameIgnoringCase(std::u16string_view one, std::u16string_view other);

// Files.
HANDLE OpenPath(const std::u16string& path, DWORD access, DWORD sharing, DWORD disposition);
DWORD PathAttributes(const std::u16string& path);  // INVALID_FILE_ATTRIBUTES is failure
bool SetPathAttributes(const std::u16string& path, DWORD attributes);
// The directory entry of a file or folder; with wildcards, of the first match.
bool FindPath(const std::u16string& path, DWORD& attributes, FILETIME& lastWrite);
bool CopyPath(const std::u16string& from, const std::u16string& to);
bool DeletePath(const std::u16string& path);
std::u16string TemporaryFolder();  // empty on failure
std::u16string ProgramFile();

// Registry: results are Windows error codes.
LONG OpenKey(HKEY hive, const std::u16string& subKey, REGSAM access, HKEY& key);
LONG CreateKey(HKEY hive, const std::u16string& subKey, REGSAM access, HKEY& key);
LONG QueryValue(HKEY key, const std::u16string& name, DWORD& type, std::vector<unsigned char>& data);
LONG SetValue(HKEY key, const std::u16string& name, DWORD type, const void* data, std::size_t size);

// Machine and session.
DWORD ComputerName(std::u16string& name);
DWORD UserName(std::u16string& name);
std::u16string CommandLine();
HANDLE MakeMutex(bool owned, const std::u16string& name);
std::u16string LocaleText(LCTYPE type);
std::u16string DateText(const SYSTEMTIME& time, DWORD flags);
std::u16string TimeText(const SYSTEMTIME& time, DWORD flags);
bool ReportApplicationEvent(const std::u16string& source, WORD type, const std::u16string& text);
bool OpenDocument(const std::u16string& path);

}  // namespace korvanta::textCalls
