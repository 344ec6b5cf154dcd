#pragma once

#include <memory>

#include "platform/Shell.h"

namespace korvanta {

class CheckBox;
class ComboBox;
class CommandButton;
class Container;
class Form;
class Grid;
class Image;
class Label;
class Line;
class ListView;
class PopupMenu;
class ProgressBar;
class TabStrip;
class TextBox;
class Timer;

// What has changed in a control. Its peer reads the new state from the control.
enum class Aspect {
    Caption,  // caption, or the text of a text box
    Enabled,
    Visible,
    Place,
    Colors,
    Content,    // items, rows, tabs, columns; a timer's interval
    Selection,  // current item, row, tab or tick mark; a progress bar's value
    Pointer,    // a form's mouse pointer
    TopMost,    // whether a form stays above other windows
};

// What shows a control on the screen. The control owns its peer and tells it of changes; the peer calls the control's
// Handle... functions when the user does something. It is destroyed before the control.
class ControlPeer {
  public:
    virtual ~ControlPeer() = default;
    virtual void Changed(Aspect aspect) = 0;
    virtual void TakeFocus() {}
    virtual void Repaint() {}
};

class FormPeer : public ControlPeer {
  public:
    virtual void Show() = 0;
    // Shows the form and runs messages until it is hidden or the program ends. Other forms take no input meanwhile.
    virtual void ShowModal() = 0;
    virtual void Hide() = 0;
    virtual void BringToForeground() = 0;
    // Inverts the title bar and the taskbar button once.
    virtual void Flash() = 0;
    // Shows the menu at the mouse pointer. Before it returns it raises the Click of the chosen entry.
    virtual void ShowPopup(PopupMenu& menu) = 0;
    virtual WindowId Window() = 0;
};

// Makes peers. A container gets its peer before its children get theirs. A peer may be null.
class PeerFactory {
  public:
    virtual ~PeerFactory() = default;
    virtual std::unique_ptr<FormPeer> Make(Form& form) = 0;
    virtual std::unique_ptr<ControlPeer> Make(Container& panel) = 0;
    virtual std::unique_ptr<ControlPeer> Make(CheckBox& checkBox) = 0;
    virtual std::unique_ptr<ControlPeer> Make(ComboBox& comboBox) = 0;
    virtual std::unique_ptr<ControlPeer> Make(CommandButton& button) = 0;
    virtual std::unique_ptr<ControlPeer> Make(Grid& grid) = 0;
    virtual std::unique_ptr<ControlPeer> Make(Image& image) = 0;
    virtual std::unique_ptr<ControlPeer> Make(Label& label) = 0;
    virtual std::unique_ptr<ControlPeer> Make(Line& line) = 0;
    virtual std::unique_ptr<ControlPeer> Make(ListView& listView) = 0;
    virtual std::unique_ptr<ControlPeer> Make(ProgressBar& progressBar) = 0;
    virtual std::unique_ptr<ControlPeer> Make(TabStrip& tabStrip) = 0;
    virtual std::unique_ptr<ControlPeer> Make(TextBox& textBox) = 0;
    virtual std::unique_ptr<ControlPeer> Make(Timer& timer) = 0;
};

}  // namespace korvanta
