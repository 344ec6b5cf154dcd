#include "controls/Event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace korvanta {
namespace {

TEST(EventTest, WithoutAHandlerNothingHappens) {
    const Event<int> event;
    EXPECT_NO_THROW(event.Raise(1));
}

TEST(EventTest, TheHandlerGetsTheArguments) {
    Event<int, bool&> event;
    int got = 0;
    event.Connect([&got](int number, bool& answer) {
        got = number;
        answer = true;
    });
    bool answer = false;
    event.Raise(7, answer);
    EXPECT_EQ(got, 7);
    EXPECT_TRUE(answer);
}

TEST(EventTest, AHandlerMayReplaceItselfWhileItRuns) {
    Event<> event;
    std::string calls;
    const auto kept = std::make_shared<std::string>("kept");
    event.Connect([&event, &calls, kept] {
        event.Connect([&calls] { calls += "second "; });
        calls += *kept + " ";  // what the handler holds is still there
    });
    event.Raise();
    event.Raise();
    EXPECT_EQ(calls, "kept second ");
    EXPECT_EQ(kept.use_count(), 1);
}

TEST(EventTest, AHandlerMayRaiseItsEventAgain) {
    Event<int> event;
    int sum = 0;
    event.Connect([&](int number) {
        sum += number;
        if (number > 1) {
            event.Raise(number - 1);
        }
    });
    event.Raise(4);
    EXPECT_EQ(sum, 10);
}

}  // namespace
}  // namespace korvanta
