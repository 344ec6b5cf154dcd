#pragma once

#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/FakeClock.h"
#include "fakes/FaultPlan.h"
#include "platform/FileSystem.h"

namespace korvanta::fakes {

// Disks and shares in memory. Paths are compared without regard to letter case. C:\Temp is there from the start.
//
// Without faults it returns 53 for a server that is down or has no folder, 67 for a missing share, 3 for a missing
// folder, 2 for a missing file, 5 for opening a folder or writing a read-only file, and 32 for a second writer.
// Faults are named after the functions of FileSystem, InputFile and OutputFile. A failing FileExists or FolderExists
// returns false, a failing TemporaryFolder or TemporaryName an empty text.
class FakeFileSystem : public FileSystem {
  public:
    // Fills the buffer with the bytes from `offset` on.
    using Generator = std::function<void(std::uint64_t offset, char* buffer, std::size_t size)>;
    static constexpr std::uint64_t endless = std::numeric_limits<std::uint64_t>::max();

    explicit FakeFileSystem(FakeClock& clock);

    // For setting up. Missing parent folders are created.
    void AddFolder(const std::u16string& path);
    void WriteBytes(const std::u16string& path, std::string_view bytes);
    // UTF-16 little-endian with a byte-order mark.
    void WriteUtf16(const std::u16string& path, std::u16string_view text);
    // Latin-1.
    void WriteAnsi(const std::u16string& path, std::u16string_view text);
    // A file that takes no memory. `length` may be `endless`.
    void WriteGenerated(const std::u16string& path, std::uint64_t length, Generator generator);
    void RemoveFile(const std::u16string& path);
    // Including everything in it.
    void RemoveFolder(const std::u16string& path);
    void SetReadOnly(const std::u16string& path, bool readOnly = true);
    // In 100 ns units since 1601-01-01. Without it a file has the clock's time of its last change.
    void SetModified(const std::u16string& path, std::uint64_t time);

    // For checking. Has tests for a file, not a folder. The Read functions return an empty text for a missing file.
    bool Has(const std::u16string& path) const;
    std::string ReadBytes(const std::u16string& path) const;
    // Without the byte-order mark, which must be there.
    std::u16string ReadUtf16(const std::u16string& path) const;
    std::u16string ReadAnsi(const std::u16string& path) const;
    // Names of the files (not folders) right inside a folder, in the order of their lower-case names.
    std::vector<std::u16string> FilesIn(const std::u16string& folder) const;
    int OpenFiles() const { return *openFiles_; }

    // Whole servers.
    void Down(const std::u16string& server);
    void Up(const std::u16string& server);
    // Every call about this path fails with the code, until it is set to 0.
    void FailPath(const std::u16string& path, std::uint32_t errorCode);

    FaultPlan faults;
    // The calls in order, for example "OpenForReading C:\Temp\a.txt". Reads and writes are not included.
    std::vector<std::u16string> log;
    bool keepsLog = true;
    // Called before each read (write) of an open file, with its path; may change files.
    std::function<void(const std::u16string& path)> onRead;
    std::function<void(const std::u16string& path)> onWrite;
    // Called when a file was read to its end without an error, with all the bytes that were read.
    std::function<void(const std::u16string& path, const std::string& bytes)> onWhole;
    // Called at the start of each call that names a path.
    std::function<void(const std::u16string& call, const std::u16string& path)> onCall;
    // Called with what FileExists answers.
    std::function<void(const std::u16string& path, bool exists)> onExists;
    // No single read returns more bytes than this.
    std::size_t largestRead = std::numeric_limits<std::size_t>::max();
    // The part of a write that is done when the fault `halfDone` ends it.
    std::size_t donePercent = 50;
    // The number of bytes that can be written until the disk is full.
    std::uint64_t freeBytes = endless;
    std::u16string temporaryFolder = u"C:\\Temp";

    std::uint32_t OpenForReading(const std::u16string& path, std::unique_ptr<InputFile>& file) override;
    std::uint32_t OpenForWriting(const std::u16string& path, OutputMode mode,
                                 std::unique_ptr<OutputFile>& file) override;
    bool FileExists(const std::u16string& path) override;
    bool FolderExists(const std::u16string& path) override;
    std::uint32_t LastModified(const std::u16string& path, std::uint64_t& time) override;
    std::uint32_t Copy(const std::u16string& from, const std::u16string& to) override;
    std::uint32_t Delete(const std::u16string& path) override;
    std::u16string TemporaryFolder() override;
    std::u16string TemporaryName() override;

  private:
    struct Entry;
    class Reader;
    class Writer;
    friend class Reader;
    friend class Writer;
    using EntryReference = std::shared_ptr<Entry>;

    // A key is the path in lower case, with single backslashes and none at the end.
    static std::u16string Key(const std::u16string& path);
    static std::u16string ParentOf(const std::u16string& key);
    std::uint32_t Begin(std::string_view call, const std::u16string& path);
    // The error code that FailPath has set.
    std::uint32_t PathFault(const std::u16string& path) const;
    // Begin for a call about a file that must be there.
    std::uint32_t BeginWithFile(std::string_view call, const std::u16string& path, EntryReference& entry);
    // The error code that accessing the folder with that key returns, or 0.
    std::uint32_t FolderError(const std::u16string& key) const;
    EntryReference Find(const std::u16string& path) const;
    EntryReference Put(const std::u16string& path);
    std::uint64_t ClockTime() const;

    FakeClock& clock_;
    std::map<std::u16string, EntryReference> files_;
    std::set<std::u16string> folders_;
    std::set<std::u16string> downServers_;
    std::map<std::u16string, std::uint32_t> failingPaths_;
    std::shared_ptr<int> openFiles_ = std::make_shared<int>(0);
    int temporaryNames_ = 0;
};

}  // namespace korvanta::fakes
