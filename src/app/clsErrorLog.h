#pragma once

#include <cstdint>
#include <string>

#include "common/Services.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace korvanta {

// The event log and the debug log, two files in the folder "Logs" of the program folder; a missing folder is not made.
// Each line opens, appends and closes, so that several processes can share the files. A file of 100 MiB or more gets no
// more lines. Nothing here fails: a line that cannot be written is dropped silently.
class clsErrorLog : public ErrorReports {
  public:
    clsErrorLog(FileSystem& files, const CodePage& codePage, Clock& clock, const std::u16string& programFolder);

    const std::u16string& LogFileName() const { return logFileName_; }
    void LogFileName(const std::u16string& path) { logFileName_ = path; }
    const std::u16string& DebugFileName() const { return debugFileName_; }
    void DebugFileName(const std::u16string& path) { debugFileName_ = path; }
    // The highest level that goes to the debug log. Below 2 the debug log is off.
    std::int16_t CurrentDebugLevel() const { return currentDebugLevel_; }
    void CurrentDebugLevel(std::int16_t level) { currentDebugLevel_ = level; }

    // Level 1 goes to the event log; every level up to CurrentDebugLevel goes to the debug log as well, tagged with the
    // name of its source (0 to 3; this program is 1).
    void LogMessage(std::int32_t source, std::int32_t level, const std::u16string& message);
    // LogMessage with source 1 and level 1.
    void Message(const std::u16string& message) override;

  private:
    void Append(const std::u16string& path, const std::u16string& line);

    FileSystem& files_;
    const CodePage& codePage_;
    Clock& clock_;
    std::u16string logFileName_;
    std::u16string debugFileName_;
    std::int16_t currentDebugLevel_ = 1;
};

}  // namespace korvanta
