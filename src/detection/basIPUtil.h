#pragma once

#include <string>

#include "platform/Sockets.h"
#include "platform/System.h"

namespace korvanta {

// Look-ups of addresses and host names. A failure gives an empty result and an error text for people; nothing raises.
class basIPUtil {
  public:
    basIPUtil(Sockets& sockets, System& system);

    // Each success must be followed by one StopSockets.
    bool StartSockets(std::u16string& errorText);
    // The first address of the host, as dotted decimals. An empty `hostName` is replaced by this machine's, any other
    // by its trimmed form.
    std::u16string IPAddressOfHost(std::u16string& hostName, std::u16string& errorText);
    // The official host name behind a dotted address.
    std::u16string HostNameOfIPAddress(const std::u16string& dottedAddress, std::u16string& errorText);
    // A failure is written to the Windows application event log.
    void StopSockets();

  private:
    std::u16string ErrorText();

    Sockets& sockets_;
    System& system_;
};

}  // namespace korvanta
