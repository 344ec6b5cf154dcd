#include "server/clsAccount.h"

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

std::u16string clsAccount::CompoundTitle() const {
    return IsMain ? MainTitle : MainTitle + u" / " + SubTitle;
}

std::u16string clsAccount::StringForm() const {
    return GenerateStringForm(AccountID, IsMain, MainTitle, SubTitle, IsActive, AllowNoninvoiceable, RequireComment,
                              Password);
}

void clsAccount::StringForm(std::u16string_view text) {
    Fields(ParseAccount(text));
}

AccountFields clsAccount::Fields() const {
    return {
        .accountId = AccountID,
        .isMain = IsMain,
        .mainTitle = MainTitle,
        .subTitle = SubTitle,
        .isActive = IsActive,
        .allowNoninvoiceable = AllowNoninvoiceable,
        .requireComment = RequireComment,
        .password = Password,
    };
}

void clsAccount::Fields(const AccountFields& fields) {
    AccountID = fields.accountId;
    IsMain = fields.isMain;
    MainTitle = fields.mainTitle;
    SubTitle = fields.subTitle;
    IsActive = fields.isActive;
    AllowNoninvoiceable = fields.allowNoninvoiceable;
    RequireComment = fields.requireComment;
    Password = fields.password;
}

std::u16string clsAccount::GenerateStringForm(std::int32_t accountId, bool isMain, std::u16string_view mainTitle,
                                              std::u16string_view subTitle, bool isActive, bool allowNoninvoiceable,
                                              std::int16_t requireComment, std::u16string_view password) {
    std::u16string form = NumberText(accountId);
    const auto append = [&form](std::u16string_view field) { form.append(1, fieldSeparator).append(field); };
    append(BooleanDigit(isMain));
    append(mainTitle);
    append(subTitle);
    append(BooleanDigit(isActive));
    append(BooleanDigit(allowNoninvoiceable));
    append(NumberText(requireComment));
    append(password);
    return form;
}

}  // namespace korvanta
