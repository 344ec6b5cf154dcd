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

// Every account of a file by its AccountID; the last one when several have the same id.
class AccountDictionary {
  public:
    explicit AccountDictionary(std::shared_ptr<const AccountTable> table) : table_(std::move(table)) {}

    std::size_t Count() const { return table_->DifferentIds(); }
    // A new object at each call; none when no account has the id.
    std::shared_ptr<clsAccount> Find(std::int32_t accountId) const;

  private:
    std::shared_ptr<const AccountTable> table_;
};

// The accounts that the primary server publishes, with a local copy for when it cannot be read. Never lets messages
// run. Each load makes a new table; the old one does not change, so that callers can go on using it.
class clsTLXAccounts {
  public:
    clsTLXAccounts(FileSystem& files, MutexFactory& mutexes, TraceLog& log, const std::u16string& primaryServerName);

    // Brings the accounts up to date: from the server when its file has changed since the last load, or from the local
    // copy when the server cannot be read. True when there are usable accounts. Never raises; after a failure there are
    // the accounts that were read until then.
    bool LoadAccounts();

    // A List of List of clsAccount: one inner list for each main account in file order, the main account first. It is
    // many times as large as the table, so it is made at the first call and kept only while a caller holds it. Raises
    // what List raises.
    std::shared_ptr<List> AccountList() const;
    AccountDictionary AccountDict() const { return AccountDictionary(table_); }
    // The same accounts without an object for each, for walking through all of them.
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
