#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "detection/clsJobDetectionPrinter.h"
#include "unit/detection/Support.h"

namespace korvanta::tests {

// A spooler that also keeps how large the buffers were, and can be made to answer strangely.
class StrangeSpooler : public fakes::FakeSpooler {
  public:
    using FakeSpooler::FakeSpooler;

    std::vector<std::size_t> wordCounts;
    std::int32_t claimedJobs = 0;    // what a successful enumeration says it returned, unless 0
    std::int32_t successResult = 1;  // of an enumeration
    bool nullTexts = false;

    std::int32_t EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                          std::vector<std::uint32_t>& words, std::uint32_t bufferBytes, std::uint32_t& neededBytes,
                          std::uint32_t& returnedJobs) override {
        wordCounts.push_back(words.size());
        const std::int32_t result =
            FakeSpooler::EnumJobs(handle, firstJob, jobCount, words, bufferBytes, neededBytes, returnedJobs);
        for (std::size_t k = 0; nullTexts && k < returnedJobs; ++k) {
            for (std::size_t word = 1; word <= 6; ++word) {
                words[16 * k + word] = 0;
            }
        }
        if (result != 0 && claimedJobs != 0) {
            returnedJobs = static_cast<std::uint32_t>(claimedJobs);
        }
        return result == 0 ? 0 : successResult;
    }
};

class PrinterDetection : public testing::Test {
  protected:
    using Reports = std::vector<std::pair<std::u16string, bool>>;

    // The names become the monitored printers of "srv"; those that the spooler does not know yet are added to it.
    void Publish(const Texts& names) {
        for (const std::u16string& name : names) {
            const std::u16string fullName = u"\\\\srv\\" + name;
            if (known_.insert(fullName).second) {
                spooler_.AddPrinter(fullName);
            }
        }
        organisation_.PublishPrinters(u"srv", names);
        organisation_.printersMonitored.RefreshPrinterLists();
    }
    void AddJob(const std::u16string& printer, const std::u16string& document) {
        ++lastJob_;
        fakes::FakeJob job{.id = lastJob_, .machine = u"\\\\WS01", .user = u"JSmith", .document = document};
        job.time[3] = static_cast<std::uint32_t>(lastJob_);
        spooler_.AddJob(printer, job);
    }
    std::vector<fakes::FakeJob> Jobs(const std::u16string& printer) const { return spooler_.Jobs(printer); }
    void Start() { Detector().Start(sink_); }
    void Tick() { Detector().MonitorClockTick(); }
    IJobDetectionObject& Detector() { return detector_; }

    // The spooler's calls without those of that name.
    Texts CallsBut(std::string_view name) const {
        Texts calls;
        for (const std::u16string& call : spooler_.log) {
            if (!call.starts_with(FromAscii(name))) {
                calls.push_back(call);
            }
        }
        return calls;
    }
    std::set<std::u16string> EnumeratedHandles() const {
        std::set<std::u16string> handles;
        for (const std::u16string& call : spooler_.log) {
            if (call.starts_with(u"EnumJobs ")) {
                handles.insert(Split(call, u" ")[1]);
            }
        }
        return handles;
    }

    Organisation organisation_;
    fakes::FakeWaitableHandles& handles_ = organisation_.platform.waitableHandles;
    StrangeSpooler spooler_{handles_};
    RecordingSink sink_;
    clsJobDetectionPrinter detector_{spooler_,
                                     handles_,
                                     organisation_.printersMonitored,
                                     organisation_.settings,
                                     organisation_.platform.mutexes,
                                     organisation_.platform.messageLoop,
                                     organisation_.systemInformation,
                                     organisation_.log};

  private:
    std::set<std::u16string> known_;
    std::int32_t lastJob_ = 0;
};

}  // namespace korvanta::tests
