#include "Oracle.h"

#include <algorithm>

#include "Words.h"

namespace korvanta::simulation {

namespace {

constexpr int fileNumbers = 1000;
constexpr std::int64_t minute = 60'000;
constexpr std::size_t recordLines = 10;

bool IsNumber(const std::u16string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

bool IsRecord(const std::vector<std::u16string>& lines) {
    if (lines.size() < recordLines) {
        return false;
    }
    for (const std::size_t number : {std::size_t{0}, std::size_t{6}, std::size_t{7}, std::size_t{8}, std::size_t{9}}) {
        if (!IsNumber(lines[number])) {
            return false;
        }
    }
    return true;
}

// -1 when the text is no number that a job file can have.
int CounterIn(std::u16string text) {
    while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n')) {
        text.pop_back();
    }
    if (!IsNumber(text) || text.size() > 4) {
        return -1;
    }
    const int counter = std::stoi(Ascii(text));
    return counter > fileNumbers ? -1 : counter;
}

}  // namespace

std::string Ascii(const std::u16string& text) {
    std::string ascii;
    for (const char16_t unit : text) {
        ascii += static_cast<char>(unit);
    }
    return ascii;
}

Job& Oracle::Add(const Job& job) {
    jobs_.push_back(job);
    return jobs_.back();
}

Job* Oracle::Find(const std::u16string& document) {
    const auto found =
        std::find_if(jobs_.rbegin(), jobs_.rend(), [&document](const Job& job) { return job.document == document; });
    return found == jobs_.rend() ? nullptr : &*found;
}

Job* Oracle::AtNumber(int server, int number) {
    const auto found = std::find_if(jobs_.rbegin(), jobs_.rend(), [server, number](const Job& job) {
        return job.server == server && job.number == number;
    });
    return found == jobs_.rend() ? nullptr : &*found;
}

void Oracle::Saw(Job& job) {
    if (job.mine) {
        job.seen = true;
    }
}

// Numbers that the program passes over on its way to the next one: from now on it may try them at any time.
void Oracle::LeaveBehind(Server& state, int from, int to) {
    for (int number = from; number < to; ++number) {
        state.behind.insert(number);
    }
}

// The files of a row that gave nothing are the next ones again.
void Oracle::GoBackTo(Server& state, int number) {
    for (int i = number; i != state.next; i = (i + 1) % fileNumbers) {
        state.behind.erase(i);
    }
    state.next = number;
}

bool Oracle::WasTriedForAMinute(const Job& job) {
    return job.attempts >= 2 && (job.lastAttempt - job.firstAttempt >= minute || job.clockWasSet);
}

void Oracle::ClockSet() {
    for (Job& job : jobs_) {
        job.clockWasSet = job.clockWasSet || job.attempts > 0;
    }
}

void Oracle::AskedFor(int server, int number, bool reading) {
    Server& state = servers_[server];
    Job* const job = reading ? AtNumber(server, number) : nullptr;
    if (job != nullptr) {
        job->firstAttempt = job->attempts == 0 ? now : job->firstAttempt;
        job->lastAttempt = now;
        ++job->attempts;
    }
    if (number == state.rowStart && number != state.next && state.catchingUpTo < 0) {
        GoBackTo(state, number);
    }
    if (reading && number != state.next && state.behind.contains(number)) {
        return;
    }
    if (state.next >= 0 && state.next != number) {
        LeaveBehind(state, state.next, number < state.next ? fileNumbers : number);
    }
    state.blind = state.blind || state.next < 0;
    if (number >= state.catchingUpTo) {
        state.catchingUpTo = -1;
    }
    if (state.catchingUpTo >= 0) {
        state.rowStart = -1;
    } else if (state.rowStart < 0 || (number != state.next && state.gotText)) {
        state.rowStart = number;
    }
    if (number != state.next) {
        state.gotText = false;
    }
    state.next = number;
}

void Oracle::GotJobFile(int server, int number, const std::u16string& text) {
    Server& state = servers_[server];
    const bool isNext = number == state.next;
    state.gotText = isNext ? !text.empty() : state.gotText;
    const std::vector<std::u16string> lines = LinesOf(text);
    if (!IsRecord(lines)) {
        return;
    }
    if (Job* job = Find(lines[4])) {
        Saw(*job);
        // The history knows a job by its times too.
        job->cut = job->cut || lines[9] != job->lastLine;
        state.behind.erase(number);
        if (isNext) {
            state.next = (number + 1) % fileNumbers;
            state.rowStart = -1;
            state.gotText = false;
        }
    }
}

void Oracle::GotCounter(int server, const std::u16string& text) {
    const int counter = CounterIn(text);
    if (counter < 0) {
        return;
    }
    Server& state = servers_[server];
    const bool isTrue = counter == state.trueCounter;
    if (state.catchingUpTo >= 0) {
        LeaveBehind(state, state.next, state.catchingUpTo);
        state.next = state.catchingUpTo;
    } else if (state.rowStart >= 0) {
        GoBackTo(state, state.rowStart);
    }
    state.rowStart = -1;
    state.catchingUpTo = state.next >= 0 && counter > state.next ? counter : -1;
    for (Job& job : jobs_) {
        if (job.server != server || job.seen || !job.issued || !job.why.empty()) {
            continue;
        }
        if (state.next < 0 && (isTrue || job.number < counter)) {
            job.why = isTrue ? rule::beforeMonitoring : rule::counterMisread;
        } else if (state.blind && isTrue && job.number >= counter) {
            job.why = rule::counterMissing;
        } else if (state.next >= 0 && counter < state.next && (job.number >= state.next || job.number < counter)) {
            job.why = isTrue ? rule::counterWrapped : rule::counterMisread;
        }
    }
    state.blind = false;
    // The files from the held number up to the counter are asked for one by one.
    if (state.next < 0 || counter < state.next) {
        if (state.next >= 0) {
            state.behind.insert(state.next % fileNumbers);
        }
        state.next = counter;
    }
}

void Oracle::Enumerated(const std::u16string& document) {
    Job* const job = Find(document);
    if (job == nullptr || !job->mine) {
        return;
    }
    if (starting) {
        job->silent = true;
        job->why = job->seen ? job->why : rule::beforeMonitoring;
    } else if (!job->silent && !job->seen) {
        job->seen = true;
        seenInTick_.push_back(job);
    }
}

void Oracle::ForgetHistories() {
    for (Job& job : jobs_) {
        job.forgotten = job.forgotten || job.seen;
        job.silent = false;
    }
}

void Oracle::DetectorReplaced() {
    ForgetHistories();
    for (Job* job : seenInTick_) {
        job->seen = false;
        job->silent = true;
        job->why.clear();
    }
    seenInTick_.clear();
    for (Job& job : jobs_) {
        if (!job.seen && job.why.empty()) {
            job.why = rule::detectorReplaced;
            job.maybeSilent = true;
        }
    }
}

int Oracle::Waiting() const {
    return static_cast<int>(std::count_if(jobs_.begin(), jobs_.end(), [](const Job& job) {
        return job.seen && !job.clientEnded && job.notified + job.told == 0;
    }));
}

void Oracle::ProgramEnded() {
    ForgetHistories();
    for (auto& [server, state] : servers_) {
        state.next = -1;
        state.rowStart = -1;
        state.catchingUpTo = -1;
        state.blind = false;
        state.behind.clear();
    }
    for (Job& job : jobs_) {
        if ((job.seen || job.offered != 0) && job.notified + job.told == 0) {
            job.clientEnded = true;
        }
    }
}

void Oracle::Offered(Job& job) {
    if (job.offered != 0 && (job.forgotten || (job.cut && !job.askedAgain))) {
        job.askedAgain = true;
        job.forgotten = false;
    } else if (job.offered != 0) {
        job.failure = "was offered twice";
    }
    ++job.offered;
}

void Oracle::NotificationBegun(Job& job) {
    if (job.begun != 0 && !job.askedAgain && !job.forgotten && !job.cut) {
        job.failure = "was notified twice";
    }
    ++job.begun;
}

void Oracle::AskedForJobs(std::uint32_t bufferBytes, bool given) {
    // An empty queue has the size 0, and one that cannot be asked for it too.
    if (bufferBytes == 0 && questions_ != 1) {
        if (unanswered_) {
            failures_.insert("a print queue without room for its jobs was not asked once more");
        }
        questions_ = 1;
        unanswered_ = false;
    } else {
        ++questions_;
        if (questions_ > 2 && !unanswered_) {
            failures_.insert("a print queue was asked for jobs that it had given");
        }
        if (questions_ > 2 && bufferBytes <= lastBufferBytes_) {
            failures_.insert("a print queue was asked once more without more room");
        }
        unanswered_ = questions_ == 2 && !given;
    }
    lastBufferBytes_ = bufferBytes;
}

void Oracle::EndsAgain(Job& job) {
    if (job.forgotten || job.cut) {
        job.askedAgain = true;
    } else if (!job.askedAgain) {
        job.failure = "ended twice";
    }
}

// A file may be whole although its writing seemed to fail; then the user was told the worse.
void Oracle::Notified(Job& job, bool right) {
    if (job.notified != 0 || (job.told != 0 && !job.notificationFailed)) {
        EndsAgain(job);
    }
    ++job.notified;
    job.wrong = job.wrong || !right;
}

void Oracle::Told(Job& job, bool notificationFailed) {
    if (job.notified + job.told != 0) {
        EndsAgain(job);
    }
    ++job.told;
    job.notificationFailed = job.notificationFailed || notificationFailed;
}

void Oracle::LeftQueue(Job& job, bool reachable) {
    job.gone = true;
    if (!job.seen && !reachable && job.why.empty()) {
        job.why = rule::leftUnseen;
    }
}

std::vector<std::string> Oracle::Verdict(std::map<std::string, int>& rules) const {
    std::vector<std::string> failures(failures_.begin(), failures_.end());
    for (const Job& job : jobs_) {
        const std::string failure = Judge(job, rules);
        if (!failure.empty()) {
            failures.push_back("job " + Ascii(job.document) + " " + failure);
        }
    }
    return failures;
}

std::string Oracle::Judge(const Job& job, std::map<std::string, int>& rules) {
    if (!job.mine) {
        return job.offered + job.notified + job.told == 0 ? "" : "of somebody else was offered to this user";
    }
    if (!job.failure.empty()) {
        return job.failure;
    }
    if (job.askedAgain) {
        ++rules[job.cut ? rule::askedAgainCut : rule::askedAgain];
        return "";
    }
    if (!job.seen && job.offered != 0 && !job.maybeSilent) {
        return "was offered although the program cannot know it";
    }
    if (!job.seen && job.offered == 0) {
        if (job.why.empty() && !WasTriedForAMinute(job)) {
            return "was never seen";
        }
        ++rules[job.why.empty() ? rule::unreadable : job.why];
        return "";
    }
    if (job.clientEnded && job.notified + job.told == 0) {
        ++rules[rule::clientEnded];
        return "";
    }
    // A job may be charged with another one, by the tick for all documents, without being offered itself.
    return job.offered + job.notified + job.told == 0 ? "was seen and never offered" : JudgeEnd(job);
}

std::string Oracle::JudgeEnd(const Job& job) {
    if (job.wrong) {
        return "was notified with wrong contents";
    }
    if (job.notified + job.told == 0) {
        return "was offered and has no end";
    }
    return job.notified != 0 && job.cancelled != 0 ? "was notified and taken from the queue" : "";
}

}  // namespace korvanta::simulation
