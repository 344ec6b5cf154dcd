#include "app/Heartbeat.h"

namespace korvanta {

namespace {
// Milliseconds. A smaller step back is jitter of the clock; a larger one means that somebody has set it.
constexpr std::int64_t clockSetBack = 5'000;
}  // namespace

void Heartbeat::Start(DateTime now) {
    ScheduleFullRefresh(now);
    ScheduleServerHealthTest(now);
    SchedulePrinterListScan(now);
    lastTick_ = now;
}

void Heartbeat::ScheduleFullRefresh(DateTime now) {
    Schedule(Task::FullRefresh, now.PlusMinutes(settings_.FullRefreshInterval()));
}

void Heartbeat::ScheduleServerDownFullRefresh(DateTime now) {
    Schedule(Task::FullRefresh, now.PlusSeconds(settings_.ServerDownFullRefreshInterval()));
}

void Heartbeat::ScheduleFullRefreshNow(DateTime now) {
    Schedule(Task::FullRefresh, now);
}

void Heartbeat::SchedulePrinterListScan(DateTime now) {
    Schedule(Task::PrinterListScan, now.PlusSeconds(settings_.PrinterListRefreshInterval()));
}

void Heartbeat::ScheduleServerHealthTest(DateTime now) {
    Schedule(Task::ServerHealthTest, now.PlusSeconds(settings_.ServerHealthTestInterval()));
}

// Otherwise a clock that is set back by an hour would stop all tasks for an hour.
bool Heartbeat::FollowClock(DateTime now) {
    const std::int64_t back = lastTick_.milliseconds - now.milliseconds;
    lastTick_ = now;
    if (back <= clockSetBack) {
        return false;
    }
    for (DateTime& due : due_) {
        due.milliseconds -= back;
    }
    return true;
}

std::optional<Heartbeat::Task> Heartbeat::TaskAt(DateTime now) const {
    for (std::size_t task = 0; task < scheduledTasks; ++task) {
        if (now > due_[task] && !running_[task].IsSet()) {
            return static_cast<Task>(task);
        }
    }
    if (running_[scheduledTasks].IsSet()) {
        return std::nullopt;
    }
    return Task::ClockTick;
}

}  // namespace korvanta
