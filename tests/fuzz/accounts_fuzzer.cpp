// Accounts.txt: every account loaded lies in the file, in the file's groups, is found by its own title, and comes the
// same from the local copy.
// Aims at: server/clsTLXAccounts.cpp server/clsAccount.cpp server/search/AccountTable.cpp
// Aims at: server/search/AccountFields.cpp server/search/TitleIndex.cpp server/search/IdIndex.cpp
// Aims at: server/search/AccountSearch.cpp server/search/BytePattern.cpp
#include <algorithm>

#include "common/Text.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeTraceLog.h"
#include "fuzz/Fuzzing.h"
#include "server/clsTLXAccounts.h"
#include "server/search/AccountSearch.h"

namespace korvanta {
namespace {

const std::u16string serverFile = u"\\\\SRV\\TLXData$\\Accounts.txt";
const std::u16string localCopy = u"C:\\Temp\\tlxact.txt";

constexpr std::size_t mostSearches = 16;

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

// Whether the text, which is in lower case, is in the title.
bool IsIn(std::u16string_view text, const std::u16string& title) {
    return Lower(title).find(text) != std::u16string::npos;
}

// The accounts that a search is to show of a group, by their places in it.
std::vector<std::uint32_t> Shown(const std::vector<clsAccount>& group, std::u16string_view lowerText) {
    const auto inSubTitle = [&](const clsAccount& account) { return IsIn(lowerText, account.SubTitle); };
    const auto inAnyTitle = [&](const clsAccount& account) {
        return inSubTitle(account) || IsIn(lowerText, account.MainTitle);
    };
    std::vector<std::uint32_t> shown;
    if (std::any_of(group.begin(), group.end(), inAnyTitle)) {
        for (std::uint32_t place = 0; place < group.size(); ++place) {
            if (place == 0 || inAnyTitle(group[0]) || inSubTitle(group[place])) {
                shown.push_back(place);
            }
        }
    }
    return shown;
}

// The groups are asked for in their order, or backwards.
void RequireFound(const std::shared_ptr<const AccountTable>& table, const Accounts& expected,
                  const std::u16string& text, bool backwards) {
    AccountSearch search(table, text);
    const std::size_t groups = expected.groups.size();
    for (std::size_t i = 0; i < groups; ++i) {
        const std::size_t group = backwards ? groups - 1 - i : i;
        const std::span<const std::uint32_t> numbers = search.Shown(group);
        std::vector<std::uint32_t> shown(numbers.begin(), numbers.end());
        for (std::uint32_t& account : shown) {
            account -= static_cast<std::uint32_t>(table->GroupStart(group));
        }
        REQUIRE(shown == Shown(expected.groups[group], Lower(text)));
    }
}

// Every account is found by each of its own titles, and by any part of them that the input names.
void RequireSearchable(const clsTLXAccounts& accounts, const Accounts& expected, const std::u16string& text) {
    RequireFound(accounts.Table(), expected, text, false);
    RequireFound(accounts.Table(), expected, text, true);
    std::size_t searches = 0;
    for (const auto& group : expected.groups) {
        for (const clsAccount& account : group) {
            if (++searches < mostSearches) {
                RequireFound(accounts.Table(), expected, account.SubTitle, false);
                RequireFound(accounts.Table(), expected, Upper(account.MainTitle), false);
            }
        }
    }
}

void RequireLoaded(const clsTLXAccounts& accounts, const Accounts& expected) {
    const AccountDictionary dictionary = accounts.AccountDict();
    REQUIRE(dictionary.Count() == expected.byId.size());
    for (const auto& [id, account] : expected.byId) {
        REQUIRE(Same(*dictionary.Find(id), account));
        REQUIRE((dictionary.Find(id ^ 1) != nullptr) == expected.byId.contains(id ^ 1));
        clsAccount copy;
        copy.StringForm(account.StringForm());
        REQUIRE(Same(copy, account));
    }
    const std::vector<Variant> groups = accounts.AccountList()->Items();
    const AccountTable& table = *accounts.Table();
    REQUIRE(groups.size() == expected.groups.size() && table.GroupCount() == groups.size());
    std::size_t index = 0;
    clsAccount account;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const std::vector<Variant> group = groups[i].As<List>()->Items();
        REQUIRE(group.size() == expected.groups[i].size());
        REQUIRE(table.GroupStart(i) == index);
        for (std::size_t k = 0; k < group.size(); ++k) {
            REQUIRE(Same(*group[k].As<clsAccount>(), expected.groups[i][k]));
            account.Fields(table.Fields(index++));
            REQUIRE(Same(account, expected.groups[i][k]));
        }
    }
    REQUIRE(table.GroupStart(groups.size()) == index);
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
    RequireLoaded(accounts, expected);
    RequireSearchable(accounts, expected, search);
    REQUIRE(platform.files.ReadBytes(localCopy) == (fromServer.usable ? server : local));

    // A file that was loaded is not loaded again; one that was not, is.
    const auto table = accounts.Table();
    REQUIRE(accounts.LoadAccounts() == expected.usable);
    REQUIRE(accounts.AccountsFileChanged() != fromServer.usable);
    REQUIRE((accounts.Table() == table) == fromServer.usable);

    platform.files.Down(u"SRV");
    REQUIRE(accounts.LoadAccounts() == expected.usable);
    RequireLoaded(accounts, expected);
    REQUIRE(platform.files.OpenFiles() == 0);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    const std::string server = korvanta::fuzz::Utf16File(input);
    const std::string local = korvanta::fuzz::Utf16File(input);
    const std::u16string search = input.Text();
    korvanta::Load(server, local, search, korvanta::fuzz::ReadSize(input));
    return 0;
}
