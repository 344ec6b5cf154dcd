#pragma once

#include <cstdint>
#include <string_view>

namespace korvanta {

// The eight fields of an account's string form. The texts are views of it.
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
// Raises Error 9 "Subscript out of range" for a missing field, 13 for what is not a number, 6 for a number too large.
// Fields after the eighth are ignored.
AccountFields ParseAccount(std::u16string_view stringForm);

}  // namespace korvanta
