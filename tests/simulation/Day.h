#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace korvanta::simulation {

struct DayResult {
    int jobs = 0;  // of the user
    int notified = 0;
    int told = 0;                     // cancelled, or a message that says why not
    std::map<std::string, int> lost;  // by rule
    std::vector<std::string> failures;
};

// One working day, all that happens in it decided by the seed.
DayResult Simulate(std::uint64_t seed, bool trace);

}  // namespace korvanta::simulation
