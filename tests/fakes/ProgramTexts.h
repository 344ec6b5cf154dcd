#pragma once

#include <string>
#include <vector>

namespace korvanta::fakes {

// What the program hands to the translation: the key under which a catalogue knows a text, and the text in English.
struct ProgramText {
    std::u16string key;
    std::u16string text;
};

// All texts of the program, form by form: it is started, without a primary server and then with one, and every form
// that hands itself to the translator is noted.
std::vector<ProgramText> ProgramTexts();

// Texts as a catalogue has them: a header, and an entry for each, the long ones on several lines.
std::u16string CatalogueOf(const std::u16string& section, const std::u16string& language,
                           const std::vector<ProgramText>& texts);

}  // namespace korvanta::fakes
