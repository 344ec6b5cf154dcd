#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

// Names of the files in which a server tells a user of his jobs, without a folder. The user name is the login name,
// trimmed, without NULs and in lower case.

// For the user jsmith: "jsmith.tlu".
std::u16string JobCounterFileName(const std::u16string& userName);
// For the user jsmith and job 7: "jsmith.007"; larger job ids take as many digits as they need.
std::u16string JobNotificationFileName(const std::u16string& userName, std::int32_t jobId);

}  // namespace korvanta
