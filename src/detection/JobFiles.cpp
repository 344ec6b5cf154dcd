#include "detection/JobFiles.h"

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
constexpr int mostEmptyFiles = 5;
// A server that takes longer to give an empty file is taken for unreachable, and each further question would keep the
// user waiting as long.
constexpr std::int64_t longestEmptyAnswer = 5;  // seconds
constexpr std::uint32_t readRetryMilliseconds = 200;

std::int32_t Following(std::int32_t number) {
    return (number + 1) % fileNumbers;
}

std::int32_t Preceding(std::int32_t number, int steps) {
    return (number - steps + fileNumbers) % fileNumbers;
}

// The number in a server's counter file, which may end with a line break. Raises for a number that no file can have:
// reading up to it would never end. 1000 is what a server may write behind file 999, and stands for 0.
std::int32_t CounterFrom(std::u16string_view text) {
    while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n')) {
        text.remove_suffix(1);
    }
    const std::int32_t counter = ToInteger32(text);
    if (counter < 0 || counter > fileNumbers) {
        throw Error(errorNumber::overflow, u"clsJobDetectionFile", u"Overflow");
    }
    return counter;
}

}  // namespace

JobFiles::JobFiles(const Surroundings& surroundings, const std::u16string& serverName)
    : surroundings_(surroundings), serverName_(serverName) {}

// Files from before the first look are left alone. So are all files when the numbers have started again: files of the
// last time round may still lie there under the same numbers, and Poll has read the new ones by then.
void JobFiles::CatchUp() {
    const std::int32_t counter = CounterFrom(surroundings_.serverInterfaces.Interface(serverName_)->GetJobCounter());
    for (std::int32_t number = counter_.value_or(counter); number < counter; ++number) {
        ReportIfReadable(number);
    }
    counter_ = counter;
}

void JobFiles::Poll() {
    const std::shared_ptr<IServerInterface> server = surroundings_.serverInterfaces.Interface(serverName_);
    surroundings_.log.Log(u"Testing for job notification file " + NumberText(Next()));
    int emptyFiles = 0;
    // Once through all numbers is enough, whatever a server has under them.
    for (std::int32_t i = 0; i < fileNumbers && emptyFiles < mostEmptyFiles; ++i) {
        const std::int32_t number = Next();
        const DateTime asked = surroundings_.clock.Now();
        if (!server->TestJobNotificationFile(number)) {
            break;
        }
        surroundings_.log.Log(u"Reading job event file " + NumberText(number));
        const Reading file = Read(number);
        if (file.job) {
            surroundings_.log.Log(u"Valid job event file processed");
            // The empty files before this one may have been written since, or their server may have come back. From
            // here on nobody would ask for them any more.
            for (int steps = emptyFiles; steps > 0; --steps) {
                ReportIfReadable(Preceding(number, steps));
            }
            surroundings_.report(file.job);
        } else {
            surroundings_.log.Log(u"Invalid job event file processed");
            if (!server->TestJobNotificationFile(number)) {
                break;
            }
        }
        counter_ = Following(number);
        emptyFiles = !file.job && file.empty ? emptyFiles + 1 : 0;
        if (emptyFiles != 0 && surroundings_.clock.Now() > asked.PlusSeconds(longestEmptyAnswer)) {
            break;
        }
    }
    if (emptyFiles != 0) {
        // No job came behind them, so the server may still be about to write them: the next poll begins with them.
        counter_ = Preceding(Next(), emptyFiles);
    }
}

// A file that cannot be read is tried once more: the server may have been writing it the first time. A file that is
// empty once and malformed once counts as empty, since it has only just come.
JobFiles::Reading JobFiles::Read(std::int32_t number) {
    const std::shared_ptr<IServerInterface> server = surroundings_.serverInterfaces.Interface(serverName_);
    auto job = std::make_shared<clsJobInfo>();
    std::u16string text = server->GetJobNotificationFile(number);
    bool empty = text.empty();
    bool valid = job->ReadFromString(text);
    job->JobEventFilename = JobNotificationFileName(surroundings_.windowsUserName, number);
    if (!valid) {
        surroundings_.system.Sleep(readRetryMilliseconds);
        text = server->GetJobNotificationFile(number);
        empty = empty || text.empty();
        valid = job->ReadFromString(text);
    }
    return {valid ? job : nullptr, empty};
}

void JobFiles::ReportIfReadable(std::int32_t number) {
    if (const Reading file = Read(number); file.job) {
        surroundings_.report(file.job);
    }
}

// A server that has never told a counter is read from file 0 on.
std::int32_t JobFiles::Next() {
    if (!counter_) {
        counter_ = 0;
    }
    return *counter_ % fileNumbers;
}

}  // namespace korvanta
