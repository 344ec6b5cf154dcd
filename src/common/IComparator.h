#pragma once

#include <cstdint>

#include "common/Variant.h"

namespace korvanta {

// The order by which a List sorts.
class IComparator {
  public:
    virtual ~IComparator() = default;
    // Negative when `a` sorts before `b`, 0 when they are equal, positive when `a` sorts after.
    std::int16_t Compare(const Variant& a, const Variant& b) { return IComparator_Compare(a, b); }

  private:
    virtual std::int16_t IComparator_Compare(const Variant& a, const Variant& b) = 0;
};

}  // namespace korvanta
