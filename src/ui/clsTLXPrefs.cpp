#include "ui/clsTLXPrefs.h"

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/FieldReader.h"
#include "common/Text.h"
#include "common/TextStream.h"
#include "server/Shares.h"

namespace korvanta {

namespace {

constexpr std::int32_t longestHistory = 20;
const char16_t* const keyHistory = u"history";
const char16_t* const keyPreferred = u"preferred";
const char16_t* const keyLastTab = u"lasttab";
const char16_t* const keyLastSearchString = u"lastsearchstring";
const char16_t* const keyLastSearchRemember = u"lastsearchremember";

std::u16string JoinedIds(const List& list) {
    std::vector<std::u16string> pieces;
    for (const Variant& id : list.Items()) {
        pieces.push_back(NumberText(id.Integer()));
    }
    return Join(pieces, u",");
}

// A value goes into one line of the file: what would end the line stays out.
std::u16string WithoutLineEnds(std::u16string value) {
    std::erase_if(value, [](char16_t unit) { return unit == u'\r' || unit == u'\n'; });
    return value;
}

}  // namespace

clsTLXPrefs::clsTLXPrefs(FileSystem& files, MutexFactory& mutexes, const std::u16string& primaryServerName,
                         const std::u16string& userName)
    : files_(files),
      mutexes_(mutexes),
      localPath_(files.TemporaryFolder() + u"\\tlxpref.txt"),
      serverPath_(Shares(primaryServerName).PreferencesFile(userName)) {
    settled_ = LoadPrefs(serverPath_) || LoadPrefs(localPath_);
    if (!settled_) {
        keys_.Clear();
        history_ = std::make_shared<List>(mutexes_);
        preferred_ = std::make_shared<List>(mutexes_);
    }
}

std::int16_t clsTLXPrefs::LastTab() const {
    try {
        return ToInteger16(ValueOf(keyLastTab, u"1"));
    } catch (const Error&) {
        return 1;
    }
}

void clsTLXPrefs::LastTab(std::int16_t tab) {
    keys_.Set(keyLastTab, NumberText(tab));
}

std::u16string clsTLXPrefs::LastSearchString() const {
    return ValueOf(keyLastSearchString, u"");
}

void clsTLXPrefs::LastSearchString(const std::u16string& text) {
    keys_.Set(keyLastSearchString, WithoutLineEnds(text));
}

bool clsTLXPrefs::LastSearchRemember() const {
    return ValueOf(keyLastSearchRemember, u"0") != u"0";
}

void clsTLXPrefs::LastSearchRemember(bool remember) {
    keys_.Set(keyLastSearchRemember, BooleanDigit(remember));
}

bool clsTLXPrefs::Save() {
    const bool mayReplace = settled_ || TakeOverStored();
    const bool server = mayReplace && StorePrefs(serverPath_);
    const bool local = ReplaceLocalCopy();
    settled_ = settled_ || server;
    localCopyIsOwn_ = localCopyIsOwn_ || local;
    return server && local;
}

// While the server's copy is in doubt the local one may be the last that there is.
bool clsTLXPrefs::ReplaceLocalCopy() {
    const std::u16string fresh = localPath_ + u".new";
    const bool replaced = StorePrefs(fresh) && files_.Copy(fresh, localPath_) == windowsError::none;
    static_cast<void>(files_.Delete(fresh));
    return replaced;
}

// A server that was down when the program started would otherwise lose what the user had chosen on other machines.
// False while the server's copy is there and cannot be read: it waits for another Save.
bool clsTLXPrefs::TakeOverStored() {
    settled_ = TakeOver(serverPath_);
    const bool inDoubt = !settled_ && unreadable_;
    settled_ = settled_ || (!localCopyIsOwn_ && TakeOver(localPath_));
    return settled_ || !inDoubt;
}

// What was stored comes first in the lists; of the other values those count that were set here. The lists stay the
// objects that they are.
bool clsTLXPrefs::TakeOver(const std::u16string& path) {
    clsTLXPrefs stored(*this);
    const bool loaded = stored.LoadPrefs(path);
    unreadable_ = stored.unreadable_;
    if (!loaded) {
        return false;
    }
    const std::vector<Variant> preferred = preferred_->Items();
    const std::vector<Variant> history = history_->Items();
    for (List* list : {preferred_.get(), history_.get()}) {
        while (list->Length() != 0) {
            list->Pop();
        }
    }
    preferred_->Extend(*stored.preferred_);
    history_->Extend(*stored.history_);
    for (const Variant& id : preferred) {
        AddPreferred(id.Integer());
    }
    for (const Variant& id : history) {
        SetLastSelectedAccount(id.Integer());
    }
    for (const auto& [key, value] : stored.keys_.All()) {
        if (keys_.Find(key) == nullptr) {
            keys_.Set(key, value);
        }
    }
    return true;
}

std::int32_t clsTLXPrefs::GetLastSelectedAccount() const {
    const std::int32_t length = history_->Length();
    return length == 0 ? -1 : history_->Item(length - 1).Integer();
}

void clsTLXPrefs::SetLastSelectedAccount(std::int32_t accountId) {
    if (history_->Contains(accountId)) {
        history_->Remove(accountId);
    }
    history_->Append(accountId);
    if (history_->Length() > longestHistory) {
        history_->Delete(0);
    }
}

void clsTLXPrefs::AddPreferred(std::int32_t accountId) {
    if (!preferred_->Contains(accountId)) {
        preferred_->Append(accountId);
    }
}

void clsTLXPrefs::RemovePreferred(std::int32_t accountId) {
    if (preferred_->Contains(accountId)) {
        preferred_->Remove(accountId);
    }
}

// Moves those that stay to the front, one by one: whatever fails in the middle, none of them is missing.
void clsTLXPrefs::RemovePreferred(const std::set<std::int32_t>& accountIds) {
    if (accountIds.empty()) {
        return;
    }
    std::int32_t kept = 0;
    for (const Variant& id : preferred_->Items()) {
        if (!accountIds.contains(id.Integer())) {
            preferred_->Item(kept++, id);
        }
    }
    while (preferred_->Length() > kept) {
        preferred_->Pop();
    }
}

bool clsTLXPrefs::ReadPrefsFile(const std::u16string& path) {
    keys_.Clear();
    unreadable_ = false;
    try {
        TextInput file = TextInput::OpenUtf16(files_, path);
        while (!file.AtEnd()) {
            FieldReader fields(file.ReadLineView());
            const std::u16string key(fields.Next());
            keys_.Set(key, std::u16string(fields.Next()));
        }
    } catch (const Error& error) {
        unreadable_ = error.Number() == errorNumber::permissionDenied || error.Number() == errorNumber::deviceError;
        return false;
    } catch (const std::exception&) {
        return false;
    }
    // Every file that Save completed has lines. One without any was emptied by a write that could not be finished, and
    // the other copy may still know the user's preferences.
    return !keys_.All().empty();
}

bool clsTLXPrefs::WritePrefsFile(const std::u16string& path) {
    bool opened = false;
    try {
        TextOutput file = TextOutput::OpenUtf16(files_, path);
        opened = true;
        for (const auto& [key, value] : keys_.All()) {
            file.Write(key);
            file.Write(std::u16string_view(&fieldSeparator, 1));
            file.WriteLine(value);
        }
        file.Close();
        return true;
    } catch (const std::exception&) {
        if (opened) {
            // Half a file would be read as if it were a whole one; without it the other copy is read.
            static_cast<void>(files_.Delete(path));
        }
        return false;
    }
}

bool clsTLXPrefs::LoadPrefs(const std::u16string& path) {
    return ReadPrefsFile(path) && ReadIds(keyHistory, history_) && ReadIds(keyPreferred, preferred_);
}

bool clsTLXPrefs::StorePrefs(const std::u16string& path) {
    try {
        keys_.Set(keyHistory, JoinedIds(*history_));
        keys_.Set(keyPreferred, JoinedIds(*preferred_));
        return WritePrefsFile(path);
    } catch (const std::exception&) {
        return false;
    }
}

std::u16string clsTLXPrefs::ValueOf(const std::u16string& key, const std::u16string& absent) const {
    const std::u16string* value = keys_.Find(key);
    return value != nullptr ? *value : absent;
}

bool clsTLXPrefs::ReadIds(const std::u16string& key, std::shared_ptr<List>& list) {
    list = std::make_shared<List>(mutexes_);
    keys_.Set(key, ValueOf(key, u""));
    try {
        for (const std::u16string& piece : Split(ValueOf(key, u""), u",")) {
            list->Append(ToInteger32(piece));
        }
    } catch (const Error&) {
        return false;
    }
    return true;
}

}  // namespace korvanta
