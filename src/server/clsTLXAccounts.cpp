#include "server/clsTLXAccounts.h"

#include "common/Error.h"
#include "common/Text.h"
#include "common/TextStream.h"
#include "server/Shares.h"

namespace korvanta {

namespace {

Error NoAccounts() {
    return {99, u"clsTLXAccounts", u"No accounts loaded"};
}

}  // namespace

std::shared_ptr<clsAccount> AccountDictionary::Find(std::int32_t accountId) const {
    const std::optional<std::size_t> number = table_->Find(accountId);
    if (!number) {
        return nullptr;
    }
    auto account = std::make_shared<clsAccount>();
    account->Fields(table_->Fields(*number));
    return account;
}

clsTLXAccounts::clsTLXAccounts(FileSystem& files, MutexFactory& mutexes, TraceLog& log,
                               const std::u16string& primaryServerName)
    : files_(files),
      mutexes_(mutexes),
      log_(log),
      serverFile_(Shares(primaryServerName).AccountsFile()),
      localCopy_(files.TemporaryFolder() + u"\\tlxact.txt") {}

bool clsTLXAccounts::LoadAccounts() {
    log_.Log(u"Loading accounts ... ");
    std::optional<std::uint64_t> modification;
    accountsFileChanged_ = CheckServerAccountsFile(modification);
    if (!accountsFileChanged_) {
        log_.Log(u"Server accounts file not changed");
        return true;
    }
    log_.Log(u"Try to load accounts list from server");
    if (LoadAccountsFile(serverFile_)) {
        log_.Log(u"Caching server accounts list");
        // A failure is ignored: the earlier copy, if there is one, will do.
        static_cast<void>(files_.Copy(serverFile_, localCopy_));
        // The time was taken before reading, so a file that changed meanwhile is loaded again the next time.
        loadedModification_ = modification;
        return true;
    }
    log_.Log(u"Cannot load accounts from server, try the cached list");
    if (LoadAccountsFile(localCopy_)) {
        return true;
    }
    // The accounts from the server are gone, so the next call must load its file even if it has not changed.
    loadedModification_.reset();
    return false;
}

// Whether the server's file may differ from the one that was loaded.
bool clsTLXAccounts::CheckServerAccountsFile(std::optional<std::uint64_t>& modification) {
    std::uint64_t time = 0;
    const std::uint32_t code = files_.LastModified(serverFile_, time);
    if (code != windowsError::none) {
        log_.Log(u"CheckServerAccountsFile Error: " + FileError(code).NumberAndDescription());
        return true;
    }
    modification = time;
    const bool changed = loadedModification_ != time;
    log_.Log(changed ? u"Server file modified" : u"Server file not modified");
    return changed;
}

bool clsTLXAccounts::LoadAccountsFile(const std::u16string& path) {
    try {
        // The old accounts are released first, so that there is never memory needed for both.
        table_ = std::make_shared<AccountTable>();
        list_.reset();
        ReadAccounts(path);
        return true;
    } catch (...) {
        const Error error = Error::Current();
        if (error.Number() == errorNumber::outOfMemory) {
            // A list that fills the memory must not stay: nothing else would work any more.
            *table_ = AccountTable();
        }
        log_.Log(u"LoadAccountsFile Error: " + error.NumberAndDescription());
        return false;
    }
}

void clsTLXAccounts::ReadAccounts(const std::u16string& path) {
    log_.Log(u"Opening accounts list: " + path);
    {
        TextInput stream = TextInput::OpenUtf16(files_, path);
        while (!stream.AtEnd()) {
            table_->Add(ParseAccount(stream.ReadLineView()));
        }
        table_->EndGroup();
        log_.Log(u"Loaded " + NumberText(static_cast<std::int64_t>(table_->GroupCount())) + u" accounts");
    }
    if (table_->GroupCount() == 0) {
        throw NoAccounts();
    }
}

std::shared_ptr<List> clsTLXAccounts::AccountList() const {
    std::shared_ptr<List> list = list_.lock();
    if (list == nullptr) {
        list = std::make_shared<List>(mutexes_);
        for (std::size_t group = 0; group < table_->GroupCount(); ++group) {
            auto members = std::make_shared<List>(mutexes_);
            for (std::size_t number = table_->GroupStart(group); number < table_->GroupStart(group + 1); ++number) {
                auto account = std::make_shared<clsAccount>();
                account->Fields(table_->Fields(number));
                members->Append(std::move(account));
            }
            list->Append(std::move(members));
        }
        list_ = list;
    }
    return list;
}

}  // namespace korvanta
