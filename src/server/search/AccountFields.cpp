#include "server/search/AccountFields.h"

#include "common/Conversion.h"
#include "common/FieldReader.h"

namespace korvanta {

AccountFields ParseAccount(std::u16string_view stringForm) {
    FieldReader fields(stringForm);
    const auto nextFlag = [&fields] { return fields.Next() != u"0"; };
    AccountFields account;
    account.accountId = ToInteger32(fields.Next());
    account.isMain = nextFlag();
    account.mainTitle = fields.Next();
    account.subTitle = fields.Next();
    account.isActive = nextFlag();
    account.allowNoninvoiceable = nextFlag();
    account.requireComment = ToInteger16(fields.Next());
    account.password = fields.Next();
    return account;
}

}  // namespace korvanta
