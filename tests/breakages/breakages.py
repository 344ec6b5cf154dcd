"""Ways to break the client, each a change of one place in src/ that the tests have to notice."""
from typing import NamedTuple


class Breakage(NamedTuple):
    name: str
    file: str  # below src/
    old: str  # stands there once
    new: str
    # Whether simulated days can tell: what they do not look at is left to the unit tests.
    simulated: bool = True


FILES = "detection/JobFiles.cpp"
SPOOLER = "detection/clsJobDetectionPrinter.cpp"
DIALOG = "ui/frmAccountNumber.cpp"
NOTIFICATIONS = "ui/NotificationWriter.cpp"
PREFERENCES = "ui/clsTLXPrefs.cpp"
# Of the function that shows the dialog for the next job.
MONITOR_TICK = """    if (job == nullptr || showing_) {
        return;
    }
    lblDocument.Caption(job->Document);
    lblPrinter.Caption(job->PrinterName);
    services_.platform.messageLoop.RunPending();
    if (!showing_ && HeadJob() == job) {
"""

BREAKAGES = [
    Breakage("announced twice", "detection/clsJobHistory.cpp", "return !found;", "return true;"),
    Breakage("history too short", "detection/clsJobHistory.cpp", "capacity = 100;", "capacity = 1;"),
    Breakage("passed over while it is being replaced", FILES, "            unread_.erase(number);\n            return false;",
             "            unread_.erase(number);", False),
    Breakage("not caught up after an outage", FILES, "number = held; number < counter;",
             "number = counter; number < counter;"),
    Breakage("unread file not tried again", FILES, "        Retry(number);\n        lastRetried_ = number;",
             "        lastRetried_ = number;"),
    Breakage("unread file given up at once", FILES, "if (now >= *giveUpAt &&", "if ("),
    Breakage("undelivered files skipped", FILES, "    if (!emptyFiles.empty()) {", "    if (false) {"),
    Breakage("numbers do not start again", FILES, "return (number + 1) % fileNumbers;", "return number + 1;"),
    Breakage("counter read wrongly", FILES, "ToInteger32(text);\n    if (counter < 0",
             "ToInteger32(text) / 10;\n    if (counter < 0"),
    Breakage("unreadable counter taken for 0", FILES,
             '        throw StandardError(errorNumber::overflow, u"clsJobDetectionFile");', "        return 0;",
             False),
    Breakage("refresh takes jobs for old ones", SPOOLER, "ProcessAllPrinters(false);", "ProcessAllPrinters(true);"),
    Breakage("handle not armed again", SPOOLER, "bool armed = spooler_.FindNextChange(printer->Signal()) != 0;",
             "bool armed = true;"),
    Breakage("third enumeration always", SPOOLER, "if (jobs.result == 0) {\n        const std::uint32_t enlarged",
             "if (true) {\n        const std::uint32_t enlarged"),
    Breakage("third enumeration never", SPOOLER, "if (jobs.result == 0) {\n        const std::uint32_t enlarged",
             "if (false) {\n        const std::uint32_t enlarged"),
    Breakage("unread server loses its printers", "detection/clsPrintersMonitored.cpp",
             "        if (text.empty()) {\n            return nullptr;\n        }\n", ""),
    Breakage("other users' jobs taken", "detection/clsPrintJobMatcher.cpp", "matches = IsOwnUser(user);",
             "matches = true;"),
    Breakage("open dialog shown again", DIALOG, MONITOR_TICK,
             MONITOR_TICK.replace(" || showing_", "").replace("!showing_ && ", "")),
    Breakage("shown again by what let messages run", DIALOG, "if (!showing_ && HeadJob() == job) {",
             "if (HeadJob() == job) {"),
    Breakage("cancelled job stays in the queue", DIALOG,
             "TakeHeadJob();\n    const bool errorCancel", "HeadJob();\n    const bool errorCancel"),
    Breakage("cancelled job notified", DIALOG,
             "    LogErrors(services_.log, u\"frmAccountNumber:Cancel\", [&] {",
             "    ChargeChoice choice;\n    choice.account = std::make_shared<clsAccount>();\n"
             "    notifications_.Write(*job, choice);\n"
             "    LogErrors(services_.log, u\"frmAccountNumber:Cancel\", [&] {"),
    Breakage("cancelled in the program alone", DIALOG, "cancelled = services_.cancelPrintJob(*job);",
             "cancelled = true;"),
    Breakage("notified twice", DIALOG,
             "        const NotificationWriter::Result result = notifications_.Write(*job, choice);\n",
             "        notifications_.Write(*job, choice);\n"
             "        const NotificationWriter::Result result = notifications_.Write(*job, choice);\n"),
    Breakage("failed notification kept quiet", DIALOG,
             "            ShowMessage(u\"lblNotificationError\", MessageIcon::Critical);\n", ""),
    Breakage("first account notified", NOTIFICATIONS, "notification.AccountID = choice.account->AccountID;",
             "notification.AccountID = 1;"),
    Breakage("one job of all submitted", DIALOG, "while (submitAll && HeadJob() != nullptr) {",
             "if (submitAll && jobs_.Length() == 1) {", False),
    Breakage("preferred list emptied", PREFERENCES,
             "    Replace(*contents_.preferred, stored.preferred->Items());\n", ""),
    Breakage("half a file of preferences kept", PREFERENCES, "            static_cast<void>(files_.Delete(path));\n",
             ""),
    Breakage("empty preferences believed", PREFERENCES, "return keys.All().empty() ? Reading::Malformed : Reading::Good;",
             "return Reading::Good;", False),
    Breakage("stored preferences overwritten", PREFERENCES, "reading_ == Reading::Good || TakeOverStored();", "true;"),
    Breakage("locked preferences overwritten", PREFERENCES, "return reading_ != Reading::Locked;", "return true;", False),
    Breakage("local copy written in place", PREFERENCES,
             "replaced = StorePrefs(fresh) && files_.Copy(fresh, localPath_) == windowsError::none;",
             "replaced = StorePrefs(localPath_);"),
    Breakage("a refresh within a tick", "detection/OneAtATime.cpp", "    if (!running.Entered()) {\n        return;",
             "    if (false) {\n        return;", False),
]
