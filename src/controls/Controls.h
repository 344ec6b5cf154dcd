#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "controls/Control.h"

namespace korvanta {

enum class Alignment { Left, Center, Right };

// Static text. A clickable label looks like a link, takes the focus and is pressed with Space or Enter as well.
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
    // False: an "&" in the caption is shown as it is (texts that come from outside).
    void AccessKey(bool accessKey) { accessKey_ = accessKey; }
    bool AccessKey() const { return accessKey_; }
    // True: what the label shows is no text of the program, and is not translated.
    void ShowsData(bool showsData) { showsData_ = showsData; }
    bool ShowsData() const { return showsData_; }
    // True: the background of the container shows through.
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
    // After the text has changed, by whomever.
    Event<> Change;
    // A key went down in the box. Setting the second argument swallows the key: no beep, no default button.
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
    Event<> Click;  // after the tick mark has changed, by whomever

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
    // Replaces all items; nothing is chosen afterwards.
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
    // Released with the right mouse button above it.
    Event<> RightClick;

    // Design-time: Enter anywhere on the form that no control uses itself presses the button.
    void Default(bool isDefault) { default_ = isDefault; }
    bool Default() const { return default_; }

    // A disabled button cannot be pressed, whoever asks.
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
    // Never below 1. The value stays within 0 and the maximum.
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

// The tabs alone; what each shows is the form's business.
class TabStrip : public Control {
  public:
    using Control::Control;
    Event<> Click;  // the user, or the program, has chosen another tab
    // The user has chosen a tab, perhaps the one that was there, by a key that works anywhere on the form: an access
    // key, or Ctrl with Tab or a page key. After the Click.
    Event<> ChosenByKey;

    // Captions of the tabs; the first one is chosen.
    void Tabs(std::vector<std::u16string> captions);
    const std::vector<std::u16string>& Tabs() const { return tabs_; }
    void TabCaption(int tab, const std::u16string& caption);
    // One-based. A number outside the tabs is ignored.
    int Selected() const { return selected_; }
    void Selected(int tab);
    // Room the tabs themselves take at the top, in twips; the peer says it, 375 without one.
    int HeaderHeight() const { return headerHeight_; }

    void HandleSelected(int tab);
    void HandleChosenByKey(int tab);
    // So many tabs on, and round at the ends.
    void HandleStepByKey(int tabs);
    void HandleHeaderHeight(int twips) { headerHeight_ = twips; }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    std::vector<std::u16string> tabs_;
    int selected_ = 1;
    int headerHeight_ = 375;
};

// Icons with texts; each item has a key of its own.
class ListView : public Control {
  public:
    struct Item {
        std::u16string text;
        int icon = 1;  // one-based: 1 a watched printer, 2 a failed one
    };
    explicit ListView(std::u16string name) : Control(std::move(name)) { BackColor(systemColor::windowBackground); }

    const std::vector<Item>& Items() const { return items_; }
    // False, and nothing added, when the key is there already.
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

// A horizontal line, one pixel high, in the color ForeColor.
class Line : public Control {
  public:
    using Control::Control;

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }
};

// Ticks every Interval milliseconds while enabled. A tick may come while an earlier tick's handler lets messages run.
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

// An entry of a popup menu. It has no peer of its own: the menu is made when it pops up.
class MenuEntry : public Control {
  public:
    using Control::Control;
    Event<> Click;
    void HandleClick() { Click.Raise(); }

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory&) override { return nullptr; }
};

// A menu that is not in a menu bar. Its entries are its children.
class PopupMenu : public Container {
  public:
    using Container::Add;
    using Container::Container;

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory&) override { return nullptr; }
};

}  // namespace korvanta
