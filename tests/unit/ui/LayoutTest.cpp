#include <algorithm>

#include "unit/layout/LayoutCheck.h"
#include "unit/ui/DialogFixture.h"

namespace korvanta {

namespace {

using testing::IsEmpty;

// The most that Windows takes of a window's size for its frame and caption.
constexpr int frameWidth = 300;
constexpr int frameHeight = 600;

// Makes every caption of a form half as long again, as other languages do.
class WordyTranslator : public fakes::PlainTranslator {
  public:
    void Translate(Container& form) override {
        for (Control* child : form.Children()) {
            if (auto* nested = dynamic_cast<Container*>(child)) {
                Translate(*nested);
            }
            if (dynamic_cast<TextBox*>(child) == nullptr && child->Name() != u"lblJobsQueued") {
                child->Caption(child->Caption() + std::u16string(child->Caption().size() / 2, u'w'));
            }
        }
    }
};

class AccountDialogLayoutTest : public DialogFixture {
  protected:
    AccountDialogLayoutTest() {
        check.anyLength = {u"lblDocument", u"lblPrinter"};
        platform.registry.Put(registrySubKey, u"LinkName", u"http://product.example");
    }

    std::vector<std::string> Problems() {
        // Shown together only for a moment, but shown.
        Dialog().prgSearch.Visible(true);
        return check.Problems(Dialog());
    }
    // As a real window does: it tells its place, and follows when the form moves it.
    void BeAWindow() {
        Dialog().HandlePlace({0, 0, Dialog().ClientWidth() + frameWidth, Dialog().ClientHeight() + frameHeight},
                             Dialog().ClientWidth(), Dialog().ClientHeight());
        peers.onChanged = [this](Control& control, Aspect aspect) {
            if (&control == &Dialog() && aspect == Aspect::Place) {
                const Place place = Dialog().Position();
                Dialog().HandlePlace(place, place.width - frameWidth, place.height - frameHeight);
            }
        };
    }
    // The client area that a window of the form's least size has.
    void Shrink() {
        Dialog().HandlePlace({}, Dialog().MinimumWidth() - frameWidth, Dialog().MinimumHeight() - frameHeight);
    }
    void ExpectGoodAtEverySize() {
        Offer(1, std::u16string(60'000, u'W'));
        EXPECT_THAT(Problems(), IsEmpty()) << "at its first size";
        Shrink();
        EXPECT_THAT(Problems(), IsEmpty()) << "at its least size";
        Dialog().HandlePlace({}, Dialog().ClientWidth() + 1, Dialog().ClientHeight() + 1);
        EXPECT_THAT(Problems(), IsEmpty()) << "a little larger";
        Dialog().HandlePlace({}, 3 * Dialog().ClientWidth(), 3 * Dialog().ClientHeight());
        EXPECT_THAT(Problems(), IsEmpty()) << "much larger";
    }

    layout::LayoutCheck check{platform.textMeasure};
};

}  // namespace

TEST_F(AccountDialogLayoutTest, IsGoodAtEverySize) {
    ExpectGoodAtEverySize();
}

TEST_F(AccountDialogLayoutTest, IsGoodWithLargeLetters) {
    platform.textMeasure.characterWidth = 190;
    platform.textMeasure.boldCharacterWidth = 210;
    platform.textMeasure.lineHeight = 330;
    platform.textMeasure.boldLineHeight = 390;
    ExpectGoodAtEverySize();
}

TEST_F(AccountDialogLayoutTest, IsGoodAfterTheLettersHaveBecomeLarger) {
    BeAWindow();
    Offer(1);
    platform.textMeasure.characterWidth = 120;
    platform.textMeasure.boldCharacterWidth = 135;
    platform.textMeasure.lineHeight = 250;
    platform.textMeasure.boldLineHeight = 260;
    Dialog().HandleFontsChanged();
    PressCancel();
    ExpectGoodAtEverySize();
}

TEST_F(AccountDialogLayoutTest, IsGoodWithSmallLetters) {
    platform.textMeasure.characterWidth = 60;
    platform.textMeasure.boldCharacterWidth = 70;
    platform.textMeasure.lineHeight = 120;
    platform.textMeasure.boldLineHeight = 130;
    ExpectGoodAtEverySize();
}

TEST_F(AccountDialogLayoutTest, IsGoodWithALongInvoiceLabel) {
    BeAWindow();
    settings.ShowOnInvoiceLabel(u"Show this document on the invoice of client && matter");
    ExpectGoodAtEverySize();
}

TEST_F(AccountDialogLayoutTest, AnEndlessInvoiceLabelIsCutOffAndDoesNotWidenTheWindowBeyondTheScreen) {
    BeAWindow();
    settings.ShowOnInvoiceLabel(std::u16string(5'000, u'W'));
    check.anyLength.insert(u"chkInvoice");
    ExpectGoodAtEverySize();
    EXPECT_LE(Dialog().MinimumWidth(), platform.screen.workArea.width);
}

TEST_F(AccountDialogLayoutTest, ALargerWindowThanTheScreenIsMadeToFit) {
    platform.screen.workArea = {100, 50, 6000, 5000};
    BeAWindow();
    Offer(1);
    EXPECT_EQ(Dialog().Position(), platform.screen.workArea);
}

TEST_F(AccountDialogLayoutTest, IsGoodOnTheSmallestScreenThatWindows98Has) {
    // 640 by 480 pixels, of which the taskbar has 28.
    platform.screen.workArea = {0, 0, 9600, 6780};
    BeAWindow();
    Offer(1, std::u16string(260, u'W'));
    EXPECT_EQ(Dialog().Position().height, 6780);
    EXPECT_THAT(Problems(), IsEmpty());
    EXPECT_GE(Dialog().ctlAccountListAll.Position().height, 1200);
}

TEST_F(AccountDialogLayoutTest, TheWindowComesUpBesideATaskbarAtTheLeftOrTheTop) {
    platform.screen.workArea = {930, 450, 14430, 11070};
    BeAWindow();
    Offer(1);
    const Place place = Dialog().Position();
    EXPECT_EQ(place.left - 930, 930 + 14430 - place.Right());
    EXPECT_EQ(place.top - 450, 450 + 11070 - place.Bottom());
}

TEST_F(AccountDialogLayoutTest, TheWindowThatWasLeftOnAMonitorThatIsGoneComesUpInsideTheNearestOne) {
    BeAWindow();
    Offer(1);
    PressCancel();
    Place own = Dialog().Position();
    own.left = 20'000;
    own.top = -6'000;
    Dialog().HandlePlace(own, Dialog().ClientWidth(), Dialog().ClientHeight());
    platform.screen.workAreaAt = Place{0, 450, 15360, 11070};
    Offer(2);
    EXPECT_EQ(Dialog().Position(), (Place{15'360 - own.width, 450, own.width, own.height}));
}

TEST_F(AccountDialogLayoutTest, TheWindowMovesInsideWhenTheScreenBecomesSmallerUnderIt) {
    BeAWindow();
    Offer(1);
    platform.screen.workAreaAt = Place{0, 0, 9600, 6780};
    Dialog().HandleDisplayChanged();
    EXPECT_LE(Dialog().Position().Right(), 9600);
    EXPECT_EQ(Dialog().Position().height, 6780);
    EXPECT_GE(Dialog().Position().left, 0);
    PressCancel();
    const Place hidden{12'000, 0, 9000, 6780};
    Dialog().HandlePlace(hidden, 8700, 6180);
    Dialog().HandleDisplayChanged();
    EXPECT_EQ(Dialog().Position(), hidden) << "hidden, it has time until it is shown";
}

TEST_F(AccountDialogLayoutTest, TheWindowStaysWhereTheUserPutItAndGrowsWhenCaptionsDo) {
    BeAWindow();
    Offer(1);
    PressCancel();
    const Place own{300, 200, Dialog().Position().width, Dialog().Position().height};
    Dialog().HandlePlace(own, Dialog().ClientWidth(), Dialog().ClientHeight());
    Offer(2);
    EXPECT_EQ(Dialog().Position(), own);
    PressCancel();
    Dialog().HandlePlace({300, 200, Dialog().MinimumWidth(), Dialog().MinimumHeight()},
                         Dialog().MinimumWidth() - frameWidth, Dialog().MinimumHeight() - frameHeight);
    settings.ShowOnInvoiceLabel(u"Show this document on the invoice of client && matter");
    Offer(3);
    EXPECT_EQ(Dialog().Position().left, 300);
    EXPECT_EQ(Dialog().Position().width, Dialog().MinimumWidth());
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(AccountDialogLayoutTest, IsGoodOnceTheInvoiceLabelIsTakenAway) {
    BeAWindow();
    settings.ShowOnInvoiceLabel(u"Show this document on the invoice of client && matter");
    Offer(1);
    PressCancel();
    settings.ShowOnInvoiceLabel(u"");
    Offer(2);
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(AccountDialogLayoutTest, IsGoodBelowATallTabStrip) {
    Dialog().tabView.HandleHeaderHeight(900);
    ExpectGoodAtEverySize();
}

TEST_F(AccountDialogLayoutTest, IsGoodWithLongerWords) {
    WordyTranslator wordy;
    translation = &wordy;
    BeAWindow();
    ExpectGoodAtEverySize();
}

TEST_F(AccountDialogLayoutTest, AWindowThatIsForcedSmallerThanItsLeastSizeEndsNothing) {
    Offer(1);
    for (const int size : {3000, 500, 1, 0}) {
        Dialog().HandlePlace({}, size, size);
        for (const ctlAccountList* list :
             {&Dialog().ctlAccountListAll, &Dialog().ctlAccountListPreferred, &Dialog().ctlAccountListRecent}) {
            EXPECT_GE(list->Position().height, 0);
            EXPECT_GE(list->Position().width, 0);
        }
    }
}

TEST_F(AccountDialogLayoutTest, TheListsTakeWhatAHigherWindowGives) {
    Offer(1);
    const int before = Dialog().ctlAccountListAll.Position().height;
    Dialog().HandlePlace({}, Dialog().ClientWidth(), Dialog().ClientHeight() + 3000);
    EXPECT_EQ(Dialog().ctlAccountListAll.Position().height, before + 3000);
}

// The check itself: what it must not let pass.
class LayoutCheckTest : public testing::Test {
  protected:
    class TestForm : public Form {
      public:
        TestForm() : Form(u"form") {
            ClientSize(5000, 3000);
            for (Control* control : std::initializer_list<Control*>{&first, &second}) {
                Add(*control);
            }
            first.Move({0, 0, 1000, 300});
            second.Move({0, 400, 1000, 300});
        }
        Label first{u"first"};
        CommandButton second{u"second"};
    };

    std::size_t Count() { return check.Problems(form).size(); }

    fakes::FakeTextMeasure measure;
    layout::LayoutCheck check{measure};
    TestForm form;
};

TEST_F(LayoutCheckTest, LetsAGoodFormPass) {
    EXPECT_EQ(Count(), 0U);
}

TEST_F(LayoutCheckTest, FindsAnOverlap) {
    form.second.Move({999, 299, 1000, 300});
    EXPECT_EQ(Count(), 1U);
    form.second.Visible(false);
    EXPECT_EQ(Count(), 0U);
}

TEST_F(LayoutCheckTest, FindsWhatLiesOutsideOrIsEmpty) {
    form.second.Move({4001, 400, 1000, 300});
    EXPECT_EQ(Count(), 1U);
    form.second.Move({0, 2701, 1000, 300});
    EXPECT_EQ(Count(), 1U);
    form.second.Move({0, 400, 0, 300});
    EXPECT_GE(Count(), 1U);
}

TEST_F(LayoutCheckTest, FindsATextThatDoesNotFit) {
    form.first.Caption(u"1234567890");
    EXPECT_EQ(Count(), 1U);
    form.first.Caption(u"&123456789");
    EXPECT_EQ(Count(), 0U);
    form.first.Caption(u"12345 12345");
    form.first.Wrap(true);
    EXPECT_EQ(Count(), 1U);
    form.first.Move({0, 0, 1000, 390});
    EXPECT_EQ(Count(), 0U);
    form.second.Caption(u"123456789");
    EXPECT_EQ(Count(), 1U);
}

TEST_F(LayoutCheckTest, FindsAnOrderThatIsNotReadingOrder) {
    form.first.Move({0, 800, 1000, 300});
    EXPECT_EQ(Count(), 1U);
    form.first.Move({1500, 500, 1000, 300});
    EXPECT_EQ(Count(), 1U);
}

TEST_F(LayoutCheckTest, FindsAFieldThatNoLabelNames) {
    class FieldForm : public Form {
      public:
        FieldForm() : Form(u"form") {
            ClientSize(5000, 3000);
            for (Control* control : std::initializer_list<Control*>{&label, &button, &box, &list}) {
                Add(*control);
            }
            label.Caption(u"Name");
            label.Move({0, 0, 1000, 300});
            button.Move({0, 400, 1000, 300});
            box.Move({0, 800, 1000, 300});
            list.Move({0, 1200, 1000, 300});
        }
        Label label{u"label"};
        CommandButton button{u"button"};
        TextBox box{u"box"};
        Grid list{u"list"};
    };
    FieldForm fields;
    EXPECT_EQ(check.Problems(fields).size(), 2U);
}

TEST_F(LayoutCheckTest, FindsAnAccessKeyThatIsUsedTwice) {
    form.first.Caption(u"&Up");
    form.second.Caption(u"s&um");
    EXPECT_EQ(Count(), 1U);
    form.first.AccessKey(false);
    EXPECT_EQ(Count(), 0U);
}

}  // namespace korvanta
