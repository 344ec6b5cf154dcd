#pragma once

#include <string_view>

#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

// Hands out the fields of a record one by one: those of a line, which fieldSeparator separates, or with another
// separator the lines of a text. The empty record has no fields. The record's text must outlive the fields.
class FieldReader {
  public:
    explicit FieldReader(std::u16string_view record, std::u16string_view separator = {&fieldSeparator, 1})
        : rest_(record), separator_(separator), ended_(record.empty()) {}

    // Raises Error 9 "Subscript out of range" when there is none left.
    std::u16string_view Next() {
        if (ended_) {
            throw StandardError(errorNumber::subscriptOutOfRange, u"FieldReader");
        }
        const std::size_t end = rest_.find(separator_);
        ended_ = end == std::u16string_view::npos;
        const std::u16string_view field = rest_.substr(0, end);
        rest_.remove_prefix(ended_ ? rest_.size() : end + separator_.size());
        return field;
    }

  private:
    std::u16string_view rest_;
    std::u16string_view separator_;
    bool ended_;
};

}  // namespace korvanta
