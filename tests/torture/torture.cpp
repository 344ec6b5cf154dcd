// Makes every call of every platform interface fail, at every point of whole scenarios of the program.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "Trial.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

using namespace korvanta::torture;

constexpr korvanta::tests::CommandLine commandLine("torture");

const char* const usage = R"(usage: torture [options]

Runs five scenarios of the whole program for each way of detecting jobs and lets every call that the program makes of
the platform fail: once, from then on, with the whole server gone, with everything gone. Then it looks whether every job
has ended exactly once, everything is closed and the preferred accounts are still there.

  --scenario NAME   start, refresh, accept, cancel or preferences alone
  --detection NAME  file, spooler, spooler9x or http alone
  --call NAME       the calls of that name alone, such as FileSystem.Write
  --point N         the N-th call of the scenario alone, counted from 0
  --reach NAME      once, from, server or everything alone
  --code CODE       that Windows error alone, or "half" for a transfer that gets half-way
  --list            prints the calls that the scenarios make, and lets none fail
  --trace           prints each call, each message and what failed
  --help            this text

The exit code is 0 when all went well, 1 when something was lost or broken, 2 when the options are not understood.
)";

struct Options {
    std::string scenario;
    std::string detection;
    std::string call;
    std::string reach;
    std::string code;
    std::optional<std::size_t> point;
    bool list = false;
    bool trace = false;
};

struct Totals {
    std::size_t points = 0;
    std::size_t runs = 0;
    std::size_t injected = 0;
    std::size_t failures = 0;
    std::map<std::string, int> ends;
};

// The current run, for the report of a crash.
char current[400] = "";

void TellCurrent() {
    std::fprintf(stderr, "torture: this happened in: %s\n", current);
}

template <class Names>
void CheckName(const std::string& what, const std::string& name, const Names& names) {
    std::string all;
    for (const std::string& known : names) {
        if (name.empty() || name == known) {
            return;
        }
        all += (all.empty() ? "" : ", ") + known;
    }
    commandLine.Refuse("there is no " + what + " \"" + name + "\"; there are " + all);
}

Options Read(const std::vector<std::string>& arguments) {
    Options options;
    const std::map<std::string, std::string*> texts = {{"--scenario", &options.scenario},
                                                       {"--detection", &options.detection},
                                                       {"--call", &options.call},
                                                       {"--reach", &options.reach},
                                                       {"--code", &options.code}};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const auto text = texts.find(argument);
        if (argument == "--help") {
            std::fputs(usage, stdout);
            std::exit(0);
        } else if (argument == "--list") {
            options.list = true;
        } else if (argument == "--trace") {
            options.trace = true;
        } else if (text == texts.end() && argument != "--point") {
            commandLine.Refuse("unknown option \"" + argument + "\"");
        } else if (i + 1 == arguments.size()) {
            commandLine.Refuse(argument + " lacks its value");
        } else if (argument == "--point") {
            options.point = commandLine.Number(argument, arguments[++i]);
        } else {
            *text->second = arguments[++i];
        }
    }
    std::vector<std::string> scenarios;
    for (const Scenario& scenario : Scenarios()) {
        scenarios.emplace_back(scenario.name);
    }
    CheckName("scenario", options.scenario, scenarios);
    CheckName("detection", options.detection, std::vector<std::string>{"file", "spooler", "spooler9x", "http"});
    CheckName("reach", options.reach, std::vector<std::string>{"once", "from", "server", "everything"});
    if (!options.code.empty() && options.code != "half") {
        commandLine.Number("--code", options.code);
    }
    return options;
}

void Report(const Scenario& scenario, Detection detection, const Point& point, const Fault& fault,
            const Outcome& outcome, Totals& totals) {
    totals.runs += 1;
    totals.injected += outcome.injected;
    totals.failures += outcome.failures.empty() ? 0 : 1;
    for (const auto& [end, count] : outcome.ends) {
        totals.ends[end] += count;
    }
    for (const std::string& failure : outcome.failures) {
        std::printf(
            "FAILED %s\n  %s %s\n  again: torture --scenario %s --detection %s --point %zu --reach %s --code %s "
            "--trace\n",
            failure.c_str(), point.call.c_str(), Shown(point.detail).c_str(), scenario.name,
            DetectionName(detection).c_str(), fault.point, ReachName(fault.reach).c_str(),
            CodeName(fault.code).c_str());
    }
}

// Every fault at one point that the options do not exclude.
void TryPoint(const Scenario& scenario, Detection detection, const Options& options, const Point& point,
              std::size_t index, Totals& totals) {
    const bool isClock = point.call == "Clock.Now";
    const bool namesServer = point.detail.find(u"SRV1") != std::u16string::npos;
    for (const Reach reach : {Reach::Once, Reach::SameCall, Reach::Server, Reach::Everything}) {
        const bool wide = reach == Reach::Server || reach == Reach::Everything;
        if ((!options.reach.empty() && options.reach != ReachName(reach)) || (isClock && reach != Reach::Once) ||
            (reach == Reach::Server && !namesServer)) {
            continue;
        }
        std::vector<std::uint32_t> codes = CodesOf(point.call);
        // With many failing calls the error code matters less, so one code is enough.
        const bool half = codes.back() == korvanta::fakes::FaultPlan::halfDone;
        if (options.code.empty() && (wide || (reach == Reach::SameCall && !half))) {
            codes.resize(1);
        }
        for (const std::uint32_t code : codes) {
            if (!options.code.empty() && options.code != CodeName(code)) {
                continue;
            }
            const Fault fault{index, reach, code};
            std::snprintf(current, sizeof(current), "--scenario %s --detection %s --point %zu --reach %s --code %s",
                          scenario.name, DetectionName(detection).c_str(), index, ReachName(reach).c_str(),
                          CodeName(code).c_str());
            Report(scenario, detection, point, fault, Try(scenario, detection, fault, options.trace), totals);
        }
    }
}

Totals TryScenario(const Scenario& scenario, Detection detection, const Options& options) {
    std::snprintf(current, sizeof(current), "--scenario %s --detection %s, nothing failing", scenario.name,
                  DetectionName(detection).c_str());
    const Outcome plain = Try(scenario, detection, std::nullopt, options.trace && options.list);
    Totals totals;
    totals.points = plain.points.size();
    for (const std::string& failure : plain.failures) {
        std::printf("FAILED %s\n  %s, %s, with nothing failing\n", failure.c_str(), scenario.name,
                    DetectionName(detection).c_str());
        ++totals.failures;
    }
    if (options.point && *options.point >= plain.points.size()) {
        commandLine.Refuse("scenario " + std::string(scenario.name) + " (" + DetectionName(detection) +
                           ") has the points 0 to " + std::to_string(plain.points.size() - 1) + ", not " +
                           std::to_string(*options.point));
    }
    for (std::size_t i = 0; i < plain.points.size(); ++i) {
        const Point& point = plain.points[i];
        if ((options.point && *options.point != i) || (!options.call.empty() && options.call != point.call)) {
            continue;
        }
        if (options.list) {
            std::printf("%6zu %s %s\n", i, point.call.c_str(), Shown(point.detail).c_str());
        } else {
            TryPoint(scenario, detection, options, point, i, totals);
        }
    }
    return totals;
}

void PrintRow(const Scenario& scenario, Detection detection, const Totals& totals) {
    std::printf("%-12s %-10s %6zu %6zu %8zu ", scenario.name, DetectionName(detection).c_str(), totals.points,
                totals.runs, totals.injected);
    std::string ends;
    for (const auto& [end, count] : totals.ends) {
        ends += (ends.empty() ? "" : ", ") + end + " " + std::to_string(count);
    }
    std::printf(" %zu failed; %s\n", totals.failures, ends.c_str());
}

}  // namespace

// Recording the stack of each of millions of short allocations would take most of the time.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "malloc_context_size=4:quarantine_size_mb=8";
}

int main(int count, char** texts) {
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(TellCurrent);
#endif
    std::set_terminate([] {
        TellCurrent();
        std::abort();
    });
    const Options options = Read({texts + 1, texts + count});
    if (!options.list) {
        std::printf("%-12s %-10s %6s %6s %8s  outcomes\n", "scenario", "detection", "points", "runs", "faults");
    }
    std::size_t failures = 0;
    std::size_t tried = 0;
    for (const Scenario& scenario : Scenarios()) {
        for (const Detection detection : {Detection::File, Detection::Spooler, Detection::Spooler9x, Detection::HTTP}) {
            if ((!options.scenario.empty() && options.scenario != scenario.name) ||
                (!options.detection.empty() && options.detection != DetectionName(detection))) {
                continue;
            }
            const Totals totals = TryScenario(scenario, detection, options);
            failures += totals.failures;
            tried += totals.runs;
            if (!options.list) {
                PrintRow(scenario, detection, totals);
            }
        }
    }
    if (!options.list && tried == 0) {
        commandLine.Refuse("nothing was tried: no scenario that was asked for makes such a call");
    }
    return failures == 0 ? 0 : korvanta::tests::exitFailed;
}
