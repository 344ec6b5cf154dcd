#pragma once

#include "platform/FileSystem.h"

namespace korvanta {

class WindowsFileSystem : public FileSystem {
  public:
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
};

}  // namespace korvanta
