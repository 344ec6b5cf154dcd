#include "server/search/AccountFields.h"

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

}  // namespace korvanta
