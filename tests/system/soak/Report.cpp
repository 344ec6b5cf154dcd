#include "soak/Report.h"

#include <algorithm>
#include <cstdio>

using driver::ProcessCounts;

struct Report::Row {
    const char* name;
    std::int64_t ProcessCounts::*figure;
    std::int64_t unit;
    // How much it may grow with a thousand jobs, in its unit.
    double bar;
};

const std::vector<Report::Row>& Report::Rows() {
    static const std::vector<Row> rows{
        {"windows", &ProcessCounts::windows, 1, 0},
        {"USER objects", &ProcessCounts::userObjects, 1, 4},
        {"GDI objects", &ProcessCounts::gdiObjects, 1, 4},
        {"kernel handles", &ProcessCounts::kernelHandles, 1, 4},
        {"threads", &ProcessCounts::threads, 1, 0},
        {"private memory, KB", &ProcessCounts::privateBytes, 1024, 2048},
    };
    return rows;
}

bool Report::Print() const {
    std::printf("\n%s\n", title_.c_str());
    for (const auto& [what, times] : happened_) {
        std::printf("  %-68s %6d\n", what.c_str(), times);
    }
    std::printf("\n  %-20s", "after so many jobs");
    for (const auto& [jobs, counts] : samples_) {
        std::printf(" %8d", jobs);
    }
    std::printf("  %8s  %9s  %7s\n", "growth", "per 1,000", "bar");
    bool good = samples_.size() > 1;
    for (const Row& row : Rows()) {
        good = PrintRow(row) && good;
    }
    std::fflush(stdout);
    return good;
}

bool Report::PrintRow(const Row& row) const {
    bool known = true;
    std::printf("  %-20s", row.name);
    for (const auto& [jobs, counts] : samples_) {
        known = known && counts.*row.figure > 0;
        std::printf(" %8lld", static_cast<long long>(counts.*row.figure / row.unit));
    }
    const double growth =
        static_cast<double>(samples_.back().second.*row.figure - samples_.front().second.*row.figure) /
        static_cast<double>(row.unit);
    const double thousands = samples_.back().first / 1000.0;
    // A short soak has the bar of a whole thousand: it finds what grows with each job.
    const bool met = known && growth <= row.bar * std::max(1.0, thousands);
    std::printf("  %+8.0f  %+9.1f  %+7.0f  %s\n", growth, growth / thousands, row.bar, met ? "met" : "MISSED");
    return met;
}
