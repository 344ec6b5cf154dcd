#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "controls/ReentryFlag.h"
#include "platform/Clock.h"
#include "server/clsClientSettings.h"

namespace korvanta {

// When each of the program's tasks is due, and which one a tick of the main form's timer does: at most one, the most
// urgent that is due. A task that still runs is not begun again by a tick that comes while it lets messages run.
// Nothing here asks for the time: it is handed in.
class Heartbeat {
  public:
    // The most urgent first. The tick of the detector is due whenever nothing else is.
    enum class Task { FullRefresh, PrinterListScan, ServerHealthTest, ClockTick };

    // The intervals are read from the settings whenever a task is scheduled.
    explicit Heartbeat(const clsClientSettings& settings) : settings_(settings) {}

    // Schedules every task, counted from `now`.
    void Start(DateTime now);
    void ScheduleFullRefresh(DateTime now);
    // Sooner than that: a server or a printer has failed.
    void ScheduleServerDownFullRefresh(DateTime now);
    // For the first tick after `now`.
    void ScheduleFullRefreshNow(DateTime now);
    void SchedulePrinterListScan(DateTime now);
    void ScheduleServerHealthTest(DateTime now);

    DateTime FullRefreshDue() const { return Due(Task::FullRefresh); }
    DateTime PrinterListScanDue() const { return Due(Task::PrinterListScan); }
    DateTime ServerHealthTestDue() const { return Due(Task::ServerHealthTest); }

    // For every tick, before TaskAt: when the clock was set back since the last one, the due times move with it. True
    // if they did.
    bool FollowClock(DateTime now);
    // What a tick at `now` does; nothing when it comes while the detector's tick runs and no other task is due.
    std::optional<Task> TaskAt(DateTime now) const;
    // Who does the task sets its flag meanwhile.
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
