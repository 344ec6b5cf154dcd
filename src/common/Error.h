#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace korvanta {

// Numbers of the errors that conversions, text streams and file operations raise.
namespace errorNumber {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t subscriptOutOfRange = 9;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t outOfStringSpace = 14;
inline constexpr std::int32_t badFileName = 52;
inline constexpr std::int32_t fileNotFound = 53;
inline constexpr std::int32_t deviceError = 57;
inline constexpr std::int32_t diskFull = 61;
inline constexpr std::int32_t inputPastEnd = 62;
inline constexpr std::int32_t permissionDenied = 70;
inline constexpr std::int32_t pathNotFound = 76;
inline constexpr std::int32_t objectNotSet = 91;
}  // namespace errorNumber

// A failure inside the program: a number, where it came from, and words for a log line.
class Error : public std::exception {
  public:
    Error(std::int32_t number, std::u16string source, std::u16string description);

    std::int32_t Number() const { return number_; }
    const std::u16string& Source() const { return source_; }
    const std::u16string& Description() const { return description_; }
    // Number, " - " and description, as most log lines end.
    std::u16string NumberAndDescription() const;
    const char* what() const noexcept override { return narrow_.c_str(); }

    // To be called in a catch block: the caught exception as an Error. A lack of memory becomes 7 "Out of memory", any
    // other exception 5 "Invalid procedure call or argument".
    static Error Current();

  private:
    std::int32_t number_;
    std::u16string source_;
    std::u16string description_;
    std::string narrow_;
};

// The Error with one of the numbers above, in the words that belong to it.
Error StandardError(std::int32_t number, std::u16string source);
// The Error for the Windows error code of a failed file operation: 53 for a missing file, 76 for a missing folder,
// share or server, and 57 for a code without a number of its own.
Error FileError(std::uint32_t windowsErrorCode);
// Raises FileError unless the code is 0.
void CheckFile(std::uint32_t windowsErrorCode);

}  // namespace korvanta
