#include "detection/OneAtATime.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace korvanta {
namespace {

TEST(OneAtATime, OperationInsideAnOtherIsIgnored) {
    int rebuilds = 0;
    OneAtATime operations([&rebuilds] { ++rebuilds; });
    int inner = 0;
    operations.Run([&] { operations.Run([&inner] { ++inner; }); });
    EXPECT_EQ(inner, 0);
    operations.Run([&inner] { ++inner; });
    EXPECT_EQ(inner, 1);
    EXPECT_EQ(rebuilds, 0);
}

TEST(OneAtATime, RebuildInsideAnOperationIsDeferredToItsEndAndDoneOnce) {
    int rebuilds = 0;
    OneAtATime operations([&rebuilds] { ++rebuilds; });
    operations.Run([&] {
        EXPECT_FALSE(operations.RebuildWaits());
        operations.Rebuild();
        operations.Rebuild();
        EXPECT_TRUE(operations.RebuildWaits());
        EXPECT_EQ(rebuilds, 0);
    });
    EXPECT_EQ(rebuilds, 1);
    EXPECT_FALSE(operations.RebuildWaits());
}

TEST(OneAtATime, RebuildInsideARebuildFollowsIt) {
    int rebuilds = 0;
    OneAtATime* self = nullptr;
    OneAtATime operations([&rebuilds, &self] {
        if (++rebuilds == 1) {
            self->Rebuild();
            EXPECT_EQ(rebuilds, 1);
        }
    });
    self = &operations;
    operations.Rebuild();
    EXPECT_EQ(rebuilds, 2);
}

TEST(OneAtATime, RebuildThatRaisesIsOverAndTheNextOperationRuns) {
    int rebuilds = 0;
    OneAtATime operations([&rebuilds] {
        if (++rebuilds == 1) {
            throw std::runtime_error("failed");
        }
    });
    EXPECT_THROW(operations.Run([&operations] { operations.Rebuild(); }), std::runtime_error);
    EXPECT_FALSE(operations.RebuildWaits());
    int runs = 0;
    operations.Run([&runs] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(rebuilds, 1) << "what has raised is not tried again by itself";
    operations.Rebuild();
    EXPECT_EQ(rebuilds, 2);
}

TEST(OneAtATime, RebuildDeferredInAnOperationThatRaisesFollowsTheNextOne) {
    int rebuilds = 0;
    OneAtATime operations([&rebuilds] { ++rebuilds; });
    EXPECT_THROW(operations.Run([&operations] {
        operations.Rebuild();
        throw std::runtime_error("failed");
    }),
                 std::runtime_error);
    EXPECT_EQ(rebuilds, 0);
    operations.Run([] {});
    EXPECT_EQ(rebuilds, 1);
}

}  // namespace
}  // namespace korvanta
