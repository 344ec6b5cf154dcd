#pragma once

#include <string>
#include <vector>

#include "World.h"

namespace korvanta::torture {

struct Scenario {
    const char* name;
    const char* tells;
    // What comes before the calls that may fail, and what makes them.
    void (*prepare)(World& world);
    void (*act)(World& world);
    // The preferred accounts that a restart may show afterwards.
    std::vector<std::vector<std::int32_t>> preferred;
};

const std::vector<Scenario>& Scenarios();

}  // namespace korvanta::torture
