#include "fakes/FakeFileSystem.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "common/Text.h"
#include "fakes/FakeCodePage.h"

namespace korvanta::fakes {

struct FakeFileSystem::Entry {
    std::u16string path;
    std::string bytes;
    Generator generator;  // makes the content instead of `bytes`
    std::uint64_t generatedLength = 0;
    std::uint64_t modified = 0;
    bool readOnly = false;
    int writers = 0;

    std::uint64_t Length() const { return generator ? generatedLength : bytes.size(); }
};

class FakeFileSystem::Reader : public InputFile {
  public:
    Reader(FakeFileSystem& files, EntryReference entry) : files_(files), entry_(std::move(entry)) { ++*open_; }
    ~Reader() override { --*open_; }

    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
        got = 0;
        if (files_.onRead) {
            files_.onRead(entry_->path);
        }
        const std::uint32_t fault = files_.faults.Check("Read", entry_->path);
        if (fault != 0 && fault != FaultPlan::halfDone) {
            return fault;
        }
        const std::uint64_t length = entry_->Length();
        const std::uint64_t left = length > position_ ? length - position_ : 0;
        got = static_cast<std::size_t>(std::min<std::uint64_t>({left, size, files_.largestRead}));
        if (fault == FaultPlan::halfDone) {
            got = (got + 1) / 2;
        }
        if (entry_->generator) {
            entry_->generator(position_, static_cast<char*>(buffer), got);
        } else if (got != 0) {
            std::memcpy(buffer, entry_->bytes.data() + position_, got);
        }
        position_ += got;
        if (files_.onWhole) {
            given_.append(static_cast<const char*>(buffer), got);
            if (got == 0) {
                files_.onWhole(entry_->path, given_);
            }
        }
        return windowsError::none;
    }

  private:
    FakeFileSystem& files_;
    EntryReference entry_;
    std::shared_ptr<int> open_ = files_.openFiles_;
    std::uint64_t position_ = 0;
    std::string given_;
};

class FakeFileSystem::Writer : public OutputFile {
  public:
    Writer(FakeFileSystem& files, EntryReference entry, OutputMode mode)
        : files_(files), entry_(std::move(entry)), append_(mode == OutputMode::Append) {
        ++*open_;
        ++entry_->writers;
    }
    ~Writer() override { End(); }

    std::uint32_t Write(const void* bytes, std::size_t size) override {
        if (files_.onWrite) {
            files_.onWrite(entry_->path);
        }
        const std::uint32_t fault = files_.faults.Check("Write", entry_->path);
        if (fault == FaultPlan::halfDone) {
            Put(bytes, size * files_.donePercent / 100);
            return windowsError::diskFull;
        }
        if (fault != 0) {
            return fault;
        }
        if (size > files_.freeBytes) {
            return windowsError::diskFull;
        }
        if (files_.freeBytes != endless) {
            files_.freeBytes -= size;
        }
        Put(bytes, size);
        return windowsError::none;
    }

    std::uint32_t Length(std::uint64_t& length) override {
        if (const std::uint32_t fault = files_.faults.Check("Length", entry_->path)) {
            return fault;
        }
        length = entry_->bytes.size();
        return windowsError::none;
    }

    std::uint32_t Close() override {
        if (!isOpen_) {
            return windowsError::none;
        }
        End();
        return files_.faults.Check("Close", entry_->path);
    }

  private:
    void Put(const void* bytes, std::size_t size) {
        std::string& content = entry_->bytes;
        const std::size_t at = append_ ? content.size() : position_;
        content.resize(std::max(content.size(), at + size));
        if (size != 0) {
            std::memcpy(content.data() + at, bytes, size);
        }
        position_ = at + size;
        entry_->modified = files_.ClockTime();
    }
    void End() {
        if (isOpen_) {
            isOpen_ = false;
            --*open_;
            --entry_->writers;
        }
    }

    FakeFileSystem& files_;
    EntryReference entry_;
    std::shared_ptr<int> open_ = files_.openFiles_;
    std::size_t position_ = 0;
    bool append_;
    bool isOpen_ = true;
};

FakeFileSystem::FakeFileSystem(FakeClock& clock) : clock_(clock) {
    AddFolder(temporaryFolder);
}

std::u16string FakeFileSystem::Key(const std::u16string& path) {
    std::u16string key = Replace(Lower(path), u"/", u"\\");
    const bool unc = key.starts_with(u"\\\\");
    while (key.find(u"\\\\") != std::u16string::npos) {
        key = Replace(key, u"\\\\", u"\\");
    }
    while (!key.empty() && key.back() == u'\\') {
        key.pop_back();
    }
    return unc ? u"\\" + key : key;
}

std::u16string FakeFileSystem::ParentOf(const std::u16string& key) {
    const std::size_t backslash = key.rfind(u'\\');
    return backslash == std::u16string::npos ? std::u16string() : key.substr(0, backslash);
}

std::uint64_t FakeFileSystem::ClockTime() const {
    return static_cast<std::uint64_t>(clock_.now.milliseconds) * 10'000;
}

std::uint32_t FakeFileSystem::Begin(std::string_view call, const std::u16string& path) {
    if (keepsLog) {
        log.push_back(FromAscii(call) + u" " + path);
    }
    if (onCall) {
        onCall(FromAscii(call), path);
    }
    if (const std::uint32_t fault = faults.Check(call, path)) {
        return fault;
    }
    return PathFault(path);
}

std::uint32_t FakeFileSystem::PathFault(const std::u16string& path) const {
    const auto failing = failingPaths_.find(Key(path));
    return failing == failingPaths_.end() ? windowsError::none : failing->second;
}

std::uint32_t FakeFileSystem::FolderError(const std::u16string& key) const {
    if (key.starts_with(u"\\\\")) {
        const std::size_t shareStart = key.find(u'\\', 2);
        const std::u16string server = key.substr(0, shareStart);
        if (downServers_.contains(server) || !folders_.contains(server)) {
            return windowsError::badNetPath;
        }
        if (shareStart == std::u16string::npos) {
            return windowsError::badNetName;  // a server by itself is no folder
        }
        if (!folders_.contains(key.substr(0, key.find(u'\\', shareStart + 1)))) {
            return windowsError::badNetName;
        }
    }
    return folders_.contains(key) ? windowsError::none : windowsError::pathNotFound;
}

FakeFileSystem::EntryReference FakeFileSystem::Find(const std::u16string& path) const {
    const auto found = files_.find(Key(path));
    return found == files_.end() ? nullptr : found->second;
}

FakeFileSystem::EntryReference FakeFileSystem::Put(const std::u16string& path) {
    const std::u16string key = Key(path);
    AddFolder(ParentOf(key));
    EntryReference& entry = files_[key];
    if (!entry) {
        entry = std::make_shared<Entry>();
        entry->path = path;
    }
    entry->generator = nullptr;
    entry->bytes.clear();
    entry->modified = ClockTime();
    return entry;
}

void FakeFileSystem::AddFolder(const std::u16string& path) {
    for (std::u16string key = Key(path); !key.empty() && key != u"\\"; key = ParentOf(key)) {
        folders_.insert(key);
    }
}

void FakeFileSystem::WriteBytes(const std::u16string& path, std::string_view bytes) {
    Put(path)->bytes = bytes;
}

void FakeFileSystem::WriteUtf16(const std::u16string& path, std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8U);
    }
    WriteBytes(path, bytes);
}

void FakeFileSystem::WriteAnsi(const std::u16string& path, std::u16string_view text) {
    WriteBytes(path, FakeCodePage().Encode(text));
}

void FakeFileSystem::WriteGenerated(const std::u16string& path, std::uint64_t length, Generator generator) {
    const EntryReference entry = Put(path);
    entry->generator = std::move(generator);
    entry->generatedLength = length;
}

void FakeFileSystem::RemoveFile(const std::u16string& path) {
    files_.erase(Key(path));
}

void FakeFileSystem::RemoveFolder(const std::u16string& path) {
    const std::u16string key = Key(path);
    const auto isInside = [&key](const std::u16string& other) {
        return other == key || other.starts_with(key + u"\\");
    };
    std::erase_if(folders_, isInside);
    std::erase_if(files_, [&isInside](const auto& file) { return isInside(file.first); });
}

void FakeFileSystem::SetReadOnly(const std::u16string& path, bool readOnly) {
    Find(path)->readOnly = readOnly;
}

void FakeFileSystem::SetModified(const std::u16string& path, std::uint64_t time) {
    Find(path)->modified = time;
}

bool FakeFileSystem::Has(const std::u16string& path) const {
    return Find(path) != nullptr;
}

std::string FakeFileSystem::ReadBytes(const std::u16string& path) const {
    const EntryReference entry = Find(path);
    return entry ? entry->bytes : std::string();
}

std::u16string FakeFileSystem::ReadUtf16(const std::u16string& path) const {
    const std::string bytes = ReadBytes(path);
    if (bytes.empty() && !Has(path)) {
        return {};
    }
    if (!bytes.starts_with("\xFF\xFE") || bytes.size() % 2 != 0) {
        throw std::logic_error("not a UTF-16 file with a byte-order mark");
    }
    std::u16string text;
    for (std::size_t i = 2; i < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1])
                                                                                 << 8U);
    }
    return text;
}

std::u16string FakeFileSystem::ReadAnsi(const std::u16string& path) const {
    return FakeCodePage().Decode(ReadBytes(path));
}

std::vector<std::u16string> FakeFileSystem::FilesIn(const std::u16string& folder) const {
    std::vector<std::u16string> names;
    const std::u16string key = Key(folder);
    for (const auto& [path, entry] : files_) {
        if (ParentOf(path) == key) {
            names.push_back(entry->path.substr(entry->path.rfind(u'\\') + 1));
        }
    }
    return names;
}

void FakeFileSystem::Down(const std::u16string& server) {
    downServers_.insert(u"\\\\" + Lower(server));
}

void FakeFileSystem::Up(const std::u16string& server) {
    downServers_.erase(u"\\\\" + Lower(server));
}

void FakeFileSystem::FailPath(const std::u16string& path, std::uint32_t errorCode) {
    failingPaths_[Key(path)] = errorCode;
}

std::uint32_t FakeFileSystem::OpenForReading(const std::u16string& path, std::unique_ptr<InputFile>& file) {
    if (const std::uint32_t fault = Begin("OpenForReading", path)) {
        return fault;
    }
    const std::u16string key = Key(path);
    if (const std::uint32_t error = FolderError(ParentOf(key))) {
        return error;
    }
    if (folders_.contains(key)) {
        return windowsError::accessDenied;
    }
    const EntryReference entry = Find(path);
    if (!entry) {
        return windowsError::fileNotFound;
    }
    file = std::make_unique<Reader>(*this, entry);
    return windowsError::none;
}

std::uint32_t FakeFileSystem::OpenForWriting(const std::u16string& path, OutputMode mode,
                                             std::unique_ptr<OutputFile>& file) {
    if (const std::uint32_t fault = Begin("OpenForWriting", path)) {
        return fault;
    }
    const std::u16string key = Key(path);
    if (const std::uint32_t error = FolderError(ParentOf(key))) {
        return error;
    }
    EntryReference entry = Find(path);
    if (folders_.contains(key) || (entry && entry->readOnly)) {
        return windowsError::accessDenied;
    }
    if (entry && entry->writers > 0) {
        return windowsError::sharingViolation;
    }
    if (!entry || mode == OutputMode::Truncate) {
        entry = Put(path);
    }
    file = std::make_unique<Writer>(*this, entry, mode);
    return windowsError::none;
}

bool FakeFileSystem::FileExists(const std::u16string& path) {
    const bool exists = Begin("FileExists", path) == windowsError::none &&
                        FolderError(ParentOf(Key(path))) == windowsError::none && Has(path);
    if (onExists) {
        onExists(path, exists);
    }
    return exists;
}

bool FakeFileSystem::FolderExists(const std::u16string& path) {
    return Begin("FolderExists", path) == windowsError::none && FolderError(Key(path)) == windowsError::none;
}

std::uint32_t FakeFileSystem::BeginWithFile(std::string_view call, const std::u16string& path, EntryReference& entry) {
    if (const std::uint32_t fault = Begin(call, path)) {
        return fault;
    }
    if (const std::uint32_t error = FolderError(ParentOf(Key(path)))) {
        return error;
    }
    entry = Find(path);
    return entry ? windowsError::none : windowsError::fileNotFound;
}

std::uint32_t FakeFileSystem::LastModified(const std::u16string& path, std::uint64_t& time) {
    EntryReference entry;
    if (const std::uint32_t error = BeginWithFile("LastModified", path, entry)) {
        return error;
    }
    time = entry->modified;
    return windowsError::none;
}

std::uint32_t FakeFileSystem::Copy(const std::u16string& from, const std::u16string& to) {
    const std::uint32_t fault = Begin("Copy", from);
    if (fault != 0 && fault != FaultPlan::halfDone) {
        return fault;
    }
    if (keepsLog) {
        log.back() += u" " + to;
    }
    if (const std::uint32_t pathFault = PathFault(to)) {
        return pathFault;
    }
    for (const std::u16string& path : {from, to}) {
        if (const std::uint32_t error = FolderError(ParentOf(Key(path)))) {
            return error;
        }
    }
    const EntryReference source = Find(from);
    if (!source) {
        return windowsError::fileNotFound;
    }
    const EntryReference old = Find(to);
    if (folders_.contains(Key(to)) || (old && old->readOnly)) {
        return windowsError::accessDenied;
    }
    if (old && (old == source || old->writers > 0)) {
        return windowsError::sharingViolation;
    }
    if (source->Length() > freeBytes) {
        return windowsError::diskFull;
    }
    const EntryReference target = Put(to);
    target->bytes = source->bytes;
    target->generator = source->generator;
    target->generatedLength = source->generatedLength;
    target->modified = source->modified;
    if (fault == FaultPlan::halfDone) {
        target->bytes.resize(target->bytes.size() / 2);
        return windowsError::diskFull;
    }
    return windowsError::none;
}

std::uint32_t FakeFileSystem::Delete(const std::u16string& path) {
    EntryReference entry;
    if (const std::uint32_t error = BeginWithFile("Delete", path, entry)) {
        return error;
    }
    if (entry->writers > 0) {
        return windowsError::sharingViolation;
    }
    files_.erase(Key(path));
    return windowsError::none;
}

std::u16string FakeFileSystem::TemporaryFolder() {
    return faults.Check("TemporaryFolder") != 0 ? std::u16string() : temporaryFolder;
}

std::u16string FakeFileSystem::TemporaryName() {
    if (faults.Check("TemporaryName") != 0) {
        return {};
    }
    return u"rad" + PaddedNumberText(++temporaryNames_, 5) + u".tmp";
}

}  // namespace korvanta::fakes
