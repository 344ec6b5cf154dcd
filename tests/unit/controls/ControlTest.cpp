#include "controls/Control.h"

#include <gtest/gtest.h>

#include "controls/Controls.h"
#include "fakes/FakePeers.h"

namespace korvanta {
namespace {

using Changes = std::vector<Aspect>;

class Panel : public Container {
  public:
    using Container::Add;
    using Container::Container;
    int resizes = 0;

  protected:
    void Resized() override { ++resizes; }
};

class ControlTest : public testing::Test {
  protected:
    fakes::FakePeers peers;
};

TEST_F(ControlTest, ANewControlIsEnabledVisibleAndPlain) {
    const Label label(u"lblName");
    EXPECT_EQ(label.Name(), u"lblName");
    EXPECT_EQ(label.Caption(), u"");
    EXPECT_TRUE(label.Enabled());
    EXPECT_TRUE(label.Visible());
    EXPECT_EQ(label.Position(), Place());
    EXPECT_EQ(label.BackColor(), systemColor::buttonFace);
    EXPECT_EQ(label.ForeColor(), systemColor::buttonText);
    EXPECT_EQ(label.Parent(), nullptr);
    EXPECT_EQ(label.Peer(), nullptr);
}

TEST_F(ControlTest, WithoutAPeerAControlIsSimplyAnObject) {
    Label label(u"lblName");
    label.Caption(u"text");
    label.Enabled(false);
    label.Visible(false);
    label.Move({1, 2, 3, 4});
    label.BackColor(RgbColor(1, 2, 3));
    label.TakeFocus();
    EXPECT_EQ(label.Caption(), u"text");
    EXPECT_FALSE(label.Enabled());
    EXPECT_FALSE(label.Visible());
    EXPECT_EQ(label.Position(), (Place{1, 2, 3, 4}));
    EXPECT_EQ(label.BackColor(), 0x030201U);
}

TEST_F(ControlTest, ThePeerIsToldOfEveryChangeOnceItIsMade) {
    Label label(u"lblName");
    label.Attach(peers);
    label.Caption(u"text");
    label.Enabled(false);
    label.Visible(false);
    label.Move({1, 2, 3, 4});
    label.BackColor(1);
    label.ForeColor(2);
    EXPECT_EQ(peers.Of(label).changes, (Changes{Aspect::Caption, Aspect::Enabled, Aspect::Visible, Aspect::Place,
                                                Aspect::Colors, Aspect::Colors}));
}

TEST_F(ControlTest, ThePeerReadsTheNewStateFromTheControl) {
    Label label(u"lblName");
    label.Attach(peers);
    std::u16string seen;
    peers.onChanged = [&seen](Control& control, Aspect) { seen = control.Caption(); };
    label.Caption(u"new");
    EXPECT_EQ(seen, u"new");
}

TEST_F(ControlTest, SettingAPropertyToItsValueDoesNothing) {
    Label label(u"lblName");
    label.Caption(u"text");
    label.Move({1, 2, 3, 4});
    label.Attach(peers);
    label.Caption(u"text");
    label.Enabled(true);
    label.Visible(true);
    label.Move({1, 2, 3, 4});
    label.BackColor(label.BackColor());
    label.ForeColor(label.ForeColor());
    label.Transparent(label.Transparent());
    EXPECT_EQ(peers.Of(label).changes, Changes());
}

TEST_F(ControlTest, OnlyAChangeOfSizeIsAResize) {
    Panel panel(u"panel");
    panel.Move({1, 1, 10, 10});
    EXPECT_EQ(panel.resizes, 1);
    panel.Move({5, 5, 10, 10});
    EXPECT_EQ(panel.resizes, 1);
    panel.Move({5, 5, 10, 11});
    EXPECT_EQ(panel.resizes, 2);
}

TEST_F(ControlTest, ChildrenKeepTheOrderInWhichTheyWereAdded) {
    Panel panel(u"panel");
    Label first(u"first");
    Label second(u"second");
    panel.Add(second);
    panel.Add(first);
    EXPECT_EQ(panel.Children(), (std::vector<Control*>{&second, &first}));
    EXPECT_EQ(first.Parent(), &panel);
}

TEST_F(ControlTest, AControlIsFoundByItsExactNameAtAnyDepth) {
    Panel panel(u"panel");
    Frame frame(u"frame");
    Frame inner(u"inner");
    Label label(u"lblDeep");
    panel.Add(frame);
    frame.Add(inner);
    inner.Add(label);
    EXPECT_EQ(panel.Find(u"lblDeep"), &label);
    EXPECT_EQ(panel.Find(u"frame"), &frame);
    EXPECT_EQ(panel.Find(u"LBLDEEP"), nullptr);
    EXPECT_EQ(panel.Find(u"panel"), nullptr);
    EXPECT_EQ(panel.Find(u""), nullptr);
}

TEST_F(ControlTest, AParentHasItsPeerBeforeItsChildrenAskForTheirs) {
    Panel panel(u"panel");
    Frame frame(u"frame");
    Label label(u"label");
    panel.Add(frame);
    frame.Add(label);
    panel.Attach(peers);
    EXPECT_EQ(peers.PeersAlive(), 3);
    EXPECT_NE(label.Peer(), nullptr);
    panel.Detach();
    EXPECT_EQ(peers.PeersAlive(), 0);
    EXPECT_EQ(label.Peer(), nullptr);
    label.Caption(u"still an object");
    EXPECT_EQ(peers.Of(label).changes, Changes());
}

TEST_F(ControlTest, NoPeerAtAllIsAllowed) {
    Panel panel(u"panel");
    Label label(u"label");
    panel.Add(label);
    peers.refuse = true;
    panel.Attach(peers);
    EXPECT_EQ(label.Peer(), nullptr);
    label.Caption(u"text");
    label.TakeFocus();
}

TEST_F(ControlTest, TakeFocusIsThePeersBusiness) {
    TextBox box(u"txt");
    box.Attach(peers);
    box.TakeFocus();
    EXPECT_EQ(peers.Of(box).focused, 1);
}

}  // namespace
}  // namespace korvanta
