#include "common/CAccountComparator.h"

#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

namespace {

std::u16string_view FromFirstTab(const std::u16string& line) {
    const std::size_t tab = line.find(u'\t');
    if (tab == std::u16string::npos) {
        throw StandardError(errorNumber::invalidCall, u"CAccountComparator");
    }
    return std::u16string_view(line).substr(tab);
}

}  // namespace

std::int16_t CAccountComparator::IComparator_Compare(const Variant& a, const Variant& b) {
    return static_cast<std::int16_t>(CompareNoCase(FromFirstTab(a.Text()), FromFirstTab(b.Text())));
}

}  // namespace korvanta
