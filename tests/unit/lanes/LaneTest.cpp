#include "lanes/Lane.h"

#include <memory>
#include <optional>
#include <vector>

#include "fakes/FakeWorkers.h"
#include "gtest/gtest.h"
#include "lanes/ServerLanes.h"

namespace korvanta {
namespace {

class LaneTest : public testing::Test {
  protected:
    // What is started from now on takes so many milliseconds.
    void Takes(std::uint32_t milliseconds) {
        workers.hangs = [milliseconds] { return milliseconds; };
    }
    std::int64_t Now() const { return clock.now.milliseconds; }
    bool Read() {
        return lane.Run([this] { ++done; }, Patience::Limited);
    }
    bool Write() {
        return lane.Run([this] { ++done; }, Patience::Endless);
    }

    fakes::FakeClock clock;
    fakes::FakeMessageLoop messages;
    fakes::FakeWorkers workers{clock, messages};
    Lane lane{workers};
    int done = 0;
};

TEST_F(LaneTest, WhatIsAnsweredInTimeIsDone) {
    Takes(4'900);
    EXPECT_TRUE(Read());
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(lane.AtRest());
}

TEST_F(LaneTest, MessagesRunWhileAnAnswerIsWaitedFor) {
    Takes(2'000);
    EXPECT_TRUE(Read());
    EXPECT_EQ(messages.pendingRuns, 20);
}

TEST_F(LaneTest, AReadingIsGivenUpAfterFiveSeconds) {
    Takes(fakes::FakeWorkers::forever);
    const std::int64_t asked = Now();
    EXPECT_FALSE(Read());
    EXPECT_EQ(Now() - asked, 5'000);
    EXPECT_EQ(done, 0);
}

TEST_F(LaneTest, WhileACallIsStuckNoneIsBegun) {
    Takes(fakes::FakeWorkers::forever);
    EXPECT_FALSE(Read());
    EXPECT_TRUE(lane.Stuck());
    const std::int64_t asked = Now();
    for (int call = 0; call < 1'000; ++call) {
        EXPECT_FALSE(Read());
    }
    EXPECT_EQ(workers.started, 1);
    EXPECT_EQ(Now(), asked);
}

TEST_F(LaneTest, WhenTheStuckCallReturnsTheLaneIsOpenAgain) {
    Takes(fakes::FakeWorkers::forever);
    EXPECT_FALSE(Read());
    workers.LetGo();
    workers.hangs = {};
    EXPECT_FALSE(lane.Stuck());
    EXPECT_TRUE(Read());
    EXPECT_EQ(done, 2);
}

TEST_F(LaneTest, AServerThatHungIsGivenOneSecondTheNextTime) {
    Takes(8'000);
    EXPECT_FALSE(Read());
    clock.AdvanceMilliseconds(3'000);
    workers.LetGo();
    const std::int64_t asked = Now();
    EXPECT_FALSE(Read());
    EXPECT_EQ(Now() - asked, 1'000);
}

TEST_F(LaneTest, AnAnswerThatTookLessThanFiveSecondsMakesGoodAgain) {
    Takes(8'000);
    EXPECT_FALSE(Read());
    clock.AdvanceMilliseconds(3'000);
    workers.LetGo();
    Takes(2'000);
    EXPECT_FALSE(Read());
    clock.AdvanceMilliseconds(1'000);
    workers.LetGo();
    // The late answer has told that the server is only slow.
    EXPECT_TRUE(Read());
    EXPECT_EQ(done, 3);
}

TEST_F(LaneTest, AWritingIsWaitedForAsLongAsWindowsWaits) {
    Takes(130'000);
    const std::int64_t asked = Now();
    EXPECT_TRUE(Write());
    EXPECT_GE(Now() - asked, 130'000);
    EXPECT_EQ(done, 1);
}

TEST_F(LaneTest, AWritingIsBegunAlsoWhileAReadingIsStuck) {
    Takes(fakes::FakeWorkers::forever);
    EXPECT_FALSE(Read());
    workers.hangs = {};
    EXPECT_TRUE(Write());
    EXPECT_EQ(done, 1);
}

TEST_F(LaneTest, AWritingWaitsForAReadingThatIsUnderWay) {
    Takes(2'000);
    std::vector<int> order;
    bool wrote = false;
    messages.onRunPending = [&] {
        messages.onRunPending = {};
        workers.hangs = {};
        wrote = lane.Run([&] { order.push_back(2); }, Patience::Endless);
    };
    EXPECT_TRUE(lane.Run([&] { order.push_back(1); }, Patience::Limited));
    EXPECT_TRUE(wrote);
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(LaneTest, AReadingWithinAReadingWaitsForWhatIsLeftOfItsTime) {
    Takes(fakes::FakeWorkers::forever);
    std::int64_t innerTook = -1;
    bool inner = true;
    messages.onRunPending = [&] {
        messages.onRunPending = {};
        const std::int64_t asked = Now();
        inner = Read();
        innerTook = Now() - asked;
    };
    const std::int64_t asked = Now();
    EXPECT_FALSE(Read());
    EXPECT_FALSE(inner);
    EXPECT_EQ(innerTook, 4'900);
    EXPECT_EQ(Now() - asked, 5'000);
    EXPECT_EQ(workers.started, 1);
}

TEST_F(LaneTest, AWritingThatHangsClosesTheLaneToReadings) {
    Takes(fakes::FakeWorkers::forever);
    bool read = true;
    messages.onRunPending = [&] {
        clock.AdvanceMilliseconds(6'000);
        messages.onRunPending = {};
        read = Read();
        workers.LetGo();
    };
    EXPECT_TRUE(Write());
    EXPECT_FALSE(read);
    EXPECT_EQ(workers.started, 1);
}

TEST_F(LaneTest, TheEndOfTheProgramEndsEveryWait) {
    Takes(fakes::FakeWorkers::forever);
    messages.onRunPending = [this] { workers.ending = true; };
    const std::int64_t asked = Now();
    EXPECT_FALSE(Write());
    EXPECT_EQ(Now() - asked, 100);
    EXPECT_FALSE(Read());
    EXPECT_FALSE(Write());
    EXPECT_EQ(Now() - asked, 100);
    EXPECT_EQ(workers.started, 1);
}

TEST_F(LaneTest, WithoutThreadsTheCallerDoesTheWork) {
    workers.noThreads = true;
    EXPECT_TRUE(Read());
    EXPECT_TRUE(Write());
    EXPECT_EQ(done, 2);
}

TEST_F(LaneTest, WhatIsLeftToTheLaneIsNotWaitedFor) {
    Takes(3'000);
    const std::int64_t asked = Now();
    lane.Leave([this] { ++done; });
    EXPECT_EQ(Now(), asked);
    EXPECT_EQ(done, 0);
    EXPECT_TRUE(Read());
    EXPECT_EQ(done, 2);
}

TEST_F(LaneTest, TheWorkIsGoneBeforeItIsDone) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watch = held;
    Takes(fakes::FakeWorkers::forever);
    EXPECT_FALSE(lane.Run([held = std::move(held)] {}, Patience::Limited));
    EXPECT_FALSE(watch.expired());
    workers.LetGo();
    EXPECT_TRUE(watch.expired());
}

TEST_F(LaneTest, TheMillisecondsMayStartAgain) {
    clock.now.milliseconds = 0xFFFFFFFFLL - 2'000;
    Takes(4'000);
    EXPECT_TRUE(Read());
    Takes(fakes::FakeWorkers::forever);
    EXPECT_FALSE(Read());
}

class ServerLanesTest : public testing::Test {
  protected:
    std::optional<int> Ask(const std::u16string& server, Patience patience = Patience::Limited) {
        const auto answer = std::make_shared<int>(0);
        const bool answered = lanes.Ask(
            server, patience, [answer] { *answer = 7; }, [this, answer] { undone += *answer; });
        return answered ? std::optional(*answer) : std::nullopt;
    }

    fakes::FakeClock clock;
    fakes::FakeMessageLoop messages;
    fakes::FakeWorkers workers{clock, messages};
    ServerLanes lanes{workers};
    int undone = 0;
};

TEST_F(ServerLanesTest, AServersAnswerComesBack) {
    EXPECT_EQ(Ask(u"a"), 7);
    EXPECT_EQ(workers.started, 1);
}

TEST_F(ServerLanesTest, WhatIsOnThisMachineIsAskedByTheCaller) {
    EXPECT_EQ(Ask(u""), 7);
    EXPECT_EQ(workers.started, 0);
}

TEST_F(ServerLanesTest, AServerThatHangsKeepsNoOtherWaiting) {
    workers.hangs = [] { return fakes::FakeWorkers::forever; };
    EXPECT_EQ(Ask(u"a"), std::nullopt);
    workers.hangs = {};
    const std::int64_t asked = clock.now.milliseconds;
    EXPECT_EQ(Ask(u"b"), 7);
    EXPECT_EQ(Ask(u"a"), std::nullopt);
    EXPECT_EQ(clock.now.milliseconds, asked);
    EXPECT_TRUE(lanes.Stuck(u"a"));
    EXPECT_FALSE(lanes.Stuck(u"b"));
}

TEST_F(ServerLanesTest, AnAnswerThatComesTooLateIsUndone) {
    workers.hangs = [] { return 6'000U; };
    EXPECT_EQ(Ask(u"a"), std::nullopt);
    EXPECT_EQ(undone, 0);
    workers.LetGo();
    EXPECT_EQ(undone, 7);
}

TEST_F(ServerLanesTest, AnAnswerInTimeIsNotUndone) {
    EXPECT_EQ(Ask(u"a"), 7);
    EXPECT_EQ(undone, 0);
}

TEST_F(ServerLanesTest, ALateAnswerIsDestroyedByTheLane) {
    std::weak_ptr<int> answer;
    workers.hangs = [] { return 6'000U; };
    auto place = std::make_shared<std::shared_ptr<int>>();
    EXPECT_FALSE(lanes.Ask(u"a", Patience::Limited, [&answer, place] {
        *place = std::make_shared<int>(1);
        answer = *place;
    }));
    place.reset();
    workers.LetGo();
    EXPECT_TRUE(answer.expired());
}

TEST_F(ServerLanesTest, LackOfMemoryOnTheLaneIsRaisedToWhoAsked) {
    EXPECT_THROW(lanes.Ask(u"a", Patience::Limited, [] { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST_F(ServerLanesTest, OnlySoManyCallsAreStuckAtATime) {
    workers.hangs = [] { return fakes::FakeWorkers::forever; };
    for (char16_t server = u'a'; server < u'a' + 100; ++server) {
        EXPECT_EQ(Ask(std::u16string(1, server)), std::nullopt);
    }
    EXPECT_EQ(workers.Waiting(), ServerLanes::mostStuck);
    workers.LetGo();
    workers.hangs = {};
    EXPECT_EQ(Ask(u"new"), 7);
}

TEST_F(ServerLanesTest, WhatIsWrittenIsBegunHoweverManyAreStuck) {
    workers.hangs = [] { return fakes::FakeWorkers::forever; };
    for (char16_t server = u'a'; server < u'a' + 70; ++server) {
        EXPECT_EQ(Ask(std::u16string(1, server)), std::nullopt);
    }
    workers.hangs = {};
    EXPECT_EQ(Ask(u"new", Patience::Endless), 7);
}

TEST_F(ServerLanesTest, AThousandOutagesLeaveNothingBehind) {
    for (int outage = 0; outage < 1'000; ++outage) {
        workers.hangs = [] { return 20'000U; };
        EXPECT_EQ(Ask(u"a"), std::nullopt);
        EXPECT_EQ(Ask(u"a"), std::nullopt);
        clock.AdvanceMilliseconds(20'000);
        workers.LetGo();
        workers.hangs = {};
        EXPECT_EQ(Ask(u"a"), 7);
    }
    EXPECT_EQ(workers.Waiting(), 0U);
}

}  // namespace
}  // namespace korvanta
