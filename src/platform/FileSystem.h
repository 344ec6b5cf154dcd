#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace korvanta {

// The Windows error codes (numbers of GetLastError) that code above this seam tells apart; 0 is success.
namespace windowsError {
inline constexpr std::uint32_t none = 0;
inline constexpr std::uint32_t fileNotFound = 2;
inline constexpr std::uint32_t pathNotFound = 3;
inline constexpr std::uint32_t accessDenied = 5;
inline constexpr std::uint32_t notReady = 21;
inline constexpr std::uint32_t sharingViolation = 32;
inline constexpr std::uint32_t badNetPath = 53;
inline constexpr std::uint32_t badNetName = 67;
inline constexpr std::uint32_t diskFull = 112;
inline constexpr std::uint32_t semaphoreTimeout = 121;
inline constexpr std::uint32_t invalidName = 123;
}  // namespace windowsError

// A file open for reading, from its start onwards. Closed when destroyed.
class InputFile {
  public:
    virtual ~InputFile() = default;
    // Reads at most `size` bytes; `got` is how many were read, 0 at the end of the file. Returns a Windows error code.
    virtual std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) = 0;
};

// A file open for writing. Closed when destroyed; call Close to learn whether closing succeeded.
class OutputFile {
  public:
    virtual ~OutputFile() = default;
    // Writes all `size` bytes or returns a Windows error code, also when the disk is full.
    virtual std::uint32_t Write(const void* bytes, std::size_t size) = 0;
    // `length` is the file's length in bytes; set only when 0 is returned.
    virtual std::uint32_t Length(std::uint64_t& length) = 0;
    // Closes once; a second call does nothing and returns 0.
    virtual std::uint32_t Close() = 0;
};

enum class OutputMode {
    Truncate,   // created when missing; emptied otherwise
    Append,     // created when missing; every write goes to the end
    Overwrite,  // created when missing; written from its start; a longer old content keeps its tail
};

// Files on local disks and network shares. Paths are full paths, also UNC paths ("\\server\share\file"), in UTF-16
// without a terminating U+0000. Nothing here raises, retries or logs.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    // Opens an existing file; others may read, write or delete it meanwhile. `file` is set only when 0 is returned.
    virtual std::uint32_t OpenForReading(const std::u16string& path, std::unique_ptr<InputFile>& file) = 0;
    // Opens for writing; others may read meanwhile. `file` is set only when 0 is returned.
    virtual std::uint32_t OpenForWriting(const std::u16string& path, OutputMode mode,
                                         std::unique_ptr<OutputFile>& file) = 0;

    // True when the path names an existing file (not a folder) that the user may see.
    virtual bool FileExists(const std::u16string& path) = 0;
    // True when the path names an existing folder that the user may see; the root of a share is a folder.
    virtual bool FolderExists(const std::u16string& path) = 0;
    // False while a call to the path's server has been waiting for so long that a further one would wait, too. Asks
    // nobody.
    virtual bool IsAnswering([[maybe_unused]] const std::u16string& path) { return true; }
    // Last-modified time in 100 ns units since 1601-01-01 UTC; set only when 0 is returned.
    virtual std::uint32_t LastModified(const std::u16string& path, std::uint64_t& time) = 0;
    // Copies a file, overwriting the target.
    virtual std::uint32_t Copy(const std::u16string& from, const std::u16string& to) = 0;
    // Deletes a file, even a read-only one.
    virtual std::uint32_t Delete(const std::u16string& path) = 0;

    // The user's temporary folder, without a trailing backslash.
    virtual std::u16string TemporaryFolder() = 0;
    // A unique file name with the extension ".tmp", without a folder; the file is not created.
    virtual std::u16string TemporaryName() = 0;
};

}  // namespace korvanta
