#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/Services.h"
#include "detection/clsJobInfo.h"
#include "platform/Clock.h"
#include "platform/System.h"

namespace korvanta {

class clsServerInterfaces;
class IServerInterface;

// The numbered job notification files that one print server writes for the user, and how far they have been read.
// Numbers run from 0 to 999 and start again at 0.
//
// A file that cannot be read holds up none behind it: its number is kept and tried again whenever the server is looked
// at, until it can be read or has been tried in vain for a minute.
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

    // How often one look at all servers may still pause for a file that is being written: five times, a second in all.
    class Pauses {
      public:
        bool Take() { return left_ > 0 && left_-- > 0; }

      private:
        int left_ = 5;
    };

    JobFiles(const Surroundings& surroundings, const std::u16string& serverName);
    JobFiles(const JobFiles&) = delete;
    JobFiles& operator=(const JobFiles&) = delete;

    // Whether the server could be reached when it was tested last; false before the first test.
    bool Healthy() const { return healthy_; }
    void Healthy(bool healthy) { healthy_ = healthy; }

    // Asks the server for its counter, reports the jobs in the files below it that have not been read yet, and goes on
    // from the counter. Raises when there is no counter, and what the report raises; the files are then read again.
    void CatchUp(Pauses& pauses);
    // Reports the jobs in the files that have come since the last call, without asking for the counter. Raises what
    // the report raises.
    void Poll(Pauses& pauses);

  private:
    struct Reading {
        std::shared_ptr<clsJobInfo> job;  // none when the file could not be read as one
        bool empty = false;               // it gave nothing, at least once
    };
    struct Unread {
        std::optional<DateTime> giveUpAt;  // none while the file is still the next one
    };

    bool PollFile(IServerInterface& server, std::int32_t number, std::vector<std::int32_t>& emptyFiles, Pauses& pauses);
    Reading Read(std::int32_t number, Pauses& pauses);
    Reading ReadAgain(std::int32_t number);
    Reading Fetch(std::int32_t number);
    void Report(std::int32_t number, const Reading& file);
    void PassOver(std::int32_t number);
    void RetryPassedOver();
    void Retry(std::int32_t number);
    std::vector<std::int32_t> PassedOver() const;
    bool TookTooLong() const;
    std::int32_t Next();

    const Surroundings& surroundings_;
    const std::u16string serverName_;
    bool healthy_ = false;
    std::optional<std::int32_t> counter_;    // number of the next file to read; none before the first look
    std::optional<std::int32_t> missing_;    // the number at which the last poll found no file
    std::map<std::int32_t, Unread> unread_;  // the files that could not be read, by number
    std::int32_t lastRetried_ = 0;           // where the next look goes on with them
    DateTime lookBegan_;                     // the current look at the files, without those tried again
};

}  // namespace korvanta
