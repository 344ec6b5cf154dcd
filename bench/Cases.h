#pragma once

#include <functional>
#include <string>
#include <vector>

#include "BareLoops.h"
#include "platform/FileSystem.h"
#include "platform/Mutex.h"

namespace korvanta::bench {

// One row: the product's way and the bare way to do the same.
struct Case {
    std::string name;
    int count = 0;  // accounts, or elements
    std::function<void()> ours;
    std::function<void()> bare;             // none where there is nothing to compare with
    std::function<void()> between = [] {};  // before each of them, not timed
    bool repeats = true;                    // as often as it takes to be measured
    int rounds = 7;
    int bareRounds = rounds;
};

// What the cases need of the platform that they run on.
struct Surroundings {
    FileSystem& files;  // has \\BENCH\TLXData$\Accounts.txt
    MutexFactory& mutexes;
    std::string accountsFile;  // the same file as the C library names it
};

// Whether the benchmark of that name is wanted.
using Wanted = std::function<bool(const std::string&)>;

// "load" and "search" with the accounts in the file.
std::vector<Case> AccountCases(const Surroundings& surroundings, int count, const Wanted& wanted);
// "list", with so many elements.
std::vector<Case> ListCases(MutexFactory& mutexes, int count);
// Appends and reads so many elements: what is counted is whether the system is asked for anything.
void UseList(MutexFactory& mutexes, int operations);

// Keeps the compiler from leaving out what nobody looks at.
template <class T>
void Keep(const T& value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

}  // namespace korvanta::bench
