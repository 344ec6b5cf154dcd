#pragma once

#include <cstdint>
#include <string_view>

namespace korvanta {

// What a string form says: the first eight fields joined by fieldSeparator. The texts are pieces of it.
struct AccountFields {
    std::int32_t accountId = 0;
    bool isMain = false;
    std::u16string_view mainTitle;
    std::u16string_view subTitle;
    bool isActive = false;
    bool allowNoninvoiceable = false;
    std::int16_t requireComment = 0;
    std::u16string_view password;
};
// Raises Error 9 "Subscript out of range" for a missing field, 13 or 6 for a number that is none or too large. What
// follows the eighth field is ignored.
AccountFields ParseAccount(std::u16string_view stringForm);

}  // namespace korvanta
