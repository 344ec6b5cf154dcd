#pragma once

#include <string>

#include "common/Error.h"
#include "common/List.h"
#include "common/Services.h"

namespace korvanta::fakes {

// A Windows NT machine WS01 with the user jsmith.
class FakeSystemInformation : public SystemInformation {
  public:
    bool windowsNT = true;
    bool windows9x = false;
    std::u16string computerName = u"WS01";
    std::u16string userName = u"jsmith";
    // While set, the question raises its error.
    bool versionFails = false;
    bool computerNameFails = false;
    bool userNameFails = false;

    void BeWindows9x() {
        windowsNT = false;
        windows9x = true;
    }

    bool IsWindowsNT() override {
        Check(versionFails, 23210);
        return windowsNT;
    }
    bool IsWindows9x() override {
        Check(versionFails, 23210);
        return windows9x;
    }
    std::u16string ComputerName() override {
        Check(computerNameFails, 23220);
        return computerName;
    }
    std::u16string UserName() override {
        Check(userNameFails, 23221);
        return userName;
    }

  private:
    static void Check(bool fails, std::int32_t number) {
        if (fails) {
            throw Error(userErrorBase + number, u"FakeSystemInformation", u"The question failed.");
        }
    }
};

}  // namespace korvanta::fakes
