#include "translation/FormTexts.h"

#include "controls/Form.h"
#include "controls/Grid.h"
#include "fakes/FakePeers.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

// A control put together from others whose texts its form translates, and one that does so itself.
class Composite : public Container {
  public:
    explicit Composite(std::u16string name) : Container(std::move(name)) {
        title.Caption(u"composite title");
        Add(title);
    }
    Label title{u"title"};
};
class Independent : public Composite {
  public:
    using Composite::Composite;
    std::u16string_view TranslatesAs() const override { return u"Independent"; }
};

class SampleForm : public Form {
  public:
    SampleForm() : Form(u"frmSample") {
        Caption(u"form");
        plain.Caption(u"plain");
        data.Caption(u"data");
        data.ShowsData(true);
        typed.Text(u"typed");
        button.Caption(u"&button");
        tabs.Tabs({u"one", u"two"});
        inside.Caption(u"inside");
        hidden.Caption(u"hidden");
        menu.Caption(u"menu");
        entry.Caption(u"entry");
        for (Control* control : std::initializer_list<Control*>{&plain, &data, &empty, &typed, &button, &tabs, &frame,
                                                                &composite, &independent, &texts, &menu}) {
            Add(*control);
        }
        frame.Add(inside);
        texts.Add(hidden);
        menu.Add(entry);
    }
    Label plain{u"plain"};
    Label data{u"data"};
    Label empty{u"empty"};
    TextBox typed{u"typed"};
    CommandButton button{u"button"};
    TabStrip tabs{u"tabs"};
    Frame frame{u"frame"};
    Label inside{u"inside"};
    Composite composite{u"composite"};
    Independent independent{u"independent"};
    HiddenTexts texts{u"texts"};
    Label hidden{u"hidden"};
    PopupMenu menu{u"menu"};
    MenuEntry entry{u"entry"};
};

std::vector<std::u16string> Said(Container& owner) {
    std::vector<std::u16string> said;
    for (const FormText& text : TextsOf(owner)) {
        said.push_back(text.key + u"=" + text.text);
    }
    return said;
}

TEST(FormTexts, AreAllTextsOfAFormInTabOrderAndNothingElse) {
    SampleForm form;
    EXPECT_THAT(Said(form), ElementsAre(u"frmSample=form", u"frmSample.plain=plain", u"frmSample.button=&button",
                                        u"frmSample.tabs.1=one", u"frmSample.tabs.2=two", u"frmSample.inside=inside",
                                        u"frmSample.composite.title=composite title", u"frmSample.hidden=hidden",
                                        u"frmSample.menu=menu", u"frmSample.entry=entry"));
}

TEST(FormTexts, OfAControlThatTranslatesItselfGoByTheNameThatItsKindShares) {
    SampleForm form;
    EXPECT_THAT(Said(form.independent), ElementsAre(u"Independent.title=composite title"));
}

TEST(FormTexts, AreReplacedWhereTheyStand) {
    SampleForm form;
    for (const FormText& text : TextsOf(form)) {
        text.replace(u"<" + text.text + u">");
    }
    EXPECT_EQ(form.Caption(), u"<form>");
    EXPECT_EQ(form.button.Caption(), u"<&button>");
    EXPECT_THAT(form.tabs.Tabs(), ElementsAre(u"<one>", u"<two>"));
    EXPECT_EQ(form.composite.title.Caption(), u"<composite title>");
    EXPECT_EQ(form.entry.Caption(), u"<entry>");
    EXPECT_EQ(form.data.Caption(), u"data");
    EXPECT_EQ(form.typed.Text(), u"typed");
}

TEST(FormTexts, HaveNoAccessKeyOfAnEarlierOne) {
    SampleForm form;
    form.Caption(u"t&itle");
    form.plain.Caption(u"&plain");
    form.button.Caption(u"&Plain && sim&ple");
    form.tabs.Tabs({u"&one", u"t&wo"});
    form.inside.Caption(u"ins&ide");
    form.composite.title.Caption(u"\u0436 &W");
    form.hidden.Caption(u"&P");
    form.menu.Caption(u"&P");
    form.entry.Caption(u"&P");
    EXPECT_THAT(DropRepeatedAccessKeys(form), ElementsAre(u"frmSample.button", u"frmSample.composite.title"));
    EXPECT_EQ(form.plain.Caption(), u"&plain");
    EXPECT_EQ(form.button.Caption(), u"Plain && sim&ple");
    EXPECT_THAT(form.tabs.Tabs(), ElementsAre(u"&one", u"t&wo"));
    EXPECT_EQ(form.inside.Caption(), u"ins&ide");
    EXPECT_EQ(form.composite.title.Caption(), u"\u0436 W");
    EXPECT_EQ(form.entry.Caption(), u"&P") << "a menu has its keys to itself";
    EXPECT_EQ(form.hidden.Caption(), u"&P") << "what is not seen has none";
}

TEST(FormTexts, KeepTheirAccessKeyBesideTextsInWhichAnAmpersandIsNone) {
    SampleForm form;
    form.plain.Caption(u"&button");
    form.plain.AccessKey(false);
    form.data.Caption(u"&button");
    EXPECT_THAT(DropRepeatedAccessKeys(form), testing::IsEmpty());
    EXPECT_EQ(form.button.Caption(), u"&button");
}

TEST(FormTexts, ThatAreHiddenHaveNoPeers) {
    SampleForm form;
    fakes::FakePeers peers;
    form.Load(&peers);
    EXPECT_EQ(form.hidden.Peer(), nullptr);
    EXPECT_EQ(form.texts.Peer(), nullptr);
    EXPECT_NE(form.plain.Peer(), nullptr);
    form.Detach();
}

}  // namespace
}  // namespace korvanta
