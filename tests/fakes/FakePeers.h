#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "controls/Form.h"
#include "controls/Grid.h"
#include "controls/Peer.h"
#include "fakes/FaultPlan.h"

namespace korvanta::fakes {

// What the peer of one control was told. The record outlives the peer.
struct PeerRecord {
    std::vector<Aspect> changes;
    int focused = 0;
    int repainted = 0;
    int made = 0;
    int alive = 0;
    // Only for forms:
    int shown = 0;
    int shownModally = 0;
    int hidden = 0;
    int broughtToForeground = 0;
    int flashed = 0;
    int popups = 0;
    bool visible = false;
    WindowId window = 0;

    void Note(Aspect aspect);
    int Count(Aspect aspect) const;
    int Last(Aspect aspect) const;  // index of its last report in `changes`, -1 without one
};

// Makes peers that show nothing and record what they are told.
class FakePeers : public PeerFactory {
  public:
    // The record of a control that has or had a peer; an empty record for any other.
    PeerRecord& Of(const Control& control);
    int PeersAlive() const;

    // Called while a form is shown modally: the next script, or `onShowModal` if no script is left. If the form is
    // still shown afterwards it is hidden, as when the program ends.
    std::deque<std::function<void(Form& form)>> modalScripts;
    std::function<void(Form& form)> onShowModal;
    // Called when a form is shown.
    std::function<void(Form& form)> onShow;
    // Called when a form is brought to the foreground.
    std::function<void(Form& form)> onForeground;
    // Called while a menu is up; a test may call HandleClick of an entry.
    std::function<void(Form& form, PopupMenu& menu)> onShowPopup;
    // Called for each change of a control, after it was recorded.
    std::function<void(Control& control, Aspect aspect)> onChanged;
    // Makes no peers at all, not even for forms, as when windows cannot be made.
    bool refuse = false;
    FaultPlan faults;  // "Make": a single peer cannot be made

    std::unique_ptr<FormPeer> Make(Form& form) override;
    std::unique_ptr<ControlPeer> Make(Container& panel) override;
    std::unique_ptr<ControlPeer> Make(CheckBox& checkBox) override;
    std::unique_ptr<ControlPeer> Make(ComboBox& comboBox) override;
    std::unique_ptr<ControlPeer> Make(CommandButton& button) override;
    std::unique_ptr<ControlPeer> Make(Grid& grid) override;
    std::unique_ptr<ControlPeer> Make(Image& image) override;
    std::unique_ptr<ControlPeer> Make(Label& label) override;
    std::unique_ptr<ControlPeer> Make(Line& line) override;
    std::unique_ptr<ControlPeer> Make(ListView& listView) override;
    std::unique_ptr<ControlPeer> Make(ProgressBar& progressBar) override;
    std::unique_ptr<ControlPeer> Make(TabStrip& tabStrip) override;
    std::unique_ptr<ControlPeer> Make(TextBox& textBox) override;
    std::unique_ptr<ControlPeer> Make(Timer& timer) override;

  private:
    class PlainPeer;
    class WindowPeer;
    friend class PlainPeer;
    friend class WindowPeer;
    std::shared_ptr<PeerRecord> RecordOf(const Control& control);
    std::unique_ptr<ControlPeer> MakePlain(Control& control);

    std::map<const Control*, std::shared_ptr<PeerRecord>> records_;
    WindowId nextWindow_ = 1000;
};

}  // namespace korvanta::fakes
