#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

// Names, without a folder, of the files by which a server tells users of their jobs. The user name is the login name:
// trimmed, without NULs, in lower case.

// For the user jsmith: "jsmith.tlu".
std::u16string JobCounterFileName(const std::u16string& userName);
// For the user jsmith and job 7: "jsmith.007"; job ids above 999 have more digits.
std::u16string JobNotificationFileName(const std::u16string& userName, std::int32_t jobId);

}  // namespace korvanta
