#include "controls/Form.h"

namespace korvanta {

void Form::Load(PeerFactory* factory) {
    if (loaded_) {
        return;
    }
    loaded_ = true;
    OnTranslate();
    if (factory != nullptr) {
        Attach(*factory);
    }
    OnLoad();
    OnResize();
}

void Form::Detach() {
    formPeer_ = nullptr;
    Container::Detach();
}

void Form::Show() {
    if (shown_) {
        return;
    }
    shown_ = true;
    if (formPeer_ != nullptr) {
        formPeer_->Show();
    }
}

void Form::ShowModal() {
    shown_ = true;
    if (formPeer_ != nullptr) {
        formPeer_->ShowModal();
    }
}

void Form::Hide() {
    if (!shown_) {
        return;
    }
    shown_ = false;
    if (formPeer_ != nullptr) {
        formPeer_->Hide();
    }
}

void Form::BringToForeground() {
    if (formPeer_ != nullptr) {
        formPeer_->BringToForeground();
    }
}

void Form::Flash() {
    if (formPeer_ != nullptr) {
        formPeer_->Flash();
    }
}

void Form::ShowPopup(PopupMenu& menu) {
    if (formPeer_ != nullptr) {
        formPeer_->ShowPopup(menu);
    }
}

WindowId Form::Window() const {
    return formPeer_ != nullptr ? formPeer_->Window() : 0;
}

void Form::TopMost(bool topMost) {
    topMost_ = topMost;
    Tell(Aspect::TopMost);
}

void Form::Pointer(MousePointer pointer) {
    if (pointer_ != pointer) {
        pointer_ = pointer;
        Tell(Aspect::Pointer);
    }
}

bool Form::Unload(CloseReason reason) {
    if (unloaded_) {
        return true;
    }
    if (!OnQueryUnload(reason)) {
        return false;
    }
    if (!unloaded_) {
        unloaded_ = true;
        OnUnload();
    }
    return true;
}

void Form::HandlePlace(const Place& window, int clientWidth, int clientHeight) {
    AdoptPlace(window);
    if (clientWidth != clientWidth_ || clientHeight != clientHeight_) {
        clientWidth_ = clientWidth;
        clientHeight_ = clientHeight;
        OnResize();
    }
}

void Form::MinimumSize(int width, int height) {
    minimumWidth_ = width;
    minimumHeight_ = height;
}

void Form::ClientSize(int width, int height) {
    clientWidth_ = width;
    clientHeight_ = height;
}

std::unique_ptr<ControlPeer> Form::MakePeer(PeerFactory& factory) {
    std::unique_ptr<FormPeer> peer = factory.Make(*this);
    formPeer_ = peer.get();
    return peer;
}

}  // namespace korvanta
