#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include "common/List.h"
#include "platform/FileSystem.h"
#include "ui/KeyTable.h"

namespace korvanta {

// What the account selection dialog remembers for the user between jobs and logons, in two copies of one file: on the
// primary server's preferences share, and in the temporary folder for when the server cannot be read. Changes stay in
// memory until Save. Files that cannot be read or written raise nothing.
class clsTLXPrefs {
  public:
    // `userName` as the files of the user are named: trimmed, in lower case. Reads the server's copy, else the local.
    clsTLXPrefs(FileSystem& files, MutexFactory& mutexes, const std::u16string& primaryServerName,
                const std::u16string& userName);

    // Account IDs of recent selections, newest last, at most 20.
    const std::shared_ptr<List>& History() const { return history_; }
    // Preferred account IDs in display order; may be reordered in place.
    const std::shared_ptr<List>& Preferred() const { return preferred_; }

    // The tab last shown, 1 by default (also when the file holds no number).
    std::int16_t LastTab() const;
    void LastTab(std::int16_t tab);
    std::u16string LastSearchString() const;
    void LastSearchString(const std::u16string& text);
    bool LastSearchRemember() const;
    void LastSearchRemember(bool remember);

    // Writes the server copy, then the local copy; false when either write failed. The local copy is replaced once the
    // new one is complete, so that the preferences outlive a save during which nothing can be written. When neither
    // copy could be read so far, but one can be now, what it holds is taken over first. As long as the server's is
    // there and cannot be read (70, 57), it is not written over, which counts as a failure.
    bool Save();

    // -1 when there is no history.
    std::int32_t GetLastSelectedAccount() const;
    void SetLastSelectedAccount(std::int32_t accountId);
    void AddPreferred(std::int32_t accountId);
    void RemovePreferred(std::int32_t accountId);
    // All of these, wherever they are, in one walk.
    void RemovePreferred(const std::set<std::int32_t>& accountIds);

  private:
    bool ReadPrefsFile(const std::u16string& path);
    bool WritePrefsFile(const std::u16string& path);
    bool LoadPrefs(const std::u16string& path);
    bool StorePrefs(const std::u16string& path);
    bool ReplaceLocalCopy();
    bool TakeOverStored();
    bool TakeOver(const std::u16string& path);
    std::u16string ValueOf(const std::u16string& key, const std::u16string& absent) const;
    bool ReadIds(const std::u16string& key, std::shared_ptr<List>& list);

    FileSystem& files_;
    MutexFactory& mutexes_;
    std::u16string localPath_;
    std::u16string serverPath_;
    KeyTable keys_;
    std::shared_ptr<List> history_;
    std::shared_ptr<List> preferred_;
    // Whether what is stored is known here: it was read, or it comes from here.
    bool settled_ = false;
    bool localCopyIsOwn_ = false;
    bool unreadable_ = false;  // the file that was read last is there, but was not to be read
};

}  // namespace korvanta
