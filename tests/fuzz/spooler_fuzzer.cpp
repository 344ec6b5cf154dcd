// What the spooler answers: job blocks of its own layout, and answers that no spooler should give. Each job that is
// reported says what its block says, and nothing is read that lies outside the buffer.
// Aims at: detection/clsJobDetectionPrinter.cpp detection/clsJobInfo.cpp
#include <algorithm>
#include <cstring>

#include "common/Text.h"
#include "detection/clsJobDetectionPrinter.h"
#include "fuzz/Fuzzing.h"
#include "unit/detection/Support.h"

namespace korvanta {
namespace {

constexpr std::size_t blockWords = 16;
constexpr std::uint32_t mostNeededBytes = 10'000;
const std::u16string printerName = u"\\\\srv\\laser";

// Answers as the input says: how many bytes it needs, how many jobs it has, what lies in their blocks, and which of the
// texts an address means.
class OddSpooler : public fakes::FakeSpooler {
  public:
    OddSpooler(fakes::FakeWaitableHandles& handles, fuzz::Input& input) : FakeSpooler(handles), input_(input) {
        AddPrinter(printerName);
        blocks_ = input.Bytes();
        do {
            texts_.push_back(input.Text());
        } while (!input.AtEnd());
    }

    std::int32_t EnumJobs(PrinterHandle, std::uint32_t, std::uint32_t, std::vector<std::uint32_t>& words,
                          std::uint32_t bufferBytes, std::uint32_t& neededBytes, std::uint32_t& returnedJobs) override {
        REQUIRE(bufferBytes <= words.size() * sizeof(std::uint32_t));
        // The detector's buffer is no larger than it was told, and a little.
        REQUIRE(words.size() <= mostNeededBytes);
        const std::size_t size = std::min<std::size_t>(bufferBytes, blocks_.size());
        if (size != 0) {
            std::memcpy(words.data(), blocks_.data(), size);
        }
        constexpr std::uint32_t needs[] = {0, 64, 256, 1, mostNeededBytes};
        const unsigned need = input_.Choose(5);
        neededBytes = need == 0 ? static_cast<std::uint32_t>(blocks_.size()) : needs[need];
        constexpr std::uint32_t counts[] = {1, 0, 2, 5, 100, 0x7FFFFFFF, 0xFFFFFFFF};
        returnedJobs = counts[input_.Choose(7)];
        lastWords_.assign(words.begin(), words.end());
        return static_cast<std::int32_t>(input_.Choose(3)) - 1;
    }
    std::u16string TextAt(std::uint32_t address) override {
        return address == 0 ? std::u16string() : texts_[address % texts_.size()];
    }
    const std::vector<std::uint32_t>& LastWords() const { return lastWords_; }

  private:
    fuzz::Input& input_;
    std::string_view blocks_;
    std::vector<std::u16string> texts_;
    std::vector<std::uint32_t> lastWords_;
};

std::u16string MachineIn(std::u16string text) {
    std::erase(text, u'\\');
    text.erase(0, text.find_first_not_of(u' '));
    text.erase(text.find_last_not_of(u' ') + 1);
    return text;
}

void RequireJob(const clsJobInfo& job, std::int32_t id, const std::u16string& machine, const std::u16string& user,
                const std::u16string& document) {
    REQUIRE(job.JobID == id);
    REQUIRE(job.MachineName == MachineIn(machine));
    REQUIRE(job.UserName == Lower(user));
    REQUIRE(job.Document == document);
    REQUIRE(job.FullPrinterName == printerName);
    REQUIRE(job.PrinterName == u"laser");
    REQUIRE(job.JobEventFilename.empty());
}

struct Detection {
    explicit Detection(bool windows9x) {
        organisation.PublishPrinters(u"srv", {u"laser"});
        organisation.printersMonitored.RefreshPrinterLists();
        organisation.settings.PrinterPollingInterval(0);
        if (windows9x) {
            organisation.systemInformation.BeWindows9x();
        }
    }
    clsJobDetectionPrinter On(Spooler& spooler) {
        return {spooler,
                organisation.platform.waitableHandles,
                organisation.printersMonitored,
                organisation.settings,
                organisation.platform.mutexes,
                organisation.platform.messageLoop,
                organisation.systemInformation,
                organisation.log};
    }

    // Jobs hold their printer open, so they end before the spooler does.
    void Forget() { sink.jobs.clear(); }

    tests::Organisation organisation;
    tests::RecordingSink sink;
};

void AnswerOddly(fuzz::Input& input) {
    Detection detection(input.Choose(2) == 1);
    OddSpooler spooler(detection.organisation.platform.waitableHandles, input);
    clsJobDetectionPrinter detector = detection.On(spooler);
    IJobDetectionObject& calls = detector;
    calls.Start(detection.sink);
    REQUIRE(detection.sink.jobs.empty());
    for (int i = 0; i < 4; ++i) {
        detection.sink.jobs.clear();
        calls.FullRefresh();
        const std::vector<std::uint32_t>& words = spooler.LastWords();
        REQUIRE(detection.sink.jobs.size() <= words.size() / blockWords);
        for (const auto& job : detection.sink.jobs) {
            bool fromBlock = false;
            for (std::size_t at = 0; at + blockWords <= words.size() && !fromBlock; at += blockWords) {
                fromBlock = static_cast<std::int32_t>(words[at]) == job->JobID &&
                            spooler.TextAt(words[at + 4]) == job->Document &&
                            static_cast<std::int32_t>(words[at + 13]) == job->Time1;
            }
            REQUIRE(fromBlock);
        }
        calls.TestServerHealth();
    }
    detection.Forget();
}

// Jobs of the spooler's own layout; those that lay there at the start are not reported, and no other twice.
void PrintJobs(fuzz::Input& input) {
    const bool windows9x = input.Choose(2) == 1;
    Detection detection(windows9x);
    fakes::FakeSpooler spooler(detection.organisation.platform.waitableHandles);
    spooler.AddPrinter(printerName);
    clsJobDetectionPrinter detector = detection.On(spooler);
    IJobDetectionObject& calls = detector;
    spooler.AddJob(printerName, {.id = 1, .machine = u"\\\\WS01", .user = u"jsmith", .document = u"before"});
    calls.Start(detection.sink);
    REQUIRE(detection.sink.jobs.empty());
    for (std::int32_t id = 2; id < 20 && !input.AtEnd(); ++id) {
        // The spooler's texts are single bytes that end with the first zero.
        const auto text = [&input] {
            const fakes::FakeCodePage codePage;
            const std::u16string decoded = codePage.Decode(input.Bytes());
            return decoded.substr(0, decoded.find(u'\0'));
        };
        const std::u16string machine = text();
        const std::u16string user = text();
        const std::u16string document = text();
        spooler.AddJob(printerName, {.id = id,
                                     .machine = machine,
                                     .user = user,
                                     .document = document,
                                     .time = {1, 2, 3, static_cast<std::uint32_t>(id)}});
        detection.sink.jobs.clear();
        if (input.Choose(2) == 1) {
            calls.FullRefresh();
        }
        calls.MonitorClockTick();
        calls.MonitorClockTick();
        REQUIRE(detection.sink.jobs.size() == 1);
        RequireJob(*detection.sink.jobs[0], id, machine, user, document);
        REQUIRE(calls.TestServerHealth());
    }
    detection.Forget();
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    if (input.Choose(2) == 1) {
        korvanta::AnswerOddly(input);
    } else {
        korvanta::PrintJobs(input);
    }
    return 0;
}
