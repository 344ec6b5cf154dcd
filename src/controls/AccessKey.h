#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvanta {

// The index of a caption's access key, which is the character behind the first single "&"; npos when it has none.
std::size_t AccessKeyPlace(std::u16string_view caption);
// The caption without the "&" of its access key. It shows the same text.
std::u16string WithoutAccessKey(const std::u16string& caption);
// A caption without an access key that shows the text with each "&". An "&&" in the text counts as one "&": somebody
// who knows access keys has written it for a caption.
std::u16string WithPlainAmpersands(std::u16string_view text);

}  // namespace korvanta
