#pragma once

#include <optional>
#include <string>

#include "common/Services.h"
#include "common/TextStream.h"
#include "platform/Clock.h"

namespace korvanta {

// The trace log "tlxlog.txt" in the program folder, which support staff read: off until somebody turns it on for the
// rest of the run. The file is emptied by the first line of a run; every line reaches it at once.
class basLog : public TraceLog {
  public:
    basLog(FileSystem& files, const CodePage& codePage, Clock& clock, std::u16string programFolder);

    bool LoggingEnabled() const { return loggingEnabled_; }
    void LoggingEnabled(bool enabled) { loggingEnabled_ = enabled; }
    // Date and time, a blank and the text as it is. A line that cannot be written is lost.
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
