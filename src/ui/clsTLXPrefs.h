#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include "common/List.h"
#include "platform/FileSystem.h"
#include "ui/KeyTable.h"

namespace korvanta {

// What the account selection dialog remembers for the user between jobs and logons. There are two copies of the file:
// one on the primary server's preferences share, and a local one in the temporary folder, which is read when the
// server's cannot be. Changes stay in memory until Save. Files that cannot be read or written raise no error.
class clsTLXPrefs {
  public:
    // What the last reading of a copy gave.
    enum class Reading {
        Good,
        Missing,      // there is no such file
        Unreachable,  // its folder, its share or its server is not there
        Locked,       // it may be there, but could not be read this time
        Malformed     // it was read, and is no complete preferences file
    };

    // `userName` is the login name, trimmed and in lower case, as it stands in the file's name. Reads the server's
    // copy, or the local one when that fails.
    clsTLXPrefs(FileSystem& files, MutexFactory& mutexes, const std::u16string& primaryServerName,
                const std::u16string& userName);

    // Account IDs of recent selections, newest last, at most 20.
    const std::shared_ptr<List>& History() const { return contents_.history; }
    // Preferred account IDs in display order. The caller may reorder them in place.
    const std::shared_ptr<List>& Preferred() const { return contents_.preferred; }

    // The tab last shown; 1 by default, also when the file has no number for it.
    std::int16_t LastTab() const;
    void LastTab(std::int16_t tab);
    std::u16string LastSearchString() const;
    void LastSearchString(const std::u16string& text);
    bool LastSearchRemember() const;
    void LastSearchRemember(bool remember);

    // Writes the server's copy, then the local copy; false when either write failed. Never raises. The local copy is
    // replaced once the new one is complete, so a save that can write nothing leaves the old one. As long as neither
    // copy has been read, each save tries to read them again and adds what they hold to what was set here. A server's
    // copy that is locked then is not overwritten, and the save fails.
    bool Save();
    // Good when the preferences are those of a stored copy, with the changes made here. Otherwise they began empty.
    Reading LastReading() const { return reading_; }

    // -1 when there is no history.
    std::int32_t GetLastSelectedAccount() const;
    void SetLastSelectedAccount(std::int32_t accountId);
    void AddPreferred(std::int32_t accountId);
    void RemovePreferred(std::int32_t accountId);
    // Removes all of these in one walk.
    void RemovePreferred(const std::set<std::int32_t>& accountIds);

  private:
    // What a copy holds.
    struct Contents {
        explicit Contents(MutexFactory& mutexes);

        KeyTable keys;
        std::shared_ptr<List> history;
        std::shared_ptr<List> preferred;
    };

    Reading ReadPrefsFile(const std::u16string& path, KeyTable& keys) const;
    bool WritePrefsFile(const std::u16string& path) const;
    Reading LoadPrefs(const std::u16string& path, Contents& contents) const;
    bool StorePrefs(const std::u16string& path);
    bool ReplaceLocalCopy();
    bool TakeOverStored();
    Reading TakeOver(const std::u16string& path);
    void Merge(Contents& stored);
    std::u16string ValueOf(const std::u16string& key, const std::u16string& absent) const;

    FileSystem& files_;
    MutexFactory& mutexes_;
    std::u16string localPath_;
    std::u16string serverPath_;
    Contents contents_;
    Reading reading_ = Reading::Missing;
    bool localCopyIsOwn_ = false;  // it was written here, so there is nothing in it to take over
};

}  // namespace korvanta
