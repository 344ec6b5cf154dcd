#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "common/List.h"
#include "common/Services.h"
#include "platform/FileSystem.h"
#include "platform/Mutex.h"
#include "server/AccountTitles.h"
#include "server/clsAccount.h"

namespace korvanta {

using AccountDictionary = std::unordered_map<std::int32_t, std::shared_ptr<clsAccount>>;

// The accounts that the primary server publishes, with a local copy for when it cannot be read. Never lets messages
// run. Loading puts new structures in place of the old ones, so who holds one keeps it as it was.
class clsTLXAccounts {
  public:
    // Raises what creating a List raises.
    clsTLXAccounts(FileSystem& files, MutexFactory& mutexes, TraceLog& log, const std::u16string& primaryServerName);

    // Brings the structures up to date: from the server when its file has changed since it was last loaded, else from
    // the local copy when the server cannot be read. True when usable lists are in place. Never raises; after a failure
    // the structures hold what was read until then.
    bool LoadAccounts();

    // A List of List of clsAccount: one inner list per main account in file order, the main account first.
    std::shared_ptr<List> AccountList() const { return structures_.list; }
    // Every account of the file; of several with one id the last.
    std::shared_ptr<const AccountDictionary> AccountDict() const { return structures_.dictionary; }
    // The searchable titles of the accounts in AccountList.
    std::shared_ptr<const AccountTitles> Titles() const { return structures_.titles; }
    // False when the last LoadAccounts found the server's file unchanged, and before the first.
    bool AccountsFileChanged() const { return accountsFileChanged_; }

  private:
    struct Structures {
        explicit Structures(MutexFactory& mutexes);
        // Needs no memory.
        void Clear();

        std::shared_ptr<List> list;
        std::shared_ptr<AccountDictionary> dictionary;
        std::shared_ptr<AccountTitles> titles;
    };
    using Group = std::vector<std::shared_ptr<clsAccount>>;

    bool CheckServerAccountsFile(std::optional<std::uint64_t>& modification);
    bool LoadAccountsFile(const std::u16string& path);
    void ReadAccounts(const std::u16string& path);
    void AppendGroup(Group& group);

    FileSystem& files_;
    MutexFactory& mutexes_;
    TraceLog& log_;
    const std::u16string serverFile_;
    const std::u16string localCopy_;
    std::optional<std::uint64_t> loadedModification_;
    Structures structures_;
    bool accountsFileChanged_ = false;
};

}  // namespace korvanta
