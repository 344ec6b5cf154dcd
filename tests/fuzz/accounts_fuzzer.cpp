// Accounts.txt: every account loaded lies in the file, in the file's groups, is found by its own title, and comes the
// same from the local copy.
// Aims at: server/clsTLXAccounts.cpp server/clsAccount.cpp server/AccountTitles.cpp
#include <algorithm>

#include "common/Text.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeTraceLog.h"
#include "fuzz/Fuzzing.h"
#include "server/clsTLXAccounts.h"

namespace korvanta {
namespace {

const std::u16string serverFile = u"\\\\SRV\\TLXData$\\Accounts.txt";
const std::u16string localCopy = u"C:\\Temp\\tlxact.txt";

struct Accounts {
    bool usable = false;
    std::vector<std::vector<clsAccount>> groups;
    std::map<std::int32_t, clsAccount> byId;
};

bool Same(const clsAccount& a, const clsAccount& b) {
    return a.AccountID == b.AccountID && a.IsMain == b.IsMain && a.MainTitle == b.MainTitle &&
           a.SubTitle == b.SubTitle && a.IsActive == b.IsActive && a.AllowNoninvoiceable == b.AllowNoninvoiceable &&
           a.RequireComment == b.RequireComment && a.Password == b.Password;
}

std::optional<clsAccount> AccountIn(const std::u16string& line) {
    const std::vector<std::u16string> fields = fuzz::Pieces(line, u"\u0001");
    if (fields.size() < 8) {
        return std::nullopt;
    }
    const std::optional<std::int32_t> id = fuzz::Number32(fields[0]);
    const std::optional<std::int64_t> comment = fuzz::WholeNumber(fields[6], INT16_MIN, INT16_MAX);
    if (!id || !comment) {
        return std::nullopt;
    }
    clsAccount account;
    account.AccountID = *id;
    account.IsMain = fields[1] != u"0";
    account.MainTitle = fields[2];
    account.SubTitle = fields[3];
    account.IsActive = fields[4] != u"0";
    account.AllowNoninvoiceable = fields[5] != u"0";
    account.RequireComment = static_cast<std::int16_t>(*comment);
    account.Password = fields[7];
    return account;
}

// The accounts of a file, up to the line that is none. A group is only whole when the next begins or the file ends.
Accounts AccountsIn(const std::string& bytes) {
    Accounts accounts;
    std::vector<clsAccount> group;
    bool whole = true;
    for (const std::u16string& line : fuzz::LinesOf(fuzz::Utf16Text(bytes))) {
        const std::optional<clsAccount> account = AccountIn(line);
        whole = account.has_value();
        if (!whole) {
            break;
        }
        accounts.byId.insert_or_assign(account->AccountID, *account);
        if (account->IsMain && !group.empty()) {
            accounts.groups.push_back(std::move(group));
            group.clear();
        }
        whole = account->IsMain || !group.empty();
        if (!whole) {
            break;
        }
        group.push_back(*account);
    }
    if (whole && !group.empty()) {
        accounts.groups.push_back(std::move(group));
    }
    accounts.usable = whole && !accounts.groups.empty();
    return accounts;
}

void RequireTitles(const AccountTitles& titles, std::size_t index, const clsAccount& account,
                   std::u16string_view search) {
    REQUIRE(titles.SubTitleContains(index, Lower(account.SubTitle)));
    REQUIRE(titles.MainTitleContains(index, Lower(account.MainTitle)));
    REQUIRE(titles.SubTitleContains(index, search) == (Lower(account.SubTitle).find(search) != std::u16string::npos));
    REQUIRE(titles.MainTitleContains(index, search) == (Lower(account.MainTitle).find(search) != std::u16string::npos));
}

void RequireLoaded(const clsTLXAccounts& accounts, const Accounts& expected, const std::u16string& search) {
    REQUIRE(accounts.AccountDict()->size() == expected.byId.size());
    for (const auto& [id, account] : expected.byId) {
        REQUIRE(Same(*accounts.AccountDict()->at(id), account));
        clsAccount copy;
        copy.StringForm(account.StringForm());
        REQUIRE(Same(copy, account));
    }
    const std::vector<Variant> groups = accounts.AccountList()->Items();
    REQUIRE(groups.size() == expected.groups.size());
    std::size_t index = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const std::vector<Variant> group = groups[i].As<List>()->Items();
        REQUIRE(group.size() == expected.groups[i].size());
        for (std::size_t k = 0; k < group.size(); ++k) {
            REQUIRE(Same(*group[k].As<clsAccount>(), expected.groups[i][k]));
            RequireTitles(*accounts.Titles(), index++, expected.groups[i][k], search);
        }
    }
    REQUIRE(accounts.Titles()->Count() == index);
}

void Load(const std::string& server, const std::string& local, const std::u16string& search, std::size_t readSize) {
    fakes::FakePlatform platform;
    fakes::FakeTraceLog log;
    platform.files.WriteBytes(serverFile, server);
    platform.files.WriteBytes(localCopy, local);
    platform.files.largestRead = readSize;
    clsTLXAccounts accounts(platform.files, platform.mutexes, log, u"SRV");

    const Accounts fromServer = AccountsIn(server);
    const Accounts expected = fromServer.usable ? fromServer : AccountsIn(local);
    REQUIRE(accounts.LoadAccounts() == expected.usable);
    REQUIRE(accounts.AccountsFileChanged());
    RequireLoaded(accounts, expected, search);
    REQUIRE(platform.files.ReadBytes(localCopy) == (fromServer.usable ? server : local));

    // A file that was loaded is not loaded again; one that was not, is.
    const auto list = accounts.AccountList();
    REQUIRE(accounts.LoadAccounts() == expected.usable);
    REQUIRE(accounts.AccountsFileChanged() != fromServer.usable);
    REQUIRE((accounts.AccountList() == list) == fromServer.usable);

    platform.files.Down(u"SRV");
    REQUIRE(accounts.LoadAccounts() == expected.usable);
    RequireLoaded(accounts, expected, search);
    REQUIRE(platform.files.OpenFiles() == 0);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    const std::string server = korvanta::fuzz::Utf16File(input);
    const std::string local = korvanta::fuzz::Utf16File(input);
    const std::u16string search = korvanta::Lower(input.Text());
    korvanta::Load(server, local, search, korvanta::fuzz::ReadSize(input));
    return 0;
}
