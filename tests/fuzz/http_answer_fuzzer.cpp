// Answers of a web server: which are files, that their text comes whole and alone, and that nothing is left behind.
// Aims at: server/clsServerInterfaceHTTP.cpp server/clsInet.cpp
#include "fakes/FakeMessageTexts.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeTraceLog.h"
#include "fuzz/Fuzzing.h"
#include "server/clsServerInterfaceHTTP.h"

namespace korvanta {
namespace {

constexpr std::size_t mostRequests = 12;

class Play {
  public:
    explicit Play(fuzz::Input& input) : input_(input) {
        server().ServerName(u"SRV");
        platform_.internet.largestRead = fuzz::ReadSize(input);
        platform_.internet.unknownUrlError = 12029;
    }

    void Request() {
        const unsigned request = input_.Choose(7);
        const std::string answer = Answer(UrlOf(request));
        switch (request) {
            case 0:
                return RequireFetched(answer, server().GetPrintersFile());
            case 1:
                return RequireFetched(answer, server().GetServersFile());
            case 2:
                return RequireFetched(answer, server().GetClientSettingsFile());
            case 3:
                return RequireFetched(answer, server().GetJobCounter());
            case 4:
                return RequireFetched(answer, server().GetJobNotificationFile(7));
            case 5:
                return RequireTested(answer, server().TestJobNotificationFile(7));
            default:
                return RequireTested(answer, server().TestHealth());
        }
    }

  private:
    static std::u16string UrlOf(unsigned request) {
        constexpr const char16_t* names[] = {u"Printers.txt",    u"Servers.txt",     u"ClientSet.txt",
                                             u"jobs/jsmith.tlu", u"jobs/jsmith.007", u"jobs/jsmith.007",
                                             u"ClientSet.txt"};
        return std::u16string(u"http://SRV/TLXData/") + names[request];
    }
    // Has the server give the next section, or a part of it, or nothing. Returns what arrives.
    std::string Answer(const std::u16string& url) {
        platform_.internet.faults.Clear();
        platform_.internet.Remove(url);
        const unsigned trouble = input_.Choose(4);
        const std::string body = input_.Choose(2) == 0 ? fuzz::Utf16File(input_) : std::string(input_.Bytes());
        if (trouble == 3) {
            return {};
        }
        platform_.internet.Put(url, body);
        if (trouble != 2) {
            return body;
        }
        const auto reads = static_cast<int>(input_.Choose(4));
        platform_.internet.faults.FailOnce("Read", reads + 1, 12030);
        const std::size_t readSize = std::min<std::size_t>(platform_.internet.largestRead, 2048);
        return body.substr(0, readSize * static_cast<std::size_t>(reads));
    }
    // The object's temporary file is written from its start, over what an answer that was no file has left in it.
    void RequireFetched(const std::string& answer, const std::u16string& text) {
        temporary_.replace(0, std::min(temporary_.size(), answer.size()), answer);
        const bool isFile = answer.size() > 2 && answer.starts_with("\xFF\xFE");
        REQUIRE(text == (isFile ? fuzz::Utf16Text(temporary_) : u""));
        if (isFile) {
            temporary_.clear();
        }
        RequireQuiet();
        const std::vector<std::u16string> files = platform_.files.FilesIn(u"C:\\Temp");
        REQUIRE(files.size() == (isFile ? 0 : 1));
        REQUIRE(isFile || platform_.files.ReadBytes(u"C:\\Temp\\" + files[0]) == temporary_);
    }
    void RequireTested(std::string answer, bool there) {
        for (char& letter : answer) {
            letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        }
        REQUIRE(there == (answer.find("file not found") == std::string::npos));
        RequireQuiet();
    }
    void RequireQuiet() {
        REQUIRE(platform_.messageBoxes.shown.empty());
        REQUIRE(platform_.internet.openFiles == 0);
        REQUIRE(platform_.files.OpenFiles() == 0);
    }
    IServerInterface& server() { return server_; }

    fuzz::Input& input_;
    fakes::FakePlatform platform_;
    fakes::FakeMessageTexts texts_;
    fakes::FakeTraceLog log_;
    clsServerInterfaceHTTP server_{
        platform_.files, platform_.internet, platform_.messageLoop, platform_.messageBoxes, texts_, log_, u"jsmith"};
    std::string temporary_;
};

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::Play play(input);
    for (std::size_t i = 0; i < korvanta::mostRequests && (i == 0 || !input.AtEnd()); ++i) {
        play.Request();
    }
    return 0;
}
