#include "fuzz/Fuzzing.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace korvanta::fuzz {

namespace {

constexpr char sectionEnd = '\x1E';
constexpr char16_t byteOrderMark = u'\uFEFF';

// How many bytes of UTF-8 begin the text; 0 when none do. Surrogates count, since UTF-16 files may hold them singly.
std::size_t SequenceLength(std::string_view bytes, char32_t& codePoint) {
    const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned first = at(0);
    const std::size_t length = first < 0x80                    ? 1
                               : first >= 0xC2 && first < 0xE0 ? 2
                               : first >= 0xE0 && first < 0xF0 ? 3
                               : first >= 0xF0 && first < 0xF5 ? 4
                                                               : 0;
    if (length == 0 || length > bytes.size()) {
        return 0;
    }
    codePoint = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xC0U) != 0x80U) {
            return 0;
        }
        codePoint = codePoint << 6U | (at(i) & 0x3FU);
    }
    return codePoint > 0x10FFFF ? 0 : length;
}

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

}  // namespace

void Fail(const char* condition, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: this does not hold: %s\n", file, line, condition);
    std::abort();
}

Input::Input(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t lineEnd = bytes.find('\n');
    letters_ = bytes.substr(0, lineEnd);
    ended_ = lineEnd == std::string_view::npos;
    rest_ = ended_ ? std::string_view() : bytes.substr(lineEnd + 1);
}

unsigned Input::Choose(unsigned choices) {
    if (letters_.empty()) {
        return 0;
    }
    const auto letter = static_cast<unsigned char>(letters_.front());
    letters_.remove_prefix(1);
    return static_cast<unsigned char>(letter - 'a') % choices;
}

std::string_view Input::Bytes() {
    const std::size_t end = rest_.find(sectionEnd);
    const std::string_view section = rest_.substr(0, end);
    ended_ = end == std::string_view::npos;
    rest_.remove_prefix(ended_ ? rest_.size() : end + 1);
    return section;
}

std::u16string Input::Text() {
    return FromUtf8(Bytes());
}

std::string Utf16File(Input& input) {
    const std::string_view section = input.Bytes();
    const std::string bytes = Utf16Bytes(FromUtf8(section));
    switch (input.Choose(4)) {
        case 0:
            return "\xFF\xFE" + bytes;
        case 1:
            return std::string(section);
        case 2:
            return bytes;
        default:
            return "\xFF\xFE" + bytes + "\r";
    }
}

std::size_t ReadSize(Input& input) {
    constexpr std::size_t sizes[] = {std::numeric_limits<std::size_t>::max(), 1, 2, 3, 7, 64};
    return sizes[input.Choose(6)];
}

std::u16string FromUtf8(std::string_view bytes) {
    std::u16string text;
    while (!bytes.empty()) {
        char32_t codePoint = static_cast<unsigned char>(bytes.front());
        const std::size_t length = SequenceLength(bytes, codePoint);
        if (length == 0) {
            text += static_cast<char16_t>(static_cast<unsigned char>(bytes.front()));
        } else if (codePoint < 0x10000) {
            text += static_cast<char16_t>(codePoint);
        } else {
            text += static_cast<char16_t>(0xD7C0U + (codePoint >> 10U));
            text += static_cast<char16_t>(0xDC00U | (codePoint & 0x3FFU));
        }
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

std::string Utf16Bytes(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8U);
    }
    return bytes;
}

std::u16string Utf16Text(std::string_view bytes) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                      static_cast<unsigned>(static_cast<unsigned char>(bytes[i + 1])) << 8U);
    }
    return text.starts_with(byteOrderMark) ? text.substr(1) : text;
}

std::vector<std::u16string> LinesOf(std::u16string_view text) {
    std::vector<std::u16string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(u'\n');
        std::u16string_view line = text.substr(0, end);
        if (end != std::u16string_view::npos && line.ends_with(u'\r')) {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
        text.remove_prefix(end == std::u16string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

std::vector<std::u16string> Pieces(std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::u16string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + separator.size());
    }
}

std::optional<std::int64_t> WholeNumber(std::u16string_view text, std::int64_t lowest, std::int64_t highest) {
    while (text.starts_with(u' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(u' ')) {
        text.remove_suffix(1);
    }
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    while (text.size() > 1 && text.starts_with(u'0')) {
        text.remove_prefix(1);
    }
    std::int64_t number = 0;
    for (const char16_t unit : text) {
        if (!IsDigit(unit) || text.size() > 12) {
            return std::nullopt;
        }
        number = number * 10 + (unit - u'0');
    }
    number = negative ? -number : number;
    return number < lowest || number > highest ? std::nullopt : std::optional(number);
}

std::string DecimalAtStart(std::u16string_view text) {
    std::size_t at = text.starts_with(u'-') || text.starts_with(u'+') ? 1 : 0;
    const auto skipDigits = [text](std::size_t from) {
        while (from < text.size() && IsDigit(text[from])) {
            ++from;
        }
        return from;
    };
    const std::size_t whole = skipDigits(at);
    std::size_t digits = whole - at;
    at = whole;
    if (at < text.size() && text[at] == u'.') {
        const std::size_t fraction = skipDigits(at + 1);
        digits += fraction - at - 1;
        at = fraction;
    }
    if (digits == 0) {
        return {};
    }
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == u'-' || text[exponent] == u'+')) {
            ++exponent;
        }
        const std::size_t end = skipDigits(exponent);
        at = end > exponent ? end : at;
    }
    return {text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at)};
}

double NumberAtStart(std::u16string_view text) {
    while (text.starts_with(u' ') || text.starts_with(u'\t')) {
        text.remove_prefix(1);
    }
    const double number = std::strtod(DecimalAtStart(text).c_str(), nullptr);
    return std::isfinite(number) ? number : 0;
}

}  // namespace korvanta::fuzz
