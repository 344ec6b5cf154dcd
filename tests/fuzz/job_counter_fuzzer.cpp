// The job counter, over what may happen to it and to the job files meanwhile: which jobs are reported and when, none
// twice, and how much a tick does at most.
// Aims at: detection/clsJobDetectionFile.cpp detection/JobFiles.cpp server/clsServerInterfaceFile.cpp
#include "detection/clsJobDetectionFile.h"

#include <algorithm>

#include "fuzz/Fuzzing.h"
#include "unit/detection/Support.h"

namespace korvanta {
namespace {

constexpr std::int32_t fileNumbers = 1000;
constexpr std::size_t mostSteps = 12;

std::optional<std::int32_t> CounterIn(std::u16string text) {
    while (text.ends_with(u'\r') || text.ends_with(u'\n')) {
        text.pop_back();
    }
    const std::optional<std::int64_t> counter = fuzz::WholeNumber(text, 0, fileNumbers);
    return counter ? std::optional(static_cast<std::int32_t>(*counter)) : std::nullopt;
}

class Play {
  public:
    explicit Play(fuzz::Input& input) : input_(input) {
        organisation_.settings.FilePollingInterval(0);
        organisation_.PublishPrinters(u"srv", {u"laser"});
        organisation_.printersMonitored.RefreshPrinterLists();
        nextFile_ = static_cast<std::int32_t>(input.Choose(4)) * 333;
        SetCounter();
        Detector().Start(sink_);
        GetCounter();
        RequireAsExpected();
        REQUIRE(sink_.jobs.empty());
    }

    void Step() {
        const std::size_t calls = organisation_.platform.files.log.size();
        Act();
        RequireAsExpected();
        // Each file number is tested twice, read twice and tried again once at most, and a printer's server tested
        // once.
        REQUIRE(organisation_.platform.files.log.size() - calls <= 5 * fileNumbers + 8);
    }

  private:
    void Act() {
        switch (input_.Choose(8)) {
            case 0:
                return Tick();
            case 1:
                return SetCounter();
            case 2:
                return WriteJob();
            case 3:
                nextFile_ = (nextFile_ + 1) % fileNumbers;
                return;
            case 4:
                return RemoveJob();
            case 5:
                Detector().FullRefresh();
                return FindPrinters();
            case 6:
                return organisation_.platform.files.Down(u"srv");
            default:
                return organisation_.platform.files.Up(u"srv");
        }
    }
    void Tick() {
        Detector().MonitorClockTick();
        if (pollNext_) {
            PollFiles();
        } else {
            GetCounter();
        }
        pollNext_ = !pollNext_;
    }
    void SetCounter() {
        counterFile_ = fuzz::Utf16File(input_);
        organisation_.platform.files.WriteBytes(u"\\\\srv\\TLXData$\\jobs\\jsmith.tlu", counterFile_);
    }
    void WriteJob() {
        organisation_.WriteJob(u"srv", nextFile_, NumberText(++documents_));
        jobs_[nextFile_] = documents_;
        nextFile_ = (nextFile_ + 1) % fileNumbers;
    }
    void RemoveJob() {
        nextFile_ = (nextFile_ + fileNumbers - 1) % fileNumbers;
        organisation_.platform.files.RemoveFile(tests::Organisation::JobFilePath(u"srv", nextFile_));
        jobs_.erase(nextFile_);
    }

    // What the detector is to do.
    bool IsUp() { return organisation_.platform.files.FolderExists(u"\\\\srv\\TLXData$\\jobs"); }
    void FindPrinters() {
        healthy_ = IsUp();
        GetCounter();
    }
    void GetCounter() {
        const std::optional<std::int32_t> counter =
            healthy_ && IsUp() ? CounterIn(fuzz::Utf16Text(counterFile_)) : std::nullopt;
        if (!counter) {
            return;
        }
        RetryPassedOver();
        for (std::int32_t number = held_.value_or(*counter); number < *counter; ++number) {
            Report(number);
            if (!jobs_.contains(number)) {
                passedOver_.insert(number);
            }
        }
        if (held_ && *counter < *held_ && missing_ == *held_ % fileNumbers) {
            passedOver_.insert(*missing_);
        }
        held_ = counter;
    }
    void PollFiles() {
        if (!healthy_) {
            return;
        }
        RetryPassedOver();
        held_ = held_.value_or(0);
        missing_.reset();
        for (int i = 0; i < fileNumbers && !missing_; ++i) {
            if (IsUp() && jobs_.contains(*held_ % fileNumbers)) {
                Report(*held_ % fileNumbers);
                held_ = (*held_ % fileNumbers + 1) % fileNumbers;
            } else {
                missing_ = *held_ % fileNumbers;
            }
        }
    }
    // The clock stands still, so none is given up.
    void RetryPassedOver() {
        for (const std::int32_t number : std::set<std::int32_t>(passedOver_)) {
            if (IsUp()) {
                Report(number);
            }
        }
    }
    void Report(std::int32_t number) {
        const auto job = jobs_.find(number);
        if (job != jobs_.end()) {
            passedOver_.erase(number);
        }
        if (job != jobs_.end() && reported_.insert(job->second).second) {
            documentsReported_.push_back(NumberText(job->second));
        }
    }
    // Those that are tried again come in turns, so the order of one step's jobs is left open.
    void RequireAsExpected() {
        tests::Texts reported = sink_.Documents();
        REQUIRE(reported.size() == documentsReported_.size());
        std::sort(reported.begin(), reported.end());
        tests::Texts expected = documentsReported_;
        std::sort(expected.begin(), expected.end());
        REQUIRE(reported == expected);
    }

    IJobDetectionObject& Detector() { return detector_; }

    fuzz::Input& input_;
    tests::Organisation organisation_;
    tests::RecordingSink sink_;
    clsJobDetectionFile detector_{organisation_.serverInterfaces,
                                  organisation_.printersMonitored,
                                  organisation_.settings,
                                  organisation_.platform.mutexes,
                                  organisation_.platform.clock,
                                  organisation_.platform.system,
                                  organisation_.platform.spooler,
                                  organisation_.log,
                                  u"JSmith"};
    std::int32_t nextFile_ = 0;
    std::int32_t documents_ = 0;
    std::string counterFile_;
    std::map<std::int32_t, std::int32_t> jobs_;  // documents by file number
    std::set<std::int32_t> reported_;
    tests::Texts documentsReported_;
    std::optional<std::int32_t> held_;
    std::optional<std::int32_t> missing_;  // at the end of the last poll
    std::set<std::int32_t> passedOver_;
    bool healthy_ = true;
    bool pollNext_ = true;
};

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::Play play(input);
    for (std::size_t i = 0; i < korvanta::mostSteps && input.HasLetters(); ++i) {
        play.Step();
    }
    return 0;
}
