#include "detection/basIPUtil.h"

#include <cstdint>

#include "common/Text.h"

namespace korvanta {

namespace {

std::u16string Dotted(std::uint32_t address) {
    std::u16string text;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        text += (shift == 0 ? u"" : u".") + NumberText(static_cast<std::int64_t>((address >> shift) & 0xFFU));
    }
    return text;
}

}  // namespace

basIPUtil::basIPUtil(Sockets& sockets, System& system) : sockets_(sockets), system_(system) {}

bool basIPUtil::StartSockets(std::u16string& errorText) {
    SocketsVersion version;
    if (!sockets_.Start(version)) {
        errorText = u"The 32-bit Windows Socket is not responding.";
        return false;
    }
    if (version.maximumSockets < 1) {
        errorText = u"This application requires a minimum of 1 supported sockets.";
    } else if (version.major < 1 || (version.major == 1 && version.minor < 1)) {
        errorText = u"Sockets version " + NumberText(version.major) + u"." + NumberText(version.minor) +
                    u" is not supported by 32-bit Windows Sockets.";
    } else {
        return true;
    }
    StopSockets();
    return false;
}

std::u16string basIPUtil::IPAddressOfHost(std::u16string& hostName, std::u16string& errorText) {
    if (!StartSockets(errorText)) {
        return {};
    }
    hostName = Trim(hostName);
    std::u16string result;
    std::uint32_t address = 0;
    if ((!hostName.empty() || sockets_.HostName(hostName)) && sockets_.AddressOf(hostName, address)) {
        result = Dotted(address);
    } else {
        errorText = ErrorText();
    }
    StopSockets();
    return result;
}

std::u16string basIPUtil::HostNameOfIPAddress(const std::u16string& dottedAddress, std::u16string& errorText) {
    if (!StartSockets(errorText)) {
        return {};
    }
    std::u16string hostName;
    if (!sockets_.NameOf(sockets_.ParseAddress(dottedAddress), hostName)) {
        errorText = ErrorText();
        hostName.clear();
    }
    StopSockets();
    return hostName;
}

void basIPUtil::StopSockets() {
    if (!sockets_.Stop()) {
        system_.WriteEventLog(u"Socket error occurred in Cleanup.");
    }
}

std::u16string basIPUtil::ErrorText() {
    return u"Windows Sockets error " + NumberText(sockets_.LastError()) +
           u" has occurred. Unable to successfully get Host Name.\r\n";
}

}  // namespace korvanta
