#pragma once

#include <optional>
#include <string>

#include "common/Services.h"
#include "common/TextStream.h"
#include "platform/Clock.h"

namespace korvanta {

// The trace log for support staff, "tlxlog.txt" in the program folder. It is off until somebody turns it on for the
// rest of the run. The first line of a run truncates the file; each line is flushed at once.
class basLog : public TraceLog {
  public:
    basLog(FileSystem& files, const CodePage& codePage, Clock& clock, std::u16string programFolder);

    bool LoggingEnabled() const { return loggingEnabled_; }
    void LoggingEnabled(bool enabled) { loggingEnabled_ = enabled; }
    // Writes date and time, a blank, and the unchanged text. A line that cannot be written is dropped silently.
    void Log(const std::u16string& text) override;

  private:
    FileSystem& files_;
    const CodePage& codePage_;
    Clock& clock_;
    std::u16string path_;
    std::optional<TextOutput> logStream_;
    bool loggingEnabled_ = false;
};

}  // namespace korvanta
