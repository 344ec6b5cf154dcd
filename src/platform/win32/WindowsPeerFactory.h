#pragma once

#include <memory>

#include "controls/Peer.h"

namespace korvanta {

class DialogWindows;
class Fonts;
class WindowsMessageLoop;

// Makes the real windows of forms and controls. The loop, the registry and the fonts outlive all peers.
std::unique_ptr<PeerFactory> MakeWindowsPeerFactory(WindowsMessageLoop& messageLoop, DialogWindows& dialogs,
                                                    Fonts& fonts);

}  // namespace korvanta
