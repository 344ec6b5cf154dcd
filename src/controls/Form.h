#pragma once

#include <string>

#include "controls/Control.h"
#include "controls/Controls.h"

namespace korvanta {

enum class CloseReason { ControlMenu, Code, WindowsSession, TaskManager };
enum class BorderStyle { Sizable, FixedDialog };
enum class MousePointer { Default, Hourglass };

// A top-level window. Derived forms hold their controls as members and add them in tab order. A form starts hidden. An
// unloaded form keeps all its state.
class Form : public Container {
  public:
    using Container::Container;

    // Calls OnTranslate, makes the peers when there is a factory, and calls OnLoad and OnResize. Does nothing the
    // second time.
    void Load(PeerFactory* factory);
    // Until the form has agreed to be unloaded.
    bool Loaded() const { return loaded_ && !unloaded_; }
    // Destroys the peers. The form's owner calls it before it destroys the form: peers refer to the form's members.
    void Detach() override;

    // Whether the form is shown. Show does nothing on a form that is shown, Hide nothing on a hidden one.
    bool Shown() const { return shown_; }
    void Show();
    // Shows the form, lets messages run, and returns when the form has been hidden. Without a peer it returns at once.
    void ShowModal();
    void Hide();
    void BringToForeground();
    void Flash();
    void ShowPopup(PopupMenu& menu);
    // 0 without a peer.
    WindowId Window() const;

    // Setting it again brings the form in front of other topmost windows.
    bool TopMost() const { return topMost_; }
    void TopMost(bool topMost);
    MousePointer Pointer() const { return pointer_; }
    void Pointer(MousePointer pointer);

    // Asks OnQueryUnload and, when that agrees, calls OnUnload; once. False when the form stays.
    bool Unload(CloseReason reason);

    // Design-time properties: set before Load. Position is the place of the whole window; ClientWidth and ClientHeight
    // are the size of the area for its controls.
    BorderStyle Border() const { return border_; }
    // Whether the form ignores keys that were meant for another window; see KeyGuard.
    bool GuardsKeys() const { return guardsKeys_; }
    bool ShowInTaskbar() const { return showInTaskbar_; }
    int MinimumWidth() const { return minimumWidth_; }
    int MinimumHeight() const { return minimumHeight_; }
    int ClientWidth() const { return clientWidth_; }
    int ClientHeight() const { return clientHeight_; }

    // From the peer: the window was moved or resized by the user or the system.
    void HandlePlace(const Place& window, int clientWidth, int clientHeight);
    // The form's icon in the notification area was double-clicked.
    void HandleTrayIconDoubleClick() { OnTrayIconDoubleClick(); }
    // The taskbar has started again; the icon in its notification area is gone.
    void HandleTaskbarCreated() { OnTaskbarCreated(); }
    // Texts have another size now: the user has chosen another font, or the form is on a screen of another resolution.
    void HandleFontsChanged() { OnFontsChanged(); }
    // Monitors or taskbars have come or gone, or a monitor's resolution has changed.
    void HandleDisplayChanged() { OnDisplayChanged(); }

  protected:
    // Called before there is a window: the form has its captions translated and may choose its size by them.
    virtual void OnTranslate() {}
    virtual void OnLoad() {}
    // False keeps the form.
    virtual bool OnQueryUnload(CloseReason) { return true; }
    virtual void OnUnload() {}
    // The client area has another size, or its size is known for the first time.
    virtual void OnResize() {}
    virtual void OnTrayIconDoubleClick() {}
    virtual void OnTaskbarCreated() {}
    virtual void OnFontsChanged() { OnResize(); }
    virtual void OnDisplayChanged() {}

    void Border(BorderStyle border) { border_ = border; }
    void GuardsKeys(bool guards) { guardsKeys_ = guards; }
    void ShowInTaskbar(bool show) { showInTaskbar_ = show; }
    void MinimumSize(int width, int height);
    // The size of the client area that the window is to have.
    void ClientSize(int width, int height);

    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override;

  private:
    FormPeer* formPeer_ = nullptr;
    BorderStyle border_ = BorderStyle::Sizable;
    MousePointer pointer_ = MousePointer::Default;
    int minimumWidth_ = 0;
    int minimumHeight_ = 0;
    int clientWidth_ = 0;
    int clientHeight_ = 0;
    bool guardsKeys_ = false;
    bool showInTaskbar_ = true;
    bool loaded_ = false;
    bool unloaded_ = false;
    bool shown_ = false;
    bool topMost_ = false;
};

}  // namespace korvanta
