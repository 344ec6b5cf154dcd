#include "platform/win32/services/WindowsPlatform.h"

#include <gtest/gtest.h>

#include "platform/win32/services/Fonts.h"
#include "platform/win32/services/WindowsMessageLoop.h"

namespace korvanta {
namespace {

TEST(PlatformTests, EveryServiceIsThere) {
    WindowsPlatform platform;
    Platform& services = platform.Services();
    EXPECT_FALSE(services.files.TemporaryFolder().empty());
    EXPECT_EQ(services.screen.TwipsPerPixel(), 1440.0 / platform.DialogFonts().DotsPerInch());
    EXPECT_EQ(&services.messageLoop, &platform.Loop());
}

}  // namespace
}  // namespace korvanta
