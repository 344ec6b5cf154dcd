#include "soak/SoakTest.h"

#include <cstdlib>
#include <iterator>
#include <set>

#include "driver/Files.h"

using driver::WaitFor;
using soak::Await;

namespace {

constexpr int fileNumbers = 1000;
const std::wstring away = L" (away)";

// How often each text stands behind the mark in a line of the log.
std::map<std::string, int> Entries(const std::string& log, const std::string& mark) {
    std::map<std::string, int> entries;
    for (std::size_t at = log.find(mark); at != std::string::npos; at = log.find(mark, at)) {
        at += mark.size();
        ++entries[log.substr(at, log.find("\r\n", at) - at)];
    }
    return entries;
}

int Times(const std::map<std::string, int>& entries, const std::string& entry) {
    const auto found = entries.find(entry);
    return found == entries.end() ? 0 : found->second;
}

}  // namespace

SoakTest::SoakTest(const std::string& title) : report_(title) {}

int SoakTest::Wanted() {
    const char* jobs = std::getenv("KORVANTA_SOAK_JOBS");
    return jobs == nullptr ? 50 : std::atoi(jobs);
}

void SoakTest::StartWithLog(const std::wstring& arguments) {
    PublishAll({.serverHealthTestInterval = 5, .printerListRefreshInterval = 1, .serverDownFullRefreshInterval = 5});
    StartMonitoring(arguments);
    Client().ChooseMenuEntry(0);
    ExpectMessage(L"This will turn on logging. Only do this for debugging purposes.");
}

// A client that looks at the counter when the numbers have just begun anew takes it over and reads nothing. So the
// server has no counter to show for a while then, and the client goes by the files.
void SoakTest::WriteCounter() const {
    constexpr int filesWithoutCounter = 50;
    const int next = Announced() % fileNumbers;
    const std::wstring user = driver::CurrentUserLowerCase();
    if (next < filesWithoutCounter && Announced() >= fileNumbers) {
        driver::DeleteFileIfThere(Reachable().JobsFolder() + L"\\" + user + L".tlu");
    } else {
        Reachable().WriteCounter(user, next);
    }
}

int SoakTest::AnnounceNext() {
    const int id = Announced();
    const int number = id % fileNumbers;
    const driver::Job job = Server().Complete({.id = id + 1, .document = Document(id)});
    jobs_.push_back({job, driver::JobFileName(driver::CurrentUser(), number)});
    jobOfFile_[driver::Notification::For(job, L"").FileName()] = id;
    if (number == fileNumbers - 1) {
        WriteCounter();  // before there is a file whose number begins anew
    }
    Reachable().WriteJobFile(driver::CurrentUserLowerCase(), number, job);
    WriteCounter();
    return id;
}

std::vector<int> SoakTest::AnnounceNext(int count) {
    std::vector<int> jobs;
    for (int i = 0; i < count; ++i) {
        jobs.push_back(AnnounceNext());
    }
    return jobs;
}

// The numbers of a form's timers are those that none of its controls has.
void SoakTest::Tick(const std::wstring& form) {
    constexpr int first = 100;
    constexpr int mostTimers = 10;
    const driver::Window window = Client().Form(form);
    std::vector<WPARAM>& timers = timers_[form];
    if (timers.empty()) {
        std::set<int> controls;
        const std::vector<driver::Window> descendants = window.Descendants();
        for (const driver::Window& control : descendants) {
            controls.insert(GetDlgCtrlID(control.Handle()));
        }
        for (int number = first; number < first + static_cast<int>(descendants.size()) + mostTimers; ++number) {
            if (!controls.contains(number)) {
                timers.push_back(static_cast<WPARAM>(number));
            }
        }
    }
    // A client that is busy gets no more ticks than it can take.
    if (window.Answers()) {
        for (const WPARAM timer : timers) {
            window.Post(WM_TIMER, timer);
        }
    }
}

void SoakTest::LetFind(std::size_t jobs) {
    const driver::Window queued = DialogControl(L"lblJobsQueued");
    Await("jobs are found", [&] {
        Tick(L"frmMain");
        return queued.Text() == std::to_wstring(jobs);
    });
}

void SoakTest::LetCharge(const std::vector<int>& jobs) {
    Await("jobs are charged", [&] {
        Collect();
        const bool charged = std::all_of(jobs.begin(), jobs.end(), [this](int job) {
            return jobs_[static_cast<std::size_t>(job)].notifications > 0;
        });
        if (!charged) {
            Tick(L"frmMain");
            Tick(L"frmAccountNumber");
        }
        return charged;
    });
}

void SoakTest::ExpectNone(int job) {
    JobState& state = jobs_[static_cast<std::size_t>(job)];
    state.charged = false;
    driver::DeleteFileIfThere(Server().JobsFolder() + L"\\" + state.file);
}

void SoakTest::Collect() {
    for (const std::wstring& name : Server().NotificationNames()) {
        Take(name);
    }
}

// One that is being written is left for the next time.
void SoakTest::Take(const std::wstring& name) {
    const std::wstring path = Server().NotificationFolder() + L"\\" + name;
    const std::optional<std::string> bytes = driver::TryReadBytes(path);
    driver::Notification notification;
    try {
        notification = driver::Notification::Decode(bytes.value_or(""));
    } catch (const std::exception&) {
        return;
    }
    if (!DeleteFileW(path.c_str())) {
        return;
    }
    const auto job = jobOfFile_.find(name);
    if (job == jobOfFile_.end()) {
        ++strange_;
        return;
    }
    JobState& state = jobs_[static_cast<std::size_t>(job->second)];
    ++state.notifications;
    const bool right = notification.jobId == state.job.id && notification.document == state.job.document &&
                       notification.jobEventFile == state.file && notification.accountId > 0;
    strange_ += right ? 0 : 1;
    driver::DeleteFileIfThere(Server().JobsFolder() + L"\\" + state.file);
}

void SoakTest::Refresh() {
    const driver::Window result = Status(L"lblFullRefreshResult");
    result.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"(not yet)"));
    Status(L"cmdRefresh").Click();
    Await("a full refresh", [&] {
        Tick(L"frmMain");
        return result.Text() == L"Completed.";
    });
    report_.Count("full refresh");
}

void SoakTest::PublishAccounts(bool many) {
    constexpr int firstId = 1000;
    constexpr int number = 300;
    std::vector<driver::Account> accounts = Accounts();
    for (int i = 0; many && i < number; ++i) {
        accounts.push_back({.id = firstId + i, .mainTitle = L"Project " + std::to_wstring(i)});
    }
    Server().Publish(L"Accounts.txt", driver::AccountsText(accounts));
    manyAccounts_ = many;
}

void SoakTest::PublishPrinters(bool many) {
    constexpr int number = 30;
    std::wstring text = L"Laser\r\n";
    for (int i = 1; many && i < number; ++i) {
        text += L"Printer " + std::to_wstring(i) + L"\r\n";
    }
    Server().Publish(L"Printers.txt", text);
    manyPrinters_ = many;
    const driver::ListWindow printers(Status(L"lvwPrinters"));
    Await("the printers are scanned", [&] {
        Tick(L"frmMain");
        return printers.RowCount() == (many ? number : 1);
    });
}

void SoakTest::TakeNotifications() {
    driver::Rename(Server().NotificationFolder(), Server().NotificationFolder() + away);
}

void SoakTest::ReturnNotifications() {
    driver::Rename(Server().NotificationFolder() + away, Server().NotificationFolder());
    Refresh();
}

void SoakTest::LetSomethingHappen(const std::function<void(const std::vector<int>&)>& answer) {
    constexpr int jobs = 2;
    switch (happened_++ % happenings) {
        case 0:
            Refresh();
            break;
        case 1:
            PublishAccounts(!manyAccounts_);
            report_.Count("accounts file replaced");
            break;
        case 2: {
            Server().Unplug();
            unplugged_.emplace(SharesFolder(), L"unplugged-" + ServerName());
            Refresh();
            const std::vector<int> unheard = AnnounceNext(jobs);
            unplugged_.reset();
            Server().PlugIn();
            Refresh();
            report_.Count("whole server gone, and back with new jobs");
            answer(unheard);
            break;
        }
        case 3:
            PublishPrinters(!manyPrinters_);
            report_.Count("printer list changed");
            break;
        default:
            driver::Rename(Server().PreferencesFolder(), Server().PreferencesFolder() + away);
            answer(AnnounceNext(jobs));
            driver::Rename(Server().PreferencesFolder() + away, Server().PreferencesFolder());
            report_.Count("preferences share gone while jobs are answered");
    }
}

// What the client has loaded is to be the same at each measure.
void SoakTest::Settle() {
    PublishAccounts(false);
    PublishPrinters(false);
    Refresh();
}

// Of several looks the least: what only comes and goes does not grow.
void SoakTest::Measure(int jobsDone) {
    constexpr int looks = 3;
    const driver::Window queued = DialogControl(L"lblJobsQueued");
    Await("the client rests", [&] {
        return queued.Text() == L"0" && !Dialog().Visible() && driver::MessageWindowsOf(Client().ProcessId()).empty();
    });
    using driver::ProcessCounts;
    ProcessCounts least = ProcessCounts::Of(Client());
    for (int look = 1; look < looks; ++look) {
        const ProcessCounts counts = ProcessCounts::Of(Client());
        for (const auto figure :
             {&ProcessCounts::windows, &ProcessCounts::userObjects, &ProcessCounts::gdiObjects,
              &ProcessCounts::kernelHandles, &ProcessCounts::threads, &ProcessCounts::privateBytes}) {
            least.*figure = std::min(least.*figure, counts.*figure);
        }
    }
    report_.Sample(jobsDone, least);
}

void SoakTest::CompareWithLog() {
    const std::string log = driver::ReadBytes(Client().Folder() + L"\\tlxlog.txt");
    const std::map<std::string, int> queued = Entries(log, "Adding Job to pending list: ");
    const std::map<std::string, int> sent = Entries(log, "Uploading notification file to server: ");
    int lost = 0;
    int twice = 0;
    for (const auto& [name, id] : jobOfFile_) {
        const JobState& state = jobs_[static_cast<std::size_t>(id)];
        const std::string entry = driver::AnsiBytes(state.job.document + L"," + state.job.printer);
        const std::string path = driver::AnsiBytes(L"\\\\" + Server().Name() + L"\\TLXActN$\\" + name);
        const int times = Times(queued, entry);
        lost += times == 0 || state.notifications < (state.charged ? 1 : 0) ? 1 : 0;
        twice += times > 1 || Times(sent, path) > 1 || state.notifications > (state.charged ? 1 : 0) ? 1 : 0;
    }
    report_.Count("jobs announced", Announced());
    report_.Count("jobs lost", lost);
    report_.Count("jobs asked or notified twice", twice);
    report_.Count("notifications that are wrong or nobody's", strange_);
    EXPECT_EQ(lost, 0);
    EXPECT_EQ(twice, 0);
    EXPECT_EQ(strange_, 0);
}

void SoakTest::Conclude() {
    // Whatever is still to come, comes within some beats.
    constexpr int beats = 20;
    for (int beat = 0; beat < beats; ++beat) {
        Tick(L"frmMain");
        Tick(L"frmAccountNumber");
        EXPECT_TRUE(Client().Answers());
    }
    EXPECT_FALSE(Dialog().Visible());
    Collect();
    CompareWithLog();
    EXPECT_TRUE(report_.Print());
}
