#include "app/basLog.h"

#include "common/Conversion.h"

namespace korvanta {

basLog::basLog(FileSystem& files, const CodePage& codePage, Clock& clock, std::u16string programFolder)
    : files_(files), codePage_(codePage), clock_(clock), path_(std::move(programFolder) + u"\\tlxlog.txt") {}

void basLog::Log(const std::u16string& text) {
    if (!loggingEnabled_) {
        return;
    }
    try {
        if (!logStream_) {
            logStream_.emplace(TextOutput::OpenAnsi(files_, codePage_, path_));
        }
        logStream_->WriteLine(GeneralDateText(clock_.Now(), clock_) + u" " + text);
        logStream_->Flush();
    } catch (const std::exception&) {
        // A failing log must not disturb the program.
        return;
    }
}

}  // namespace korvanta
