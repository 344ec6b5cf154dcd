#pragma once

#include <cstdint>

namespace korvanta {

// How jobs are found; the numbers are those of the client settings file. The file may hold any other number: that
// finds jobs by files, read from the file shares, and is called HTTP monitoring on the screen.
enum class DetectionMethod : std::int32_t {
    File = 0,
    Printer = 1,
    HTTP = 2,
};

}  // namespace korvanta
