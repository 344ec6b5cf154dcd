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

// Shared by all forms of the program.
struct ProgramWindows {
    WindowsMessageLoop& messageLoop;
    DialogWindows& dialogs;
    Fonts& fonts;
    MessageBoxGuard& messageBoxGuard;
    WindowHandle owner;  // hidden; owns the forms without a taskbar button
    std::vector<HWND> forms;
};

// Shared by all windows of one form. It lives at least as long as a procedure of one of them runs.
struct FormWindows {
    explicit FormWindows(std::shared_ptr<ProgramWindows> programWindows) : program(std::move(programWindows)) {}

    std::shared_ptr<ProgramWindows> program;
    HWND window = nullptr;
    int runningProcedures = 0;
    int nextIdentifier = 100;  // above the identifiers that Windows defines (IDOK, ...)
    HWND defaultButton = nullptr;
    bool hourglass = false;
    std::map<UINT_PTR, std::function<void()>> timers;
};

// Runs a window procedure and stops what it raises, mostly when memory has run out: an exception must not pass through
// Windows to the sender of the message. The message stays half-handled, and the program goes on.
template <class ProcedureCall>
LRESULT Contained(ProcedureCall procedure) {
    try {
        return procedure();
    } catch (const std::exception&) {
        return 0;
    }
}

// Counts the running procedures of a form's windows, and keeps what they share. While one runs, no window of the form
// may be destroyed; see EndWindow.
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

// Destroys a window: at once, or as soon as the running procedures of the form have returned.
void EndWindow(HWND window, const FormWindows& form);

// Gives a window the name of its control, by which support tools and tests find it.
void NameWindow(HWND window, const std::u16string& name);
void UnnameWindow(HWND window, const std::u16string& name);

// The place of a child window in pixels. Edges are rounded, not sizes, so that places which touch in twips touch in
// pixels too.
RECT PixelPlace(const Fonts& fonts, const Place& place);

// A window that holds controls: a form or a panel.
class HostWindow {
  public:
    virtual ~HostWindow() = default;
    virtual HWND Window() const = 0;
    virtual const std::shared_ptr<FormWindows>& Windows() const = 0;
    virtual const Container& Content() const = 0;
    // Whether the background is more than one color.
    virtual bool Textured() const = 0;
    // Paints the background; the context's origin is the upper left corner of the client area.
    virtual void PaintBackground(HDC context) const = 0;

    // The host of a control; null when its container has no window.
    static HostWindow* Of(const Control& control);

    // Paints what is behind a child; the context's origin is the child's upper left corner.
    void PaintBehind(const Control& child, HDC context) const;
    // Whether that is more than one color.
    bool TexturedBehind(const Control& child) const;
    // A brush with which the child can paint the same. `keeper` as in ColorBrush.
    HBRUSH BrushBehind(const Control& child, HWND childWindow, HDC context, BrushHandle& keeper) const;

    // To be called when a child is made, moved, shown or hidden: tab strips leave out the places of the others.
    void ChildrenMoved() const;

  protected:
    // Passes a message about a child window to the child's peer. True when `result` is the answer.
    static bool PassToChild(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

  private:
    const WindowsTabStrip* PageBehind(const Control& child) const;
};

}  // namespace korvanta
