#pragma once

#include <string>

#include "common/Services.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace korvanta {

// "setup.txt" in the program folder: single-byte text with one "key=value" per line. Every call reads the file again.
class clsSetupTxt : public SetupFile {
  public:
    clsSetupTxt(FileSystem& files, const CodePage& codePage, const std::u16string& programFolder);

    // Empty if the path does not exist, too.
    std::u16string UserDBPath() override;
    bool ShowOnStartup() override;
    bool ShowLink() override;
    std::u16string LinkName() override;
    std::u16string LinkPath() override;
    std::u16string TLXPrimaryServer() override;

  private:
    std::u16string Value(const std::u16string& key);
    bool Flag(const std::u16string& key);

    FileSystem& files_;
    const CodePage& codePage_;
    std::u16string path_;
};

}  // namespace korvanta
