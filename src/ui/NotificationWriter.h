#pragma once

#include <memory>
#include <string>

#include "common/Services.h"
#include "detection/clsJobInfo.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "server/clsAccount.h"

namespace korvanta {

// How a job is to be charged, as the user has decided.
struct ChargeChoice {
    std::shared_ptr<clsAccount> account;
    std::u16string comment;
    bool invoiceable = false;
    std::u16string rateDescription;  // empty without a charge rate
    double rateValue = 0.0;
};

// Tells the server that holds a job's printer how the job is charged, in a file on its notification share.
class NotificationWriter {
  public:
    enum class Result { Written, Failed, NoServer };

    // All of them outlive it.
    NotificationWriter(FileSystem& files, Clock& clock, ErrorReports& errorReports, TraceLog& log)
        : files_(files), clock_(clock), errorReports_(errorReports), log_(log) {}

    // NoServer when the printer's full name has no server part. Never raises.
    Result Write(const clsJobInfo& job, const ChargeChoice& choice);

  private:
    bool WriteFile(const std::u16string& path, const clsJobInfo& job, const ChargeChoice& choice);

    FileSystem& files_;
    Clock& clock_;
    ErrorReports& errorReports_;
    TraceLog& log_;
};

}  // namespace korvanta
