#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Faults.h"
#include "Scenarios.h"

namespace korvanta::torture {

std::string DetectionName(Detection detection);

// The outcome of one run of a scenario.
struct Outcome {
    std::vector<Point> points;
    std::size_t injected = 0;
    // How many jobs ended in each way: "notified", "cancelled", "told", ...
    std::map<std::string, int> ends;
    // Everything that went wrong; empty if nothing did.
    std::vector<std::string> failures;
};

// Runs the scenario, with the fault if there is one. Afterwards, with no fault left, it runs a refresh and one more
// job, ends the program, and restarts it.
Outcome Try(const Scenario& scenario, Detection detection, const std::optional<Fault>& fault, bool trace);

}  // namespace korvanta::torture
