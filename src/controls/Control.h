#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Color.h"
#include "controls/Event.h"
#include "controls/Peer.h"
#include "platform/Screen.h"

namespace korvanta {

// One control of a form: its state, and its events. Places are in twips, relative to the container. Setting a property
// to the value it has does nothing. With no peer a control is simply an object.
class Control {
  public:
    explicit Control(std::u16string name) : name_(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // The name by which its form and a translation know the control.
    const std::u16string& Name() const { return name_; }

    // In captions "&" marks the access key that follows it.
    const std::u16string& Caption() const { return caption_; }
    void Caption(const std::u16string& caption);

    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);

    // The control's own wish; it shows only inside containers that are visible too.
    bool Visible() const { return visible_; }
    void Visible(bool visible);

    const Place& Position() const { return place_; }
    void Move(const Place& place);

    Color BackColor() const { return backColor_; }
    void BackColor(Color color);
    Color ForeColor() const { return foreColor_; }
    void ForeColor(Color color);

    Container* Parent() const { return parent_; }
    void TakeFocus();

    // Makes this control's peer, and those of its children.
    virtual void Attach(PeerFactory& factory);
    virtual void Detach() { peer_.reset(); }  // ends them
    ControlPeer* Peer() const { return peer_.get(); }

  protected:
    void Tell(Aspect aspect) {
        if (peer_) {
            peer_->Changed(aspect);
        }
    }
    // Sets the caption from the screen's side, without telling the peer.
    void Adopt(const std::u16string& caption) { caption_ = caption; }
    // Likewise the place.
    void AdoptPlace(const Place& place) { place_ = place; }
    virtual void Resized() {}
    virtual std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) = 0;

  private:
    friend class Container;

    std::u16string name_;
    std::u16string caption_;
    Place place_;
    Color backColor_ = systemColor::buttonFace;
    Color foreColor_ = systemColor::buttonText;
    Container* parent_ = nullptr;
    bool enabled_ = true;
    bool visible_ = true;
    std::unique_ptr<ControlPeer> peer_;
};

// A control that holds others: a form, a frame, or a control put together from others. The order in which children
// are added is the tab order. Children are members of the derived class and so outlive every use of the list.
class Container : public Control {
  public:
    using Control::Control;

    const std::vector<Control*>& Children() const { return children_; }
    // The control of that name at any depth, or none.
    Control* Find(const std::u16string& name) const;
    // Not empty: the control hands its texts to the translation itself, under this name, which all controls of its kind
    // share; its form leaves them alone.
    virtual std::u16string_view TranslatesAs() const { return {}; }
    // A thin line around the container, inside its place.
    void Framed(bool framed);
    bool Framed() const { return framed_; }
    void Attach(PeerFactory& factory) override;
    void Detach() override;

  protected:
    void Add(Control& child);
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    std::vector<Control*> children_;
    bool framed_ = false;
};

// Texts that a form shows where and when it needs them, as captions of labels, so that they are translated with the
// rest of it. They are never on the screen themselves and have no peers.
class HiddenTexts : public Container {
  public:
    using Container::Add;
    using Container::Container;
    void Attach(PeerFactory&) override {}
};

// A container without a look of its own.
class Frame : public Container {
  public:
    using Container::Add;
    using Container::Container;
};

}  // namespace korvanta
