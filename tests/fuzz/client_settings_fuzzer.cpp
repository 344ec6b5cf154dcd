// ClientSet.txt, read through the server's share: what is taken, what stays, and that saving loses nothing.
// Aims at: server/clsClientSettings.cpp common/Conversion.cpp
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "fakes/FakeMessageTexts.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeTraceLog.h"
#include "fuzz/Fuzzing.h"
#include "server/clsClientSettings.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {
namespace {

constexpr std::size_t numbers = 9;

struct Values {
    std::array<std::int32_t, numbers> number;
    bool onTop;
    std::array<std::u16string, 3> text;

    bool operator==(const Values&) const = default;
};

Values ValuesOf(const clsClientSettings& settings) {
    return {
        {settings.JobMatchMethod(), settings.JobDetectionMethod(), settings.JobDetectionMethodWin9X(),
         settings.ServerHealthTestInterval(), settings.FullRefreshInterval(), settings.PrinterListRefreshInterval(),
         settings.ServerDownFullRefreshInterval(), settings.PrinterPollingInterval(), settings.FilePollingInterval()},
        settings.ClientPopupOnTop(),
        {settings.UsersDoNotRequireAccount(), settings.DefaultComment(), settings.ShowOnInvoiceLabel()}};
}

// True and False in any letter case, or a number.
std::optional<bool> Truth(std::u16string text) {
    text.erase(0, text.find_first_not_of(u' '));
    text.erase(text.find_last_not_of(u' ') + 1);
    const auto is = [&text](std::u16string_view word) {
        return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                          [](char16_t a, char16_t b) { return (a >= u'A' && a <= u'Z' ? a + 32 : a) == b; });
    };
    if (is(u"true") || is(u"false")) {
        return is(u"true");
    }
    const std::string number = fuzz::DecimalAtStart(text);
    const double value = std::strtod(number.c_str(), nullptr);
    if (number.empty() || number.size() != text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value != 0;
}

// What the lines make of the values, and whether they are a settings file.
bool Take(const std::vector<std::u16string>& lines, Values& values) {
    for (std::size_t i = 0; i < numbers; ++i) {
        const std::optional<std::int32_t> number = i < lines.size() ? fuzz::Number32(lines[i]) : std::nullopt;
        if (!number) {
            return false;
        }
        values.number[i] = *number;
    }
    const std::optional<bool> onTop = lines.size() > numbers ? Truth(lines[numbers]) : std::nullopt;
    if (!onTop) {
        return false;
    }
    values.onTop = *onTop;
    for (std::size_t i = 0; i < 3 && numbers + 1 + i < lines.size(); ++i) {
        values.text[i] = lines[numbers + 1 + i];
    }
    return lines.size() > numbers + 1;
}

clsClientSettings Unusual() {
    clsClientSettings settings;
    settings.JobMatchMethod(-7);
    settings.ClientPopupOnTop(true);
    settings.UsersDoNotRequireAccount(u"u");
    settings.DefaultComment(u"d");
    settings.ShowOnInvoiceLabel(u"s");
    return settings;
}

void LoadAndSave(const std::string& bytes, std::size_t readSize) {
    fakes::FakePlatform platform;
    fakes::FakeMessageTexts texts;
    fakes::FakeTraceLog log;
    platform.files.WriteBytes(u"\\\\SRV\\TLXData$\\ClientSet.txt", bytes);
    platform.files.largestRead = readSize;
    clsServerInterfaces servers(platform.files, platform.internet, platform.messageLoop, platform.messageBoxes, texts,
                                log, u"jsmith");
    const std::u16string text = servers.Interface(u"srv")->GetClientSettingsFile();
    REQUIRE(text == fuzz::Utf16Text(bytes));

    clsClientSettings settings = Unusual();
    Values expected = ValuesOf(settings);
    const bool isFile = Take(fuzz::Pieces(text, u"\r\n"), expected);
    REQUIRE(settings.LoadString(text) == isFile);
    REQUIRE(ValuesOf(settings) == expected);

    clsClientSettings fromStream = Unusual();
    expected = ValuesOf(fromStream);
    const bool isLines = Take(fuzz::LinesOf(text), expected);
    TextInput stream = TextInput::OpenUtf16(platform.files, u"\\\\SRV\\TLXData$\\ClientSet.txt");
    REQUIRE(fromStream.LoadFile(stream) == isLines);
    REQUIRE(ValuesOf(fromStream) == expected);

    const std::u16string copy = u"C:\\Temp\\out.txt";
    TextOutput output = TextOutput::OpenUtf16(platform.files, copy);
    REQUIRE(settings.SaveFile(output));
    clsClientSettings reloaded;
    REQUIRE(reloaded.LoadString(platform.files.ReadUtf16(copy)));
    REQUIRE(ValuesOf(reloaded) == ValuesOf(settings));
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    const std::string file = korvanta::fuzz::Utf16File(input);
    korvanta::LoadAndSave(file, korvanta::fuzz::ReadSize(input));
    return 0;
}
