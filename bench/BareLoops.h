#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

// What a programmer writes who wants the result and nothing else: what the product is measured against.
namespace korvanta::bench {

using KeptFields = std::array<std::u16string, 8>;

// Reads the whole file, splits it into lines and fields, and keeps the fields.
std::vector<KeptFields> LoadBare(const std::string& file);

struct KeptTitles {
    std::u16string mainTitle;
    std::u16string subTitle;
};

// Whether the text, which is in lower case, and whatever the title's letter case is, is in a title: what each platform
// offers for that.
using Contains = bool (*)(const std::u16string& title, const std::u16string& text);

// The numbers of the accounts that have the text in a title.
std::vector<std::uint32_t> SearchBare(const std::vector<KeptTitles>& accounts, const std::u16string& text,
                                      Contains contains);

}  // namespace korvanta::bench
