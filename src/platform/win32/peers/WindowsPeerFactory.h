#pragma once

#include <memory>

#include "controls/Peer.h"

namespace korvanta {

class DialogWindows;
class Fonts;
class MessageBoxGuard;
class WindowsMessageLoop;

// Makes the real windows of forms and controls. The arguments must live longer than all peers.
std::unique_ptr<PeerFactory> MakeWindowsPeerFactory(WindowsMessageLoop& messageLoop, DialogWindows& dialogs,
                                                    Fonts& fonts, MessageBoxGuard& messageBoxGuard);

}  // namespace korvanta
