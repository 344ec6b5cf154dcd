#include "ui/ScreenPlacement.h"

#include "fakes/FakeScreen.h"
#include "gtest/gtest.h"

namespace korvanta {

namespace {

class PlacedForm : public Form {
  public:
    PlacedForm() : Form(u"form") { MinimumSize(3000, 2000); }
};

class ScreenPlacementTest : public testing::Test {
  protected:
    ScreenPlacementTest() { screen.workArea = {100, 200, 9000, 7000}; }

    fakes::FakeScreen screen;
    PlacedForm form;
    ScreenPlacement placement{form, screen};
};

}  // namespace

TEST_F(ScreenPlacementTest, AFormComesUpInTheMiddleAtItsLeastSizeOrLarger) {
    form.Move({0, 0, 1000, 5000});
    placement.PutOnScreen();
    EXPECT_EQ(form.Position(), (Place{100 + (9000 - 3000) / 2, 200 + (7000 - 5000) / 2, 3000, 5000}));
}

TEST_F(ScreenPlacementTest, AFormThatTheUserMovedStaysThere) {
    placement.PutOnScreen();
    const Place own{300, 250, 4000, 3000};
    form.Move(own);
    placement.PutOnScreen();
    EXPECT_EQ(form.Position(), own);
}

TEST_F(ScreenPlacementTest, AFormThatCannotBeSeenInFullMovesInside) {
    placement.PutOnScreen();
    form.Move({8000, 6000, 4000, 3000});
    placement.PutOnScreen();
    EXPECT_EQ(form.Position(), (Place{9100 - 4000, 7200 - 3000, 4000, 3000}));
    form.Move({-500, -500, 4000, 3000});
    placement.PutOnScreen();
    EXPECT_EQ(form.Position(), (Place{100, 200, 4000, 3000}));
}

TEST_F(ScreenPlacementTest, AFormThatIsLargerThanTheScreenTakesAllOfIt) {
    form.Move({0, 0, 20'000, 20'000});
    placement.PutOnScreen();
    EXPECT_EQ(form.Position(), screen.workArea);
    placement.GrowToFit();
    EXPECT_EQ(form.Position(), screen.workArea);
}

TEST_F(ScreenPlacementTest, AFormGrowsToItsLeastSizeWhereItStands) {
    form.Move({400, 500, 2000, 1000});
    placement.GrowToFit();
    EXPECT_EQ(form.Position(), (Place{400, 500, 3000, 2000}));
    form.Move({400, 500, 4000, 3000});
    placement.GrowToFit();
    EXPECT_EQ(form.Position(), (Place{400, 500, 4000, 3000}));
    form.Move({9000, 7000, 100, 100});
    placement.GrowToFit();
    EXPECT_EQ(form.Position(), (Place{6100, 5200, 3000, 2000}));
}

}  // namespace korvanta
