#pragma once

#include <cstdint>
#include <optional>

#include "platform/System.h"

namespace korvanta {

// The family of Windows, cached. Raises Error userErrorBase + 23210 if Windows does not return its version.
class basWinVerUtil {
  public:
    explicit basWinVerUtil(System& system) : system_(system) {}

    // The platform identifier: 2 for the Windows NT family, 1 for Windows 95/98/Me.
    std::uint32_t GetWindowsVersion();
    bool IsWindowsNT();
    bool IsWindows9x();

  private:
    System& system_;
    std::optional<std::uint32_t> platformId_;
};

}  // namespace korvanta
