#pragma once

#include "common/IComparator.h"

namespace korvanta {

// Orders account lines by the text from their first tab on, whatever the letter case. Raises Error 5 for a line without
// a tab, Error 13 for a value that is not a text.
class CAccountComparator : public IComparator {
  private:
    std::int16_t IComparator_Compare(const Variant& a, const Variant& b) override;
};

}  // namespace korvanta
