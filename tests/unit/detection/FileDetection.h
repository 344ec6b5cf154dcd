#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "detection/clsJobDetectionFile.h"
#include "unit/detection/Support.h"

namespace korvanta::tests {

// A spooler that answers a cancelling as it is told to.
class AnsweringSpooler : public fakes::FakeSpooler {
  public:
    using FakeSpooler::FakeSpooler;
    std::int32_t setJobResult = 1;

    std::int32_t SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) override {
        FakeSpooler::SetJob(handle, jobId, command);
        return setJobResult;
    }
};

// One server "srv" with one printer to begin with, over file shares. Its counter is missing.
class FileDetection : public testing::Test {
  protected:
    using Reports = std::vector<std::pair<std::u16string, bool>>;

    FileDetection() { Publish({u"laser"}); }

    void Publish(const Texts& printers, const Texts& servers = {}) {
        organisation_.PublishServers(servers);
        organisation_.PublishPrinters(u"srv", printers);
        organisation_.printersMonitored.RefreshPrinterLists();
    }
    void SetCounter(const std::u16string& text) { organisation_.SetCounter(u"srv", text); }
    void WriteJob(int number, const std::u16string& document) { organisation_.WriteJob(u"srv", number, document); }
    void WriteJobs(int first, int last) {
        for (int number = first; number <= last; ++number) {
            WriteJob(number, NumberText(number));
        }
    }
    void SpoilJob(int number) { files_.WriteUtf16(Organisation::JobFilePath(u"srv", number), u"half a file"); }
    void RemoveJob(int number) { files_.RemoveFile(Organisation::JobFilePath(u"srv", number)); }

    void Start() { Detector().Start(sink_); }
    void Tick() { Detector().MonitorClockTick(); }
    IJobDetectionObject& Detector() { return detector_; }
    // The log without the lines of the server interfaces and the histories.
    Texts OwnLines() const {
        Texts lines;
        for (const std::u16string& line : organisation_.log.lines) {
            if (!line.starts_with(u"IServerInterface_") && !line.starts_with(u"clsJobHistory")) {
                lines.push_back(line);
            }
        }
        return lines;
    }
    std::ptrdiff_t Calls(const std::u16string& call) const {
        return std::count(files_.log.begin(), files_.log.end(), call);
    }

    void Pass(std::int64_t seconds) { organisation_.platform.clock.AdvanceSeconds(seconds); }

    Organisation organisation_;
    fakes::FakeFileSystem& files_ = organisation_.platform.files;
    fakes::FakeSystem& system_ = organisation_.platform.system;
    AnsweringSpooler spooler_{organisation_.platform.waitableHandles};
    RecordingSink sink_;
    clsJobDetectionFile detector_{organisation_.serverInterfaces,
                                  organisation_.printersMonitored,
                                  organisation_.settings,
                                  organisation_.platform.mutexes,
                                  organisation_.platform.clock,
                                  system_,
                                  spooler_,
                                  organisation_.log,
                                  u"JSmith"};
};

}  // namespace korvanta::tests
