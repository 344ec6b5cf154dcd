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

// A value takes one line of the file, so line breaks in it are removed.
std::u16string WithoutLineEnds(std::u16string value) {
    std::erase_if(value, [](char16_t unit) { return unit == u'\r' || unit == u'\n'; });
    return value;
}

// The key gets an empty value when it is absent.
void TakeIds(KeyTable& keys, const char16_t* key, List& list) {
    if (keys.Find(key) == nullptr) {
        keys.Set(key, u"");
    }
    for (const std::u16string& piece : Split(*keys.Find(key), u",")) {
        list.Append(ToInteger32(piece));
    }
}

void AppendOnce(List& list, std::int32_t accountId) {
    if (!list.Contains(accountId)) {
        list.Append(accountId);
    }
}

void MoveToEnd(List& history, std::int32_t accountId) {
    if (history.Contains(accountId)) {
        history.Remove(accountId);
    }
    history.Append(accountId);
    if (history.Length() > longestHistory) {
        history.Delete(0);
    }
}

// Gives the list these elements. It grows before it changes, so that nothing is missing from it when memory runs out.
void Replace(List& list, const std::vector<Variant>& items) {
    const auto length = static_cast<std::int32_t>(items.size());
    for (std::int32_t i = list.Length(); i < length; ++i) {
        list.Append(items[static_cast<std::size_t>(i)]);
    }
    for (std::int32_t i = 0; i < length; ++i) {
        list.Item(i, items[static_cast<std::size_t>(i)]);
    }
    while (list.Length() > length) {
        list.Pop();
    }
}

// What an error tells of the copy that was being read.
clsTLXPrefs::Reading ReadingAfter(const Error& error) {
    switch (error.Number()) {
        case errorNumber::fileNotFound:
        case errorNumber::badFileName:
            return clsTLXPrefs::Reading::Missing;
        case errorNumber::pathNotFound:
            return clsTLXPrefs::Reading::Unreachable;
        case errorNumber::typeMismatch:
        case errorNumber::overflow:
        case errorNumber::subscriptOutOfRange:
        case errorNumber::outOfStringSpace:
            return clsTLXPrefs::Reading::Malformed;
        default:
            return clsTLXPrefs::Reading::Locked;
    }
}

}  // namespace

clsTLXPrefs::Contents::Contents(MutexFactory& mutexes)
    : history(std::make_shared<List>(mutexes)), preferred(std::make_shared<List>(mutexes)) {}

clsTLXPrefs::clsTLXPrefs(FileSystem& files, MutexFactory& mutexes, const std::u16string& primaryServerName,
                         const std::u16string& userName)
    : files_(files),
      mutexes_(mutexes),
      localPath_(files.TemporaryFolder() + u"\\tlxpref.txt"),
      serverPath_(Shares(primaryServerName).PreferencesFile(userName)),
      contents_(mutexes) {
    reading_ = LoadPrefs(serverPath_, contents_);
    if (reading_ != Reading::Good) {
        reading_ = LoadPrefs(localPath_, contents_);
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
    contents_.keys.Set(keyLastTab, NumberText(tab));
}

std::u16string clsTLXPrefs::LastSearchString() const {
    return ValueOf(keyLastSearchString, u"");
}

void clsTLXPrefs::LastSearchString(const std::u16string& text) {
    contents_.keys.Set(keyLastSearchString, WithoutLineEnds(text));
}

bool clsTLXPrefs::LastSearchRemember() const {
    return ValueOf(keyLastSearchRemember, u"0") != u"0";
}

void clsTLXPrefs::LastSearchRemember(bool remember) {
    contents_.keys.Set(keyLastSearchRemember, BooleanDigit(remember));
}

bool clsTLXPrefs::Save() {
    const bool mayReplace = reading_ == Reading::Good || TakeOverStored();
    const bool server = mayReplace && StorePrefs(serverPath_);
    const bool local = ReplaceLocalCopy();
    if (server) {
        reading_ = Reading::Good;
    }
    localCopyIsOwn_ = localCopyIsOwn_ || local;
    return server && local;
}

// The new copy replaces the old one in one step: while the server's copy cannot be written, the local one may be the
// last that there is.
bool clsTLXPrefs::ReplaceLocalCopy() {
    const std::u16string fresh = localPath_ + u".new";
    const bool replaced = StorePrefs(fresh) && files_.Copy(fresh, localPath_) == windowsError::none;
    static_cast<void>(files_.Delete(fresh));
    return replaced;
}

// When the server was down at the start of the program, what the user chose on other machines is read now. False while
// the server's copy is locked: it is left alone until another save can read it.
bool clsTLXPrefs::TakeOverStored() {
    reading_ = TakeOver(serverPath_);
    if (reading_ != Reading::Good && !localCopyIsOwn_ && TakeOver(localPath_) == Reading::Good) {
        reading_ = Reading::Good;
    }
    return reading_ != Reading::Locked;
}

clsTLXPrefs::Reading clsTLXPrefs::TakeOver(const std::u16string& path) {
    try {
        Contents stored(mutexes_);
        const Reading reading = LoadPrefs(path, stored);
        if (reading == Reading::Good) {
            Merge(stored);
        }
        return reading;
    } catch (const std::exception&) {
        return Reading::Locked;
    }
}

// As if the copy had been read at the start, and everything since been done to it. The lists stay the same objects,
// since others hold them.
void clsTLXPrefs::Merge(Contents& stored) {
    for (const Variant& id : contents_.preferred->Items()) {
        AppendOnce(*stored.preferred, id.Integer());
    }
    for (const Variant& id : contents_.history->Items()) {
        MoveToEnd(*stored.history, id.Integer());
    }
    for (const auto& [key, value] : contents_.keys.All()) {
        stored.keys.Set(key, value);
    }
    Replace(*contents_.preferred, stored.preferred->Items());
    Replace(*contents_.history, stored.history->Items());
    std::swap(contents_.keys, stored.keys);
}

std::int32_t clsTLXPrefs::GetLastSelectedAccount() const {
    const std::int32_t length = History()->Length();
    return length == 0 ? -1 : History()->Item(length - 1).Integer();
}

void clsTLXPrefs::SetLastSelectedAccount(std::int32_t accountId) {
    MoveToEnd(*History(), accountId);
}

void clsTLXPrefs::AddPreferred(std::int32_t accountId) {
    AppendOnce(*Preferred(), accountId);
}

void clsTLXPrefs::RemovePreferred(std::int32_t accountId) {
    if (Preferred()->Contains(accountId)) {
        Preferred()->Remove(accountId);
    }
}

void clsTLXPrefs::RemovePreferred(const std::set<std::int32_t>& accountIds) {
    if (accountIds.empty()) {
        return;
    }
    std::vector<Variant> kept = Preferred()->Items();
    std::erase_if(kept, [&](const Variant& id) { return accountIds.contains(id.Integer()); });
    Replace(*Preferred(), kept);
}

clsTLXPrefs::Reading clsTLXPrefs::ReadPrefsFile(const std::u16string& path, KeyTable& keys) const {
    keys.Clear();
    TextInput file = TextInput::OpenUtf16(files_, path);
    while (!file.AtEnd()) {
        FieldReader fields(file.ReadLineView());
        const std::u16string key(fields.Next());
        keys.Set(key, std::u16string(fields.Next()));
    }
    // Every file that Save completed has lines. One without any was emptied by a write that could not be finished, and
    // the other copy may still hold the user's preferences.
    return keys.All().empty() ? Reading::Malformed : Reading::Good;
}

bool clsTLXPrefs::WritePrefsFile(const std::u16string& path) const {
    bool opened = false;
    try {
        TextOutput file = TextOutput::OpenUtf16(files_, path);
        opened = true;
        for (const auto& [key, value] : contents_.keys.All()) {
            file.Write(key);
            file.Write(std::u16string_view(&fieldSeparator, 1));
            file.WriteLine(value);
        }
        file.Close();
        return true;
    } catch (const std::exception&) {
        if (opened) {
            // Half a file could pass for a whole one; when it is missing, the other copy is read.
            static_cast<void>(files_.Delete(path));
        }
        return false;
    }
}

// Changes `contents` only when the copy is good.
clsTLXPrefs::Reading clsTLXPrefs::LoadPrefs(const std::u16string& path, Contents& contents) const {
    try {
        Contents loaded(mutexes_);
        const Reading reading = ReadPrefsFile(path, loaded.keys);
        if (reading != Reading::Good) {
            return reading;
        }
        TakeIds(loaded.keys, keyHistory, *loaded.history);
        TakeIds(loaded.keys, keyPreferred, *loaded.preferred);
        std::swap(contents, loaded);
        return Reading::Good;
    } catch (const std::exception&) {
        return ReadingAfter(Error::Current());
    }
}

bool clsTLXPrefs::StorePrefs(const std::u16string& path) {
    try {
        contents_.keys.Set(keyHistory, JoinedIds(*History()));
        contents_.keys.Set(keyPreferred, JoinedIds(*Preferred()));
        return WritePrefsFile(path);
    } catch (const std::exception&) {
        return false;
    }
}

std::u16string clsTLXPrefs::ValueOf(const std::u16string& key, const std::u16string& absent) const {
    const std::u16string* value = contents_.keys.Find(key);
    return value != nullptr ? *value : absent;
}

}  // namespace korvanta
