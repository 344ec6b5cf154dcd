#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "common/Services.h"
#include "detection/clsJobInfo.h"
#include "platform/Clock.h"
#include "platform/System.h"

namespace korvanta {

class clsServerInterfaces;

// The numbered job notification files that one print server writes for the user, and how far they have been read.
// Numbers run from 0 to 999 and start again at 0.
class JobFiles {
  public:
    // What reading and reporting take; shared by the files of all servers, which it outlives.
    struct Surroundings {
        clsServerInterfaces& serverInterfaces;
        Clock& clock;
        System& system;
        TraceLog& log;
        const std::u16string windowsUserName;  // in the letter case in which Windows keeps it
        const std::function<void(const std::shared_ptr<clsJobInfo>&)> report;
    };

    JobFiles(const Surroundings& surroundings, const std::u16string& serverName);
    JobFiles(const JobFiles&) = delete;
    JobFiles& operator=(const JobFiles&) = delete;

    // Whether the server could be reached when it was tested last; false before the first test.
    bool Healthy() const { return healthy_; }
    void Healthy(bool healthy) { healthy_ = healthy; }

    // Asks the server for its counter, reports the jobs in the files below it that have not been read yet, and goes on
    // from the counter. Raises when there is no counter, and what the report raises; the files are then read again.
    void CatchUp();
    // Reports the jobs in the files that have come since the last call, without asking for the counter. Raises what
    // the report raises.
    void Poll();

  private:
    struct Reading {
        std::shared_ptr<clsJobInfo> job;  // none when the file could not be read as one
        bool empty = false;               // it gave nothing, at least once
    };

    Reading Read(std::int32_t number);
    void ReportIfReadable(std::int32_t number);
    std::int32_t Next();

    const Surroundings& surroundings_;
    const std::u16string serverName_;
    bool healthy_ = false;
    std::optional<std::int32_t> counter_;  // number of the next file to read; none before the first look
};

}  // namespace korvanta
