#include "server/clsAccount.h"

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

namespace {

class Fields {
  public:
    explicit Fields(std::u16string_view text) : rest_(text), ended_(text.empty()) {}

    std::u16string_view Next() {
        if (ended_) {
            throw Error(errorNumber::subscriptOutOfRange, u"clsAccount", u"Subscript out of range");
        }
        const std::size_t end = rest_.find(fieldSeparator);
        ended_ = end == std::u16string_view::npos;
        const std::u16string_view field = rest_.substr(0, end);
        rest_.remove_prefix(ended_ ? rest_.size() : end + 1);
        return field;
    }
    bool NextFlag() { return Next() != u"0"; }

  private:
    std::u16string_view rest_;
    bool ended_;
};

}  // namespace

AccountFields ParseAccount(std::u16string_view stringForm) {
    Fields fields(stringForm);
    AccountFields account;
    account.accountId = ToInteger32(fields.Next());
    account.isMain = fields.NextFlag();
    account.mainTitle = fields.Next();
    account.subTitle = fields.Next();
    account.isActive = fields.NextFlag();
    account.allowNoninvoiceable = fields.NextFlag();
    account.requireComment = ToInteger16(fields.Next());
    account.password = fields.Next();
    return account;
}

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
    return {AccountID, IsMain, MainTitle, SubTitle, IsActive, AllowNoninvoiceable, RequireComment, Password};
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
