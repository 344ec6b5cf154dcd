#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "common/Text.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/ProgramTexts.h"

namespace korvanta::languages {

inline constexpr const char16_t* section = u"TLXActTrkClient";
inline constexpr const char16_t* catalogueFile = u"Korvanta.tam";
// A made-up language: half as long again as English, with letters that English has not.
inline constexpr const char16_t* pseudo = u"pseudo";

// Another one, in which each text has three hundred characters more.
inline constexpr const char16_t* endless = u"endless";

// The bytes of the catalogue that is shipped.
inline std::string ShippedBytes() {
    std::ifstream file(KORVANTA_CATALOGUE, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Its text.
inline std::u16string ShippedText() {
    const std::string bytes = ShippedBytes();
    std::u16string text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1])
                                                                                 << 8U);
    }
    return text;
}

inline std::u16string PseudoText(const std::u16string& english) {
    const std::u16string plain = u"aeiouAEIOUcnszCNSZ";
    const std::u16string marked =
        u"\u00E5\u00E9\u00EE\u00F6\u00FC\u00C5\u00C9\u00CE\u00D6\u00DC\u00E7\u00F1\u0161\u017E\u00C7\u00D1\u0160\u017D";
    std::u16string text = english;
    for (char16_t& unit : text) {
        const std::size_t letter = plain.find(unit);
        unit = letter == std::u16string::npos || text.find(u"%") != std::u16string::npos ? unit : marked[letter];
    }
    const std::u16string filler = u" l\u00E4ng\u00EBr w\u00F6rds";
    // Short words grow more than sentences do.
    const std::size_t more = std::max(english.size() / 2, std::min<std::size_t>(english.size(), 10)) + 2;
    for (std::size_t added = 0; added < more; ++added) {
        text += filler[added % filler.size()];
    }
    return Trim(text);
}

// The shipped catalogue, and the made-up languages behind it.
inline std::u16string WithPseudo() {
    std::vector<fakes::ProgramText> texts = fakes::ProgramTexts();
    std::vector<fakes::ProgramText> longTexts = texts;
    for (fakes::ProgramText& text : texts) {
        text.text = PseudoText(text.text);
    }
    for (fakes::ProgramText& text : longTexts) {
        text.text += std::u16string(150, u'x') + u" " + std::u16string(149, u'x');
    }
    return ShippedText() + u"\n" + fakes::CatalogueOf(section, pseudo, texts) + u"\n" +
           fakes::CatalogueOf(section, endless, longTexts);
}

}  // namespace korvanta::languages
