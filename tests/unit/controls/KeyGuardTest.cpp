#include "controls/KeyGuard.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace korvanta {
namespace {

constexpr int enter = 13;
constexpr int letter = 'A';
constexpr std::uint32_t start = 100'000;

class KeyGuardTest : public testing::Test {
  protected:
    bool Press(int key, std::uint32_t time) { return guard.TakesPress(key, false, time); }
    bool Repeat(int key, std::uint32_t time) { return guard.TakesPress(key, true, time); }

    KeyGuard guard;
};

TEST_F(KeyGuardTest, BeforeTheWindowHadTheKeyboardEverythingPasses) {
    EXPECT_TRUE(Press(enter, start));
    EXPECT_TRUE(guard.TakesRelease(enter));
    EXPECT_TRUE(guard.TakesCharacter(start));
}

TEST_F(KeyGuardTest, AKeyRightAfterTheWindowCameUpDoesNotCountNorDoesItsRelease) {
    guard.Activated(start, true);
    EXPECT_FALSE(Press(enter, start + 499));
    EXPECT_FALSE(guard.TakesRelease(enter));
}

TEST_F(KeyGuardTest, AfterAQuietHalfSecondAKeyCountsWithItsRepetitionsAndItsRelease) {
    guard.Activated(start, true);
    EXPECT_TRUE(Press(enter, start + 500));
    EXPECT_TRUE(Repeat(enter, start + 800));
    EXPECT_TRUE(guard.TakesRelease(enter));
    EXPECT_TRUE(Press(letter, start + 801)) << "and from then on every key";
}

TEST_F(KeyGuardTest, EachKeyWithinTheRhythmOfTypingMakesTheWaitLonger) {
    guard.Activated(start, true);
    for (std::uint32_t time = start + 100; time < start + 3'000; time += 200) {
        EXPECT_FALSE(Press(letter, time)) << time;
        EXPECT_FALSE(guard.TakesRelease(letter));
    }
    EXPECT_FALSE(Press(enter, start + 3'050));
    EXPECT_TRUE(Press(enter, start + 3'550));
}

TEST_F(KeyGuardTest, WhoPressesOnAndOnGetsThroughAfterFiveSeconds) {
    guard.Activated(start, true);
    for (std::uint32_t time = start + 100; time < start + 5'000; time += 100) {
        EXPECT_FALSE(Press(enter, time)) << time;
    }
    EXPECT_TRUE(Press(enter, start + 5'000));
}

TEST_F(KeyGuardTest, AKeyThatIsHeldDownSinceBeforeNeverCounts) {
    guard.Activated(start, true);
    EXPECT_FALSE(Repeat(enter, start + 30));
    EXPECT_FALSE(Repeat(enter, start + 600)) << "also when it pauses";
    EXPECT_FALSE(Repeat(enter, start + 6'000));
    EXPECT_FALSE(guard.TakesRelease(enter));
    EXPECT_TRUE(Press(enter, start + 6'600)) << "pressed anew it does";
}

TEST_F(KeyGuardTest, AReleaseWithoutItsPressDoesNotCount) {
    guard.Activated(start, true);
    EXPECT_FALSE(guard.TakesRelease(enter));
    EXPECT_TRUE(Press(letter, start + 1'000));
    EXPECT_FALSE(guard.TakesRelease(enter));
}

TEST_F(KeyGuardTest, APressThatWaitedInTheQueueSinceBeforeDoesNotCount) {
    guard.Activated(start, false);
    EXPECT_FALSE(Press(enter, start - 1));
    EXPECT_FALSE(guard.TakesRelease(enter));
    EXPECT_FALSE(guard.TakesCharacter(start - 1));
    EXPECT_TRUE(Press(enter, start));
}

TEST_F(KeyGuardTest, CharactersWaitAsKeysDo) {
    guard.Activated(start, true);
    EXPECT_FALSE(guard.TakesCharacter(start + 100));
    EXPECT_TRUE(guard.TakesCharacter(start + 500));
}

TEST_F(KeyGuardTest, AWindowThatTheUserTurnedToTakesKeysAtOnceButNotThoseHeldDown) {
    guard.Activated(start, false);
    EXPECT_FALSE(Repeat(enter, start + 1));
    EXPECT_TRUE(Press(letter, start + 2));
}

TEST_F(KeyGuardTest, AClickEndsTheWait) {
    guard.Activated(start, true);
    guard.MousePressed(start + 100);
    EXPECT_FALSE(Press(letter, start + 99)) << "pressed before the click";
    EXPECT_TRUE(Press(letter, start + 101));
}

TEST_F(KeyGuardTest, AClickLaterOnTakesNoKeyAway) {
    guard.Activated(start, false);
    EXPECT_TRUE(Press(letter, start + 10));
    guard.MousePressed(start + 20);
    EXPECT_TRUE(Repeat(letter, start + 30));
    EXPECT_TRUE(guard.TakesRelease(letter));
}

TEST_F(KeyGuardTest, ComingUpAgainWaitsAgainAndForgetsTheKeysThatWereDown) {
    guard.Activated(start, true);
    EXPECT_TRUE(Press(enter, start + 600));
    guard.Activated(start + 700, true);
    EXPECT_FALSE(Repeat(enter, start + 750));
    EXPECT_FALSE(guard.TakesRelease(enter));
    EXPECT_FALSE(Press(enter, start + 1'000));
}

TEST_F(KeyGuardTest, TheTickCountMayRunOver) {
    constexpr std::uint32_t last = 0xFFFFFFF0U;
    guard.Activated(last, true);
    EXPECT_FALSE(Press(enter, last + 100));
    EXPECT_FALSE(Press(enter, last - 1));
    EXPECT_TRUE(Press(enter, last + 700));
}

TEST_F(KeyGuardTest, AWindowThatStayedInFrontForWeeksStillTakesKeys) {
    guard.Activated(start, false);
    EXPECT_TRUE(Press(enter, start + 0x90000000U));
}

}  // namespace
}  // namespace korvanta
