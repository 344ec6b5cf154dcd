#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvanta {

// Where the letter of a caption's access key stands, the one behind the first single "&"; npos without one.
std::size_t AccessKeyPlace(std::u16string_view caption);
// The caption without the mark of that key; what it shows stays the same.
std::u16string WithoutAccessKey(const std::u16string& caption);
// A caption that shows each "&" of the text and has no access key. "&&", as those write it who know of access keys, is
// one "&".
std::u16string WithPlainAmpersands(std::u16string_view text);

}  // namespace korvanta
