#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace driver {

// A window of another process. Every function may be called on a window that is gone, or on none: it then does
// nothing, or answers an empty text, false or -1. Nothing waits longer than two seconds for the other process.
class Window {
  public:
    Window() = default;
    explicit Window(HWND handle) : handle_(handle) {}

    HWND Handle() const { return handle_; }
    bool Exists() const { return handle_ != nullptr && IsWindow(handle_); }
    bool Visible() const { return handle_ != nullptr && IsWindowVisible(handle_); }
    bool Enabled() const { return handle_ != nullptr && IsWindowEnabled(handle_); }
    bool TopMost() const;
    // On the screen, in pixels.
    RECT Rectangle() const;
    std::wstring ClassName() const;
    // The name the program gives the control; empty for other windows.
    std::wstring Name() const;
    DWORD ProcessId() const;
    // Whether the window's thread answers a message within the time.
    bool Answers(DWORD milliseconds = 2000) const;

    // Caption or content.
    std::wstring Text() const;
    // Replaces the whole text of a text box, as pasting over it does.
    void SetText(const std::wstring& text) const;
    // As a press of the mouse in the top-level window that does nothing else: from then on the program takes keys
    // there, which it does not while the window has just come up by itself.
    void TurnTo() const;
    // One character after the other, by a user who has turned to the window.
    void Type(const std::wstring& text) const;
    // Likewise a key that goes down and up while this window has the focus, without modifiers.
    void PressKey(WORD virtualKey) const;

    // Presses a button, ticks a check box, clicks anything else; returns without waiting for what that does.
    void Click() const;
    void ClickAt(int x, int y) const;
    void DoubleClickAt(int x, int y) const;
    void RightClick() const;
    bool Checked() const;

    bool Send(UINT message, WPARAM wParam, LPARAM lParam, DWORD_PTR* result = nullptr) const;
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    // The named control at any depth.
    Window Control(const std::wstring& name) const;
    // Every window below this one, in the system's order.
    std::vector<Window> Descendants() const;

  private:
    HWND handle_ = nullptr;
};

// A list with a row for each account or printer.
class ListWindow : public Window {
  public:
    using Window::Window;
    explicit ListWindow(const Window& window) : Window(window) {}

    int RowCount() const;
    int ColumnCount() const;
    std::wstring CellText(int row, int column) const;
    // All texts of one column, top to bottom.
    std::vector<std::wstring> Column(int column) const;
    // The index of the row with that text in that column; -1 when there is none.
    int FindRow(int column, const std::wstring& text) const;
    // The row that is selected; -1 when none is.
    int SelectedRow() const;
    // Brings the row into view and clicks it with the left mouse button.
    void ClickRow(int row) const;
    void DoubleClickRow(int row) const;
    // One-based, as the program counts: 0 when the row shows no picture in column 0.
    int Picture(int row) const;

  private:
    POINT RowPoint(int row) const;
};

class TabWindow : public Window {
  public:
    using Window::Window;
    explicit TabWindow(const Window& window) : Window(window) {}

    int Count() const;
    // One-based.
    int Selected() const;
    void Select(int tab) const;
    std::wstring Caption(int tab) const;
};

class ComboWindow : public Window {
  public:
    using Window::Window;
    explicit ComboWindow(const Window& window) : Window(window) {}

    std::vector<std::wstring> Items() const;
    // Zero-based; -1 when nothing is chosen.
    int Selected() const;
    // As the user's choice in the dropped list does.
    void Select(int index) const;
};

// Top-level windows of a process (0: of all processes), of one class (empty: of all).
std::vector<Window> TopLevelWindows(DWORD processId, const std::wstring& className);

}  // namespace driver
