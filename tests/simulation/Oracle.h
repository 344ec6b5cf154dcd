#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Job.h"

namespace korvanta::simulation {

// The rules by which a job may stay unseen or be asked about twice; docs/administration/outages.md explains them.
namespace rule {
inline constexpr const char* beforeMonitoring = "there before the client looked";
inline constexpr const char* counterWrapped = "counter wrapped";
inline constexpr const char* counterMisread = "counter misread";
inline constexpr const char* counterMissing = "no counter at the first look";
inline constexpr const char* unreadable = "file unreadable for a minute";
inline constexpr const char* leftUnseen = "left the queue unseen";
inline constexpr const char* detectorReplaced = "detection method changed";
inline constexpr const char* clientEnded = "client ended while the job waited";
inline constexpr const char* askedAgain = "asked again by a client that was started anew, or that changed its method";
inline constexpr const char* askedAgainCut = "asked again after its file was read without the end of its last line";
// And by which an account may leave the preferred ones.
inline constexpr const char* accountMissing = "preferred account was not in the list of accounts";
inline constexpr const char* localPreferences = "preferred account was not in a local copy made without the server";
}  // namespace rule

// Judges the program by what passes between it and the platform, and by what the documents promise. It shares no code
// with the program: it reads job files and counters by itself and keeps its own account of which file is next.
class Oracle {
  public:
    // Milliseconds that the world has known, whatever its clocks say.
    std::int64_t now = 0;
    // The program is looking at the queues for the first time: what is there is not reported.
    bool starting = false;

    Job& Add(const Job& job);
    std::deque<Job>& Jobs() { return jobs_; }
    Job* Find(const std::u16string& document);
    // The number that a server's counter file holds when it is whole.
    void TrueCounter(int server, int counter) { servers_[server].trueCounter = counter; }

    // From the seam: a job file is asked for; its text, or that of a counter, was read to its end.
    void AskedFor(int server, int number, bool reading);
    void GotJobFile(int server, int number, const std::u16string& text);
    void GotCounter(int server, const std::u16string& text);
    // Somebody has set the program's clock: a minute by that clock may be none.
    void ClockSet();
    // An enumeration of a print queue gave this job.
    void Enumerated(const std::u16string& document);
    // What the program did about a job.
    static void Offered(Job& job);
    static void NotificationBegun(Job& job);
    static void Notified(Job& job, bool right);
    static void Told(Job& job, bool notificationFailed);
    // The detection method was found changed within the tick that is ending: another detector has begun anew.
    void DetectorReplaced();
    void TickEnds() { seenInTick_.clear(); }
    // Jobs that the program has seen and not ended yet.
    int Waiting() const;
    // The program has ended, whatever still waited in it.
    void ProgramEnded();
    // `reachable`: the program had all the time that it needs to see the job.
    static void LeftQueue(Job& job, bool reachable);

    // A print queue is asked for its size, then for its jobs, and once more only when there was no room for them.
    void AskedForJobs(std::uint32_t bufferBytes, bool given);

    // Empty when every job is accounted for; `rules` counts the losses by their rule.
    std::vector<std::string> Verdict(std::map<std::string, int>& rules) const;

  private:
    struct Server {
        int next = -1;  // number of the next file, -1 before the first look
        int trueCounter = 0;
        // Where the last row of files began that were asked for and gave nothing; the program goes back there.
        int rowStart = -1;
        bool gotText = false;   // the file that was asked for last gave something
        int catchingUpTo = -1;  // the counter, while the files below it are read without asking whether they are there
        bool blind = false;     // files were asked for, from number 0, before there was a counter
        std::set<int> behind;   // numbers that were passed over unread, and may be tried again at any time
    };
    void Saw(Job& job);
    void ForgetHistories();
    static void EndsAgain(Job& job);
    Job* AtNumber(int server, int number);
    static void LeaveBehind(Server& state, int from, int to);
    void GoBackTo(Server& state, int number);
    static bool WasTriedForAMinute(const Job& job);
    static std::string Judge(const Job& job, std::map<std::string, int>& rules);
    static std::string JudgeEnd(const Job& job);

    std::deque<Job> jobs_;
    std::vector<Job*> seenInTick_;
    std::map<int, Server> servers_;
    // Of the print queue that was looked at last: questions, that for its size among them, and whether it wants one
    // more.
    int questions_ = 0;
    bool unanswered_ = false;
    std::uint32_t lastBufferBytes_ = 0;
    std::set<std::string> failures_;
};

std::string Ascii(const std::u16string& text);

}  // namespace korvanta::simulation
