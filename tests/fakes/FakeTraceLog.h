#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "common/Services.h"

namespace korvanta::fakes {

class FakeTraceLog : public TraceLog {
  public:
    std::vector<std::u16string> lines;

    bool Has(const std::u16string& line) const { return std::find(lines.begin(), lines.end(), line) != lines.end(); }
    // Whether any line begins with the text.
    bool HasStart(const std::u16string& start) const {
        return std::any_of(lines.begin(), lines.end(),
                           [&start](const std::u16string& line) { return line.starts_with(start); });
    }

    void Log(const std::u16string& text) override { lines.push_back(text); }
};

}  // namespace korvanta::fakes
