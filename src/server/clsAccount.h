#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/Object.h"
#include "server/search/AccountFields.h"

namespace korvanta {

// One account to which a print job can be charged: a main account, or a sub-account of the main account above it.
class clsAccount : public Object {
  public:
    std::int32_t AccountID = 0;
    bool IsMain = false;
    std::u16string MainTitle;  // for a sub-account its main account's title
    std::u16string SubTitle;
    bool IsActive = false;  // the user may choose it
    bool AllowNoninvoiceable = false;
    std::int16_t RequireComment = 0;  // 2: mandatory; any non-zero value: the comment is sent
    std::u16string Password;
    // These two are not part of the string form.
    std::int32_t NumPages = 0;
    double Cost = 0;

    // "Smith" for a main account, "Smith / Audit" for its sub-account.
    std::u16string CompoundTitle() const;

    // The first eight fields. The texts are views of this account's.
    AccountFields Fields() const;
    void Fields(const AccountFields& fields);

    // The first eight fields joined by fieldSeparator: a line of the accounts file.
    std::u16string StringForm() const;
    // Sets the fields from a string form. Raises what ParseAccount raises, and then changes nothing.
    void StringForm(std::u16string_view text);
    static std::u16string GenerateStringForm(std::int32_t accountId, bool isMain, std::u16string_view mainTitle,
                                             std::u16string_view subTitle, bool isActive, bool allowNoninvoiceable,
                                             std::int16_t requireComment, std::u16string_view password);
};

}  // namespace korvanta
