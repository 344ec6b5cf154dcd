#include "platform/win32/peers/WindowsPeerFactory.h"

#include <windows.h>

#include "platform/win32/peers/HostWindow.h"
#include "platform/win32/peers/WindowsButtons.h"
#include "platform/win32/peers/WindowsComboBox.h"
#include "platform/win32/peers/WindowsForm.h"
#include "platform/win32/peers/WindowsGrid.h"
#include "platform/win32/peers/WindowsLabel.h"
#include "platform/win32/peers/WindowsListView.h"
#include "platform/win32/peers/WindowsPanel.h"
#include "platform/win32/peers/WindowsPictures.h"
#include "platform/win32/peers/WindowsTabStrip.h"
#include "platform/win32/peers/WindowsTextBox.h"
#include "platform/win32/peers/WindowsTimer.h"

namespace korvanta {

namespace {

// Null when the container has no window.
template <class Peer, class ControlType>
std::unique_ptr<ControlPeer> MakeIn(ControlType& control) {
    HostWindow* host = HostWindow::Of(control);
    return host ? std::make_unique<Peer>(control, *host) : nullptr;
}

class WindowsPeerFactory : public PeerFactory {
  public:
    explicit WindowsPeerFactory(std::shared_ptr<ProgramWindows> program) : program_(std::move(program)) {}

    std::unique_ptr<FormPeer> Make(Form& form) override { return std::make_unique<WindowsForm>(form, program_); }
    std::unique_ptr<ControlPeer> Make(Container& panel) override { return MakeIn<WindowsPanel>(panel); }
    std::unique_ptr<ControlPeer> Make(CheckBox& checkBox) override { return MakeIn<WindowsCheckBox>(checkBox); }
    std::unique_ptr<ControlPeer> Make(ComboBox& comboBox) override { return MakeIn<WindowsComboBox>(comboBox); }
    std::unique_ptr<ControlPeer> Make(CommandButton& button) override { return MakeIn<WindowsCommandButton>(button); }
    std::unique_ptr<ControlPeer> Make(Grid& grid) override { return MakeIn<WindowsGrid>(grid); }
    std::unique_ptr<ControlPeer> Make(Image& image) override { return MakeIn<WindowsImage>(image); }
    std::unique_ptr<ControlPeer> Make(Label& label) override {
        return label.Clickable() ? MakeIn<WindowsLinkLabel>(label) : MakeIn<WindowsLabel>(label);
    }
    std::unique_ptr<ControlPeer> Make(Line& line) override { return MakeIn<WindowsLine>(line); }
    std::unique_ptr<ControlPeer> Make(ListView& listView) override { return MakeIn<WindowsListView>(listView); }
    std::unique_ptr<ControlPeer> Make(ProgressBar& progressBar) override {
        return MakeIn<WindowsProgressBar>(progressBar);
    }
    std::unique_ptr<ControlPeer> Make(TabStrip& tabStrip) override { return MakeIn<WindowsTabStrip>(tabStrip); }
    std::unique_ptr<ControlPeer> Make(TextBox& textBox) override { return MakeIn<WindowsTextBox>(textBox); }
    std::unique_ptr<ControlPeer> Make(Timer& timer) override { return MakeIn<WindowsTimer>(timer); }

  private:
    std::shared_ptr<ProgramWindows> program_;
};

}  // namespace

std::unique_ptr<PeerFactory> MakeWindowsPeerFactory(WindowsMessageLoop& messageLoop, DialogWindows& dialogs,
                                                    Fonts& fonts, MessageBoxGuard& messageBoxGuard) {
    return std::make_unique<WindowsPeerFactory>(
        std::make_shared<ProgramWindows>(ProgramWindows{.messageLoop = messageLoop,
                                                        .dialogs = dialogs,
                                                        .fonts = fonts,
                                                        .messageBoxGuard = messageBoxGuard,
                                                        .owner = {},
                                                        .forms = {}}));
}

}  // namespace korvanta
