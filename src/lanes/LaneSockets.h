#pragma once

#include <functional>
#include <string>

#include "lanes/ServerLanes.h"
#include "platform/Sockets.h"

namespace korvanta {

// Look-ups of names and addresses, each on a lane of its own: name servers may take long to say that they know nothing.
// One that gets no answer in time has failed.
class LaneSockets : public Sockets {
  public:
    // What LastError gives for a look-up that was given up: the host was not found, try again.
    static constexpr int tryAgain = 11002;

    // `direct` is called by several threads.
    LaneSockets(Sockets& direct, ServerLanes& lanes) : direct_(direct), lanes_(lanes) {}

    bool Start(SocketsVersion& version) override;
    bool Stop() override;
    bool HostName(std::u16string& name) override;
    bool AddressOf(const std::u16string& host, std::uint32_t& address) override;
    std::uint32_t ParseAddress(const std::u16string& dotted) override { return direct_.ParseAddress(dotted); }
    bool NameOf(std::uint32_t address, std::u16string& host) override;
    int LastError() override { return lastError_; }

  private:
    bool Told(bool succeeded);
    bool LookUp(const std::u16string& lane, std::function<bool()> question);

    Sockets& direct_;
    ServerLanes& lanes_;
    int lastError_ = 0;
};

}  // namespace korvanta
