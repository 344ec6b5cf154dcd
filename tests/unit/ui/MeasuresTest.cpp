#include "ui/Measures.h"

#include "fakes/FakeTextMeasure.h"
#include "gtest/gtest.h"

namespace korvanta {

namespace {

class MeasuresTest : public testing::Test {
  protected:
    fakes::FakeTextMeasure texts;
    Measures measures{texts};
    Label label{u"label"};
    CommandButton ok{u"ok"};
    CommandButton cancel{u"cancel"};
};

}  // namespace

TEST_F(MeasuresTest, ALineHasRoomForBoldTextAndAFieldForItsEdgesToo) {
    texts.lineHeight = 200;
    texts.boldLineHeight = 240;
    EXPECT_EQ(measures.LineHeight(), 270);
    EXPECT_EQ(measures.FieldHeight(), 375);
    texts.lineHeight = 300;
    EXPECT_EQ(measures.LineHeight(), 330);
}

TEST_F(MeasuresTest, ACaptionHasItsWidthUpToTheLongestThatFits) {
    label.Caption(u"12345");
    EXPECT_EQ(measures.CaptionWidth(label, 10), 5 * texts.characterWidth + Measures::slack);
    EXPECT_EQ(measures.CaptionWidth(label, 4), 4 * texts.characterWidth + Measures::slack);
    label.Bold(true);
    EXPECT_EQ(measures.CaptionWidth(label, 10), 5 * texts.boldCharacterWidth + Measures::slack);
}

TEST_F(MeasuresTest, TwoButtonsSideBySideAreAsWideAsTheLongerCaptionNeeds) {
    ok.Caption(u"OK");
    cancel.Caption(u"Cancel");
    const int smallest = measures.ButtonWidth(ok, cancel);
    cancel.Caption(u"Leave everything as it is");
    const int wide = 25 * texts.characterWidth + 300;
    EXPECT_GT(wide, smallest);
    EXPECT_EQ(measures.ButtonWidth(ok, cancel), wide);
    EXPECT_EQ(measures.ButtonWidth(cancel, ok), wide);
    ok.Caption(std::u16string(1'000, u'x'));
    EXPECT_EQ(measures.ButtonWidth(ok, cancel), 35 * texts.characterWidth);
}

TEST_F(MeasuresTest, TheSecondButtonEndsAtTheRightAndTheFirstAGapBeforeIt) {
    const int width = measures.ButtonWidth(ok, cancel);
    measures.PlaceButtons(ok, cancel, 5000, 700);
    EXPECT_EQ(cancel.Position(), (Place{5000 - width, 700, width, measures.FieldHeight()}));
    EXPECT_EQ(ok.Position().Right(), cancel.Position().left - Measures::gap);
    EXPECT_EQ(ok.Position().width, width);
    EXPECT_EQ(ok.Position().top, 700);
}

}  // namespace korvanta
