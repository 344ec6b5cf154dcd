#pragma once

#include "common/IComparator.h"

namespace korvanta {

// Orders account lines by what follows their first tab, whatever the letter case. A line without a tab raises Error 5,
// anything but a text Error 13.
class CAccountComparator : public IComparator {
  private:
    std::int16_t IComparator_Compare(const Variant& a, const Variant& b) override;
};

}  // namespace korvanta
