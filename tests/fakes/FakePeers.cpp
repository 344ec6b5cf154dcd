#include "fakes/FakePeers.h"

#include <algorithm>
#include <new>

namespace korvanta::fakes {

void PeerRecord::Note(Aspect aspect) {
    try {
        changes.push_back(aspect);
    } catch (const std::bad_alloc&) {
        // Real peers allocate nothing here, and destructors call this too.
        return;
    }
}

int PeerRecord::Count(Aspect aspect) const {
    return static_cast<int>(std::count(changes.begin(), changes.end(), aspect));
}

int PeerRecord::Last(Aspect aspect) const {
    const auto found = std::find(changes.rbegin(), changes.rend(), aspect);
    return static_cast<int>(changes.rend() - found) - 1;
}

class FakePeers::PlainPeer : public ControlPeer {
  public:
    PlainPeer(FakePeers& peers, Control& control, std::shared_ptr<PeerRecord> record)
        : peers_(peers), control_(control), record_(std::move(record)) {
        ++record_->made;
        ++record_->alive;
    }
    ~PlainPeer() override { --record_->alive; }
    void Changed(Aspect aspect) override {
        record_->Note(aspect);
        if (peers_.onChanged) {
            peers_.onChanged(control_, aspect);
        }
    }
    void TakeFocus() override { ++record_->focused; }
    void Repaint() override { ++record_->repainted; }

  private:
    FakePeers& peers_;
    Control& control_;
    std::shared_ptr<PeerRecord> record_;
};

class FakePeers::WindowPeer : public FormPeer {
  public:
    WindowPeer(FakePeers& peers, Form& form, std::shared_ptr<PeerRecord> record)
        : peers_(peers), form_(form), record_(std::move(record)) {
        ++record_->made;
        ++record_->alive;
        record_->window = peers_.nextWindow_++;
    }
    ~WindowPeer() override {
        --record_->alive;
        record_->visible = false;
    }

    void Changed(Aspect aspect) override {
        record_->Note(aspect);
        if (peers_.onChanged) {
            peers_.onChanged(form_, aspect);
        }
    }
    void TakeFocus() override { ++record_->focused; }
    void Repaint() override { ++record_->repainted; }
    void Show() override {
        ++record_->shown;
        record_->visible = true;
        if (peers_.onShow) {
            peers_.onShow(form_);
        }
    }
    void ShowModal() override {
        const std::shared_ptr<PeerRecord> record = record_;
        FakePeers& peers = peers_;
        Form& form = form_;
        ++record->shownModally;
        record->visible = true;
        std::function<void(Form&)> script = peers.onShowModal;
        if (!peers.modalScripts.empty()) {
            script = std::move(peers.modalScripts.front());
            peers.modalScripts.pop_front();
        }
        if (script) {
            script(form);
        }
        if (record->visible) {
            form.Hide();
        }
    }
    void Hide() override {
        ++record_->hidden;
        record_->visible = false;
    }
    void BringToForeground() override {
        ++record_->broughtToForeground;
        if (peers_.onForeground) {
            peers_.onForeground(form_);
        }
    }
    void Flash() override { ++record_->flashed; }
    void ShowPopup(PopupMenu& menu) override {
        ++record_->popups;
        if (peers_.onShowPopup) {
            peers_.onShowPopup(form_, menu);
        }
    }
    WindowId Window() override { return record_->window; }

  private:
    FakePeers& peers_;
    Form& form_;
    std::shared_ptr<PeerRecord> record_;
};

std::shared_ptr<PeerRecord> FakePeers::RecordOf(const Control& control) {
    std::shared_ptr<PeerRecord>& record = records_[&control];
    if (!record) {
        record = std::make_shared<PeerRecord>();
    }
    return record;
}

PeerRecord& FakePeers::Of(const Control& control) {
    return *RecordOf(control);
}

int FakePeers::PeersAlive() const {
    int alive = 0;
    for (const auto& entry : records_) {
        alive += entry.second->alive;
    }
    return alive;
}

std::unique_ptr<ControlPeer> FakePeers::MakePlain(Control& control) {
    return refuse || faults.Check("Make", control.Name()) != 0
               ? nullptr
               : std::make_unique<PlainPeer>(*this, control, RecordOf(control));
}

std::unique_ptr<FormPeer> FakePeers::Make(Form& form) {
    return refuse || faults.Check("Make", form.Name()) != 0 ? nullptr
                                                            : std::make_unique<WindowPeer>(*this, form, RecordOf(form));
}

std::unique_ptr<ControlPeer> FakePeers::Make(Container& panel) {
    return MakePlain(panel);
}
std::unique_ptr<ControlPeer> FakePeers::Make(CheckBox& checkBox) {
    return MakePlain(checkBox);
}
std::unique_ptr<ControlPeer> FakePeers::Make(ComboBox& comboBox) {
    return MakePlain(comboBox);
}
std::unique_ptr<ControlPeer> FakePeers::Make(CommandButton& button) {
    return MakePlain(button);
}
std::unique_ptr<ControlPeer> FakePeers::Make(Grid& grid) {
    return MakePlain(grid);
}
std::unique_ptr<ControlPeer> FakePeers::Make(Image& image) {
    return MakePlain(image);
}
std::unique_ptr<ControlPeer> FakePeers::Make(Label& label) {
    return MakePlain(label);
}
std::unique_ptr<ControlPeer> FakePeers::Make(Line& line) {
    return MakePlain(line);
}
std::unique_ptr<ControlPeer> FakePeers::Make(ListView& listView) {
    return MakePlain(listView);
}
std::unique_ptr<ControlPeer> FakePeers::Make(ProgressBar& progressBar) {
    return MakePlain(progressBar);
}
std::unique_ptr<ControlPeer> FakePeers::Make(TabStrip& tabStrip) {
    return MakePlain(tabStrip);
}
std::unique_ptr<ControlPeer> FakePeers::Make(TextBox& textBox) {
    return MakePlain(textBox);
}
std::unique_ptr<ControlPeer> FakePeers::Make(Timer& timer) {
    return MakePlain(timer);
}

}  // namespace korvanta::fakes
