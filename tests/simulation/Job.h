#pragma once

#include <cstdint>
#include <string>

namespace korvanta::simulation {

// One print job of the day, and all that is known of it from outside the program.
struct Job {
    std::int32_t id = 0;
    std::u16string document;  // each job has one of its own
    int server = 0;
    std::int64_t ticksBefore = 0;  // undisturbed seconds of its server when it was printed
    std::u16string printer;
    std::u16string user;
    std::u16string machine;
    std::u16string lastLine;  // of its file
    int number = -1;          // of its job file
    bool mine = false;        // of the logged-on user on this machine
    bool issued = false;      // its file is complete
    bool eventLost = false;   // nobody was told that it is in the queue
    bool gone = false;        // from the server's queue

    // What the program was given.
    int attempts = 0;  // reads of its file
    std::int64_t firstAttempt = 0;
    std::int64_t lastAttempt = 0;
    bool clockWasSet = false;  // since the first of them
    bool seen = false;         // the whole record, at a time when it has to be reported
    std::string why;           // the rule by which it need not be seen
    bool silent = false;       // a first look at the queue has entered it into this run's history
    bool maybeSilent = false;  // whether it was so cannot be told from outside

    // What the program did.
    int offered = 0;
    int begun = 0;  // notifications
    int notified = 0;
    int told = 0;
    int cancelled = 0;
    bool notificationFailed = false;
    bool wrong = false;         // its notification does not say what it should
    bool clientEnded = false;   // while the job waited in the program
    std::int32_t account = -1;  // that the user chose
    bool forgotten = false;     // a new detector does not know that it was seen
    bool askedAgain = false;    // by the new detector
    bool cut = false;           // its file was read with half of its last line
    std::string failure;        // what must not be
};

}  // namespace korvanta::simulation
