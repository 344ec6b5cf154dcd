#pragma once

#include <string>
#include <string_view>

namespace korvanta {

// The machine's single-byte or multi-byte code page. Plain text files and the spooler's texts are in it.
class CodePage {
  public:
    virtual ~CodePage() = default;
    // Never fails: bytes that are no character become U+FFFD or "?".
    virtual std::u16string Decode(std::string_view bytes) const = 0;
    // Never fails: a character that the code page lacks becomes "?".
    virtual std::string Encode(std::u16string_view text) const = 0;
    // What single-byte calls of Windows make of the text: what the code page lacks becomes a similar character, as l
    // for the Polish l with a stroke, or "?". Never fails.
    virtual std::u16string BestFit(std::u16string_view text) const = 0;
};

}  // namespace korvanta
