#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "controls/ReentryFlag.h"
#include "platform/Clock.h"
#include "server/clsClientSettings.h"

namespace korvanta {

// Knows when each of the program's tasks is due, and chooses the one that a tick of the main form's timer runs: the
// most urgent one that is due. Tasks let messages run, so ticks are re-entrant: a tick does not start a task that is
// still running. The current time is always passed in.
class Heartbeat {
  public:
    // In order of urgency. ClockTick, the detector's own tick, is due whenever nothing else is.
    enum class Task { FullRefresh, PrinterListScan, ServerHealthTest, ClockTick };

    // The intervals are read from the settings whenever a task is scheduled.
    explicit Heartbeat(const clsClientSettings& settings) : settings_(settings) {}

    // Schedules every task, as its interval after `now`.
    void Start(DateTime now);
    void ScheduleFullRefresh(DateTime now);
    // After the shorter interval that holds while a printer or its server cannot be watched.
    void ScheduleServerDownFullRefresh(DateTime now);
    // For the first tick after `now`.
    void ScheduleFullRefreshNow(DateTime now);
    void SchedulePrinterListScan(DateTime now);
    void ScheduleServerHealthTest(DateTime now);

    DateTime FullRefreshDue() const { return Due(Task::FullRefresh); }
    DateTime PrinterListScanDue() const { return Due(Task::PrinterListScan); }
    DateTime ServerHealthTestDue() const { return Due(Task::ServerHealthTest); }

    // Call it at every tick, before TaskAt. When the clock was set back since the last tick, it moves the due times
    // back as well and returns true.
    bool FollowClock(DateTime now);
    // The task that a tick at `now` has to run. None if only ClockTick is due and is still running.
    std::optional<Task> TaskAt(DateTime now) const;
    // To be set while the task runs.
    ReentryFlag& Running(Task task) { return running_[static_cast<std::size_t>(task)]; }

  private:
    static constexpr std::size_t scheduledTasks = 3;

    DateTime Due(Task task) const { return due_[static_cast<std::size_t>(task)]; }
    void Schedule(Task task, DateTime due) { due_[static_cast<std::size_t>(task)] = due; }

    const clsClientSettings& settings_;
    std::array<DateTime, scheduledTasks> due_{};
    std::array<ReentryFlag, scheduledTasks + 1> running_;
    DateTime lastTick_;
};

}  // namespace korvanta
