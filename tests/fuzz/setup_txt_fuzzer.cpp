// setup.txt and the registry settings that it stands behind: which line gives which value, and that a setting reads
// the same every time once it was read.
// Aims at: app/clsSetupTxt.cpp common/clsRegSettings.cpp common/Text.cpp
#include "app/clsSetupTxt.h"
#include "common/Deployment.h"
#include "common/clsRegSettings.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakePlatform.h"
#include "fuzz/Fuzzing.h"

namespace korvanta {
namespace {

const std::u16string folder = u"C:\\Korvanta";
const std::u16string existing = u"C:\\Data";

std::string LowerAscii(std::string text) {
    for (char& letter : text) {
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return text;
}

// The value of the first line with the key anywhere, cut where a key at the line's start ends; Latin-1.
std::u16string ValueIn(std::string_view file, const std::string& key) {
    while (!file.empty()) {
        const std::size_t end = file.find('\n');
        std::string line(file.substr(0, end));
        if (end != std::string_view::npos && line.ends_with('\r')) {
            line.pop_back();
        }
        if (LowerAscii(line).find(LowerAscii(key) + "=") != std::string::npos) {
            std::u16string value;
            for (const char byte : line.substr(key.size() + 1)) {
                value += static_cast<char16_t>(static_cast<unsigned char>(byte));
            }
            return value;
        }
        file.remove_prefix(end == std::string_view::npos ? file.size() : end + 1);
    }
    return {};
}

bool FlagIn(std::string_view file, const std::string& key) {
    const std::u16string value = ValueIn(file, key);
    return value.empty() || value == u"1";
}

void RequireSetup(fakes::FakePlatform& platform, clsSetupTxt& setup, std::string_view file) {
    REQUIRE(setup.TLXPrimaryServer() == ValueIn(file, "TLXPrimaryServer"));
    REQUIRE(setup.LinkName() == ValueIn(file, "LinkName"));
    REQUIRE(setup.LinkPath() == ValueIn(file, "LinkPath"));
    REQUIRE(setup.ShowOnStartup() == FlagIn(file, "ShowOnStartup"));
    REQUIRE(setup.ShowLink() == FlagIn(file, "ShowLink"));
    const std::u16string path = ValueIn(file, "UserDBPath");
    const bool exists = platform.files.FileExists(path) || platform.files.FolderExists(path);
    REQUIRE(setup.UserDBPath() == (exists ? path : u""));
}

// Values of the registry that are there, by letters.
void PutValues(fakes::FakeRegistry& registry, fuzz::Input& input) {
    for (const char16_t* name : {u"TLXPrimaryServer", u"LinkName", u"ShowLink", u"Language", u"ResellerURL"}) {
        if (input.Choose(2) == 1) {
            registry.Put(registrySubKey, name, input.Text());
        }
    }
}

void RequireSettings(clsRegSettings& settings) {
    const std::u16string server = settings.TLXPrimaryServer();
    REQUIRE(settings.TLXPrimaryServer() == server);
    const std::u16string link = settings.LinkName();
    REQUIRE(!link.empty());
    REQUIRE(settings.LinkName() == link);
    const bool showLink = settings.ShowLink();
    REQUIRE(settings.ShowLink() == showLink);
    REQUIRE(!settings.Language().empty());
    REQUIRE(settings.ResellerURL() != u"error");
    REQUIRE(!settings.TLXClientRemembersSettings());
}

void Read(fuzz::Input& input) {
    fakes::FakePlatform platform;
    fakes::FakeErrorReports reports;
    const std::string_view file = input.Bytes();
    platform.files.largestRead = fuzz::ReadSize(input);
    platform.files.AddFolder(existing);
    platform.files.WriteBytes(folder + u"\\setup.txt", file);
    PutValues(platform.registry, input);
    clsSetupTxt setup(platform.files, platform.codePage, folder);
    clsRegSettings settings(platform.registry, setup, reports);
    RequireSetup(platform, setup, file);
    const std::u16string stored = platform.registry.Text(registrySubKey, u"TLXPrimaryServer");
    REQUIRE(settings.TLXPrimaryServer() == (stored.empty() ? setup.TLXPrimaryServer() : stored));
    RequireSettings(settings);
    REQUIRE(reports.messages.empty());
    REQUIRE(platform.files.OpenFiles() == 0);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::Read(input);
    return 0;
}
