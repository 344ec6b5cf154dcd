#include "server/basJobNotificationFile.h"

#include "common/Text.h"

namespace korvanta {

std::u16string JobCounterFileName(const std::u16string& userName) {
    return userName + u".tlu";
}

std::u16string JobNotificationFileName(const std::u16string& userName, std::int32_t jobId) {
    return userName + u"." + PaddedNumberText(jobId, 3);
}

}  // namespace korvanta
