#include "detection/JobFiles.h"

#include <algorithm>
#include <string_view>

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"
#include "server/basJobNotificationFile.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {

namespace {

constexpr std::int32_t fileNumbers = 1000;
// A web server that does not answer, or that has a page for every address, seems to have every file, and each of them
// is empty. After so many in a row the poll leaves the server alone.
constexpr std::size_t mostEmptyFiles = 5;
// Seconds that one look may spend on a server whose files cannot be read; it goes on at the next look.
constexpr std::int64_t longestLook = 5;
constexpr std::int64_t longestRetrying = 1;
// A file server may deny for several seconds that a file exists, a web answer may be cut off, a server may go away
// between its counter and its file: after so many seconds it is not that.
constexpr std::int64_t keepUnreadSeconds = 60;
constexpr std::uint32_t readRetryMilliseconds = 200;

std::int32_t Following(std::int32_t number) {
    return (number + 1) % fileNumbers;
}

// The number in a server's counter file, which may end with a line break. Raises for a number that no file can have:
// reading up to it would never end. 1000 is what a server may write behind file 999, and stands for 0.
std::int32_t CounterFrom(std::u16string_view text) {
    while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n')) {
        text.remove_suffix(1);
    }
    const std::int32_t counter = ToInteger32(text);
    if (counter < 0 || counter > fileNumbers) {
        throw StandardError(errorNumber::overflow, u"clsJobDetectionFile");
    }
    return counter;
}

}  // namespace

JobFiles::JobFiles(const Surroundings& surroundings, const std::u16string& serverName)
    : surroundings_(surroundings), serverName_(serverName) {}

// Files from before the first look are left alone. So are all files when the numbers have started again: files of the
// last time round may still lie there under the same numbers, and Poll has read the new ones by then. The one that it
// last found missing cannot be from the last time round.
void JobFiles::CatchUp(Pauses& pauses) {
    const std::int32_t counter = CounterFrom(surroundings_.serverInterfaces.Interface(serverName_)->GetJobCounter());
    RetryPassedOver();
    lookBegan_ = surroundings_.clock.Now();
    const std::int32_t held = counter_.value_or(counter);
    bool serverIsSlow = false;
    for (std::int32_t number = held; number < counter; ++number) {
        if (serverIsSlow) {
            PassOver(number);
        } else if (const Reading file = Read(number, pauses); file.job) {
            Report(number, file);
        } else {
            PassOver(number);
            serverIsSlow = TookTooLong();
        }
    }
    if (counter < held && missing_ == held % fileNumbers) {
        PassOver(*missing_);
    }
    if (counter != held) {
        std::erase_if(unread_, [](const auto& unread) { return !unread.second.giveUpAt; });
    }
    counter_ = counter;
}

void JobFiles::Poll(Pauses& pauses) {
    RetryPassedOver();
    lookBegan_ = surroundings_.clock.Now();
    missing_.reset();
    const std::shared_ptr<IServerInterface> server = surroundings_.serverInterfaces.Interface(serverName_);
    surroundings_.log.Log(u"Testing for job notification file " + NumberText(Next()));
    std::vector<std::int32_t> emptyFiles;
    // Once through all numbers is enough, whatever a server has under them.
    for (std::int32_t i = 0; i < fileNumbers && emptyFiles.size() < mostEmptyFiles; ++i) {
        const std::int32_t number = Next();
        if (!server->TestJobNotificationFile(number)) {
            missing_ = number;
            break;
        }
        if (!PollFile(*server, number, emptyFiles, pauses)) {
            break;
        }
    }
    if (!emptyFiles.empty()) {
        // No other file came behind them, so the server may still be about to write them: they are the next ones.
        counter_ = emptyFiles.front();
    }
}

// Reads a file that the server has, and goes on to the next number. False when that is all for this poll. `emptyFiles`
// are those right before this one, in order; files that are not empty end the row.
bool JobFiles::PollFile(IServerInterface& server, std::int32_t number, std::vector<std::int32_t>& emptyFiles,
                        Pauses& pauses) {
    surroundings_.log.Log(u"Reading job event file " + NumberText(number));
    const Reading file = Read(number, pauses);
    if (file.job) {
        surroundings_.log.Log(u"Valid job event file processed");
    } else {
        surroundings_.log.Log(u"Invalid job event file processed");
        if (!server.TestJobNotificationFile(number)) {
            unread_.erase(number);
            return false;
        }
    }
    if (file.job || !file.empty) {
        for (const std::int32_t empty : emptyFiles) {
            PassOver(empty);
            if (file.job) {
                Retry(empty);  // it may have been written meanwhile, or the server may have come back
            }
        }
        emptyFiles.clear();
    }
    if (file.job) {
        Report(number, file);
    } else if (file.empty) {
        emptyFiles.push_back(number);
    } else {
        PassOver(number);
    }
    counter_ = Following(number);
    return file.job || !TookTooLong();
}

// A file that cannot be read when it is met first is tried once more: the server may have been writing it. A file that
// is empty once and malformed once counts as empty, since it has only just come.
JobFiles::Reading JobFiles::Read(std::int32_t number, Pauses& pauses) {
    Reading file;
    if (unread_.contains(number)) {
        file = ReadAgain(number);
    } else if (file = Fetch(number); !file.job && pauses.Take()) {
        surroundings_.system.Sleep(readRetryMilliseconds);
        const bool wasEmpty = file.empty;
        file = Fetch(number);
        file.empty = file.empty || wasEmpty;
    }
    if (!file.job) {
        unread_.try_emplace(number);
    }
    return file;
}

// Over HTTP what is left of a longer answer can stick to the end of a file the first time it is fetched, but not twice
// running. So a malformed file is always fetched twice.
JobFiles::Reading JobFiles::ReadAgain(std::int32_t number) {
    const Reading file = Fetch(number);
    return file.job || file.empty ? file : Fetch(number);
}

JobFiles::Reading JobFiles::Fetch(std::int32_t number) {
    const std::u16string text = surroundings_.serverInterfaces.Interface(serverName_)->GetJobNotificationFile(number);
    auto job = std::make_shared<clsJobInfo>();
    if (!job->ReadFromString(text)) {
        return {nullptr, text.empty()};
    }
    job->JobEventFilename = JobNotificationFileName(surroundings_.windowsUserName, number);
    return {job, false};
}

// Only a job whose report did not raise is read for good.
void JobFiles::Report(std::int32_t number, const Reading& file) {
    surroundings_.report(file.job);
    unread_.erase(number);
}

void JobFiles::PassOver(std::int32_t number) {
    Unread& unread = unread_[number];
    if (!unread.giveUpAt) {
        unread.giveUpAt = surroundings_.clock.Now().PlusSeconds(keepUnreadSeconds);
    }
}

// A thousand files that never become readable are tried in turns, some at each look.
void JobFiles::RetryPassedOver() {
    const DateTime began = surroundings_.clock.Now();
    for (const std::int32_t number : PassedOver()) {
        Retry(number);
        lastRetried_ = number;
        if (surroundings_.clock.Now() > began.PlusSeconds(longestRetrying)) {
            break;
        }
    }
}

// One that cannot be read in time is given up while the server is there: as long as it is away, nobody knows.
void JobFiles::Retry(std::int32_t number) {
    if (const Reading file = ReadAgain(number); file.job) {
        surroundings_.log.Log(u"Job event file " + NumberText(number) + u" of server " + serverName_ +
                              u" read at a later attempt");
        Report(number, file);
        return;
    }
    const DateTime now = surroundings_.clock.Now();
    std::optional<DateTime>& giveUpAt = unread_[number].giveUpAt;
    // Somebody may have set the clock back.
    giveUpAt = std::min(*giveUpAt, now.PlusSeconds(keepUnreadSeconds));
    if (now >= *giveUpAt && surroundings_.serverInterfaces.Interface(serverName_)->TestHealth()) {
        surroundings_.log.Log(u"Job event file " + NumberText(number) + u" of server " + serverName_ +
                              u" given up: it could not be read for " + NumberText(keepUnreadSeconds) + u" seconds");
        unread_.erase(number);
    }
}

// The numbers behind the one that was tried last come first.
std::vector<std::int32_t> JobFiles::PassedOver() const {
    std::vector<std::int32_t> numbers;
    for (const auto& [number, unread] : unread_) {
        if (unread.giveUpAt) {
            numbers.push_back(number);
        }
    }
    std::rotate(numbers.begin(), std::upper_bound(numbers.begin(), numbers.end(), lastRetried_), numbers.end());
    return numbers;
}

bool JobFiles::TookTooLong() const {
    return surroundings_.clock.Now() > lookBegan_.PlusSeconds(longestLook);
}

// A server that has never told a counter is read from file 0 on.
std::int32_t JobFiles::Next() {
    if (!counter_) {
        counter_ = 0;
    }
    return *counter_ % fileNumbers;
}

}  // namespace korvanta
