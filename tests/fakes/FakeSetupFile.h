#pragma once

#include <string>

#include "common/Services.h"

namespace korvanta::fakes {

// Answers like an installation without a set-up file, unless the test sets something else.
class FakeSetupFile : public SetupFile {
  public:
    std::u16string userDBPath;
    bool showOnStartup = true;
    bool showLink = true;
    std::u16string linkName;
    std::u16string linkPath;
    std::u16string primaryServer;
    int reads = 0;

    std::u16string UserDBPath() override { return Counted(userDBPath); }
    bool ShowOnStartup() override { return Counted(showOnStartup); }
    bool ShowLink() override { return Counted(showLink); }
    std::u16string LinkName() override { return Counted(linkName); }
    std::u16string LinkPath() override { return Counted(linkPath); }
    std::u16string TLXPrimaryServer() override { return Counted(primaryServer); }

  private:
    template <class T>
    T Counted(const T& value) {
        ++reads;
        return value;
    }
};

}  // namespace korvanta::fakes
