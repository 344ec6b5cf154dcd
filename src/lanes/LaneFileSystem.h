#pragma once

#include <functional>

#include "lanes/ServerLanes.h"
#include "platform/FileSystem.h"

namespace korvanta {

// Files, with those of servers asked for on their lanes. What is read or tested and gets no answer in time is answered
// with windowsError::badNetPath, or false. What is written, or deleted, is waited for as long as Windows waits.
class LaneFileSystem : public FileSystem {
  public:
    // `direct` is called by several threads.
    LaneFileSystem(FileSystem& direct, ServerLanes& lanes) : direct_(direct), lanes_(lanes) {}

    std::uint32_t OpenForReading(const std::u16string& path, std::unique_ptr<InputFile>& file) override;
    std::uint32_t OpenForWriting(const std::u16string& path, OutputMode mode,
                                 std::unique_ptr<OutputFile>& file) override;
    bool FileExists(const std::u16string& path) override;
    bool FolderExists(const std::u16string& path) override;
    bool IsAnswering(const std::u16string& path) override;
    std::uint32_t LastModified(const std::u16string& path, std::uint64_t& time) override;
    // A file that comes from a server, or goes to one, is copied piece by piece, and so without its attributes and
    // times. A copy that breaks off leaves a part of the file in the target.
    std::uint32_t Copy(const std::u16string& from, const std::u16string& to) override;
    std::uint32_t Delete(const std::u16string& path) override;
    std::u16string TemporaryFolder() override { return direct_.TemporaryFolder(); }
    std::u16string TemporaryName() override { return direct_.TemporaryName(); }

  private:
    // The error code that the question gives, asked on the lane of the path's server.
    std::uint32_t Code(const std::u16string& path, Patience patience, std::function<std::uint32_t()> question);

    FileSystem& direct_;
    ServerLanes& lanes_;
};

}  // namespace korvanta
