#pragma once

#include "platform/Sockets.h"

namespace korvanta {

class WindowsSockets : public Sockets {
  public:
    bool Start(SocketsVersion& version) override;
    bool Stop() override;
    bool HostName(std::u16string& name) override;
    bool AddressOf(const std::u16string& host, std::uint32_t& address) override;
    std::uint32_t ParseAddress(const std::u16string& dotted) override;
    bool NameOf(std::uint32_t address, std::u16string& host) override;
    int LastError() override;
};

}  // namespace korvanta
