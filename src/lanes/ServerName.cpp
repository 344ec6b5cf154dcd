#include "lanes/ServerName.h"

#include <algorithm>

namespace korvanta {

namespace {

char16_t LowerLetter(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

std::u16string UpTo(std::u16string_view text, char16_t end) {
    std::u16string name(text.substr(0, text.find(end)));
    std::transform(name.begin(), name.end(), name.begin(), &LowerLetter);
    return name;
}

}  // namespace

std::u16string ServerOfPath(std::u16string_view path) {
    constexpr std::u16string_view begin = u"\\\\";
    return path.starts_with(begin) ? UpTo(path.substr(begin.size()), u'\\') : std::u16string();
}

std::u16string ServerOfUrl(std::u16string_view url) {
    constexpr std::u16string_view begin = u"://";
    const std::size_t scheme = url.find(begin);
    return scheme == std::u16string_view::npos ? std::u16string() : UpTo(url.substr(scheme + begin.size()), u'/');
}

}  // namespace korvanta
