#include "platform/win32/Fonts.h"

#include "platform/win32/TextCalls.h"

namespace korvanta {

Fonts::Fonts() : normal_(textCalls::MakeMessageFont(false)), bold_(textCalls::MakeMessageFont(true)) {
    const ScreenContext screen(::GetDC(nullptr));
    if (screen) {
        dotsPerInch_ = ::GetDeviceCaps(screen.Get(), LOGPIXELSX);
    }
}

}  // namespace korvanta
