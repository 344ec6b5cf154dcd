#include "detection/clsJobInfo.h"

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/FieldReader.h"
#include "common/Text.h"
#include "server/PrinterName.h"

namespace korvanta {

namespace {

constexpr std::size_t blockWords = 16;

Error OutOfRange() {
    return StandardError(errorNumber::subscriptOutOfRange, u"clsJobInfo");
}

// `nextLine` returns the ten lines one after the other.
template <class NextLine>
void ReadLines(clsJobInfo& job, NextLine nextLine) {
    job.JobID = ToInteger32(nextLine());
    job.PrinterName = nextLine();
    job.MachineName = nextLine();
    job.UserName = nextLine();
    job.Document = nextLine();
    job.FullPrinterName = nextLine();
    job.PrinterHandle = ToInteger32(nextLine());
    job.Time1 = ToInteger32(nextLine());
    job.Time2 = ToInteger32(nextLine());
    job.Time3 = ToInteger32(nextLine());
}

template <class NextLine>
bool TryReadLines(clsJobInfo& job, NextLine nextLine) {
    try {
        ReadLines(job, nextLine);
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace

void clsJobInfo::Load(Spooler& spooler, const std::vector<std::uint32_t>& lngBuffer, std::size_t startIndex,
                      const std::u16string& strFullPrinterName, korvanta::PrinterHandle lngPrinterHandle) {
    if (lngBuffer.size() < blockWords || startIndex > lngBuffer.size() - blockWords) {
        throw OutOfRange();
    }
    const auto word = [&lngBuffer, startIndex](std::size_t offset) { return lngBuffer[startIndex + offset]; };
    const auto number = [&word](std::size_t offset) { return static_cast<std::int32_t>(word(offset)); };
    const auto text = [&spooler, &word](std::size_t offset) { return spooler.TextAt(word(offset)); };

    MachineName = Trim(Replace(text(2), u"\\", u""));
    UserName = Lower(text(3));
    JobID = number(0);
    FullPrinterName = strFullPrinterName;
    PrinterName = korvanta::PrinterName(strFullPrinterName).ShortName();
    Document = text(4);
    PrinterHandle = lngPrinterHandle;
    Time1 = number(13);
    Time2 = number(14);
    Time3 = number(15);
}

bool clsJobInfo::ReadFromTextStream(TextInput& objTS) {
    return TryReadLines(*this, [&objTS] { return objTS.ReadLine(); });
}

bool clsJobInfo::ReadFromString(const std::u16string& strFile) {
    // Line by line and not all at once: a server may publish a huge file, and ten lines are enough.
    FieldReader lines(strFile, lineBreak);
    return TryReadLines(*this, [&lines] { return std::u16string(lines.Next()); });
}

}  // namespace korvanta
