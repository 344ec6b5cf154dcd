#pragma once

#include <string>

#include "common/Services.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace korvanta {

// "setup.txt" in the program folder: single-byte text, one "key=value" a line, read anew at every call.
class clsSetupTxt : public SetupFile {
  public:
    clsSetupTxt(FileSystem& files, const CodePage& codePage, const std::u16string& programFolder);

    // Empty also when the value names a path that is not there.
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
