#pragma once

#include <optional>
#include <string>

#include "platform/System.h"

namespace korvanta {

// Names of the machine and of the logged-on user, trimmed, without NULs, and cached. Raises Error userErrorBase + 23220
// (machine) or + 23221 (user) if Windows does not return the name.
class basComputerUtil {
  public:
    explicit basComputerUtil(System& system) : system_(system) {}

    std::u16string ComputerName();
    std::u16string UserName();

  private:
    System& system_;
    std::optional<std::u16string> computerName_;
    std::optional<std::u16string> userName_;
};

}  // namespace korvanta
