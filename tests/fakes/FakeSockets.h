#pragma once

#include <map>
#include <string>
#include <vector>

#include "fakes/FaultPlan.h"
#include "platform/Sockets.h"

namespace korvanta::fakes {

// Names and addresses in memory. What is not known fails with 11001; faults give their code as LastError.
class FakeSockets : public Sockets {
  public:
    // Addresses have their first number lowest: 10.0.0.1 is Address(10, 0, 0, 1).
    static constexpr std::uint32_t Address(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
        return a | b << 8U | c << 16U | d << 24U;
    }
    // Both ways.
    void AddHost(const std::u16string& host, std::uint32_t address);

    FaultPlan faults;  // "Start", "Stop", "HostName", "AddressOf", "NameOf"
    SocketsVersion version{1, 1, 32767};
    std::u16string hostName = u"ws01";
    std::map<std::u16string, std::uint32_t> addresses;  // by lower-case name
    std::map<std::uint32_t, std::u16string> names;
    int lastError = 0;
    int started = 0;  // Start without its Stop
    // "Start", "AddressOf ws01", "NameOf 10.0.0.1", ... in order.
    std::vector<std::u16string> log;

    bool Start(SocketsVersion& offered) override;
    bool Stop() override;
    bool HostName(std::u16string& name) override;
    bool AddressOf(const std::u16string& host, std::uint32_t& address) override;
    std::uint32_t ParseAddress(const std::u16string& dotted) override;
    bool NameOf(std::uint32_t address, std::u16string& host) override;
    int LastError() override { return lastError; }

  private:
    bool Fails(std::string_view call, const std::u16string& detail);
};

}  // namespace korvanta::fakes
