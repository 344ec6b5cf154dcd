#pragma once

#include <map>

#include "platform/CodePage.h"

namespace korvanta::fakes {

// Latin-1: each byte is the character of the same number. Characters that it lacks become "?".
class FakeCodePage : public CodePage {
  public:
    std::u16string Decode(std::string_view bytes) const override {
        std::u16string text;
        text.reserve(bytes.size());
        for (const char byte : bytes) {
            text += static_cast<char16_t>(static_cast<unsigned char>(byte));
        }
        return text;
    }
    std::string Encode(std::u16string_view text) const override {
        std::string bytes;
        bytes.reserve(text.size());
        for (const char16_t unit : text) {
            bytes += unit < 0x100 ? static_cast<char>(unit) : '?';
        }
        return bytes;
    }
    std::map<char16_t, char16_t> lookAlikes;  // that BestFit knows
    std::u16string BestFit(std::u16string_view text) const override {
        std::u16string similar(text);
        for (char16_t& unit : similar) {
            const auto found = lookAlikes.find(unit);
            unit = found == lookAlikes.end() ? unit : found->second;
        }
        return Decode(Encode(similar));
    }
};

}  // namespace korvanta::fakes
