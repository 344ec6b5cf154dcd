#include "platform/win32/services/WindowsSockets.h"

#include <windows.h>

#include <winsock.h>

#include <array>
#include <cstring>

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr WORD requestedVersion = 0x0101;

}  // namespace

bool WindowsSockets::Start(SocketsVersion& version) {
    WSADATA data{};
    const int error = ::WSAStartup(requestedVersion, &data);
    if (error != 0) {
        ::WSASetLastError(error);
        return false;
    }
    version = {LOBYTE(data.wVersion), HIBYTE(data.wVersion), data.iMaxSockets};
    return true;
}

bool WindowsSockets::Stop() {
    return ::WSACleanup() == 0;
}

bool WindowsSockets::HostName(std::u16string& name) {
    std::array<char, 256> buffer{};
    if (::gethostname(buffer.data(), static_cast<int>(buffer.size())) != 0) {
        return false;
    }
    name = textCalls::FromCodePage(buffer.data());
    return true;
}

bool WindowsSockets::AddressOf(const std::u16string& host, std::uint32_t& address) {
    const hostent* found = ::gethostbyname(textCalls::ToCodePage(host).c_str());
    if (!found || !found->h_addr_list[0]) {
        return false;
    }
    std::memcpy(&address, found->h_addr_list[0], sizeof(address));
    return true;
}

std::uint32_t WindowsSockets::ParseAddress(const std::u16string& dotted) {
    return ::inet_addr(textCalls::ToCodePage(dotted).c_str());
}

bool WindowsSockets::NameOf(std::uint32_t address, std::u16string& host) {
    const hostent* found = ::gethostbyaddr(reinterpret_cast<const char*>(&address), sizeof(address), AF_INET);
    if (!found || !found->h_name) {
        return false;
    }
    host = textCalls::FromCodePage(found->h_name);
    return true;
}

int WindowsSockets::LastError() {
    return ::WSAGetLastError();
}

}  // namespace korvanta
