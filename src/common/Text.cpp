#include "common/Text.h"

#include <algorithm>
#include <array>

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

using CaseTable = std::array<char16_t, 0x10000>;

constexpr CaseTable MakeTable(bool lower) {
    CaseTable table{};
    for (std::size_t code = 0; code < table.size(); ++code) {
        table[code] = static_cast<char16_t>(code);
    }
    for (const CaseRun& run : caseRuns) {
        for (std::uint32_t code = run.first; code <= run.last; code += run.step) {
            const auto other = static_cast<char16_t>((code + run.delta) & 0xFFFFU);
            if (lower) {
                table[code] = other;
            } else if (table[other] == other) {
                table[other] = static_cast<char16_t>(code);
            }
        }
    }
    return table;
}

const CaseTable& LowerTable() {
    static const CaseTable table = MakeTable(true);
    return table;
}

const CaseTable& UpperTable() {
    static const CaseTable table = MakeTable(false);
    return table;
}

std::u16string Mapped(std::u16string_view text, const CaseTable& table) {
    std::u16string result(text);
    for (char16_t& unit : result) {
        unit = table[unit];
    }
    return result;
}

}  // namespace

char16_t LowerUnit(char16_t unit) {
    return LowerTable()[unit];
}

std::u16string Lower(std::u16string_view text) {
    return Mapped(text, LowerTable());
}

std::u16string Upper(std::u16string_view text) {
    return Mapped(text, UpperTable());
}

bool EqualNoCase(std::u16string_view a, std::u16string_view b) {
    const CaseTable& table = LowerTable();
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&table](char16_t x, char16_t y) { return table[x] == table[y]; });
}

bool ContainsNoCase(std::u16string_view text, std::u16string_view part) {
    const CaseTable& table = LowerTable();
    return std::search(text.begin(), text.end(), part.begin(), part.end(),
                       [&table](char16_t x, char16_t y) { return table[x] == table[y]; }) != text.end() ||
           part.empty();
}

int CompareNoCase(std::u16string_view a, std::u16string_view b) {
    const CaseTable& table = LowerTable();
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (table[a[i]] != table[b[i]]) {
            return table[a[i]] < table[b[i]] ? -1 : 1;
        }
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
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
    std::size_t start = 0;
    for (std::size_t found = text.find(separator); found != std::u16string_view::npos;
         found = text.find(separator, start)) {
        pieces.emplace_back(text.substr(start, found - start));
        start = found + separator.size();
    }
    pieces.emplace_back(text.substr(start));
    return pieces;
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
    return FromAscii(std::to_string(number));
}

std::u16string PaddedNumberText(std::int64_t number, int digits) {
    std::u16string text = NumberText(number < 0 ? -number : number);
    const auto wanted = static_cast<std::size_t>(std::max(digits, 0));
    if (text.size() < wanted) {
        text.insert(0, wanted - text.size(), u'0');
    }
    return number < 0 ? u"-" + text : text;
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

PrinterNameParts SplitPrinterName(std::u16string_view fullPrinterName) {
    const std::u16string rest = Replace(fullPrinterName, u"\\\\", u"");
    const std::size_t backslash = rest.find(u'\\');
    if (backslash == std::u16string::npos) {
        return {false, u"", rest};
    }
    return {true, rest.substr(0, backslash), rest.substr(backslash + 1)};
}

}  // namespace korvanta
