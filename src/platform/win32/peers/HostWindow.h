#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "controls/Control.h"
#include "platform/win32/calls/Handles.h"

namespace korvanta {

class DialogWindows;
class Fonts;
class MessageBoxGuard;
class WindowsMessageLoop;
class WindowsTabStrip;

// What all forms of the program share.
struct ProgramWindows {
    WindowsMessageLoop& messageLoop;
    DialogWindows& dialogs;
    Fonts& fonts;
    MessageBoxGuard& messageBoxGuard;
    WindowHandle owner;  // hidden: owns the forms that have no taskbar button
    std::vector<HWND> forms;
};

// What all windows of one form share. It lives as long as one of them runs a procedure.
struct FormWindows {
    explicit FormWindows(std::shared_ptr<ProgramWindows> programWindows) : program(std::move(programWindows)) {}

    std::shared_ptr<ProgramWindows> program;
    HWND window = nullptr;
    int runningProcedures = 0;
    int nextIdentifier = 100;  // above all that Windows gives a meaning of its own
    HWND defaultButton = nullptr;
    bool hourglass = false;
    std::map<UINT_PTR, std::function<void()>> timers;
};

// What a window procedure is left with when it raised, for want of memory as a rule: nothing may pass through Windows
// to whoever sent the message. The message is done as far as it came, and the program lives on.
template <class ProcedureCall>
LRESULT Contained(ProcedureCall procedure) {
    try {
        return procedure();
    } catch (const std::exception&) {
        return 0;
    }
}

// Counts a window procedure that runs, and keeps what it needs. While one runs no window may be destroyed under it.
class RunningProcedure {
  public:
    explicit RunningProcedure(std::shared_ptr<FormWindows> form) : form_(std::move(form)) {
        ++form_->runningProcedures;
    }
    RunningProcedure(const RunningProcedure&) = delete;
    RunningProcedure& operator=(const RunningProcedure&) = delete;
    ~RunningProcedure() { --form_->runningProcedures; }

  private:
    std::shared_ptr<FormWindows> form_;
};

// Ends a window: at once, or as soon as the procedures that run have returned.
void EndWindow(HWND window, const FormWindows& form);

// The name by which support tools and tests find the window of a control.
void NameWindow(HWND window, const std::u16string& name);
void UnnameWindow(HWND window, const std::u16string& name);

// The place of a child window in pixels. Edges are rounded, not sizes, so that what touches still does.
RECT PixelPlace(const Fonts& fonts, const Place& place);

// A window that holds controls: a form or a panel.
class HostWindow {
  public:
    virtual ~HostWindow() = default;
    virtual HWND Window() const = 0;
    virtual const std::shared_ptr<FormWindows>& Windows() const = 0;
    virtual const Container& Content() const = 0;
    // Whether the background is more than BackColor.
    virtual bool Textured() const = 0;
    // Paints the background; the context's origin is the corner of the client area.
    virtual void PaintBackground(HDC context) const = 0;

    // The host of a control; none when its container has no window.
    static HostWindow* Of(const Control& control);

    // Paints what is behind a child; the context's origin is the child's corner. `TexturedBehind` as Textured.
    void PaintBehind(const Control& child, HDC context) const;
    bool TexturedBehind(const Control& child) const;
    // A brush that does the same, for the child to fill itself with. `keeper` as for ColorBrush.
    HBRUSH BrushBehind(const Control& child, HWND childWindow, HDC context, BrushHandle& keeper) const;

    // A child has come, moved, gone or come back: tab strips leave out what lies above their pages.
    void Rearranged() const;

  protected:
    // Hands what child windows tell their parent to their peers. True when `result` is the answer.
    static bool HandOn(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

  private:
    const WindowsTabStrip* PageBehind(const Control& child) const;
};

}  // namespace korvanta
