#pragma once

#include <string>
#include <vector>

namespace korvanta::fakes {

// What the program passes to the translator: the key of a text in a catalogue, and the text in English.
struct ProgramText {
    std::u16string key;
    std::u16string text;
};

// All texts of the program, form by form. It starts the program, without a primary server and then with one, and notes
// every form that hands itself to the translator.
std::vector<ProgramText> ProgramTexts();

// The texts in the format of a catalogue: a header and one entry per text, long ones on several lines.
std::u16string CatalogueOf(const std::u16string& section, const std::u16string& language,
                           const std::vector<ProgramText>& texts);

}  // namespace korvanta::fakes
