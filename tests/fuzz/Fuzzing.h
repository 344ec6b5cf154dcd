#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the fuzzers share: taking an input apart, and second readers of the formats, which know nothing of the product's
// own and say what those must have found.

// Ends the process, as a crash that libFuzzer keeps the input of, unless the condition holds.
#define REQUIRE(condition) ((condition) ? void() : ::korvanta::fuzz::Fail(#condition, __FILE__, __LINE__))

namespace korvanta::fuzz {

[[noreturn]] void Fail(const char* condition, const char* file, int line);

// An input is a line of letters that say how it is to be used, and behind its line feed the sections, which the
// character U+001E divides. What is not there is empty, and letters that are not there are "a".
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size);

    // The next letter as a number below `choices`: "a" is 0.
    unsigned Choose(unsigned choices);
    // The next section's bytes.
    std::string_view Bytes();
    // The next section as text: UTF-8, in which surrogates may stand alone, and every byte that is none is a unit.
    std::u16string Text();
    // Whether the sections are used up, and whether letters are left.
    bool AtEnd() const { return ended_; }
    bool HasLetters() const { return !letters_.empty(); }

  private:
    std::string_view letters_;
    std::string_view rest_;
    bool ended_;
};

// The next section as the bytes of a UTF-16 file; letters say whether they are the section itself ("b"), have no
// byte-order mark ("c") or half a unit too much ("d").
std::string Utf16File(Input& input);
// How many bytes a read gives at most.
std::size_t ReadSize(Input& input);

std::u16string FromUtf8(std::string_view bytes);
std::string Utf16Bytes(std::u16string_view text);
// The text of a UTF-16 file: without the byte-order mark and a last half unit.
std::u16string Utf16Text(std::string_view bytes);
// Lines that end with LF or CR LF; the last one need not end.
std::vector<std::u16string> LinesOf(std::u16string_view text);
// The pieces around each separator; one piece where there is none.
std::vector<std::u16string> Pieces(std::u16string_view text, std::u16string_view separator);

// The number that a text between blanks is, if it is one in that range.
std::optional<std::int64_t> WholeNumber(std::u16string_view text, std::int64_t lowest, std::int64_t highest);
inline std::optional<std::int32_t> Number32(std::u16string_view text) {
    const std::optional<std::int64_t> number = WholeNumber(text, INT32_MIN, INT32_MAX);
    return number ? std::optional<std::int32_t>(static_cast<std::int32_t>(*number)) : std::nullopt;
}
// The units at the start of the text that make a decimal number, as ASCII; empty when it starts with none.
std::string DecimalAtStart(std::u16string_view text);
// The decimal number that the text starts with behind blanks and tabs; 0 when there is none or it is too large.
double NumberAtStart(std::u16string_view text);

}  // namespace korvanta::fuzz
