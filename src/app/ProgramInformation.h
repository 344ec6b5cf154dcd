#pragma once

#include "app/basComputerUtil.h"
#include "app/basWinVerUtil.h"
#include "common/Services.h"

namespace korvanta {

// What the rooms below app/ need to know about the machine and the session.
class ProgramInformation : public SystemInformation {
  public:
    explicit ProgramInformation(System& system) : windowsVersion_(system), computer_(system) {}

    bool IsWindowsNT() override { return windowsVersion_.IsWindowsNT(); }
    bool IsWindows9x() override { return windowsVersion_.IsWindows9x(); }
    std::u16string ComputerName() override { return computer_.ComputerName(); }
    std::u16string UserName() override { return computer_.UserName(); }

  private:
    basWinVerUtil windowsVersion_;
    basComputerUtil computer_;
};

}  // namespace korvanta
