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
    // Requests version 1.1; true also tells what the implementation offers.
    virtual bool Start(SocketsVersion& version) = 0;
    virtual bool Stop() = 0;
    // This machine's host name, at most 255 characters.
    virtual bool HostName(std::u16string& name) = 0;
    // The first address of the name.
    virtual bool AddressOf(const std::u16string& host, std::uint32_t& address) = 0;
    // The dotted text as an address; 0xFFFFFFFF when it is none.
    virtual std::uint32_t ParseAddress(const std::u16string& dotted) = 0;
    // The official host name behind the address.
    virtual bool NameOf(std::uint32_t address, std::u16string& host) = 0;
    // Of the calling thread's last call.
    virtual int LastError() = 0;
};

}  // namespace korvanta
