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

// One control of a form: its state and its events. Places are in twips, relative to the container. Setting a property
// to the value that it has already does nothing. Without a peer a control works all the same, but is not on the screen.
class Control {
  public:
    explicit Control(std::u16string name) : name_(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // Its name in its form and in translations.
    const std::u16string& Name() const { return name_; }

    // An "&" in a caption makes the next character the access key; see AccessKey.h.
    const std::u16string& Caption() const { return caption_; }
    void Caption(const std::u16string& caption);

    bool Enabled() const { return enabled_; }
    void Enabled(bool enabled);

    // A visible control is shown only while all containers around it are visible too.
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

    // Makes the peers of this control and of its children.
    virtual void Attach(PeerFactory& factory);
    // Destroys them.
    virtual void Detach() { peer_.reset(); }
    ControlPeer* Peer() const { return peer_.get(); }

  protected:
    void Tell(Aspect aspect) {
        if (peer_) {
            peer_->Changed(aspect);
        }
    }
    // These take over what the peer has told, so the peer is not told again.
    void Adopt(const std::u16string& caption) { caption_ = caption; }
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

// A control that holds others: a form, a frame, or a control composed of others. The order in which children are added
// is the tab order. Children are members of the derived class.
class Container : public Control {
  public:
    using Control::Control;

    const std::vector<Control*>& Children() const { return children_; }
    // The control of that name at any depth, or null.
    Control* Find(const std::u16string& name) const;
    // When it is not empty, the container has its texts translated by itself, under this name that all containers of
    // its class share; the form around it leaves them out.
    virtual std::u16string_view TranslatesAs() const { return {}; }
    // Whether a thin line is drawn along the container's edge, inside its place.
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

// Texts that a form shows at run time, kept as captions of labels so that they are translated with the form. The labels
// are never on the screen and have no peers.
class HiddenTexts : public Container {
  public:
    using Container::Add;
    using Container::Container;
    void Attach(PeerFactory&) override {}
};

// A container that shows nothing of its own.
class Frame : public Container {
  public:
    using Container::Add;
    using Container::Container;
};

}  // namespace korvanta
