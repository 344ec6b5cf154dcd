#include "fakes/FakeSockets.h"

#include "common/Text.h"

namespace korvanta::fakes {

namespace {
constexpr int hostNotFound = 11001;
constexpr std::uint32_t noAddress = 0xFFFFFFFF;
}  // namespace

bool FakeSockets::Fails(std::string_view call, const std::u16string& detail) {
    log.push_back(FromAscii(call) + (detail.empty() ? u"" : u" ") + detail);
    const std::uint32_t fault = faults.Check(call, detail);
    if (fault != 0) {
        lastError = static_cast<int>(fault);
    }
    return fault != 0;
}

void FakeSockets::AddHost(const std::u16string& host, std::uint32_t address) {
    addresses[Lower(host)] = address;
    names[address] = host;
}

bool FakeSockets::Start(SocketsVersion& offered) {
    if (Fails("Start", u"")) {
        return false;
    }
    ++started;
    offered = version;
    return true;
}

bool FakeSockets::Stop() {
    --started;
    return !Fails("Stop", u"");
}

bool FakeSockets::HostName(std::u16string& name) {
    if (Fails("HostName", u"")) {
        return false;
    }
    name = hostName;
    return true;
}

bool FakeSockets::AddressOf(const std::u16string& host, std::uint32_t& address) {
    if (Fails("AddressOf", host)) {
        return false;
    }
    const auto found = addresses.find(Lower(host));
    if (found == addresses.end()) {
        lastError = hostNotFound;
        return false;
    }
    address = found->second;
    return true;
}

std::uint32_t FakeSockets::ParseAddress(const std::u16string& dotted) {
    log.push_back(u"ParseAddress " + dotted);
    const std::vector<std::u16string> pieces = Split(dotted, u".");
    if (pieces.size() != 4) {
        return noAddress;
    }
    std::uint32_t address = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        std::uint32_t number = 0;
        for (const char16_t unit : pieces[i]) {
            if (unit < u'0' || unit > u'9' || pieces[i].size() > 3) {
                return noAddress;
            }
            number = number * 10 + (unit - u'0');
        }
        if (pieces[i].empty() || number > 255) {
            return noAddress;
        }
        address |= number << (8 * i);
    }
    return address;
}

bool FakeSockets::NameOf(std::uint32_t address, std::u16string& host) {
    const std::u16string dotted = Join({NumberText(address & 0xFFU), NumberText(address >> 8U & 0xFFU),
                                        NumberText(address >> 16U & 0xFFU), NumberText(address >> 24U)},
                                       u".");
    if (Fails("NameOf", dotted)) {
        return false;
    }
    const auto found = names.find(address);
    if (found == names.end()) {
        lastError = hostNotFound;
        return false;
    }
    host = found->second;
    return true;
}

}  // namespace korvanta::fakes
