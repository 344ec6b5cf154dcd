#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "SystemTest.h"
#include "driver/Wait.h"
#include "soak/Report.h"

// A client that gets far more jobs than a user prints in a day, as fast as it takes them, and a print server to which
// all kinds of things happen meanwhile. The client's timers, which tick once a second, are ticked by the soak as well.
// A condition that does not come within a minute ends the test.
class SoakTest : public SystemTest {
  protected:
    explicit SoakTest(const std::string& title);

    // How many jobs are wanted, as the command says.
    static int Wanted();
    void StartWithLog(const std::wstring& arguments = L"");
    // Calls `round`, which deals with as many jobs as it is given or fewer, until all are done, and measures now and
    // then what the client holds. First it warms up, by jobs that do not count and by whatever `happen` lets happen.
    template <typename Round, typename Happen>
    void GoThrough(Round round, Happen happen);

    // The next job of the server, announced at once, or so many of them. Their numbers come back.
    int AnnounceNext();
    std::vector<int> AnnounceNext(int count);
    static std::wstring Document(int job) { return L"Sheet " + std::to_wstring(job); }
    int Announced() const { return static_cast<int>(jobs_.size()); }

    // Lets the timers of the form tick once.
    void Tick(const std::wstring& form);
    // Ticks until so many jobs wait in the dialog.
    void LetFind(std::size_t jobs);
    // Ticks until each of the jobs is charged, taking the notifications off the server as it does itself.
    void LetCharge(const std::vector<int>& jobs);
    // The job gets no notification: it was cancelled, or its server was gone.
    void ExpectNone(int job);

    // How many kinds of things there are that happen to the server between the jobs.
    static constexpr int happenings = 5;
    // What happens next: one thing after the other. Some of it comes with jobs of its own,
    // which `answer` is to answer.
    void LetSomethingHappen(const std::function<void(const std::vector<int>&)>& answer);
    // The share for notifications is away, and back.
    void TakeNotifications();
    void ReturnNotifications();

    // Every job was queued once and notified once, as the files on the server and the client's own log tell; and the
    // tables.
    void Conclude();

    Report& Result() { return report_; }
    int Any(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }

  private:
    struct JobState {
        driver::Job job{};
        std::wstring file{};
        int notifications = 0;
        bool charged = true;
    };

    const driver::PrintServer& Reachable() const { return unplugged_ ? *unplugged_ : Server(); }
    void WriteCounter() const;
    void Collect();
    void Take(const std::wstring& notification);
    void CompareWithLog();

    void Refresh();
    void PublishAccounts(bool many);
    void PublishPrinters(bool many);
    void Settle();
    void Measure(int jobsDone);

    Report report_;
    std::vector<JobState> jobs_;
    std::map<std::wstring, int> jobOfFile_;               // by the notification's name
    std::map<std::wstring, std::vector<WPARAM>> timers_;  // by the form's name
    std::optional<driver::PrintServer> unplugged_;
    std::minstd_rand random_;
    int happened_ = 0;
    int strange_ = 0;
    bool manyAccounts_ = false;
    bool manyPrinters_ = false;
};

namespace soak {

// Raises when the condition does not come.
template <typename Condition>
void Await(const std::string& what, Condition condition) {
    if (!driver::WaitFor(condition, std::chrono::seconds(60))) {
        throw std::runtime_error("not within a minute: " + what);
    }
}

}  // namespace soak

template <typename Round, typename Happen>
void SoakTest::GoThrough(Round round, Happen happen) {
    const int measures = std::min(4, Wanted());
    const int warmUp = std::clamp(Wanted() / 10, 20, 100);
    for (int kind = 0; kind < happenings; ++kind) {
        happen();
    }
    while (Announced() < warmUp) {
        round(warmUp - Announced());
    }
    Settle();
    round(1);
    const int first = Announced();
    Measure(0);
    for (int measure = 1; measure <= measures; ++measure) {
        const int target = first + Wanted() * measure / measures - 1;
        while (Announced() < target) {
            round(target - Announced());
        }
        Settle();
        round(1);
        Measure(Announced() - first);
    }
}
