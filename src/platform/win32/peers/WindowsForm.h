#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "controls/Form.h"
#include "controls/KeyGuard.h"
#include "controls/ReentryFlag.h"
#include "platform/win32/peers/HostWindow.h"

namespace korvanta {

// The top-level window of a form.
class WindowsForm : public FormPeer, public HostWindow {
  public:
    WindowsForm(Form& form, std::shared_ptr<ProgramWindows> program);
    WindowsForm(const WindowsForm&) = delete;
    WindowsForm& operator=(const WindowsForm&) = delete;
    ~WindowsForm() override;

    void Changed(Aspect aspect) override;
    void TakeFocus() override;
    void Repaint() override;
    void Show() override;
    void ShowModal() override;
    void Hide() override;
    void BringToForeground() override;
    void Flash() override;
    void ShowPopup(PopupMenu& menu) override;
    WindowId Window() override { return reinterpret_cast<WindowId>(windows_->window); }

    HWND Window() const override { return windows_->window; }
    const std::shared_ptr<FormWindows>& Windows() const override { return windows_; }
    const Container& Content() const override { return form_; }
    bool Textured() const override { return false; }
    void PaintBackground(HDC context) const override;

  private:
    // One call of ShowModal: the windows that it has disabled, and whether it is over.
    struct Modal {
        std::vector<HWND> disabled;
        bool over = false;
        void End();
    };

    static LRESULT CALLBACK EveryMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam);
    // Each handles some of the messages. True when `result` is the answer.
    bool HandleWindow(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool HandleEnding(UINT message, WPARAM wParam, LRESULT& result);
    bool HandleDialog(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool HandleLooks(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // Whether the input was meant for another window; see KeyGuard.
    bool KeepsOut(const MSG& input);
    bool SwitchesTab(const MSG& input) const;
    void NoteActivation(bool byClick, HWND before);

    void CreateFormWindow();
    // Gives all windows of the program the resolution of the screen that this window is on.
    void FollowScreen();
    void ChangeResolution(int dotsPerInch);
    void FontsChanged();
    void ShowIcons();
    void ReportPlace();
    void ShowPlace();
    void LimitSize(MINMAXINFO& limits) const;
    void ShowPointer() const;
    void Command(int identifier, int code);
    void ChooseEntry(int position);
    PopupMenu* MenuOfForm() const;
    void SaveFocus();
    void RestoreFocus();
    // Moves it at once, or when the form is next activated: setting the focus now would bring the form to the front.
    void MoveFocus(HWND control);

    Form& form_;
    std::shared_ptr<FormWindows> windows_;
    std::shared_ptr<Modal> modal_;
    KeyGuard guard_;
    IconHandle bigIcon_;
    IconHandle smallIcon_;
    UINT taskbarCreated_;
    HWND focus_ = nullptr;       // gets the focus when the form is activated
    PopupMenu* menu_ = nullptr;  // the one that was shown last
    ReentryFlag menuIsUp_;
    int chosenEntry_ = -1;  // while the menu is up, the entry that a WM_COMMAND from outside has chosen
    bool wasShown_ = false;
    ReentryFlag placing_;  // the program, not the user, is moving or sizing the window
};

}  // namespace korvanta
