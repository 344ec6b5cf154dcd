#include "common/Text.h"

#include <algorithm>
#include <array>
#include <limits>

namespace korvanta {

namespace {

struct CaseRun {
    char16_t first;
    char16_t last;
    std::uint16_t step;
    std::uint16_t delta;
};

constexpr CaseRun caseRuns[] = {
#include "common/CaseTable.inc"
};

constexpr std::size_t pageUnits = 256;

// Calls `use` with the upper-case and the lower-case unit of every pair.
template <class Use>
constexpr void ForEachPair(Use use) {
    for (const CaseRun& run : caseRuns) {
        for (std::uint32_t code = run.first; code <= run.last; code += run.step) {
            use(static_cast<char16_t>(code), static_cast<char16_t>((code + run.delta) & 0xFFFFU));
        }
    }
}

// For each unit what to add, modulo 65,536, to get its other letter case. Most pages of 256 units have only zeros; they
// share page 0, so that the table fits into the processor's cache.
template <std::size_t pages>
struct CaseTable {
    std::array<std::uint8_t, 0x10000 / pageUnits> pageOf{};
    std::array<std::array<std::uint16_t, pageUnits>, pages> deltas{};

    constexpr char16_t operator[](char16_t unit) const {
        return static_cast<char16_t>(unit + deltas[pageOf[unit / pageUnits]][unit % pageUnits]);
    }
};

template <bool toLower>
constexpr std::size_t CountPages() {
    std::array<bool, 0x10000 / pageUnits> used{};
    ForEachPair([&used](char16_t upper, char16_t lower) { used[(toLower ? upper : lower) / pageUnits] = true; });
    return 1 + static_cast<std::size_t>(std::count(used.begin(), used.end(), true));
}

template <bool toLower>
constexpr auto MakeTable() {
    constexpr char16_t capitalSharpS = u'\u1E9E';
    CaseTable<CountPages<toLower>()> table;
    std::uint8_t pagesMade = 0;
    ForEachPair([&](char16_t upper, char16_t lower) {
        const char16_t from = toLower ? upper : lower;
        const char16_t to = toLower ? lower : upper;
        // When several capitals have the same small letter, the first one is its upper case. The small sharp s has
        // none.
        if (!toLower && (table[from] != from || upper == capitalSharpS)) {
            return;
        }
        std::uint8_t& page = table.pageOf[from / pageUnits];
        if (page == 0) {
            page = ++pagesMade;
        }
        table.deltas[page][from % pageUnits] = static_cast<std::uint16_t>(to - from);
    });
    return table;
}

constexpr auto lowerTable = MakeTable<true>();
constexpr auto upperTable = MakeTable<false>();

template <class Table>
std::u16string Mapped(std::u16string_view text, const Table& table) {
    std::u16string result(text);
    for (char16_t& unit : result) {
        unit = table[unit];
    }
    return result;
}

bool SameLetter(char16_t a, char16_t b) {
    return a == b || lowerTable[a] == lowerTable[b];
}

}  // namespace

char16_t LowerUnit(char16_t unit) {
    return lowerTable[unit];
}

std::u16string Lower(std::u16string_view text) {
    return Mapped(text, lowerTable);
}

std::u16string Upper(std::u16string_view text) {
    return Mapped(text, upperTable);
}

bool EqualNoCase(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameLetter);
}

bool ContainsNoCase(std::u16string_view text, std::u16string_view part) {
    return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(), SameLetter) != text.end();
}

int CompareNoCase(std::u16string_view a, std::u16string_view b) {
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(), SameLetter);
    if (inA == a.end() || inB == b.end()) {
        return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
    }
    return lowerTable[*inA] < lowerTable[*inB] ? -1 : 1;
}

std::u16string Trim(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) {
        return {};
    }
    return std::u16string(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

std::u16string Replace(std::u16string_view text, std::u16string_view what, std::u16string_view with) {
    std::u16string result;
    std::size_t start = 0;
    for (std::size_t found = text.find(what); !what.empty() && found != std::u16string_view::npos;
         found = text.find(what, start)) {
        result.append(text.substr(start, found - start)).append(with);
        start = found + what.size();
    }
    return result.append(text.substr(start));
}

std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string> pieces;
    if (text.empty()) {
        return pieces;
    }
    if (separator.empty()) {
        pieces.emplace_back(text);
        return pieces;
    }
    std::size_t start = 0;
    for (std::size_t found = text.find(separator); found != std::u16string_view::npos;
         found = text.find(separator, start)) {
        pieces.emplace_back(text.substr(start, found - start));
        start = found + separator.size();
    }
    pieces.emplace_back(text.substr(start));
    return pieces;
}

std::u16string FillIn(std::u16string_view text, const std::vector<std::u16string>& values) {
    std::u16string filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // Units below "1" wrap round to numbers above every index.
        const std::size_t value =
            text[i] == u'%' && i + 1 < text.size() ? std::size_t{text[i + 1]} - u'1' : values.size();
        if (value < values.size() && value < 9) {
            filled += values[value];
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

std::u16string Join(const std::vector<std::u16string>& pieces, std::u16string_view separator) {
    std::u16string result;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i != 0) {
            result.append(separator);
        }
        result.append(pieces[i]);
    }
    return result;
}

std::u16string NumberText(std::int64_t number) {
    std::array<char16_t, 20> digits{};
    auto first = digits.end();
    const auto put = [&first](auto& rest) {
        *--first = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    };
    auto large = number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    while (large > std::numeric_limits<std::uint32_t>::max()) {
        put(large);
    }
    // In 32 bits, since a 32-bit processor takes many times as long to divide 64.
    auto rest = static_cast<std::uint32_t>(large);
    do {
        put(rest);
    } while (rest != 0);
    if (number < 0) {
        *--first = u'-';
    }
    return {first, digits.end()};
}

std::u16string PaddedNumberText(std::int64_t number, int digits) {
    std::u16string text = NumberText(number);
    const std::size_t signs = number < 0 ? 1 : 0;
    const std::size_t wanted = static_cast<std::size_t>(std::max(digits, 0)) + signs;
    if (text.size() < wanted) {
        text.insert(signs, wanted - text.size(), u'0');
    }
    return text;
}

std::u16string BooleanText(bool value) {
    return value ? u"True" : u"False";
}

std::u16string BooleanDigit(bool value) {
    return value ? u"1" : u"0";
}

std::u16string FromAscii(std::string_view text) {
    return {text.begin(), text.end()};
}

}  // namespace korvanta
