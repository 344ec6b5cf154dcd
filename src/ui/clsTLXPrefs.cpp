#include "ui/clsTLXPrefs.h"

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"
#include "common/TextStream.h"

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
      serverPath_(u"\\\\" + primaryServerName + u"\\TLXPrefs$\\" + userName + u".txt") {
    if (!LoadPrefs(serverPath_) && !LoadPrefs(localPath_)) {
        keys_.clear();
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
    Set(keyLastTab, NumberText(tab));
}

std::u16string clsTLXPrefs::LastSearchString() const {
    return ValueOf(keyLastSearchString, u"");
}

void clsTLXPrefs::LastSearchString(const std::u16string& text) {
    Set(keyLastSearchString, WithoutLineEnds(text));
}

bool clsTLXPrefs::LastSearchRemember() const {
    return ValueOf(keyLastSearchRemember, u"0") != u"0";
}

void clsTLXPrefs::LastSearchRemember(bool remember) {
    Set(keyLastSearchRemember, BooleanDigit(remember));
}

bool clsTLXPrefs::Save() {
    const bool server = StorePrefs(serverPath_);
    const bool local = StorePrefs(localPath_);
    return server && local;
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

bool clsTLXPrefs::ReadPrefsFile(const std::u16string& path) {
    keys_.clear();
    try {
        TextInput file = TextInput::OpenUtf16(files_, path);
        while (!file.AtEnd()) {
            const std::vector<std::u16string> fields =
                Split(file.ReadLineView(), std::u16string_view(&fieldSeparator, 1));
            if (fields.size() < 2) {
                return false;
            }
            Set(fields[0], fields[1]);
        }
    } catch (const std::exception&) {
        return false;
    }
    // Every file that Save completed has lines. One without any was emptied by a write that could not be finished, and
    // the other copy may still know the user's preferences.
    return !keys_.empty();
}

bool clsTLXPrefs::WritePrefsFile(const std::u16string& path) {
    try {
        TextOutput file = TextOutput::OpenUtf16(files_, path);
        for (const auto& [key, value] : keys_) {
            file.Write(key);
            file.Write(std::u16string_view(&fieldSeparator, 1));
            file.WriteLine(value);
        }
        file.Close();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool clsTLXPrefs::LoadPrefs(const std::u16string& path) {
    return ReadPrefsFile(path) && ReadIds(keyHistory, history_) && ReadIds(keyPreferred, preferred_);
}

bool clsTLXPrefs::StorePrefs(const std::u16string& path) {
    try {
        Set(keyHistory, JoinedIds(*history_));
        Set(keyPreferred, JoinedIds(*preferred_));
        return WritePrefsFile(path);
    } catch (const std::exception&) {
        return false;
    }
}

const std::u16string* clsTLXPrefs::Find(const std::u16string& key) const {
    for (const auto& [name, value] : keys_) {
        if (name == key) {
            return &value;
        }
    }
    return nullptr;
}

std::u16string clsTLXPrefs::ValueOf(const std::u16string& key, const std::u16string& absent) const {
    const std::u16string* value = Find(key);
    return value != nullptr ? *value : absent;
}

void clsTLXPrefs::Set(const std::u16string& key, const std::u16string& value) {
    for (auto& [name, held] : keys_) {
        if (name == key) {
            held = value;
            return;
        }
    }
    keys_.emplace_back(key, value);
}

bool clsTLXPrefs::ReadIds(const std::u16string& key, std::shared_ptr<List>& list) {
    list = std::make_shared<List>(mutexes_);
    Set(key, ValueOf(key, u""));
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
