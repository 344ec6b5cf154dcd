#include "controls/ReentryFlag.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace korvanta {
namespace {

TEST(ReentryFlagTest, IsSetWhileItsScopeLives) {
    ReentryFlag flag;
    EXPECT_FALSE(flag.IsSet());
    {
        const ReentryFlag::Scope scope(flag);
        EXPECT_TRUE(scope.Entered());
        EXPECT_TRUE(flag.IsSet());
    }
    EXPECT_FALSE(flag.IsSet());
}

TEST(ReentryFlagTest, AScopeInsideAnotherHasNotEnteredAndLeavesTheFlagToTheOuterOne) {
    ReentryFlag flag;
    const ReentryFlag::Scope outer(flag);
    {
        const ReentryFlag::Scope inner(flag);
        EXPECT_FALSE(inner.Entered());
    }
    EXPECT_TRUE(flag.IsSet());
    EXPECT_TRUE(outer.Entered());
}

TEST(ReentryFlagTest, AfterAScopeTheNextOneEntersAgain) {
    ReentryFlag flag;
    { const ReentryFlag::Scope first(flag); }
    const ReentryFlag::Scope second(flag);
    EXPECT_TRUE(second.Entered());
}

TEST(ReentryFlagTest, AnExceptionLeavesTheFlagUnset) {
    ReentryFlag flag;
    EXPECT_THROW(
        {
            const ReentryFlag::Scope scope(flag);
            throw std::runtime_error("raised inside");
        },
        std::runtime_error);
    EXPECT_FALSE(flag.IsSet());
}

TEST(ReentryFlagTest, TheFlagMayGoInsideItsScope) {
    auto flag = std::make_unique<ReentryFlag>();
    const ReentryFlag::Scope scope(*flag);
    flag.reset();
    EXPECT_TRUE(scope.Entered());
}

}  // namespace
}  // namespace korvanta
