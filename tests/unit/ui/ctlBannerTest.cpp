#include "ui/ctlBanner.h"

#include "common/Deployment.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakePeers.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSetupFile.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "ui/HLine.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BannerTest : public testing::Test {
  protected:
    static constexpr int width = 8000;

    BannerTest() {
        banner.Move({0, 0, width, 600});
        platform.registry.Put(registrySubKey, u"LinkName", u"http://product.example");
    }
    void SetLink(const std::u16string& address) { platform.registry.Put(registrySubKey, u"ResellerURL", address); }
    void ExpectLinkIsLaidOut() {
        EXPECT_EQ(banner.lblLink.Position().left, width - banner.lblLink.Position().width - 240);
    }
    std::u16string OpenedPage() {
        banner.lblLink.HandleClick();
        return platform.shell.opened.empty() ? u"" : platform.files.ReadAnsi(platform.shell.opened.back());
    }

    fakes::FakePlatform platform;
    fakes::FakeSetupFile setupFile;
    fakes::FakeErrorReports reports;
    clsRegSettings registrySettings{platform.registry, setupFile, reports};
    ctlBanner banner{u"banner",
                     {platform.files, platform.codePage, platform.shell, platform.textMeasure, registrySettings}};
};

}  // namespace

TEST_F(BannerTest, HasItsDefaults) {
    EXPECT_EQ(banner.BackColor(), 0x80000005U);
    EXPECT_EQ(banner.ForeColor(), 0x80000012U);
    EXPECT_TRUE(static_cast<const Control&>(banner).Enabled());
    EXPECT_EQ(banner.BackStyle(), 0);
    EXPECT_EQ(banner.BorderStyle(), 0);
    EXPECT_FALSE(banner.Framed());
    EXPECT_EQ(banner.Title(), u"Title goes here");
    EXPECT_EQ(banner.Description(), u"Description goes here");
    EXPECT_TRUE(banner.LinkVisible());
    EXPECT_TRUE(banner.lblTitle.Bold());
    EXPECT_TRUE(banner.lblTitle.Transparent());
}

TEST_F(BannerTest, MeasuresItsRowsAnewWhenTextsAreOfAnotherSize) {
    const int before = banner.Position().height;
    platform.textMeasure.lineHeight += 60;
    platform.textMeasure.boldLineHeight += 75;
    banner.Measure();
    EXPECT_EQ(banner.Position().height, before + 135);
    EXPECT_EQ(banner.lblTitle.Position().height, platform.textMeasure.boldLineHeight);
    EXPECT_GE(banner.lblDescription.Position().top, banner.lblTitle.Position().Bottom());
    EXPECT_EQ(banner.Line2.Position().width, width);
}

TEST_F(BannerTest, AFormKeepsThePropertiesThatAreNotTheDefaultUnderTheirNames) {
    PropertyBag bag;
    banner.WriteProperties(bag);
    EXPECT_EQ(bag.Size(), 0U);

    const PropertyBag kept{{u"BackColor", Color{0x123456}},
                           {u"ForeColor", Color{0x654321}},
                           {u"Enabled", false},
                           {u"BackStyle", std::int16_t{1}},
                           {u"BorderStyle", std::int16_t{1}},
                           {u"Title", u"T"},
                           {u"Description", u"D"},
                           {u"LinkVisible", false}};
    banner.ReadProperties(kept);
    const ctlBanner& read = banner;
    EXPECT_EQ(read.BackColor(), 0x123456U);
    EXPECT_EQ(read.ForeColor(), 0x654321U);
    EXPECT_FALSE(read.Enabled());
    EXPECT_EQ(read.BackStyle(), 1);
    EXPECT_EQ(read.BorderStyle(), 1);
    EXPECT_EQ(read.Title(), u"T");
    EXPECT_EQ(read.Description(), u"D");
    EXPECT_FALSE(read.LinkVisible());
    banner.WriteProperties(bag);
    EXPECT_EQ(bag.Size(), 8U);
    EXPECT_EQ(bag.Read(u"Title", u""), u"T");
    EXPECT_EQ(bag.Read(u"BackColor", Color{}), 0x123456U);

    banner.ReadProperties({{u"Title", true}});
    EXPECT_EQ(read.Title(), u"Title goes here") << "what is of another kind counts as lacking";
    EXPECT_EQ(read.BackColor(), 0x80000005U);
    EXPECT_TRUE(read.LinkVisible());
    banner.WriteProperties(bag);
    EXPECT_EQ(bag.Size(), 0U);
}

TEST_F(BannerTest, APropertyReachesWhatItAppliesToAtOnce) {
    banner.Title(u"T & T");
    banner.Description(u"D");
    banner.BackStyle(1);
    banner.BackColor(0x123456);
    banner.ForeColor(0x654321);
    banner.Enabled(false);
    banner.LinkVisible(false);
    EXPECT_EQ(banner.lblTitle.Caption(), u"T & T");
    EXPECT_EQ(banner.lblDescription.Caption(), u"D");
    EXPECT_FALSE(banner.lblTitle.Transparent());
    EXPECT_TRUE(banner.lblDescription.Transparent());
    EXPECT_EQ(static_cast<Control&>(banner).BackColor(), 0x123456U);
    for (const Label* label : {&banner.lblTitle, &banner.lblDescription}) {
        EXPECT_EQ(label->ForeColor(), 0x654321U);
    }
    for (const Label* label : {&banner.lblTitle, &banner.lblDescription, &banner.lblLink}) {
        EXPECT_EQ(label->BackColor(), 0x123456U);
        EXPECT_FALSE(static_cast<const Control*>(label)->Enabled());
    }
    EXPECT_FALSE(static_cast<Control&>(banner).Enabled());
    EXPECT_FALSE(banner.lblLink.Visible());
    banner.LinkVisible(true);
    EXPECT_TRUE(banner.lblLink.Visible());
}

TEST_F(BannerTest, ABorderStyleFramesIt) {
    fakes::FakePeers peers;
    banner.Attach(peers);
    banner.BorderStyle(1);
    EXPECT_TRUE(banner.Framed());
    EXPECT_EQ(peers.Of(banner).Count(Aspect::Colors), 1);
    banner.BorderStyle(0);
    EXPECT_FALSE(banner.Framed());
    EXPECT_EQ(peers.Of(banner).Count(Aspect::Colors), 2);
    banner.Detach();
}

TEST_F(BannerTest, RefreshRepaints) {
    banner.Refresh();
    fakes::FakePeers peers;
    banner.Attach(peers);
    banner.Refresh();
    EXPECT_EQ(peers.Of(banner).repainted, 1);
    banner.Detach();
}

TEST_F(BannerTest, PlacedAt600HighWithItsLowerRuleAt555ItBecomes570High) {
    banner.Line2.Move({0, 555, 100, 15});
    banner.Move({30, 45, 5000, 600});
    EXPECT_EQ(banner.Position(), (Place{30, 45, 5000, 570}));
    banner.Move({30, 45, 5000, 600});
    EXPECT_EQ(banner.Position().height, 570);
}

TEST_F(BannerTest, BothRulesReachItsFullWidthFromWhereTheyBegin) {
    banner.Line1.Move({120, 540, 10, 15});
    banner.Move({0, 0, 5000, 0});
    EXPECT_EQ(banner.Line1.Position().left, 120);
    EXPECT_EQ(banner.Line1.Position().Right(), 5000);
    EXPECT_EQ(banner.Line2.Position().left, 0);
    EXPECT_EQ(banner.Line2.Position().Right(), 5000);
}

TEST_F(BannerTest, AHiddenLinkIsStillLaidOut) {
    banner.LinkVisible(false);
    banner.Move({0, 0, width - 1500, 600});
    banner.Shown();
    EXPECT_FALSE(banner.lblLink.Visible());
    EXPECT_EQ(banner.lblLink.Position().Right(), width - 1500 - 240);
}

TEST_F(BannerTest, WithoutLinkTheRegistryIsNotRead) {
    banner.LinkVisible(false);
    platform.registry.log.clear();
    banner.Shown();
    EXPECT_THAT(platform.registry.log, IsEmpty());
}

TEST_F(BannerTest, ShowingItTakesTheLinksTextFromTheSettings) {
    banner.Shown();
    EXPECT_EQ(banner.lblLink.Caption(), u"http://product.example");
    ExpectLinkIsLaidOut();
    SetLink(u"http://reseller.example/a&b");
    banner.Shown();
    EXPECT_EQ(banner.lblLink.Caption(), u"http://reseller.example/a&b");
    EXPECT_FALSE(banner.lblLink.AccessKey());
    ExpectLinkIsLaidOut();
}

TEST_F(BannerTest, TheShowLinkSettingHidesTheLink) {
    platform.registry.Put(registrySubKey, u"ShowLink", u"False");
    banner.Shown();
    EXPECT_FALSE(banner.lblLink.Visible());
    platform.registry.Put(registrySubKey, u"ShowLink", u"True");
    banner.Shown();
    EXPECT_TRUE(banner.lblLink.Visible());
}

TEST_F(BannerTest, ALinkOfAnyLengthStaysInsideAndLeavesTheTitleItsRoom) {
    SetLink(u"http://" + std::u16string(500, u'x') + u".example");
    banner.Shown();
    ExpectLinkIsLaidOut();
    const int titleWidth = platform.textMeasure.Width(banner.Title(), true);
    EXPECT_GE(banner.lblTitle.Position().width, titleWidth);
    EXPECT_LE(banner.lblTitle.Position().Right(), banner.lblLink.Position().left);
    for (const int narrow : {2000, 400, 100, 0}) {
        banner.Move({0, 0, narrow, 600});
        for (const Control* control : banner.Children()) {
            EXPECT_GE(control->Position().width, 0);
        }
    }
}

TEST_F(BannerTest, BesideALongTitleTheLinkKeepsEnoughToClickOn) {
    SetLink(u"http://reseller.example");
    banner.Title(std::u16string(200, u'x'));
    banner.Shown();
    EXPECT_EQ(banner.lblLink.Position().width, 600);
    ExpectLinkIsLaidOut();
}

TEST_F(BannerTest, TheWaitingPageForwardsToTheProductsPage) {
    EXPECT_EQ(
        OpenedPage(),
        u"<HTML><META HTTP-EQUIV=\"Refresh\" CONTENT=\"1; URL=http://product.example/credirect.htm\">\r\n"
        u"<BODY bgcolor=\"white\"><FONT FACE=\"Verdana,Arial,Helvetica\">Please wait, loading "
        u"<A HREF=http://product.example/credirect.htm\">http://product.example</A> ....</FONT></BODY></HTML>\r\n");
}

TEST_F(BannerTest, ACustomisedLinkIsShownAndForwardedToUnchanged) {
    SetLink(u"http://reseller.example/x");
    EXPECT_EQ(OpenedPage(),
              u"<HTML><META HTTP-EQUIV=\"Refresh\" CONTENT=\"1; URL=http://reseller.example/x\">\r\n"
              u"<BODY bgcolor=\"white\"><FONT FACE=\"Verdana,Arial,Helvetica\">Please wait, loading "
              u"<A HREF=http://reseller.example/x\">http://reseller.example/x</A> ....</FONT></BODY></HTML>\r\n");
}

TEST_F(BannerTest, ThePageStaysInTheTemporaryFolderUnderAFreshName) {
    OpenedPage();
    OpenedPage();
    ASSERT_EQ(platform.shell.opened.size(), 2U);
    EXPECT_NE(platform.shell.opened[0], platform.shell.opened[1]);
    for (const std::u16string& path : platform.shell.opened) {
        EXPECT_TRUE(path.starts_with(u"C:\\Temp\\TL"));
        EXPECT_TRUE(path.ends_with(u".htm"));
        EXPECT_EQ(path.find(u".tmp"), std::u16string::npos);
        EXPECT_TRUE(platform.files.Has(path));
    }
    EXPECT_EQ(platform.files.OpenFiles(), 0);
}

TEST_F(BannerTest, WithoutAPageNothingIsOpened) {
    platform.files.faults.FailFrom("OpenForWriting", 1, windowsError::accessDenied);
    EXPECT_NO_THROW(banner.lblLink.HandleClick());
    platform.files.faults.Clear();
    platform.files.faults.FailFrom("Write", 1, windowsError::diskFull);
    EXPECT_NO_THROW(banner.lblLink.HandleClick());
    EXPECT_THAT(platform.shell.opened, IsEmpty());
}

TEST(HLineTest, IsAlways30HighAndItsLinesAreAsWideAsItself) {
    HLine line(u"line");
    EXPECT_EQ(line.Position().height, 30);
    line.Move({10, 20, 4000, 500});
    EXPECT_EQ(line.Position(), (Place{10, 20, 4000, 30}));
    ASSERT_EQ(line.Children().size(), 2U);
    EXPECT_EQ(line.Children()[0]->Name(), u"Line1");
    EXPECT_EQ(line.Children()[0]->Position(), (Place{0, 0, 4000, 15}));
    EXPECT_EQ(line.Children()[1]->Name(), u"Line2");
    EXPECT_EQ(line.Children()[1]->Position(), (Place{0, 15, 4000, 15}));
    line.Move({10, 20, 100, 0});
    EXPECT_EQ(line.Position(), (Place{10, 20, 100, 30}));
    EXPECT_EQ(line.Children()[1]->Position().width, 100);
}

}  // namespace korvanta
