#pragma once

#include <optional>
#include <string>

#include "platform/System.h"

namespace korvanta {

// Names of the machine and of the logged-on user, trimmed and without NULs, asked once. Raises Error userErrorBase plus
// 23220 (machine) or 23221 (user) when Windows does not say.
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
