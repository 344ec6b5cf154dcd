#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>

#include "controls/Control.h"
#include "platform/win32/peers/HostWindow.h"
#include "platform/win32/services/Fonts.h"

namespace korvanta {

// The child window of one control. Its caption, place, enabled and visible state follow the control; derived peers add
// the rest. Any Handle... function of the control can destroy the peer, so a peer uses no member of its own after it.
class ControlWindow : public ControlPeer {
  public:
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    ~ControlWindow() override;

    void Changed(Aspect aspect) override;
    void TakeFocus() override;
    void Repaint() override;

    HWND Window() const { return window_; }
    // The peer of a child window; null for a window that is no control's.
    static ControlWindow* Of(HWND window);

    // Messages about this window that Windows sends to its parent: WM_COMMAND with its code, WM_NOTIFY (true when
    // `result` is the answer), WM_DRAWITEM, and WM_CTLCOLOR... (null for the colors of Windows).
    virtual void Commanded(int /*code*/) {}
    virtual bool Notified(NMHDR& /*notice*/, LRESULT& /*result*/) { return false; }
    virtual void Draw(const DRAWITEMSTRUCT& /*item*/) {}
    virtual HBRUSH Colors(HDC /*context*/) { return nullptr; }
    // Fonts or resolution have changed; what was made for the old ones has to be made again.
    virtual void FontsChanged();

  protected:
    ControlWindow(Control& control, HostWindow& host);
    // Makes the window. Called once, by the derived constructor.
    void Create(const wchar_t* className, DWORD style, DWORD extendedStyle = 0);

    // Gets every message of the window. An override passes on to its base what it does not use itself.
    virtual LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam);
    // Passes the message to the procedure of the window's class. False when that has destroyed the peer.
    bool PassToClass(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    virtual void ShowCaption();
    virtual void ShowPlace();
    virtual bool Bold() const { return false; }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Invalidate() const;

    // Answers for Colors: the container's background, or the control's own.
    HBRUSH TransparentColors(HDC context);
    HBRUSH OwnColors(HDC context);

    const Control& Owner() const { return control_; }
    HostWindow& Host() const { return host_; }
    const std::shared_ptr<FormWindows>& Form() const { return form_; }
    const Fonts& UsedFonts() const { return form_->program->fonts; }
    // Expires when the peer is destroyed.
    std::weak_ptr<void> Alive() const { return alive_; }

  private:
    static LRESULT CALLBACK EveryMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // Separates this object from its window.
    void Unlink();
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
