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

// Fills `found` with the numbers of the accounts that have the text in a title, whatever its letter case.
void SearchBare(const std::vector<KeptTitles>& accounts, const std::u16string& text, std::vector<std::uint32_t>& found);

}  // namespace korvanta::bench
