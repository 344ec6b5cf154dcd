// What an hour of monitoring asks of a print server at the default intervals: an exact count, printed for
// tools/monitoring-cost, which multiplies it by the bytes that a real web server has counted.

#include <array>
#include <cstdio>
#include <map>

#include "unit/app/ProgramFixture.h"

namespace korvanta {
namespace {

constexpr int hour = 3600;

struct Case {
    const char* method;
    int jobs;
    std::map<std::string, int> expected;
};

std::string Plain(const std::u16string& text) {
    return {text.begin(), text.end()};
}

// The kind of file that is asked for: the list's name, "counter", "job file", ...
std::string KindOf(const std::string& name) {
    const std::size_t start = name.find_last_of("/\\") + 1;
    const std::string file = name.substr(start);
    return file.ends_with(".tlu")         ? "counter"
           : file.starts_with("jsmith.0") ? "job file"
           : name.ends_with("\\jobs")     ? "jobs folder"
           : file.ends_with(".tlx")       ? "notification"
           : file == "jsmith.txt"         ? "preferences"
                                          : file;
}

class MonitoringCost : public fakes::ProgramFixture, public testing::WithParamInterface<Case> {
  protected:
    bool OverHttp() const { return GetParam().method == std::string("http"); }

    void Publish() {
        const std::u16string method = OverHttp() ? u"2" : u"0";
        const std::u16string text = u"2\r\n" + method + u"\r\n1\r\n31\r\n60\r\n44\r\n30\r\n8\r\n4\r\n0\r\n\r\n";
        PublishSettings(text);
        windows.internet.unknownUrlBody = "file not found";
        windows.internet.PutUtf16(u"http://SRV1/TLXData/ClientSet.txt", text);
        windows.internet.PutUtf16(u"http://SRV1/TLXData/Servers.txt", u"");
        windows.internet.PutUtf16(u"http://SRV1/TLXData/Printers.txt", u"laser\r\ncolour\r\n");
        windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\jobs\\jsmith.tlu", u"0");
        PutOnTheWeb(u"jsmith.tlu");
    }
    // What the share has under this name.
    void PutOnTheWeb(const std::u16string& name) {
        const std::u16string path = u"\\\\SRV1\\TLXData$\\jobs\\" + name;
        if (windows.files.Has(path)) {
            windows.internet.Put(u"http://SRV1/TLXData/jobs/" + name, windows.files.ReadBytes(path));
        }
    }
    void Job(int number) {
        AnnounceJob(number, u"document " + Decimal(number));
        PutOnTheWeb(u"jsmith.00" + Decimal(number));
        PutOnTheWeb(u"jsmith.tlu");
    }
    // The calls that reach the server, as "the way: the kind of file".
    std::map<std::string, int> Calls() const {
        std::map<std::string, int> calls;
        for (const auto& request : windows.internet.requests) {
            ++calls["GET " + KindOf(Plain(request.url))];
        }
        for (const std::u16string& line : windows.files.log) {
            if (line.find(u"\\\\SRV1\\") != std::u16string::npos) {
                const std::string plain = Plain(line);
                ++calls[plain.substr(0, plain.find(' ')) + " " + KindOf(plain)];
            }
        }
        return calls;
    }
};

TEST_P(MonitoringCost, AnHourAsksForWhatItsIntervalsSay) {
    Publish();
    windows.system.commandLine = u"/test";
    ASSERT_TRUE(Start());
    Tick(60);  // so that the hour has its one full refresh
    windows.internet.requests.clear();
    windows.files.log.clear();
    int announced = 0;
    for (int second = 0; second < hour; ++second) {
        if (announced < GetParam().jobs && second % (hour / GetParam().jobs) == 60) {
            Job(announced++);
        }
        Tick();
        program->AccountDialog()->tmrMonitor.HandleTick();
    }
    EXPECT_EQ(program->AccountDialog()->lblJobsQueued.Caption(), u"0");
    for (const auto& [call, count] : Calls()) {
        std::printf("cost: %s, %d jobs: %5d x %s\n", GetParam().method, GetParam().jobs, count, call.c_str());
    }
    EXPECT_EQ(Calls(), GetParam().expected);
}

std::string NameOf(const testing::TestParamInfo<Case>& info) {
    return info.param.method + std::to_string(info.param.jobs);
}

const std::array cases{Case{"file",
                            0,
                            {{"FileExists job file", 426},
                             {"FolderExists jobs folder", 114},
                             {"OpenForReading ChargeRates.txt", 1},
                             {"OpenForReading ClientSet.txt", 1},
                             {"OpenForReading Printers.txt", 81},
                             {"OpenForReading Servers.txt", 81},
                             {"OpenForReading counter", 426}}},
                       Case{"file",
                            10,
                            {{"FileExists job file", 432},
                             {"FolderExists jobs folder", 114},
                             {"LastModified Accounts.txt", 10},
                             {"OpenForReading ChargeRates.txt", 1},
                             {"OpenForReading ClientSet.txt", 1},
                             {"OpenForReading Printers.txt", 81},
                             {"OpenForReading Servers.txt", 81},
                             {"OpenForReading counter", 426},
                             {"OpenForReading job file", 10},
                             {"OpenForReading preferences", 1},
                             {"OpenForWriting notification", 10},
                             {"OpenForWriting preferences", 10}}},
                       Case{"http",
                            0,
                            {{"GET ClientSet.txt", 115},
                             {"GET Printers.txt", 81},
                             {"GET Servers.txt", 81},
                             {"GET counter", 426},
                             {"GET job file", 426},
                             {"OpenForReading ChargeRates.txt", 1}}},
                       Case{"http",
                            10,
                            {{"GET ClientSet.txt", 115},
                             {"GET Printers.txt", 81},
                             {"GET Servers.txt", 81},
                             {"GET counter", 426},
                             {"GET job file", 442},
                             {"LastModified Accounts.txt", 10},
                             {"OpenForReading ChargeRates.txt", 1},
                             {"OpenForReading preferences", 1},
                             {"OpenForWriting notification", 10},
                             {"OpenForWriting preferences", 10}}}};

INSTANTIATE_TEST_SUITE_P(Hour, MonitoringCost, testing::ValuesIn(cases), NameOf);

}  // namespace
}  // namespace korvanta
