#pragma once

#include <string>

#include "controls/Control.h"
#include "controls/Controls.h"

namespace korvanta {

enum class CloseReason { ControlMenu, Code, WindowsSession, TaskManager };
enum class BorderStyle { Sizable, FixedDialog };
enum class MousePointer { Default, Hourglass };

// A top-level window. Derived forms hold their controls as members and add them in tab order. A form starts hidden,
// and stays an object with all its state when it is unloaded.
class Form : public Container {
  public:
    using Container::Container;

    // Raises OnTranslate, makes the peers (with a factory) and raises OnLoad; once.
    void Load(PeerFactory* factory);
    bool Loaded() const { return loaded_; }
    // Ends the peers. Whoever owns a form calls it before the form's members go.
    void Detach() override;

    // Whether the form is on the screen. Show and Hide of a form that is so already do nothing.
    bool Shown() const { return shown_; }
    void Show();
    // Returns when the form has been hidden. Without a peer it returns at once, shown.
    void ShowModal();
    void Hide();
    void BringToForeground();
    void Flash();
    void ShowPopup(PopupMenu& menu);
    // 0 without a peer.
    WindowId Window() const;

    // Setting it again puts the form in front of what has come before it meanwhile.
    bool TopMost() const { return topMost_; }
    void TopMost(bool topMost);
    MousePointer Pointer() const { return pointer_; }
    void Pointer(MousePointer pointer);

    // Asks OnQueryUnload; when it agrees OnUnload runs, once. False when the form stays.
    bool Unload(CloseReason reason);

    // Design-time properties: set before Load. Position is that of the whole window; ClientWidth and ClientHeight are
    // what its controls have.
    BorderStyle Border() const { return border_; }
    // Whether keys that were meant for another window do nothing here (KeyGuard).
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
    // The taskbar was made again, and with it the notification area.
    void HandleTaskbarCreated() { OnTaskbarCreated(); }
    // Texts have another size than before: another font, or the resolution of another screen.
    void HandleFontsChanged() { OnFontsChanged(); }
    // Monitors have come or gone, changed their resolution, or been given other taskbars.
    void HandleDisplayChanged() { OnDisplayChanged(); }

  protected:
    // Captions become what they will be, and the form may choose its size by them: there is no window yet.
    virtual void OnTranslate() {}
    virtual void OnLoad() {}
    // False keeps the form.
    virtual bool OnQueryUnload(CloseReason) { return true; }
    virtual void OnUnload() {}
    // The client area has another size, or is measured for the first time.
    virtual void OnResize() {}
    virtual void OnTrayIconDoubleClick() {}
    virtual void OnTaskbarCreated() {}
    virtual void OnFontsChanged() { OnResize(); }
    virtual void OnDisplayChanged() {}

    void Border(BorderStyle border) { border_ = border; }
    void GuardsKeys(bool guards) { guardsKeys_ = guards; }
    void ShowInTaskbar(bool show) { showInTaskbar_ = show; }
    void MinimumSize(int width, int height);
    // The size of the client area, before there is a window that says it.
    void ClientSize(int width, int height);

    void Resized() override {}
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
