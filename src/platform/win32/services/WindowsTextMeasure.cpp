#include "platform/win32/services/WindowsTextMeasure.h"

#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/Fonts.h"

namespace korvanta {

namespace {

// The text that a caption shows: without the "&" of its access key, and with one "&" for each "&&".
std::u16string Drawn(const std::u16string& caption) {
    std::u16string drawn;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size()) {
            break;
        }
        drawn += caption[i];
    }
    return drawn;
}

}  // namespace

int WindowsTextMeasure::Width(const std::u16string& caption, bool bold) {
    const ScreenContext screen(::GetDC(nullptr));
    const Selection font(screen.Get(), fonts_.Get(bold));
    return fonts_.Twips(textCalls::TextExtent(screen.Get(), Drawn(caption)).cx);
}

int WindowsTextMeasure::LineHeight(bool bold) {
    const ScreenContext screen(::GetDC(nullptr));
    const Selection font(screen.Get(), fonts_.Get(bold));
    TEXTMETRICA metrics{};
    ::GetTextMetricsA(screen.Get(), &metrics);
    return fonts_.Twips(metrics.tmHeight);
}

}  // namespace korvanta
