#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "controls/Control.h"

namespace korvanta {

enum class Alignment { Left, Center, Right };

// Static text. A clickable label looks like a link; it takes the focus, and Space and Enter press it too.
class Label : public Control {
  public:
    using Control::Control;
    Event<> Click;

    // Design-time properties: set before the peer is made.
    void Clickable(bool clickable) { clickable_ = clickable; }
    bool Clickable() const { return clickable_; }
    void Bold(bool bold) { bold_ = bold; }
    bool Bold() const { return bold_; }
    void Wrap(bool wrap) { wrap_ = wrap; }
    bool Wrap() const { return wrap_; }
    void Align(Alignment alignment) { alignment_ = alignment; }
    Alignment Align() const { return alignment_; }
    // False for texts from outside: an "&" in the caption is shown as it is.
    void AccessKey(bool accessKey) { accessKey_ = accessKey; }
    bool AccessKey() const { return accessKey_; }
    // True for texts that are not the program's own: the caption is not translated.
    void ShowsData(bool showsData) { showsData_ = showsData; }
    bool ShowsData() const { return showsData_; }
    // True: the container's background shows through.
    void Transparent(bool transparent);
    bool Transparent() const { return transparent_; }

    void HandleClick() { Click.Raise(); }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    bool clickable_ = false;
    bool bold_ = false;
    bool wrap_ = false;
    bool accessKey_ = true;
    bool showsData_ = false;
    bool transparent_ = true;
    Alignment alignment_ = Alignment::Left;
};

enum class Key { Enter, Escape, Up, Down, PageUp, PageDown, Home, End, ControlHome, ControlEnd, Other };

// One line of text.
class TextBox : public Control {
  public:
    explicit TextBox(std::u16string name) : Control(std::move(name)) { BackColor(systemColor::windowBackground); }
    // The text has changed, by the user or the program.
    Event<> Change;
    // A key was pressed in the box. A handler that sets the second argument uses the key up: it neither beeps nor
    // presses the default button.
    Event<Key, bool&> KeyDown;

    const std::u16string& Text() const { return Caption(); }
    void Text(const std::u16string& text);

    void HandleChange(const std::u16string& text);
    bool HandleKeyDown(Key key);

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }
};

class CheckBox : public Control {
  public:
    using Control::Control;
    // The tick mark has changed, by the user or the program.
    Event<> Click;

    bool Value() const { return value_; }
    void Value(bool value);

    void HandleClick(bool value);

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    bool value_ = false;
};

// A drop-down list of which at most one item is chosen.
class ComboBox : public Control {
  public:
    explicit ComboBox(std::u16string name) : Control(std::move(name)) { BackColor(systemColor::windowBackground); }
    Event<> Change;

    const std::vector<std::u16string>& Items() const { return items_; }
    // Replaces all items; then none is chosen.
    void Items(std::vector<std::u16string> items);
    // Zero-based; -1 when nothing is chosen. An index outside the items chooses nothing.
    int ListIndex() const { return listIndex_; }
    void ListIndex(int index);

    void HandleChange(int index) { ListIndexFromScreen(index); }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    void ListIndexFromScreen(int index);
    std::vector<std::u16string> items_;
    int listIndex_ = -1;
};

class CommandButton : public Control {
  public:
    using Control::Control;
    Event<> Click;
    // The right mouse button was released over it.
    Event<> RightClick;

    // Design-time: Enter presses the button, wherever on the form the focus is, unless the focused control uses the
    // key.
    void Default(bool isDefault) { default_ = isDefault; }
    bool Default() const { return default_; }

    // Whoever asks, a disabled button cannot be pressed.
    void HandleClick() {
        if (Enabled()) {
            Click.Raise();
        }
    }
    void HandleRightClick() { RightClick.Raise(); }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    bool default_ = false;
};

class ProgressBar : public Control {
  public:
    using Control::Control;
    // At least 1. The value stays between 0 and the maximum.
    int Maximum() const { return maximum_; }
    void Maximum(int maximum);
    int Value() const { return value_; }
    void Value(int value);

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    int maximum_ = 100;
    int value_ = 0;
};

// The tabs alone; the form shows what is on the chosen one.
class TabStrip : public Control {
  public:
    using Control::Control;
    // The user or the program has chosen another tab.
    Event<> Click;
    // The user has chosen a tab, perhaps the current one, by a key that works everywhere on the form: an access key, or
    // Ctrl with Tab or a page key. Raised after Click.
    Event<> ChosenByKey;

    // Sets the captions of all tabs and chooses the first one.
    void Tabs(std::vector<std::u16string> captions);
    const std::vector<std::u16string>& Tabs() const { return tabs_; }
    void TabCaption(int tab, const std::u16string& caption);
    // One-based. A number outside the tabs is ignored.
    int Selected() const { return selected_; }
    void Selected(int tab);
    // The height of the row of tabs, in twips. The peer tells it; without a peer it is 375.
    int HeaderHeight() const { return headerHeight_; }

    void HandleSelected(int tab);
    void HandleChosenByKey(int tab);
    // Moves on by so many tabs (back when negative), from the last one to the first.
    void HandleStepByKey(int tabs);
    void HandleHeaderHeight(int twips) { headerHeight_ = twips; }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    std::vector<std::u16string> tabs_;
    int selected_ = 1;
    int headerHeight_ = 375;
};

// A list of icons with texts; each item has a unique key.
class ListView : public Control {
  public:
    struct Item {
        std::u16string text;
        int icon = 1;  // one-based: 1 a watched printer, 2 a failed one
    };
    explicit ListView(std::u16string name) : Control(std::move(name)) { BackColor(systemColor::windowBackground); }

    const std::vector<Item>& Items() const { return items_; }
    // False when the key exists already; then nothing is added.
    bool AddItem(const std::u16string& key, const std::u16string& text, int icon);
    void Clear();

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    std::vector<Item> items_;
    std::unordered_set<std::u16string> keys_;
};

enum class Picture { Program, MainAccount };

class Image : public Control {
  public:
    using Control::Control;
    void Shows(Picture picture) { picture_ = picture; }
    Picture Shows() const { return picture_; }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    Picture picture_ = Picture::Program;
};

// A horizontal line of ForeColor, one pixel high.
class Line : public Control {
  public:
    using Control::Control;

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }
};

// Ticks every Interval milliseconds while enabled. Its handler can be re-entered: another tick comes when the handler
// lets messages run.
class Timer : public Control {
  public:
    explicit Timer(std::u16string name) : Control(std::move(name)) { Enabled(false); }
    Event<> Tick;

    int Interval() const { return interval_; }
    void Interval(int milliseconds);

    void HandleTick() {
        if (Enabled()) {
            Tick.Raise();
        }
    }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    int interval_ = 1000;
};

// An entry of a popup menu. It has no peer, since the menu is made when it pops up.
class MenuEntry : public Control {
  public:
    using Control::Control;
    Event<> Click;
    void HandleClick() { Click.Raise(); }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory&) override { return nullptr; }
};

// A menu that pops up at the mouse pointer. Its entries are its children.
class PopupMenu : public Container {
  public:
    using Container::Add;
    using Container::Container;

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory&) override { return nullptr; }
};

}  // namespace korvanta
