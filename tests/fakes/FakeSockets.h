#pragma once

#include <map>
#include <string>
#include <vector>

#include "fakes/FaultPlan.h"
#include "platform/Sockets.h"

namespace korvanta::fakes {

// Names and addresses in memory. Looking up an unknown one fails with 11001. LastError returns the code of a fault.
class FakeSockets : public Sockets {
  public:
    // The first number is in the lowest byte: 10.0.0.1 is Address(10, 0, 0, 1).
    static constexpr std::uint32_t Address(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
        return a | b << 8U | c << 16U | d << 24U;
    }
    // Adds a name and its address, for both directions of look-up.
    void AddHost(const std::u16string& host, std::uint32_t address);

    FaultPlan faults;  // "Start", "Stop", "HostName", "AddressOf", "NameOf"
    SocketsVersion version{1, 1, 32767};
    std::u16string hostName = u"ws01";
    std::map<std::u16string, std::uint32_t> addresses;  // by lower-case name
    std::map<std::uint32_t, std::u16string> names;
    int lastError = 0;
    int started = 0;  // calls of Start without their Stop
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
