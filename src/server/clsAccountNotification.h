#pragma once

#include <cstdint>
#include <string>

#include "common/Services.h"
#include "common/TextStream.h"
#include "platform/Clock.h"

namespace korvanta {

// The name of the file that tells a server to which account a job goes: "WS17.1234.56.tlx" for machine WS17, printer
// handle 1234 and job 56.
std::u16string NotificationFileName(const std::u16string& machineName, std::int32_t printerHandle, std::int32_t jobId);

// One print job with the account that the user assigned to it. Its file holds the fields one per line, in this order.
class clsAccountNotification {
  public:
    clsAccountNotification(Clock& clock, ErrorReports& errorReports);

    std::int32_t JobID = 0;
    std::u16string MachineName;
    std::u16string PrinterName;
    std::u16string UserName;
    std::u16string Document;
    std::int32_t PrinterHandle = 0;
    std::int32_t AccountID = 0;
    std::u16string AccountTitle;
    bool Invoiceable = false;
    std::u16string Comment;  // line breaks are not checked for: they would make more lines
    std::u16string JobEventFilename;
    std::u16string ChargeRateDescription;
    double ChargeRateValue = 0;

    // Writes and flushes all lines, the charge rate's value in the format of the user's regional settings. False when
    // writing fails. Never raises.
    bool WriteFile(TextOutput& stream) const;
    // Sets the fields from a file. False when one of the first eight lines is missing or cannot be converted: the
    // fields before it are set, and the event log has a line. A field whose line is missing from the other five keeps
    // its value. Invoiceable is never set to false. The value's decimal point is ".". Never raises.
    bool ReadFile(TextInput& stream);

  private:
    void ReadRequiredLines(TextInput& stream);
    void ReadOptionalLines(TextInput& stream);
    void ReportFailedReading();

    Clock& clock_;
    ErrorReports& errorReports_;
};

}  // namespace korvanta
