// Servers.txt and Printers.txt, refreshed twice: which servers and printers are watched, and whether they changed.
// Aims at: detection/clsPrintersMonitored.cpp server/PrinterName.cpp
// Aims at: server/clsServerInterfaces.cpp server/clsServerInterfaceFile.cpp
#include "common/Text.h"
#include "fuzz/Fuzzing.h"
#include "unit/detection/Support.h"

namespace korvanta {
namespace {

using tests::TextsOf;

constexpr const char16_t* secondServer = u"b";

std::u16string PrintersFile(const std::u16string& server) {
    return u"\\\\" + Upper(server) + u"\\TLXData$\\Printers.txt";
}

std::vector<std::u16string> Records(const std::u16string& text) {
    std::vector<std::u16string> records = fuzz::Pieces(text, u"\r\n");
    std::erase(records, u"");
    return records;
}

// What the files say, kept beside what the client makes of them.
struct Expected {
    std::vector<std::u16string> servers;
    std::vector<std::u16string> printers;
    std::map<std::u16string, std::vector<std::u16string>> known;
    bool changed = false;

    void Refresh(const fakes::FakeFileSystem& files, const std::u16string& serversText) {
        const std::vector<std::u16string> more = Records(serversText);
        // With nothing from the primary server it is away, and what was known before holds.
        if (more.empty() && servers.size() > 1 && fuzz::Utf16Text(files.ReadBytes(PrintersFile(u"srv"))).empty()) {
            changed = false;
            return;
        }
        servers = {u"srv"};
        servers.insert(servers.end(), more.begin(), more.end());
        std::vector<std::u16string> now;
        for (const std::u16string& server : servers) {
            const std::u16string text = fuzz::Utf16Text(files.ReadBytes(PrintersFile(server)));
            if (!text.empty()) {
                known[server].clear();
                for (const std::u16string& record : Records(text)) {
                    const bool isFullName = record.find(u'\\') != std::u16string::npos;
                    known[server].push_back(isFullName ? record : u"\\\\" + server + u"\\" + record);
                }
            }
            now.insert(now.end(), known[server].begin(), known[server].end());
        }
        const std::set<std::u16string> before(printers.begin(), printers.end());
        changed = now.size() != printers.size() ||
                  std::any_of(now.begin(), now.end(), [&before](const auto& name) { return !before.contains(name); });
        printers = now;
    }
};

void Publish(fakes::FakeFileSystem& files, fuzz::Input& input) {
    for (const std::u16string& path :
         {std::u16string(u"\\\\SRV\\TLXData$\\Servers.txt"), PrintersFile(u"srv"), PrintersFile(secondServer)}) {
        const std::string bytes = fuzz::Utf16File(input);
        if (input.Choose(4) == 3) {
            files.RemoveFile(path);
        } else {
            files.WriteBytes(path, bytes);
        }
    }
}

void RefreshTwice(fuzz::Input& input) {
    tests::Organisation organisation;
    fakes::FakeFileSystem& files = organisation.platform.files;
    files.largestRead = fuzz::ReadSize(input);
    Expected expected;
    for (int round = 0; round < 2; ++round) {
        Publish(files, input);
        expected.Refresh(files, fuzz::Utf16Text(files.ReadBytes(u"\\\\SRV\\TLXData$\\Servers.txt")));
        const auto held = organisation.printersMonitored.PrinterList();
        const std::vector<std::u16string> before = TextsOf(*held);
        organisation.printersMonitored.RefreshPrinterLists();
        REQUIRE(TextsOf(*held) == before);
        REQUIRE(TextsOf(*organisation.printersMonitored.ServerList()) == expected.servers);
        REQUIRE(TextsOf(*organisation.printersMonitored.PrinterList()) == expected.printers);
        REQUIRE(organisation.printersMonitored.PrinterListChanged() == expected.changed);
    }
    REQUIRE(files.OpenFiles() == 0);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::RefreshTwice(input);
    return 0;
}
