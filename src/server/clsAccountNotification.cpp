#include "server/clsAccountNotification.h"

#include "common/Conversion.h"
#include "common/Text.h"

namespace korvanta {

std::u16string NotificationFileName(const std::u16string& machineName, std::int32_t printerHandle, std::int32_t jobId) {
    return machineName + u"." + NumberText(printerHandle) + u"." + NumberText(jobId) + u".tlx";
}

clsAccountNotification::clsAccountNotification(Clock& clock, ErrorReports& errorReports)
    : clock_(clock), errorReports_(errorReports) {}

bool clsAccountNotification::WriteFile(TextOutput& stream) const {
    try {
        std::u16string text;
        const auto addLine = [&text](std::u16string_view line) { text.append(line).append(lineBreak); };
        addLine(NumberText(JobID));
        addLine(MachineName);
        addLine(PrinterName);
        addLine(UserName);
        addLine(Document);
        addLine(NumberText(PrinterHandle));
        addLine(NumberText(AccountID));
        addLine(AccountTitle);
        addLine(BooleanDigit(Invoiceable));
        addLine(Comment);
        addLine(JobEventFilename);
        addLine(ChargeRateDescription);
        addLine(LocaleNumberText(ChargeRateValue, clock_));
        // In one write, so that the server never picks up a file that lacks its later lines.
        stream.Write(text);
        stream.Flush();
        return true;
    } catch (...) {
        return false;
    }
}

bool clsAccountNotification::ReadFile(TextInput& stream) {
    try {
        ReadRequiredLines(stream);
    } catch (...) {
        ReportFailedReading();
        return false;
    }
    ReadOptionalLines(stream);
    return true;
}

void clsAccountNotification::ReadRequiredLines(TextInput& stream) {
    JobID = ToInteger32(stream.ReadLineView());
    MachineName = stream.ReadLineView();
    PrinterName = stream.ReadLineView();
    UserName = stream.ReadLineView();
    Document = stream.ReadLineView();
    PrinterHandle = ToInteger32(stream.ReadLineView());
    AccountID = ToInteger32(stream.ReadLineView());
    AccountTitle = stream.ReadLineView();
}

void clsAccountNotification::ReadOptionalLines(TextInput& stream) {
    const auto readLine = [&stream](auto take) {
        try {
            take(stream.ReadLineView());
        } catch (...) {
            // A file may end before these lines; their fields then keep their values.
        }
    };
    readLine([this](std::u16string_view line) { Invoiceable = Invoiceable || Trim(line) != u"0"; });
    readLine([this](std::u16string_view line) { Comment = line; });
    readLine([this](std::u16string_view line) { JobEventFilename = line; });
    readLine([this](std::u16string_view line) { ChargeRateDescription = line; });
    readLine([this](std::u16string_view line) { ChargeRateValue = LeadingNumber(line); });
}

void clsAccountNotification::ReportFailedReading() {
    errorReports_.Message(u"cldAccountNotification.ReadFile Failed - ; JobID: " + NumberText(JobID) +
                          u"; MachineName: " + MachineName + u"; PrinterName: " + PrinterName + u"; UserName: " +
                          UserName + u"; Document: " + Document + u"; AccountID: " + NumberText(AccountID) +
                          u"; AccountTitle: " + AccountTitle);
}

}  // namespace korvanta
