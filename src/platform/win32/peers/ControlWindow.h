#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>

#include "controls/Control.h"
#include "platform/win32/peers/HostWindow.h"
#include "platform/win32/services/Fonts.h"

namespace korvanta {

// The child window of one control: caption, place, enabled and visible follow the control; derived peers add the rest.
// A peer may be ended inside any call of a Handle function of its control, and touches nothing of its own after it.
class ControlWindow : public ControlPeer {
  public:
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    ~ControlWindow() override;

    void Changed(Aspect aspect) override;
    void TakeFocus() override;
    void Repaint() override;

    HWND Window() const { return window_; }
    // The peer of a child window; none for windows that are not a control's.
    static ControlWindow* Of(HWND window);

    // What the parent window is told: the code of a WM_COMMAND, a WM_NOTIFY (true when `result` is its answer),
    // WM_DRAWITEM, and the question for the colors (null for those Windows uses).
    virtual void Commanded(int /*code*/) {}
    virtual bool Notified(NMHDR& /*notice*/, LRESULT& /*result*/) { return false; }
    virtual void Draw(const DRAWITEMSTRUCT& /*item*/) {}
    virtual HBRUSH Colors(HDC /*context*/) { return nullptr; }
    // The program's fonts and resolution are others; what was made for the old ones is made anew.
    virtual void FontsChanged();

  protected:
    ControlWindow(Control& control, HostWindow& host);
    // Makes the window, with the control's name, font and state. Called once, by the derived constructor.
    void Create(const wchar_t* className, DWORD style, DWORD extendedStyle = 0);

    // Every message of the window; what a derived peer does not use goes to the base.
    virtual LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam);
    // Hands the message to the window's own kind. False when that has ended the peer.
    bool Native(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    virtual void ShowCaption();
    virtual void ShowPlace();
    virtual bool Bold() const { return false; }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Invalidate() const;

    // Answers for Colors: on the container's background, or on the control's own color.
    HBRUSH TransparentColors(HDC context);
    HBRUSH OwnColors(HDC context);

    const Control& Owner() const { return control_; }
    HostWindow& Host() const { return host_; }
    const std::shared_ptr<FormWindows>& Form() const { return form_; }
    const Fonts& UsedFonts() const { return form_->program->fonts; }
    // Expires with the peer.
    std::weak_ptr<void> Alive() const { return alive_; }

  private:
    static LRESULT CALLBACK EveryMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void LetGo();
    bool HasFocusInside() const;
    void PassFocusOn() const;

    Control& control_;
    HostWindow& host_;
    std::shared_ptr<FormWindows> form_;
    std::shared_ptr<void> alive_ = std::make_shared<int>();
    HWND window_ = nullptr;
    WNDPROC native_ = nullptr;
    BrushHandle brush_;
};

}  // namespace korvanta
