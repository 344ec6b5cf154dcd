#pragma once

#include <string>
#include <vector>

#include "World.h"

namespace korvanta::torture {

struct Scenario {
    const char* name;
    const char* tells;
    // First what runs undisturbed, then what makes the calls that may fail.
    void (*prepare)(World& world);
    void (*act)(World& world);
    // The lists of preferred accounts, any of which a restart may show afterwards.
    std::vector<std::vector<std::int32_t>> preferred;
};

const std::vector<Scenario>& Scenarios();

}  // namespace korvanta::torture
