#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "common/List.h"
#include "common/Services.h"
#include "platform/FileSystem.h"
#include "platform/Mutex.h"
#include "server/clsAccount.h"
#include "server/search/AccountTable.h"

namespace korvanta {

// Every account of a file by its AccountID; of several with one id the last.
class AccountDictionary {
  public:
    explicit AccountDictionary(std::shared_ptr<const AccountTable> table) : table_(std::move(table)) {}

    std::size_t Count() const { return table_->DifferentIds(); }
    // A new object each time; none when no account has the id.
    std::shared_ptr<clsAccount> Find(std::int32_t accountId) const;

  private:
    std::shared_ptr<const AccountTable> table_;
};

// The accounts that the primary server publishes, with a local copy for when it cannot be read. Never lets messages
// run. Loading puts a new table in place of the old one, so who holds one keeps it as it was.
class clsTLXAccounts {
  public:
    clsTLXAccounts(FileSystem& files, MutexFactory& mutexes, TraceLog& log, const std::u16string& primaryServerName);

    // Brings the accounts up to date: from the server when its file has changed since it was last loaded, else from
    // the local copy when the server cannot be read. True when usable accounts are in place. Never raises; after a
    // failure what was read until then is in place.
    bool LoadAccounts();

    // A List of List of clsAccount: one inner list per main account in file order, the main account first. Made when it
    // is asked for, and many times as large as the table; the same list while somebody holds it. Raises what List
    // raises.
    std::shared_ptr<List> AccountList() const;
    AccountDictionary AccountDict() const { return AccountDictionary(table_); }
    // The same accounts, for who goes through all of them.
    std::shared_ptr<const AccountTable> Table() const { return table_; }
    // False when the last LoadAccounts found the server's file unchanged, and before the first.
    bool AccountsFileChanged() const { return accountsFileChanged_; }

  private:
    bool CheckServerAccountsFile(std::optional<std::uint64_t>& modification);
    bool LoadAccountsFile(const std::u16string& path);
    void ReadAccounts(const std::u16string& path);

    FileSystem& files_;
    MutexFactory& mutexes_;
    TraceLog& log_;
    const std::u16string serverFile_;
    const std::u16string localCopy_;
    std::optional<std::uint64_t> loadedModification_;
    std::shared_ptr<AccountTable> table_ = std::make_shared<AccountTable>();
    mutable std::weak_ptr<List> list_;  // of table_
    bool accountsFileChanged_ = false;
};

}  // namespace korvanta
