#pragma once

#include <string>
#include <string_view>

namespace korvanta {

// The machine's single-byte (or multi-byte) code page, in which plain text files and the spooler's texts are kept.
class CodePage {
  public:
    virtual ~CodePage() = default;
    // Never fails: bytes that stand for nothing become U+FFFD or "?".
    virtual std::u16string Decode(std::string_view bytes) const = 0;
    // Never fails: what the code page lacks becomes "?".
    virtual std::string Encode(std::u16string_view text) const = 0;
};

}  // namespace korvanta
