#pragma once

#include <map>
#include <string>
#include <vector>

#include "driver/ProcessCounts.h"

// What a soak has counted, and whether that is good enough.
class Report {
  public:
    explicit Report(std::string title) : title_(std::move(title)) {}

    // What happened so often: a way in which jobs were answered, or something that befell the client between them.
    void Count(const std::string& what, int times = 1) { happened_[what] += times; }
    // What the client holds after so many of the jobs; the first one is what the growth is counted from.
    void Sample(int jobsDone, const driver::ProcessCounts& counts) { samples_.emplace_back(jobsDone, counts); }
    // Writes the tables to the standard output. False when a figure has grown more than its bar allows, or is unknown.
    bool Print() const;

  private:
    struct Row;
    static const std::vector<Row>& Rows();
    bool PrintRow(const Row& row) const;

    std::string title_;
    std::map<std::string, int> happened_;
    std::vector<std::pair<int, driver::ProcessCounts>> samples_;
};
