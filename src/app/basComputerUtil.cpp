#include "app/basComputerUtil.h"

#include <cstdint>

#include "common/List.h"
#include "common/Text.h"

namespace korvanta {

namespace {

std::u16string Cleaned(const std::u16string& name) {
    return Trim(Replace(name, std::u16string_view(u"\0", 1), u""));
}

}  // namespace

std::u16string basComputerUtil::ComputerName() {
    if (!computerName_) {
        std::u16string name;
        if (const std::uint32_t code = system_.ComputerName(name); code != 0) {
            throw Error(userErrorBase + 23220, u"basComputerUtil",
                        u"Unable to get computer name: " + NumberText(static_cast<std::int64_t>(code)));
        }
        computerName_ = Cleaned(name);
    }
    return *computerName_;
}

std::u16string basComputerUtil::UserName() {
    if (!userName_) {
        std::u16string name;
        if (const std::uint32_t code = system_.UserName(name); code != 0) {
            throw Error(userErrorBase + 23221, u"basComputerUtil",
                        u"Unable to get user name: " + NumberText(static_cast<std::int64_t>(code)));
        }
        userName_ = Cleaned(name);
    }
    return *userName_;
}

}  // namespace korvanta
