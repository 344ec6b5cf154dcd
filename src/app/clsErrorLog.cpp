#include "app/clsErrorLog.h"

#include "common/Conversion.h"
#include "common/Text.h"
#include "common/TextStream.h"

namespace korvanta {

namespace {

constexpr std::uint64_t largestLog = 104'857'600;
constexpr std::int32_t eventLevel = 1;
constexpr std::int16_t lowestDebugLevel = 2;
constexpr std::int32_t thisProgram = 1;

std::u16string Tag(const std::u16string& name) {
    return u"[" + name + u"]   ";
}

std::u16string SourceTag(std::int32_t source) {
    switch (source) {
        case 0:
            return Tag(u"Quell Admin");
        case 1:
            return Tag(u"Quell Desk");
        case 2:
            return Tag(u"Quell Wire");
        case 3:
            return Tag(u"Quell Ledger");
        default:
            return u"";
    }
}

}  // namespace

clsErrorLog::clsErrorLog(FileSystem& files, const CodePage& codePage, Clock& clock, const std::u16string& programFolder)
    : files_(files),
      codePage_(codePage),
      clock_(clock),
      logFileName_(programFolder + u"\\Logs\\" + u"event.log"),
      debugFileName_(programFolder + u"\\Logs\\" + u"debug.log") {}

void clsErrorLog::LogMessage(std::int32_t source, std::int32_t level, const std::u16string& message) {
    try {
        const std::u16string flat = Replace(message, u"\r\n", u" ");
        const std::u16string time = SortableDateText(clock_.Now(), clock_) + u"   ";
        if (level == eventLevel) {
            Append(logFileName_, time + flat);
        }
        if (currentDebugLevel_ >= lowestDebugLevel && level <= currentDebugLevel_) {
            Append(debugFileName_, time + SourceTag(source) + flat);
        }
    } catch (const std::exception&) {
        // A failing log must not disturb the program.
        return;
    }
}

void clsErrorLog::Message(const std::u16string& message) {
    LogMessage(thisProgram, eventLevel, message);
}

void clsErrorLog::Append(const std::u16string& path, const std::u16string& line) {
    TextOutput file = TextOutput::OpenAnsi(files_, codePage_, path, OutputMode::Append);
    if (file.FileLength() < largestLog) {
        file.WriteLine(line);
    }
    file.Close();
}

}  // namespace korvanta
