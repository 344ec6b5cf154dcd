#include "platform/win32/services/WindowsCodePage.h"

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

std::u16string WindowsCodePage::Decode(std::string_view bytes) const {
    return textCalls::FromCodePage(bytes);
}

std::string WindowsCodePage::Encode(std::u16string_view text) const {
    return textCalls::ToCodePage(text);
}

std::u16string WindowsCodePage::BestFit(std::u16string_view text) const {
    return textCalls::FromCodePage(textCalls::ToLookAlikes(text));
}

}  // namespace korvanta
