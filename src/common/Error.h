#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace korvanta {

// Numbers of the errors that the program's own conversions and text streams raise.
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
}  // namespace errorNumber

// What goes wrong inside the program: a number, where it came from, and words for a log line.
class Error : public std::exception {
  public:
    Error(std::int32_t number, std::u16string source, std::u16string description);

    std::int32_t Number() const { return number_; }
    const std::u16string& Source() const { return source_; }
    const std::u16string& Description() const { return description_; }
    // Number, " - " and description, as most log lines end.
    std::u16string NumberAndDescription() const;
    const char* what() const noexcept override { return narrow_.c_str(); }

    // Inside a catch block: the exception being handled as an Error. What is not one becomes 7 "Out of memory" or
    // 5 "Invalid procedure call or argument".
    static Error Current();

  private:
    std::int32_t number_;
    std::u16string source_;
    std::u16string description_;
    std::string narrow_;
};

// The Error for a failed file operation's Windows error code. A file that is not there is 53, a folder, share or
// server that is not there is 76, and everything that no number of its own stands for is 57.
Error FileError(std::uint32_t windowsErrorCode);
// Raises FileError unless the code is 0.
void CheckFile(std::uint32_t windowsErrorCode);

}  // namespace korvanta
