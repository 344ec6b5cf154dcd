#include "platform/win32/services/Fonts.h"

#include <utility>

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

Fonts::Fonts() {
    const ScreenContext screen(::GetDC(nullptr));
    if (screen) {
        systemDotsPerInch_ = ::GetDeviceCaps(screen.Get(), LOGPIXELSX);
    }
    ChangeResolution(systemDotsPerInch_);
}

void Fonts::ChangeResolution(int dotsPerInch) {
    FontHandle normal(textCalls::MakeMessageFont(false, dotsPerInch, systemDotsPerInch_));
    FontHandle bold(textCalls::MakeMessageFont(true, dotsPerInch, systemDotsPerInch_));
    if (!normal || !bold) {
        return;
    }
    normalBefore_ = std::exchange(normal_, std::move(normal));
    boldBefore_ = std::exchange(bold_, std::move(bold));
    dotsPerInch_ = dotsPerInch;
}

}  // namespace korvanta
