#include "controls/Control.h"

namespace korvanta {

void Control::Caption(const std::u16string& caption) {
    if (caption_ != caption) {
        caption_ = caption;
        Tell(Aspect::Caption);
    }
}

void Control::Enabled(bool enabled) {
    if (enabled_ != enabled) {
        enabled_ = enabled;
        Tell(Aspect::Enabled);
    }
}

void Control::Visible(bool visible) {
    if (visible_ != visible) {
        visible_ = visible;
        Tell(Aspect::Visible);
    }
}

void Control::Move(const Place& place) {
    if (place_ == place) {
        return;
    }
    const bool resized = place_.width != place.width || place_.height != place.height;
    place_ = place;
    Tell(Aspect::Place);
    if (resized) {
        Resized();
    }
}

void Control::BackColor(Color color) {
    if (backColor_ != color) {
        backColor_ = color;
        Tell(Aspect::Colors);
    }
}

void Control::ForeColor(Color color) {
    if (foreColor_ != color) {
        foreColor_ = color;
        Tell(Aspect::Colors);
    }
}

void Control::TakeFocus() {
    if (peer_) {
        peer_->TakeFocus();
    }
}

void Control::Attach(PeerFactory& factory) {
    peer_ = MakePeer(factory);
}

Control* Container::Find(const std::u16string& name) const {
    for (Control* child : children_) {
        if (child->Name() == name) {
            return child;
        }
        if (const auto* container = dynamic_cast<const Container*>(child)) {
            if (Control* found = container->Find(name)) {
                return found;
            }
        }
    }
    return nullptr;
}

void Container::Framed(bool framed) {
    if (framed_ != framed) {
        framed_ = framed;
        Tell(Aspect::Colors);
    }
}

void Container::Attach(PeerFactory& factory) {
    Control::Attach(factory);
    for (Control* child : children_) {
        child->Attach(factory);
    }
}

void Container::Detach() {
    for (Control* child : children_) {
        child->Detach();
    }
    Control::Detach();
}

void Container::Add(Control& child) {
    child.parent_ = this;
    children_.push_back(&child);
}

}  // namespace korvanta
