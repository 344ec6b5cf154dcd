#include "app/Heartbeat.h"

#include <gtest/gtest.h>

#include <vector>

namespace korvanta {
namespace {

using Task = Heartbeat::Task;
constexpr DateTime start{1'000'000'000'000};

DateTime After(std::int64_t seconds) {
    return start.PlusSeconds(seconds);
}

// Every interval differs, so that none can stand for another.
class HeartbeatTest : public testing::Test {
  protected:
    HeartbeatTest() {
        settings.FullRefreshInterval(2);
        settings.ServerDownFullRefreshInterval(20);
        settings.PrinterListRefreshInterval(44);
        settings.ServerHealthTestInterval(31);
        heartbeat.Start(start);
    }

    // What ticks at that moment do, one after the other, when each task is scheduled anew as it begins.
    std::vector<Task> TasksOfTicks(DateTime now, int ticks) {
        std::vector<Task> tasks;
        for (int i = 0; i < ticks; ++i) {
            tasks.push_back(heartbeat.TaskAt(now).value());
            Begin(tasks.back(), now);
        }
        return tasks;
    }
    void Begin(Task task, DateTime now) {
        if (task == Task::FullRefresh) {
            heartbeat.ScheduleFullRefresh(now);
        } else if (task == Task::PrinterListScan) {
            heartbeat.SchedulePrinterListScan(now);
        } else if (task == Task::ServerHealthTest) {
            heartbeat.ScheduleServerHealthTest(now);
        }
    }

    clsClientSettings settings;
    Heartbeat heartbeat{settings};
};

TEST_F(HeartbeatTest, FullRefreshIsCountedInMinutesAndTheRestInSeconds) {
    EXPECT_EQ(heartbeat.FullRefreshDue(), After(120));
    EXPECT_EQ(heartbeat.PrinterListScanDue(), After(44));
    EXPECT_EQ(heartbeat.ServerHealthTestDue(), After(31));
}

TEST_F(HeartbeatTest, EachScheduleCountsFromTheTimeThatItIsGiven) {
    heartbeat.ScheduleFullRefresh(After(1));
    heartbeat.SchedulePrinterListScan(After(2));
    heartbeat.ScheduleServerHealthTest(After(3));
    EXPECT_EQ(heartbeat.FullRefreshDue(), After(121));
    EXPECT_EQ(heartbeat.PrinterListScanDue(), After(46));
    EXPECT_EQ(heartbeat.ServerHealthTestDue(), After(34));
    heartbeat.ScheduleServerDownFullRefresh(After(4));
    EXPECT_EQ(heartbeat.FullRefreshDue(), After(24));
    heartbeat.ScheduleFullRefreshNow(After(5));
    EXPECT_EQ(heartbeat.FullRefreshDue(), After(5));
}

TEST_F(HeartbeatTest, IntervalsThatChangeCountFromTheNextScheduleOn) {
    settings.ServerHealthTestInterval(5);
    EXPECT_EQ(heartbeat.ServerHealthTestDue(), After(31));
    heartbeat.ScheduleServerHealthTest(After(10));
    EXPECT_EQ(heartbeat.ServerHealthTestDue(), After(15));
}

TEST_F(HeartbeatTest, DueTasksComeOneATickTheMostUrgentFirst) {
    EXPECT_EQ(TasksOfTicks(After(500), 5),
              (std::vector<Task>{Task::FullRefresh, Task::PrinterListScan, Task::ServerHealthTest, Task::ClockTick,
                                 Task::ClockTick}));
}

TEST_F(HeartbeatTest, TaskIsDueOnceItsTimeIsPastAndNotBefore) {
    EXPECT_EQ(heartbeat.TaskAt(After(31)), Task::ClockTick);
    EXPECT_EQ(heartbeat.TaskAt({After(31).milliseconds + 1}), Task::ServerHealthTest);
    heartbeat.ScheduleServerHealthTest(After(100));
    EXPECT_EQ(heartbeat.TaskAt(After(44)), Task::ClockTick);
    EXPECT_EQ(heartbeat.TaskAt({After(44).milliseconds + 1}), Task::PrinterListScan);
    heartbeat.SchedulePrinterListScan(After(100));
    EXPECT_EQ(heartbeat.TaskAt(After(120)), Task::ClockTick);
    EXPECT_EQ(heartbeat.TaskAt({After(120).milliseconds + 1}), Task::FullRefresh);
}

TEST_F(HeartbeatTest, TaskThatRunsIsPassedOverUntilItHasEnded) {
    for (const Task task : {Task::FullRefresh, Task::PrinterListScan, Task::ServerHealthTest}) {
        ASSERT_EQ(heartbeat.TaskAt(After(500)), task);
        {
            const ReentryFlag::Scope run(heartbeat.Running(task));
            EXPECT_NE(heartbeat.TaskAt(After(500)), task);
        }
        EXPECT_EQ(heartbeat.TaskAt(After(500)), task);
        Begin(task, After(500));
    }
}

TEST_F(HeartbeatTest, WhileTheDetectorsTickRunsATickDoesWhatElseIsDueOrNothing) {
    const ReentryFlag::Scope run(heartbeat.Running(Task::ClockTick));
    EXPECT_EQ(heartbeat.TaskAt(After(1)), std::nullopt);
    EXPECT_EQ(heartbeat.TaskAt(After(32)), Task::ServerHealthTest);
}

TEST_F(HeartbeatTest, WhileEverythingRunsATickDoesNothing) {
    const ReentryFlag::Scope refresh(heartbeat.Running(Task::FullRefresh));
    const ReentryFlag::Scope scan(heartbeat.Running(Task::PrinterListScan));
    const ReentryFlag::Scope test(heartbeat.Running(Task::ServerHealthTest));
    EXPECT_EQ(heartbeat.TaskAt(After(500)), Task::ClockTick);
    const ReentryFlag::Scope tick(heartbeat.Running(Task::ClockTick));
    EXPECT_EQ(heartbeat.TaskAt(After(500)), std::nullopt);
}

TEST_F(HeartbeatTest, ClockThatIsSetBackTakesTheDueTimesWithIt) {
    EXPECT_FALSE(heartbeat.FollowClock(After(10)));
    EXPECT_TRUE(heartbeat.FollowClock(After(10 - 86'400)));
    EXPECT_EQ(heartbeat.FullRefreshDue(), After(120 - 86'400));
    EXPECT_EQ(heartbeat.PrinterListScanDue(), After(44 - 86'400));
    EXPECT_EQ(heartbeat.ServerHealthTestDue(), After(31 - 86'400));
    EXPECT_FALSE(heartbeat.FollowClock(After(11 - 86'400)));
    EXPECT_EQ(heartbeat.ServerHealthTestDue(), After(31 - 86'400));
}

TEST_F(HeartbeatTest, ClockThatFallsBackFiveSecondsOnlyJitters) {
    EXPECT_FALSE(heartbeat.FollowClock(After(-5)));
    EXPECT_EQ(heartbeat.ServerHealthTestDue(), After(31));
    EXPECT_TRUE(heartbeat.FollowClock({After(-10).milliseconds - 1}));
}

TEST_F(HeartbeatTest, ClockThatIsSetForwardMovesNothing) {
    EXPECT_FALSE(heartbeat.FollowClock(After(86'400)));
    EXPECT_EQ(heartbeat.FullRefreshDue(), After(120));
}

}  // namespace
}  // namespace korvanta
