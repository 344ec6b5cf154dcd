#include "server/PrinterName.h"

#include "common/Text.h"

namespace korvanta {

PrinterName::PrinterName(std::u16string_view fullName)
    : fullName_(fullName), shortName_(Replace(fullName, u"\\\\", u"")) {
    const std::size_t backslash = shortName_.find(u'\\');
    if (backslash != std::u16string::npos) {
        server_ = shortName_.substr(0, backslash);
        shortName_.erase(0, backslash + 1);
    }
}

std::u16string PrinterName::Published(std::u16string_view serverName, std::u16string_view printer) {
    if (printer.find(u'\\') != std::u16string_view::npos) {
        return std::u16string(printer);
    }
    return std::u16string(u"\\\\").append(serverName).append(u"\\").append(printer);
}

std::optional<std::u16string> PrinterName::ServerFromThirdCharacter() const {
    const std::size_t end = fullName_.find(u'\\', 2);
    if (end == std::u16string::npos) {
        return std::nullopt;
    }
    return fullName_.substr(2, end - 2);
}

}  // namespace korvanta
