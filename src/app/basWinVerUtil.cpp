#include "app/basWinVerUtil.h"

#include "common/List.h"

namespace korvanta {

namespace {
constexpr std::uint32_t platformWindows9x = 1;
constexpr std::uint32_t platformWindowsNT = 2;
}  // namespace

std::uint32_t basWinVerUtil::GetWindowsVersion() {
    if (!platformId_) {
        std::uint32_t platformId = 0;
        if (!system_.VersionPlatform(platformId)) {
            throw Error(userErrorBase + 23210, u"basWinVerUtil",
                        u"Unable to determine Windows version. GetVersionEx function call failed.");
        }
        platformId_ = platformId;
    }
    return *platformId_;
}

bool basWinVerUtil::IsWindowsNT() {
    return GetWindowsVersion() == platformWindowsNT;
}

bool basWinVerUtil::IsWindows9x() {
    return GetWindowsVersion() == platformWindows9x;
}

}  // namespace korvanta
