#include "controls/AccessKey.h"

namespace korvanta {

namespace {
constexpr char16_t mark = u'&';
}  // namespace

std::size_t AccessKeyPlace(std::u16string_view caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] == mark && caption[++i] != mark) {
            return i;
        }
    }
    return std::u16string_view::npos;
}

std::u16string WithoutAccessKey(const std::u16string& caption) {
    const std::size_t place = AccessKeyPlace(caption);
    return place == std::u16string::npos ? caption : caption.substr(0, place - 1) + caption.substr(place);
}

std::u16string WithPlainAmpersands(std::u16string_view text) {
    std::u16string caption;
    for (std::size_t i = 0; i < text.size(); ++i) {
        caption += text[i];
        if (text[i] == mark) {
            caption += mark;
            i += i + 1 < text.size() && text[i + 1] == mark ? 1U : 0U;
        }
    }
    return caption;
}

}  // namespace korvanta
