#include "app/StatusTexts.h"

#include <utility>

#include "detection/Activities.h"

namespace korvanta {

StatusTexts::StatusTexts() : HiddenTexts(u"texts") {
    Visible(false);
    const std::pair<Label*, const char16_t*> captions[] = {
        {&lblFileMonitoring, u"File monitoring"},
        {&lblPrinterMonitoring, u"Printer monitoring"},
        {&lblHTTPMonitoring, u"HTTP monitoring"},
        {&lblFullRefreshActivity, u"Full refresh executing."},
        {&lblPrinterListScanActivity, u"Scanning printer list."},
        {&lblServerHealthTestActivity, u"Testing server health."},
        {&lblIdleActivity, u"Idle."},
        {&lblPollingServers, activity::pollingServers},
        {&lblPollingPrinters, activity::pollingPrinters},
        {&lblCheckingForJobs, activity::checkingForJobs},
        {&lblIdle, activity::idle},
        {&lblRefreshExecuting, u"Executing....."},
        {&lblRefreshCompleted, u"Completed."},
        {&lblExecuting, u"Executing..."},
        {&lblPrinterListChanged, u"Printer list changed."},
        {&lblPrinterListUnchanged, u"Printer list unchanged."},
        {&lblServersValid, u"All handles / servers valid."},
        {&lblServersInvalid, u"Some handles / servers invalid."},
        {&lblLoggingQuestion, u"This will turn on logging. Only do this for debugging purposes."},
        {&lblAdvancedQuestion,
         u"This will show you the advanced display. Only do this for debugging purposes. Press cancel otherwise."},
        {&lblCloseTitle, u"Close Korvanta?"},
        {&lblCloseQuestion,
         u"Closing Korvanta will mean that you will not be able to print documents to monitored printers. Are you sure "
         u"you want to close the application?"},
    };
    for (const auto& [label, caption] : captions) {
        label->Caption(caption);
        Add(*label);
    }
}

std::u16string StatusTexts::Activity(const std::u16string& text) const {
    const std::pair<const char16_t*, const Label*> activities[] = {
        {activity::pollingServers, &lblPollingServers},
        {activity::pollingPrinters, &lblPollingPrinters},
        {activity::checkingForJobs, &lblCheckingForJobs},
        {activity::idle, &lblIdle},
    };
    for (const auto& [said, label] : activities) {
        if (text == said) {
            return label->Caption();
        }
    }
    return text;
}

}  // namespace korvanta
