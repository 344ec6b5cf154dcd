#include "controls/Controls.h"

#include <gtest/gtest.h>

#include "controls/Grid.h"
#include "fakes/FakePeers.h"

namespace korvanta {
namespace {

using Changes = std::vector<Aspect>;

class ControlsTest : public testing::Test {
  protected:
    template <class... Arguments>
    void Count(Event<Arguments...>& event) {
        event.Connect([this](Arguments...) { ++raised; });
    }
    fakes::FakePeers peers;
    int raised = 0;
};

TEST_F(ControlsTest, ALabelHasTheLookOfPlainTextUntilToldOtherwise) {
    Label label(u"lbl");
    EXPECT_FALSE(label.Clickable());
    EXPECT_FALSE(label.Bold());
    EXPECT_FALSE(label.Wrap());
    EXPECT_TRUE(label.AccessKey());
    EXPECT_TRUE(label.Transparent());
    EXPECT_EQ(label.Align(), Alignment::Left);
    label.Attach(peers);
    label.Transparent(false);
    EXPECT_EQ(peers.Of(label).changes, Changes{Aspect::Colors});
    Count(label.Click);
    label.HandleClick();
    EXPECT_EQ(raised, 1);
}

TEST_F(ControlsTest, ATextBoxTellsAChangeByTheProgramOnce) {
    TextBox box(u"txt");
    EXPECT_EQ(box.BackColor(), systemColor::windowBackground);
    box.Attach(peers);
    Count(box.Change);
    peers.onChanged = [&box](Control&, Aspect) { box.HandleChange(box.Text()); };  // the window's echo
    box.Text(u"abc");
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(peers.Of(box).changes, Changes{Aspect::Caption});
    box.Text(u"abc");
    EXPECT_EQ(raised, 1);
}

TEST_F(ControlsTest, ATextBoxTakesWhatTheUserTypesWithoutTellingTheWindow) {
    TextBox box(u"txt");
    box.Attach(peers);
    Count(box.Change);
    box.HandleChange(u"a");
    EXPECT_EQ(box.Text(), u"a");
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(peers.Of(box).changes, Changes());
    box.HandleChange(u"a");
    EXPECT_EQ(raised, 1);
}

TEST_F(ControlsTest, AHandlerMayCorrectTheTextThatIsTyped) {
    TextBox box(u"txt");
    box.Attach(peers);
    box.Change.Connect([&box] { box.Text(u"fixed"); });
    box.HandleChange(u"typed");
    EXPECT_EQ(box.Text(), u"fixed");
    EXPECT_EQ(peers.Of(box).changes, Changes{Aspect::Caption});
}

TEST_F(ControlsTest, AKeyIsSwallowedWhenTheHandlerSaysSo) {
    TextBox box(u"txt");
    EXPECT_FALSE(box.HandleKeyDown(Key::Enter));
    box.KeyDown.Connect([](Key key, bool& swallow) { swallow = key == Key::Down; });
    EXPECT_TRUE(box.HandleKeyDown(Key::Down));
    EXPECT_FALSE(box.HandleKeyDown(Key::Enter));
}

TEST_F(ControlsTest, ACheckBoxClicksWhenItsTickMarkChangesByWhomever) {
    CheckBox box(u"chk");
    box.Attach(peers);
    Count(box.Click);
    peers.onChanged = [&box](Control&, Aspect) { box.HandleClick(box.Value()); };  // the window's echo
    box.Value(true);
    EXPECT_TRUE(box.Value());
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(peers.Of(box).changes, Changes{Aspect::Selection});
    box.Value(true);
    EXPECT_EQ(raised, 1);
    box.HandleClick(false);
    EXPECT_FALSE(box.Value());
    EXPECT_EQ(raised, 2);
    EXPECT_EQ(peers.Of(box).changes, Changes{Aspect::Selection});
}

TEST_F(ControlsTest, AComboBoxStartsWithNothing) {
    const ComboBox box(u"cbo");
    EXPECT_TRUE(box.Items().empty());
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_EQ(box.BackColor(), systemColor::windowBackground);
}

TEST_F(ControlsTest, NewItemsLeaveNothingChosen) {
    ComboBox box(u"cbo");
    box.Items({u"a", u"b"});
    box.ListIndex(1);
    box.Attach(peers);
    box.Items({u"c"});
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_EQ(peers.Of(box).changes, Changes{Aspect::Content});
}

TEST_F(ControlsTest, AnIndexOutsideTheItemsChoosesNothing) {
    ComboBox box(u"cbo");
    box.Items({u"a", u"b"});
    for (const int index : {2, -1, -2, INT32_MAX, INT32_MIN}) {
        box.ListIndex(0);
        box.ListIndex(index);
        EXPECT_EQ(box.ListIndex(), -1) << index;
    }
}

TEST_F(ControlsTest, AComboBoxTellsAChoiceOnceByWhomever) {
    ComboBox box(u"cbo");
    box.Items({u"a", u"b"});
    box.Attach(peers);
    Count(box.Change);
    peers.onChanged = [&box](Control&, Aspect) { box.HandleChange(box.ListIndex()); };  // the window's echo
    box.ListIndex(1);
    EXPECT_EQ(raised, 1);
    box.ListIndex(1);
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(peers.Of(box).changes, Changes{Aspect::Selection});
    box.HandleChange(0);
    EXPECT_EQ(box.ListIndex(), 0);
    EXPECT_EQ(raised, 2);
    EXPECT_EQ(peers.Of(box).changes, Changes{Aspect::Selection});
}

TEST_F(ControlsTest, AComboBoxIgnoresWhatTheScreenCannotMean) {
    ComboBox box(u"cbo");
    box.Items({u"a"});
    Count(box.Change);
    box.HandleChange(5);
    EXPECT_EQ(box.ListIndex(), -1);
    box.HandleChange(-5);
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_EQ(raised, 0);
    box.HandleChange(0);
    box.HandleChange(-5);
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_EQ(raised, 2);
}

TEST_F(ControlsTest, ADisabledButtonCannotBePressedWhoeverAsks) {
    CommandButton button(u"cmd");
    Count(button.Click);
    button.HandleClick();
    EXPECT_EQ(raised, 1);
    button.Enabled(false);
    button.HandleClick();
    EXPECT_EQ(raised, 1);
}

TEST_F(ControlsTest, AButtonTellsTheRightMouseButtonByItself) {
    CommandButton button(u"cmd");
    EXPECT_FALSE(button.Default());
    Count(button.RightClick);
    button.HandleRightClick();
    EXPECT_EQ(raised, 1);
}

TEST_F(ControlsTest, TheValueOfAProgressBarStaysWithinItsBounds) {
    ProgressBar bar(u"pb");
    EXPECT_EQ(bar.Maximum(), 100);
    bar.Value(150);
    EXPECT_EQ(bar.Value(), 100);
    bar.Value(-1);
    EXPECT_EQ(bar.Value(), 0);
    bar.Value(80);
    bar.Maximum(50);
    EXPECT_EQ(bar.Value(), 50);
    bar.Maximum(0);
    EXPECT_EQ(bar.Maximum(), 1);
    EXPECT_EQ(bar.Value(), 1);
    bar.Maximum(INT32_MIN);
    EXPECT_EQ(bar.Maximum(), 1);
}

TEST_F(ControlsTest, AProgressBarTellsChangesAlone) {
    ProgressBar bar(u"pb");
    bar.Attach(peers);
    bar.Value(0);
    bar.Maximum(100);
    EXPECT_EQ(peers.Of(bar).changes, Changes());
    bar.Maximum(10);
    bar.Value(5);
    bar.Value(5);
    EXPECT_EQ(peers.Of(bar).changes, (Changes{Aspect::Content, Aspect::Selection}));
}

TEST_F(ControlsTest, NewTabsHaveTheFirstOneChosen) {
    TabStrip strip(u"tab");
    EXPECT_EQ(strip.Selected(), 1);
    EXPECT_EQ(strip.HeaderHeight(), 375);
    strip.Tabs({u"a", u"b"});
    strip.Selected(2);
    strip.Tabs({u"c", u"d"});
    EXPECT_EQ(strip.Selected(), 1);
    strip.HandleHeaderHeight(400);
    EXPECT_EQ(strip.HeaderHeight(), 400);
}

TEST_F(ControlsTest, ATabNumberOutsideTheTabsIsIgnored) {
    TabStrip strip(u"tab");
    Count(strip.Click);
    strip.Selected(1);
    strip.HandleSelected(1);
    strip.Tabs({u"a", u"b"});
    for (const int tab : {0, 3, -1, INT32_MAX, INT32_MIN}) {
        strip.Selected(tab);
        strip.HandleSelected(tab);
        strip.TabCaption(tab, u"x");
        EXPECT_EQ(strip.Selected(), 1) << tab;
    }
    EXPECT_EQ(strip.Tabs(), (std::vector<std::u16string>{u"a", u"b"}));
    EXPECT_EQ(raised, 0);
}

TEST_F(ControlsTest, ATabStripClicksOnceWhenAnotherTabIsChosenByWhomever) {
    TabStrip strip(u"tab");
    strip.Tabs({u"a", u"b", u"c"});
    strip.Attach(peers);
    Count(strip.Click);
    peers.onChanged = [&strip](Control&, Aspect) { strip.HandleSelected(strip.Selected()); };  // the window's echo
    strip.Selected(2);
    EXPECT_EQ(raised, 1);
    strip.Selected(2);
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(peers.Of(strip).changes, Changes{Aspect::Selection});
    strip.HandleSelected(3);
    EXPECT_EQ(strip.Selected(), 3);
    EXPECT_EQ(raised, 2);
    EXPECT_EQ(peers.Of(strip).changes, Changes{Aspect::Selection});
}

TEST_F(ControlsTest, AKeyChoosesATabAndSaysSoAlsoOfTheTabThatIsThere) {
    TabStrip strip(u"tab");
    strip.HandleStepByKey(1);
    strip.Tabs({u"a", u"b", u"c"});
    Count(strip.ChosenByKey);
    strip.HandleChosenByKey(2);
    strip.HandleChosenByKey(2);
    EXPECT_EQ(strip.Selected(), 2);
    EXPECT_EQ(raised, 2);
    strip.HandleChosenByKey(4);
    EXPECT_EQ(raised, 2) << "there is no such tab";
}

TEST_F(ControlsTest, AKeyStepsThroughTheTabsAndRoundAtTheEnds) {
    TabStrip strip(u"tab");
    strip.Tabs({u"a", u"b", u"c"});
    for (const int expected : {2, 3, 1, 2}) {
        strip.HandleStepByKey(1);
        EXPECT_EQ(strip.Selected(), expected);
    }
    for (const int expected : {1, 3, 2}) {
        strip.HandleStepByKey(-1);
        EXPECT_EQ(strip.Selected(), expected);
    }
}

TEST_F(ControlsTest, ATabsCaptionCanBeReplaced) {
    TabStrip strip(u"tab");
    strip.Tabs({u"a", u"b"});
    strip.Attach(peers);
    strip.TabCaption(2, u"z");
    strip.TabCaption(2, u"z");
    EXPECT_EQ(strip.Tabs()[1], u"z");
    EXPECT_EQ(peers.Of(strip).changes, Changes{Aspect::Content});
}

TEST_F(ControlsTest, AListViewTakesEachKeyOnce) {
    ListView view(u"lvw");
    view.Attach(peers);
    EXPECT_TRUE(view.AddItem(u"\\\\srv\\laser", u"laser", 1));
    EXPECT_FALSE(view.AddItem(u"\\\\srv\\laser", u"another", 2));
    EXPECT_TRUE(view.AddItem(u"\\\\srv\\LASER", u"LASER", 2));
    ASSERT_EQ(view.Items().size(), 2U);
    EXPECT_EQ(view.Items()[0].text, u"laser");
    EXPECT_EQ(view.Items()[1].icon, 2);
    EXPECT_EQ(peers.Of(view).Count(Aspect::Content), 2);
    view.Clear();
    view.Clear();
    EXPECT_TRUE(view.Items().empty());
    EXPECT_EQ(peers.Of(view).Count(Aspect::Content), 3);
    EXPECT_TRUE(view.AddItem(u"\\\\srv\\laser", u"laser", 1));
}

TEST_F(ControlsTest, ATimerIsOffAtFirstAndTicksOnlyWhileEnabled) {
    Timer timer(u"tmr");
    EXPECT_FALSE(timer.Enabled());
    EXPECT_EQ(timer.Interval(), 1000);
    Count(timer.Tick);
    timer.HandleTick();
    EXPECT_EQ(raised, 0);
    timer.Enabled(true);
    timer.HandleTick();
    EXPECT_EQ(raised, 1);
    timer.Attach(peers);
    timer.Interval(100);
    timer.Interval(100);
    timer.Enabled(false);
    EXPECT_EQ(peers.Of(timer).changes, (Changes{Aspect::Content, Aspect::Enabled}));
}

TEST_F(ControlsTest, ATickMayComeWhileAnEarlierOneRuns) {
    Timer timer(u"tmr");
    timer.Enabled(true);
    timer.Tick.Connect([&] {
        if (++raised == 1) {
            timer.HandleTick();
            timer.Enabled(false);
            timer.HandleTick();
        }
    });
    timer.HandleTick();
    EXPECT_EQ(raised, 2);
}

TEST_F(ControlsTest, AMenuHasNoPeersAndItsEntriesClick) {
    PopupMenu menu(u"mnu");
    MenuEntry entry(u"mnuEntry");
    menu.Add(entry);
    menu.Attach(peers);
    EXPECT_EQ(peers.PeersAlive(), 0);
    Count(entry.Click);
    entry.HandleClick();
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(menu.Find(u"mnuEntry"), &entry);
}

TEST_F(ControlsTest, EveryKindOfControlGetsItsPeer) {
    Frame frame(u"frame");
    CheckBox checkBox(u"1");
    ComboBox comboBox(u"2");
    CommandButton button(u"3");
    Grid grid(u"4");
    Image image(u"5");
    Label label(u"6");
    Line line(u"7");
    ListView listView(u"8");
    ProgressBar progressBar(u"9");
    TabStrip tabStrip(u"10");
    TextBox textBox(u"11");
    Timer timer(u"12");
    for (Control* control : std::initializer_list<Control*>{&checkBox, &comboBox, &button, &grid, &image, &label, &line,
                                                            &listView, &progressBar, &tabStrip, &textBox, &timer}) {
        frame.Add(*control);
    }
    frame.Attach(peers);
    EXPECT_EQ(peers.PeersAlive(), 13);
    image.Shows(Picture::MainAccount);
    EXPECT_EQ(image.Shows(), Picture::MainAccount);
    frame.Detach();
    EXPECT_EQ(peers.PeersAlive(), 0);
}

}  // namespace
}  // namespace korvanta
