// Prints the catalogue of all texts that the program has, in English: what a translator starts from.

#include <iostream>

#include "fakes/ProgramTexts.h"

namespace {

std::string Utf8(const std::u16string& text) {
    std::string bytes;
    for (const char16_t unit : text) {
        // The texts of the program itself are in the Basic Multilingual Plane, without surrogates.
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
        } else if (unit < 0x800) {
            bytes += static_cast<char>(0xC0 | unit >> 6);
            bytes += static_cast<char>(0x80 | (unit & 0x3F));
        } else {
            bytes += static_cast<char>(0xE0 | unit >> 12);
            bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
            bytes += static_cast<char>(0x80 | (unit & 0x3F));
        }
    }
    return bytes;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string language = count > 1 ? arguments[1] : "eng";
    if (count > 2 || language.empty() || language.front() == '-') {
        std::cerr
            << "Usage: catalogue [LANGUAGE]\nPrints all texts of the program, in English, under the header of the "
               "language (default eng), in UTF-8.\n";
        return language == "--help" ? 0 : 2;
    }
    if (language == "eng") {
        std::cout << "; English, as the program has it. \"tools/catalogue/catalogue\" prints this file.\n";
    }
    std::cout << Utf8(korvanta::fakes::CatalogueOf(u"TLXActTrkClient", {language.begin(), language.end()},
                                                   korvanta::fakes::ProgramTexts()));
    return 0;
}
