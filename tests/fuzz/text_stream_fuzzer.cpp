// Text files of either encoding, read in any pieces by any calls, and written: every unit comes once and in order.
// Aims at: common/TextStream.cpp
#include "common/Error.h"
#include "common/TextStream.h"
#include "fakes/FakePlatform.h"
#include "fuzz/Fuzzing.h"

namespace korvanta {
namespace {

const std::u16string path = u"C:\\Temp\\a.txt";
constexpr std::size_t mostCalls = 200;

// The line at the start of what is left, which is then left no more.
std::u16string TakeLine(std::u16string& left) {
    const std::size_t end = left.find(u'\n');
    const std::u16string line = fuzz::LinesOf(left.substr(0, end == std::u16string::npos ? end : end + 1)).front();
    left.erase(0, end == std::u16string::npos ? end : end + 1);
    return line;
}

void ReadBy(TextInput& stream, std::u16string left, fuzz::Input& input) {
    for (std::size_t i = 0; i < mostCalls; ++i) {
        const unsigned call = input.Choose(3);
        if (call == 1 || (call == 0 && left.empty())) {
            REQUIRE(stream.AtEnd() == left.empty());
            if (left.empty()) {
                return;
            }
            continue;
        }
        const bool wasEmpty = left.empty();
        try {
            if (call == 0) {
                REQUIRE(stream.ReadLine() == TakeLine(left));
            } else {
                REQUIRE(stream.ReadAll() == left);
                left.clear();
            }
            REQUIRE(!wasEmpty);
        } catch (const Error& error) {
            REQUIRE(wasEmpty && error.Number() == errorNumber::inputPastEnd);
        }
    }
}

void Read(fuzz::Input& input) {
    fakes::FakePlatform platform;
    const bool utf16 = input.Choose(2) == 0;
    const std::string bytes = utf16 ? fuzz::Utf16File(input) : std::string(input.Bytes());
    platform.files.WriteBytes(path, bytes);
    platform.files.largestRead = fuzz::ReadSize(input);
    const std::u16string text = utf16 ? fuzz::Utf16Text(bytes) : platform.codePage.Decode(bytes);
    TextInput stream = utf16 ? TextInput::OpenUtf16(platform.files, path)
                             : TextInput::OpenAnsi(platform.files, platform.codePage, path);
    ReadBy(stream, text, input);
}

void Write(fuzz::Input& input) {
    fakes::FakePlatform platform;
    const bool utf16 = input.Choose(2) == 0;
    TextOutput stream = utf16 ? TextOutput::OpenUtf16(platform.files, path)
                              : TextOutput::OpenAnsi(platform.files, platform.codePage, path);
    std::u16string text;
    do {
        const std::u16string section = input.Text();
        switch (input.Choose(3)) {
            case 0:
                stream.WriteLine(section);
                text += section + u"\r\n";
                break;
            case 1:
                stream.Write(section);
                text += section;
                break;
            default:
                stream.Write(section);
                stream.Flush();
                text += section;
                const std::string bytes = utf16 ? "\xFF\xFE" + fuzz::Utf16Bytes(text) : platform.codePage.Encode(text);
                REQUIRE(stream.FileLength() == bytes.size());
        }
    } while (!input.AtEnd());
    stream.Close();
    REQUIRE(platform.files.ReadBytes(path) ==
            (utf16 ? "\xFF\xFE" + fuzz::Utf16Bytes(text) : platform.codePage.Encode(text)));
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    if (input.Choose(3) == 2) {
        korvanta::Write(input);
    } else {
        korvanta::Read(input);
    }
    return 0;
}
