#pragma once

#include <string>

#include "controls/Controls.h"

namespace korvanta {

// Texts that the status form shows while the program works, and its message boxes. They are captions of labels so that
// they are translated with the form.
class StatusTexts : public HiddenTexts {
  public:
    StatusTexts();

    // Translates a detector's activity text (see Activities). Any other text is returned unchanged.
    std::u16string Activity(const std::u16string& text) const;

    Label lblFileMonitoring{u"lblFileMonitoring"};
    Label lblPrinterMonitoring{u"lblPrinterMonitoring"};
    Label lblHTTPMonitoring{u"lblHTTPMonitoring"};

    Label lblFullRefreshActivity{u"lblFullRefreshActivity"};
    Label lblPrinterListScanActivity{u"lblPrinterListScanActivity"};
    Label lblServerHealthTestActivity{u"lblServerHealthTestActivity"};
    Label lblIdleActivity{u"lblIdleActivity"};
    Label lblPollingServers{u"lblPollingServers"};
    Label lblPollingPrinters{u"lblPollingPrinters"};
    Label lblCheckingForJobs{u"lblCheckingForJobs"};
    Label lblIdle{u"lblIdle"};

    Label lblRefreshExecuting{u"lblRefreshExecuting"};
    Label lblRefreshCompleted{u"lblRefreshCompleted"};
    Label lblExecuting{u"lblExecuting"};
    Label lblPrinterListChanged{u"lblPrinterListChanged"};
    Label lblPrinterListUnchanged{u"lblPrinterListUnchanged"};
    Label lblServersValid{u"lblServersValid"};
    Label lblServersInvalid{u"lblServersInvalid"};

    Label lblLoggingQuestion{u"lblLoggingQuestion"};
    Label lblAdvancedQuestion{u"lblAdvancedQuestion"};
    Label lblCloseTitle{u"lblCloseTitle"};
    Label lblCloseQuestion{u"lblCloseQuestion"};
};

}  // namespace korvanta
