#pragma once

#include <string>

#include "Cases.h"

namespace korvanta::bench {

// The client from its start to its icon in the notification area, against an empty program from its start to its end.
Case StartCase(const std::string& client, const std::string& empty, int rounds);

}  // namespace korvanta::bench
