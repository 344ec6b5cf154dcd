#include "driver/Window.h"

#include <commctrl.h>

#include <cstdint>
#include <cwchar>

#include "driver/RemoteMemory.h"

namespace driver {
namespace {

// Milliseconds. A busy machine must not make an answer that comes late look like an empty one.
constexpr DWORD answerLimit = 15000;
const std::wstring namePrefix = L"Korvanta.";

LPARAM Point(int x, int y) {
    return MAKELPARAM(x, y);
}

BOOL CALLBACK CollectWindow(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<Window>*>(windows)->emplace_back(window);
    return TRUE;
}

BOOL CALLBACK CollectName(HWND, wchar_t* property, HANDLE, ULONG_PTR name) {
    if (!IS_INTRESOURCE(property) && std::wstring(property).starts_with(namePrefix)) {
        *reinterpret_cast<std::wstring*>(name) = property + namePrefix.size();
        return FALSE;
    }
    return TRUE;
}

std::vector<Window> Collect(HWND parent) {
    std::vector<Window> windows;
    if (parent == nullptr) {
        EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&windows));
    } else {
        EnumChildWindows(parent, CollectWindow, reinterpret_cast<LPARAM>(&windows));
    }
    return windows;
}

}  // namespace

bool Window::TopMost() const {
    return Exists() && (GetWindowLongW(handle_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

RECT Window::Rectangle() const {
    RECT rectangle{};
    GetWindowRect(handle_, &rectangle);
    return rectangle;
}

std::wstring Window::ClassName() const {
    wchar_t name[256];
    const int length = GetClassNameW(handle_, name, 256);
    return {name, static_cast<std::size_t>(length)};
}

std::wstring Window::Name() const {
    std::wstring name;
    EnumPropsExW(handle_, CollectName, reinterpret_cast<LPARAM>(&name));
    return name;
}

DWORD Window::ProcessId() const {
    DWORD processId = 0;
    GetWindowThreadProcessId(handle_, &processId);
    return processId;
}

bool Window::Answers(DWORD milliseconds) const {
    DWORD_PTR result = 0;
    return SendMessageTimeoutW(handle_, WM_NULL, 0, 0, SMTO_NORMAL, milliseconds, &result) != 0;
}

bool Window::Send(UINT message, WPARAM wParam, LPARAM lParam, DWORD_PTR* result) const {
    DWORD_PTR ignored = 0;
    return handle_ != nullptr && SendMessageTimeoutW(handle_, message, wParam, lParam, SMTO_NORMAL, answerLimit,
                                                     result != nullptr ? result : &ignored) != 0;
}

LRESULT Window::Ask(UINT message, WPARAM wParam, LPARAM lParam) const {
    DWORD_PTR result = 0;
    return Send(message, wParam, lParam, &result) ? static_cast<LRESULT>(result) : -1;
}

void Window::Post(UINT message, WPARAM wParam, LPARAM lParam) const {
    if (handle_ != nullptr) {
        PostMessageW(handle_, message, wParam, lParam);
    }
}

std::wstring Window::Text() const {
    const LRESULT length = Ask(WM_GETTEXTLENGTH);
    if (length <= 0) {
        return {};
    }
    // The text may grow between the two messages.
    std::wstring text(static_cast<std::size_t>(length) + 256, L'\0');
    const LRESULT copied = Ask(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);
    return text;
}

void Window::SetText(const std::wstring& text) const {
    Send(EM_SETSEL, 0, -1);
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void Window::TurnTo() const {
    if (handle_ != nullptr) {
        Window(GetAncestor(handle_, GA_ROOT)).Post(WM_MBUTTONDOWN, MK_MBUTTON, Point(1, 1));
    }
}

void Window::Type(const std::wstring& text) const {
    TurnTo();
    for (const wchar_t character : text) {
        Post(WM_CHAR, character, 1);
    }
}

void Window::PressKey(WORD virtualKey) const {
    const auto scanCode = static_cast<LPARAM>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    TurnTo();
    Post(WM_KEYDOWN, virtualKey, 1 | scanCode << 16);
    Post(WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001U) | scanCode << 16);
}

void Window::Click() const {
    if (ClassName() == L"Button") {
        Post(BM_CLICK);
    } else {
        ClickAt(2, 2);
    }
}

void Window::ClickAt(int x, int y) const {
    Post(WM_LBUTTONDOWN, MK_LBUTTON, Point(x, y));
    Post(WM_LBUTTONUP, 0, Point(x, y));
}

void Window::DoubleClickAt(int x, int y) const {
    ClickAt(x, y);
    Post(WM_LBUTTONDBLCLK, MK_LBUTTON, Point(x, y));
    Post(WM_LBUTTONUP, 0, Point(x, y));
}

void Window::RightClick() const {
    Post(WM_RBUTTONDOWN, MK_RBUTTON, Point(2, 2));
    Post(WM_RBUTTONUP, 0, Point(2, 2));
}

bool Window::Checked() const {
    return Ask(BM_GETCHECK) == BST_CHECKED;
}

Window Window::Control(const std::wstring& name) const {
    const std::wstring property = namePrefix + name;
    for (const Window& window : Descendants()) {
        if (GetPropW(window.Handle(), property.c_str()) != nullptr) {
            return window;
        }
    }
    return Window();
}

std::vector<Window> Window::Descendants() const {
    return handle_ != nullptr ? Collect(handle_) : std::vector<Window>();
}

int ListWindow::RowCount() const {
    return static_cast<int>(Ask(LVM_GETITEMCOUNT));
}

int ListWindow::ColumnCount() const {
    const Window header(reinterpret_cast<HWND>(Ask(LVM_GETHEADER)));
    return static_cast<int>(header.Ask(HDM_GETITEMCOUNT));
}

std::wstring ListWindow::CellText(int row, int column) const {
    constexpr std::size_t capacity = 1024;
    const RemoteMemory memory(ProcessId(), sizeof(LVITEMW) + capacity * sizeof(wchar_t));
    LVITEMW item{};
    item.iSubItem = column;
    item.cchTextMax = static_cast<int>(capacity);
    item.pszText = static_cast<wchar_t*>(memory.At(sizeof item));
    if (!memory.Write(0, &item, sizeof item) ||
        Ask(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.At(0))) <= 0) {
        return {};
    }
    return memory.ReadText(sizeof item, capacity);
}

std::vector<std::wstring> ListWindow::Column(int column) const {
    std::vector<std::wstring> texts;
    const int count = RowCount();
    for (int row = 0; row < count; ++row) {
        texts.push_back(CellText(row, column));
    }
    return texts;
}

int ListWindow::FindRow(int column, const std::wstring& text) const {
    const int count = RowCount();
    for (int row = 0; row < count; ++row) {
        if (CellText(row, column) == text) {
            return row;
        }
    }
    return -1;
}

int ListWindow::SelectedRow() const {
    return static_cast<int>(Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
}

POINT ListWindow::RowPoint(int row) const {
    Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    const RemoteMemory memory(ProcessId(), sizeof(RECT));
    RECT rectangle{LVIR_BOUNDS, 0, 0, 0};
    memory.Write(0, &rectangle, sizeof rectangle);
    Send(LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.At(0)));
    memory.Read(0, &rectangle, sizeof rectangle);
    return {rectangle.left + 30, (rectangle.top + rectangle.bottom) / 2};
}

void ListWindow::ClickRow(int row) const {
    const POINT point = RowPoint(row);
    ClickAt(point.x, point.y);
}

void ListWindow::DoubleClickRow(int row) const {
    const POINT point = RowPoint(row);
    DoubleClickAt(point.x, point.y);
}

int ListWindow::Picture(int row) const {
    const RemoteMemory memory(ProcessId(), sizeof(LVITEMW));
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    memory.Write(0, &item, sizeof item);
    if (Ask(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.At(0))) <= 0 || !memory.Read(0, &item, sizeof item)) {
        return 0;
    }
    return item.iImage + 1;
}

int TabWindow::Count() const {
    return static_cast<int>(Ask(TCM_GETITEMCOUNT));
}

int TabWindow::Selected() const {
    return static_cast<int>(Ask(TCM_GETCURSEL)) + 1;
}

void TabWindow::Select(int tab) const {
    Send(TCM_SETCURFOCUS, static_cast<WPARAM>(tab - 1), 0);
}

std::wstring TabWindow::Caption(int tab) const {
    constexpr std::size_t capacity = 256;
    const RemoteMemory memory(ProcessId(), sizeof(TCITEMW) + capacity * sizeof(wchar_t));
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.cchTextMax = static_cast<int>(capacity);
    item.pszText = static_cast<wchar_t*>(memory.At(sizeof item));
    if (!memory.Write(0, &item, sizeof item) ||
        Ask(TCM_GETITEMW, static_cast<WPARAM>(tab - 1), reinterpret_cast<LPARAM>(memory.At(0))) <= 0) {
        return {};
    }
    return memory.ReadText(sizeof item, capacity);
}

std::vector<std::wstring> ComboWindow::Items() const {
    std::vector<std::wstring> items;
    const int count = static_cast<int>(Ask(CB_GETCOUNT));
    for (int index = 0; index < count; ++index) {
        const LRESULT length = Ask(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
        std::wstring text(length > 0 ? static_cast<std::size_t>(length) + 1 : 1, L'\0');
        Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        items.emplace_back(text.c_str());
    }
    return items;
}

int ComboWindow::Selected() const {
    return static_cast<int>(Ask(CB_GETCURSEL));
}

void ComboWindow::Select(int index) const {
    Send(CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    const WPARAM notification = MAKEWPARAM(GetDlgCtrlID(Handle()), CBN_SELCHANGE);
    Window(GetParent(Handle())).Send(WM_COMMAND, notification, reinterpret_cast<LPARAM>(Handle()));
}

std::vector<Window> TopLevelWindows(DWORD processId, const std::wstring& className) {
    std::vector<Window> found;
    for (const Window& window : Collect(nullptr)) {
        if ((processId == 0 || window.ProcessId() == processId) &&
            (className.empty() || _wcsicmp(window.ClassName().c_str(), className.c_str()) == 0)) {
            found.push_back(window);
        }
    }
    return found;
}

}  // namespace driver
