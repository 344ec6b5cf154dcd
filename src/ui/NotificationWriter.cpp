#include "ui/NotificationWriter.h"

#include <algorithm>
#include <optional>

#include "common/Text.h"
#include "common/TextStream.h"
#include "server/PrinterName.h"
#include "server/Shares.h"
#include "server/clsAccountNotification.h"

namespace korvanta {

namespace {

// A field of a notification is one line. Documents may have line breaks in their names; the server would read what
// follows such a break as the next field.
std::u16string OneLine(std::u16string_view text) {
    std::u16string line = Replace(text, lineBreak, u" ");
    std::replace_if(
        line.begin(), line.end(), [](char16_t unit) { return unit == u'\r' || unit == u'\n'; }, u' ');
    return line;
}

}  // namespace

NotificationWriter::Result NotificationWriter::Write(const clsJobInfo& job, const ChargeChoice& choice) {
    try {
        const std::optional<std::u16string> server = PrinterName(job.FullPrinterName).Server();
        if (!server) {
            return Result::NoServer;
        }
        const std::u16string path = Shares(*server).AccountNotificationFile(
            NotificationFileName(job.MachineName, job.PrinterHandle, job.JobID));
        return WriteFile(path, job, choice) ? Result::Written : Result::Failed;
    } catch (const std::exception&) {
        return Result::Failed;
    }
}

// An error that it raises counts as a failure.
bool NotificationWriter::WriteFile(const std::u16string& path, const clsJobInfo& job, const ChargeChoice& choice) {
    clsAccountNotification notification(clock_, errorReports_);
    notification.JobID = job.JobID;
    notification.MachineName = OneLine(job.MachineName);
    notification.PrinterName = OneLine(job.PrinterName);
    notification.UserName = OneLine(job.UserName);
    notification.Document = OneLine(job.Document);
    notification.PrinterHandle = job.PrinterHandle;
    notification.AccountID = choice.account->AccountID;
    notification.AccountTitle = OneLine(choice.account->CompoundTitle());
    notification.Invoiceable = choice.invoiceable;
    notification.Comment = OneLine(choice.comment);
    notification.JobEventFilename = OneLine(job.JobEventFilename);
    notification.ChargeRateDescription = OneLine(choice.rateDescription);
    notification.ChargeRateValue = choice.rateValue;
    log_.Log(u"Uploading notification file to server: " + path);
    TextOutput file = TextOutput::OpenUtf16(files_, path);
    const bool written = notification.WriteFile(file);
    file.Close();
    return written;
}

}  // namespace korvanta
