// Simulates working days with servers that come and go, and accounts for every job.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "CommandLine.h"
#include "Day.h"

namespace {

using namespace korvanta::simulation;

constexpr korvanta::tests::CommandLine commandLine("simulation");

const char* const usage = R"(usage: simulation [options]

Simulates whole working days of the client, each decided by its seed: servers that come and go, half-written files,
clocks that jump, users who press what they like. Every job must end exactly once, be it notified, cancelled or with a
message; the jobs that are lost by the rules of the system are counted rule by rule.

  --seeds N    so many days (default 100)
  --first N    the first seed (default 1)
  --seed N     this one day alone
  --trace      with --seed: prints what happens
  --threads N  days at a time (default: one for each processor)
  --help       this text

The exit code is 0 when every job is accounted for, 1 when one is not (its seed is printed), 2 when the options are not
understood.
)";

struct Options {
    std::uint64_t first = 1;
    std::uint64_t seeds = 100;
    bool trace = false;
    unsigned threads = 0;
};

struct Totals {
    std::mutex mutex;
    std::uint64_t days = 0;
    std::uint64_t failed = 0;
    std::uint64_t jobs = 0;
    std::uint64_t notified = 0;
    std::uint64_t told = 0;
    std::map<std::string, std::uint64_t> lost;
};

Options Read(const std::vector<std::string>& arguments) {
    Options options;
    bool one = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help") {
            std::fputs(usage, stdout);
            std::exit(0);
        }
        if (argument == "--trace") {
            options.trace = true;
            continue;
        }
        if (argument != "--seeds" && argument != "--first" && argument != "--seed" && argument != "--threads") {
            commandLine.Refuse("unknown option \"" + argument + "\"");
        }
        if (i + 1 == arguments.size()) {
            commandLine.Refuse(argument + " lacks its number");
        }
        const std::uint64_t number = commandLine.Number(argument, arguments[++i]);
        if (argument == "--seeds") {
            options.seeds = number;
        } else if (argument == "--threads") {
            options.threads = static_cast<unsigned>(number);
        } else {
            options.first = number;
            one = one || argument == "--seed";
        }
    }
    options.seeds = one ? 1 : options.seeds;
    if (options.seeds == 0) {
        commandLine.Refuse("--seeds 0 leaves nothing to do");
    }
    if (options.trace && !one) {
        commandLine.Refuse("--trace goes with --seed");
    }
    return options;
}

void Count(std::uint64_t seed, const DayResult& day, Totals& totals) {
    const std::lock_guard<std::mutex> lock(totals.mutex);
    ++totals.days;
    totals.failed += day.failures.empty() ? 0 : 1;
    totals.jobs += static_cast<std::uint64_t>(day.jobs);
    totals.notified += static_cast<std::uint64_t>(day.notified);
    totals.told += static_cast<std::uint64_t>(day.told);
    for (const auto& [rule, count] : day.lost) {
        totals.lost[rule] += static_cast<std::uint64_t>(count);
    }
    for (const std::string& failure : day.failures) {
        std::printf("FAILED seed %llu: %s\n  again: simulation --seed %llu --trace\n",
                    static_cast<unsigned long long>(seed), failure.c_str(), static_cast<unsigned long long>(seed));
    }
}

void RunAll(const Options& options, Totals& totals) {
    std::atomic<std::uint64_t> next = options.first;
    const auto work = [&] {
        for (std::uint64_t seed = next++; seed < options.first + options.seeds; seed = next++) {
            Count(seed, Simulate(seed, options.trace), totals);
        }
    };
    const unsigned wanted = options.threads != 0 ? options.threads : std::thread::hardware_concurrency();
    std::vector<std::thread> threads;
    for (unsigned i = 1; i < wanted && i < options.seeds; ++i) {
        threads.emplace_back(work);
    }
    work();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace

int main(int count, char** texts) {
    const Options options = Read({texts + 1, texts + count});
    const auto start = std::chrono::steady_clock::now();
    Totals totals;
    RunAll(options, totals);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    const auto print = [](const char* what, std::uint64_t number) {
        std::printf("%9llu  %s\n", static_cast<unsigned long long>(number), what);
    };
    print("days", totals.days);
    print("jobs of the user", totals.jobs);
    print("notified", totals.notified);
    print("told (cancelled, or why not)", totals.told);
    for (const auto& [rule, jobs] : totals.lost) {
        print(("by rule: " + rule).c_str(), jobs);
    }
    print("days with a job that nothing accounts for, or another failure", totals.failed);
    std::printf("%9.1f  seconds\n", seconds.count());
    return totals.failed == 0 ? 0 : korvanta::tests::exitFailed;
}
