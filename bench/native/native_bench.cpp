// The portable code on this machine itself. Arguments: "--list-operations N", or benchmark's own options and then any
// of "load", "search", "list", accounts as COUNT=FILE and lists' lengths as elements=COUNT.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <set>

#include "Cases.h"
#include "NativePlatform.h"

namespace {

using namespace korvanta::bench;

void Register(const Case& row) {
    const auto add = [&row](const char* side, const std::function<void()>& action) {
        const auto run = [action, between = row.between](benchmark::State& state) {
            for (auto _ : state) {
                state.PauseTiming();
                between();
                state.ResumeTiming();
                action();
            }
        };
        benchmark::RegisterBenchmark((row.name + "/" + side + "/" + std::to_string(row.count)).c_str(), run)
            ->Unit(benchmark::kNanosecond);
    };
    add("ours", row.ours);
    add("bare", row.bare);
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "C.UTF-8");
    OwnedMutexes mutexes;
    if (argc == 3 && std::strcmp(argv[1], "--list-operations") == 0) {
        UseList(mutexes, std::atoi(argv[2]));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    std::set<std::string> wanted;
    std::map<int, std::string> files;
    std::set<int> elements;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::size_t equals = argument.find('=');
        if (equals == std::string::npos) {
            wanted.insert(argument);
        } else if (argument.starts_with("elements=")) {
            elements.insert(std::atoi(argument.c_str() + equals + 1));
        } else {
            files[std::atoi(argument.c_str())] = argument.substr(equals + 1);
        }
    }
    std::deque<OneFile> fileSystems;
    for (const auto& [count, file] : files) {
        const Surroundings surroundings{fileSystems.emplace_back(file), mutexes, file};
        for (const Case& row :
             AccountCases(surroundings, count, [&wanted](const std::string& name) { return wanted.contains(name); })) {
            Register(row);
        }
    }
    if (wanted.contains("list")) {
        for (const int count : elements) {
            for (const Case& row : ListCases(mutexes, count)) {
                Register(row);
            }
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
