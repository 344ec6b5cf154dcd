#pragma once

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace korvanta::tests {

// Exit codes of the test programs that have options of their own.
inline constexpr int exitFailed = 1;
inline constexpr int exitUsage = 2;

// What a test program tells of options that it does not understand, under its name.
class CommandLine {
  public:
    constexpr explicit CommandLine(const char* program) : program_(program) {}

    // Prints the reason and ends the program.
    [[noreturn]] void Refuse(const std::string& why) const {
        std::fprintf(stderr, "%s: %s\nTry %s --help.\n", program_, why.c_str(), program_);
        std::exit(exitUsage);
    }
    // The value of an option that takes a whole number from 0 on; refuses any other text.
    std::uint64_t Number(const std::string& option, const std::string& text) const {
        std::uint64_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
            Refuse(option + " takes a number, not \"" + text + "\"");
        }
        return number;
    }

  private:
    const char* program_;
};

}  // namespace korvanta::tests
