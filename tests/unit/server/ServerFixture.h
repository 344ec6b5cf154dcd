#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/Error.h"
#include "common/Text.h"
#include "common/TextStream.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeInternet.h"
#include "fakes/FakeMessageBoxes.h"
#include "fakes/FakeMessageLoop.h"
#include "fakes/FakeMessageTexts.h"
#include "fakes/FakeMutexFactory.h"
#include "fakes/FakeTraceLog.h"
#include "gtest/gtest.h"

namespace korvanta {

// What the classes of the server room stand on, with a server SRV that has its data share.
class ServerFixture : public testing::Test {
  protected:
    using Lines = std::vector<std::u16string>;

    ServerFixture() { files.AddFolder(u"\\\\SRV\\TLXData$\\jobs"); }
    ~ServerFixture() override {
        EXPECT_EQ(files.OpenFiles(), 0) << "a file was left open";
        EXPECT_EQ(internet.openFiles, 0) << "a response was left open";
    }

    // UTF-16 little-endian with its byte-order mark.
    static std::string Utf16(std::u16string_view text) {
        std::string bytes = "\xFF\xFE";
        for (const char16_t unit : text) {
            bytes += static_cast<char>(unit & 0xFFU);
            bytes += static_cast<char>(unit >> 8U);
        }
        return bytes;
    }
    TextInput Open(std::u16string_view text) {
        files.WriteUtf16(u"C:\\Temp\\in.txt", text);
        return TextInput::OpenUtf16(files, u"C:\\Temp\\in.txt");
    }
    TextOutput Create() { return TextOutput::OpenUtf16(files, written); }

    const std::u16string written = u"C:\\Temp\\out.txt";
    fakes::FakeClock clock;
    fakes::FakeFileSystem files{clock};
    fakes::FakeInternet internet;
    fakes::FakeMessageLoop messages;
    fakes::FakeMessageBoxes boxes;
    fakes::FakeMessageTexts texts;
    fakes::FakeMutexFactory mutexes;
    fakes::FakeTraceLog log;
    fakes::FakeErrorReports reports;
};

}  // namespace korvanta
