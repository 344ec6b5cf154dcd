#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

struct SocketsVersion {
    int major = 0;
    int minor = 0;
    int maximumSockets = 0;
};

// Windows Sockets 1.1 look-ups. Addresses are in network byte order, their first byte lowest.
class Sockets {
  public:
    virtual ~Sockets() = default;
    // Requests version 1.1. `version` is what the implementation offers; set only when true is returned.
    virtual bool Start(SocketsVersion& version) = 0;
    virtual bool Stop() = 0;
    // This machine's host name, at most 255 characters.
    virtual bool HostName(std::u16string& name) = 0;
    // The first address of the name.
    virtual bool AddressOf(const std::u16string& host, std::uint32_t& address) = 0;
    // The address of a text like "10.1.2.3"; 0xFFFFFFFF for any other text.
    virtual std::uint32_t ParseAddress(const std::u16string& dotted) = 0;
    // The official host name of the address.
    virtual bool NameOf(std::uint32_t address, std::u16string& host) = 0;
    // The Windows Sockets error of the calling thread's last call, when that failed.
    virtual int LastError() = 0;
};

}  // namespace korvanta
