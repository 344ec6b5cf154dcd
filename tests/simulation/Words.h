#pragma once

#include <string>
#include <vector>

namespace korvanta::simulation {

// The simulation's own conversions, so that it does not judge the program by the program's code.
inline std::u16string Words(int number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

// "jobs\jsmith.007"
inline std::u16string JobFileName(int number) {
    std::u16string digits = Words(number);
    digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, u'0');
    return u"jobs\\jsmith." + digits;
}

// The number at the end of a path or an address, or -1.
inline int NumberOfJobFile(const std::u16string& path) {
    const std::size_t at = path.rfind(u"jsmith.");
    if (at == std::u16string::npos) {
        return -1;
    }
    int number = 0;
    for (std::size_t i = at + 7; i < path.size(); ++i) {
        if (path[i] < u'0' || path[i] > u'9') {
            return -1;
        }
        number = number * 10 + (path[i] - u'0');
    }
    return number;
}

inline std::string Utf16Bytes(const std::u16string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8U);
    }
    return bytes;
}

inline std::u16string TextOfBytes(const std::string& bytes) {
    std::u16string text;
    for (std::size_t i = bytes.starts_with("\xFF\xFE") ? 2 : 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1])
                                                                                 << 8U);
    }
    return text;
}

inline std::vector<std::u16string> LinesOf(const std::u16string& text) {
    std::vector<std::u16string> lines;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(u"\r\n", start);
        lines.push_back(text.substr(start, end == std::u16string::npos ? end : end - start));
        if (end == std::u16string::npos) {
            return lines;
        }
        start = end + 2;
    }
}

}  // namespace korvanta::simulation
