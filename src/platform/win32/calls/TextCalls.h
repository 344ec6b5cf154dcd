#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

// The one place that chooses between the wide and the single-byte calls of Windows: the NT family gets the wide ones,
// Windows 95/98/Me, where those are stubs, the single-byte ones. Everything else in this folder hands over UTF-16 and
// calls these. Functions named after a call take and give what that call does; failures are left in GetLastError.
namespace korvanta::textCalls {

// Whether this is Windows 95, 98 or Me.
bool IsWindows9x();

// What the code page lacks becomes "?", never a look-alike: a name must not turn into another name.
std::string ToCodePage(std::u16string_view text);
std::u16string FromCodePage(std::string_view bytes);

inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
std::u16string FromWide(const wchar_t* text, std::size_t length);

// A text as the running Windows takes it. Records that differ only in the type of their text pointer (LVITEMA and
// LVITEMW, TCITEMA and TCITEMW) are filled in their wide form with Pointer() and sent with the message that Choose
// picks.
class NativeText {
  public:
    explicit NativeText(std::u16string_view text);
    // Zero-terminated: UTF-16, or bytes of the code page on Windows 9x. Lives as long as this object.
    wchar_t* Pointer();
    LPARAM Parameter() { return reinterpret_cast<LPARAM>(Pointer()); }
    // Bytes without and with the terminating zero.
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

// Texts that Windows gave in a buffer: up to the first zero, or `size` bytes as they are.
std::u16string FromNative(const wchar_t* zeroTerminated);
std::u16string FromNativeBytes(const void* bytes, std::size_t size);
// Puts the text, cut to fit and zero-terminated, into a buffer of so many characters that Windows reads natively.
void CopyNative(std::u16string_view text, wchar_t* buffer, std::size_t capacity);
// The character behind a WM_CHAR message; 0 for half of a double-byte one.
char16_t TypedCharacter(WPARAM wParam);

// Windows. The record is wide; its class name is ASCII and its menu none or a number.
ATOM RegisterWindowClass(const WNDCLASSEXW& windowClass);
HWND MakeWindow(DWORD extendedStyle, const wchar_t* asciiClassName, const std::u16string& text, DWORD style, int x,
                int y, int width, int height, HWND parent, HMENU menuOrIdentifier, void* parameter);
std::u16string WindowText(HWND window);
void SetText(HWND window, const std::u16string& text);
std::u16string ClassName(HWND window);
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
// A message whose lParam is a text (CB_ADDSTRING, EM_REPLACESEL).
LRESULT SendText(HWND window, UINT message, WPARAM wParam, const std::u16string& text);
// A text that is asked for in two messages, its length and the text itself (CB_GETLBTEXTLEN and CB_GETLBTEXT).
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
// The user's font for messages, which Windows tells for the system's resolution, in another one.
HFONT MakeMessageFont(bool bold, int dotsPerInch, int systemDotsPerInch);
int Draw(HDC context, const std::u16string& text, RECT& place, UINT flags);
SIZE TextExtent(HDC context, const std::u16string& text);

// Whether two texts are the same to the user, who types without minding case.
bool SameIgnoringCase(std::u16string_view one, std::u16string_view other);

// Files.
HANDLE OpenPath(const std::u16string& path, DWORD access, DWORD sharing, DWORD disposition);
DWORD PathAttributes(const std::u16string& path);  // INVALID_FILE_ATTRIBUTES is failure
bool SetPathAttributes(const std::u16string& path, DWORD attributes);
// The entry of a file or folder; a path with wildcards finds the first that fits.
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
