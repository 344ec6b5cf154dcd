#include "lanes/LaneSockets.h"

#include <utility>

namespace korvanta {

namespace {

// No server has a name like these, so a look-up keeps no other call waiting.
constexpr char16_t nameLane = u'?';
constexpr char16_t addressLane = u'#';

}  // namespace

bool LaneSockets::Told(bool succeeded) {
    lastError_ = succeeded ? 0 : direct_.LastError();
    return succeeded;
}

bool LaneSockets::Start(SocketsVersion& version) {
    return Told(direct_.Start(version));
}

bool LaneSockets::Stop() {
    return Told(direct_.Stop());
}

bool LaneSockets::HostName(std::u16string& name) {
    return Told(direct_.HostName(name));
}

bool LaneSockets::LookUp(const std::u16string& lane, std::function<bool()> question) {
    struct Answer {
        bool succeeded = false;
        int error = 0;  // the calling thread's own, so it is fetched there
    };
    const auto answer = std::make_shared<Answer>();
    const bool answered =
        lanes_.Ask(lane, Patience::Limited, [&direct = direct_, question = std::move(question), answer] {
            answer->succeeded = question();
            answer->error = answer->succeeded ? 0 : direct.LastError();
        });
    lastError_ = answered ? answer->error : tryAgain;
    return answered && answer->succeeded;
}

bool LaneSockets::AddressOf(const std::u16string& host, std::uint32_t& address) {
    const auto found = std::make_shared<std::uint32_t>(0);
    const bool succeeded =
        LookUp(nameLane + host, [&direct = direct_, host, found] { return direct.AddressOf(host, *found); });
    if (succeeded) {
        address = *found;
    }
    return succeeded;
}

bool LaneSockets::NameOf(std::uint32_t address, std::u16string& host) {
    const std::u16string lane{addressLane, static_cast<char16_t>(address & 0xFFFFU),
                              static_cast<char16_t>(address >> 16U)};
    const auto found = std::make_shared<std::u16string>();
    const bool succeeded = LookUp(lane, [&direct = direct_, address, found] { return direct.NameOf(address, *found); });
    if (succeeded) {
        host = std::move(*found);
    }
    return succeeded;
}

}  // namespace korvanta
