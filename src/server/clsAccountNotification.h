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

// One print job with the account that the user assigned to it. The file holds the fields one per line, in this order.
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
    std::u16string Comment;  // not checked for line breaks, which split the file into more lines
    std::u16string JobEventFilename;
    std::u16string ChargeRateDescription;
    double ChargeRateValue = 0;

    // Writes all lines through to the file, the charge rate's value as the user's regional settings write numbers.
    // False when writing fails. Never raises.
    bool WriteFile(TextOutput& stream) const;
    // Takes the fields from a file. False when one of the first eight lines is missing or does not convert: what stood
    // before it has been taken, and the event log has a line. Later lines may be missing and then stay as they are;
    // Invoiceable is never made false; the value is read with "." as the decimal point. Never raises.
    bool ReadFile(TextInput& stream);

  private:
    void ReadRequiredLines(TextInput& stream);
    void ReadOptionalLines(TextInput& stream);
    void ReportFailedReading();

    Clock& clock_;
    ErrorReports& errorReports_;
};

}  // namespace korvanta
