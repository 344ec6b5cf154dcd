#include "server/clsTLXAccounts.h"

#include "common/Error.h"
#include "common/Text.h"
#include "common/TextStream.h"

namespace korvanta {

namespace {

Error NoMainAccount() {
    return {91, u"clsTLXAccounts", u"Object variable or With block variable not set"};
}

// Growing rehashes every account there is, which large lists feel when it happens at each doubling.
void MakeRoom(AccountDictionary& dictionary) {
    if (dictionary.size() == dictionary.bucket_count()) {
        dictionary.reserve(dictionary.size() * 8);
    }
}

Error NoAccounts() {
    return {99, u"clsTLXAccounts", u"No accounts loaded"};
}

}  // namespace

clsTLXAccounts::Structures::Structures(MutexFactory& mutexes)
    : list(std::make_shared<List>(mutexes)),
      dictionary(std::make_shared<AccountDictionary>()),
      titles(std::make_shared<AccountTitles>()) {}

void clsTLXAccounts::Structures::Clear() {
    while (list->Length() != 0) {
        list->Pop();
    }
    dictionary->clear();
    *titles = AccountTitles();
}

clsTLXAccounts::clsTLXAccounts(FileSystem& files, MutexFactory& mutexes, TraceLog& log,
                               const std::u16string& primaryServerName)
    : files_(files),
      mutexes_(mutexes),
      log_(log),
      serverFile_(u"\\\\" + primaryServerName + u"\\TLXData$\\Accounts.txt"),
      localCopy_(files.TemporaryFolder() + u"\\tlxact.txt"),
      structures_(mutexes) {}

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
        // Without a fresh copy the last one serves, or none.
        static_cast<void>(files_.Copy(serverFile_, localCopy_));
        // The time from before the reading: a file that changed meanwhile is found changed the next time.
        loadedModification_ = modification;
        return true;
    }
    log_.Log(u"Cannot load accounts from server, try the cached list");
    if (LoadAccountsFile(localCopy_)) {
        return true;
    }
    // What the server's file gave once is no longer in place, so an unchanged file must be loaded all the same.
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
        structures_ = Structures(mutexes_);
        ReadAccounts(path);
        return true;
    } catch (...) {
        const Error error = Error::Current();
        if (error.Number() == errorNumber::outOfMemory) {
            // Part of a list that no memory is large enough for would leave none for anything else.
            structures_.Clear();
        }
        log_.Log(u"LoadAccountsFile Error: " + error.NumberAndDescription());
        return false;
    }
}

void clsTLXAccounts::ReadAccounts(const std::u16string& path) {
    log_.Log(u"Opening accounts list: " + path);
    {
        TextInput stream = TextInput::OpenUtf16(files_, path);
        Group group;
        while (!stream.AtEnd()) {
            auto account = std::make_shared<clsAccount>();
            account->StringForm(stream.ReadLineView());
            MakeRoom(*structures_.dictionary);
            (*structures_.dictionary)[account->AccountID] = account;
            if (account->IsMain) {
                AppendGroup(group);
            } else if (group.empty()) {
                throw NoMainAccount();
            }
            group.push_back(std::move(account));
        }
        AppendGroup(group);
        log_.Log(u"Loaded " + NumberText(structures_.list->Length()) + u" accounts");
    }
    if (structures_.list->Length() == 0) {
        throw NoAccounts();
    }
}

void clsTLXAccounts::AppendGroup(Group& group) {
    if (group.empty()) {
        return;
    }
    structures_.titles->AddGroup(group);
    auto list = std::make_shared<List>(mutexes_);
    for (std::shared_ptr<clsAccount>& account : group) {
        list->Append(std::move(account));
    }
    structures_.list->Append(std::move(list));
    group.clear();
}

}  // namespace korvanta
