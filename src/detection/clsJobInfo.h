#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "common/Object.h"
#include "common/TextStream.h"
#include "platform/Spooler.h"

namespace korvanta {

// One detected print job; shared by reference. The time words are those of its submission, without year and month:
// they only help to tell jobs apart.
class clsJobInfo : public Object {
  public:
    std::int32_t JobID = 0;      // on the printer's server
    std::u16string PrinterName;  // short name, without the server
    std::u16string MachineName;  // of the submitting machine
    std::u16string UserName;     // lower case when the spooler gave it
    std::u16string Document;
    std::u16string FullPrinterName;   // "\\server\printer"
    std::int32_t PrinterHandle = 0;   // under which the detector holds the printer open, or line 7 of the text
    std::int32_t Time1 = 0;           // day of the week in the low 16 bits, day of the month in the high ones
    std::int32_t Time2 = 0;           // hour and minute, likewise
    std::int32_t Time3 = 0;           // second and milliseconds, likewise
    std::u16string JobEventFilename;  // the job notification file that it was read from; else empty

    // Fills the record from the level-1 block that begins at word `startIndex` of what EnumJobs returned. Raises Error
    // 9 and leaves the record unchanged when the block does not lie within the buffer.
    void Load(Spooler& spooler, const std::vector<std::uint32_t>& lngBuffer, std::size_t startIndex,
              const std::u16string& strFullPrinterName, korvanta::PrinterHandle lngPrinterHandle);

    // Fill the record from its text form, ten lines; JobEventFilename is left alone. False when a line is missing or
    // should be a number and is not; the fields of the lines before it keep their new values. Never raise.
    bool ReadFromTextStream(TextInput& objTS);
    bool ReadFromString(const std::u16string& strFile);
};

}  // namespace korvanta
