#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Faults.h"
#include "Scenarios.h"

namespace korvanta::torture {

std::string DetectionName(Detection detection);

// What one run of a scenario came to.
struct Outcome {
    std::vector<Point> points;
    std::size_t injected = 0;
    // How often each kind of end was met: "notified", "cancelled", "told", ...
    std::map<std::string, int> ends;
    // What must not be; empty when all is well.
    std::vector<std::string> failures;
};

// Runs the scenario, with the fault if there is one; then, with nothing failing any more, a refresh, one more job, the
// end of the program and a restart.
Outcome Try(const Scenario& scenario, Detection detection, const std::optional<Fault>& fault, bool trace);

}  // namespace korvanta::torture
