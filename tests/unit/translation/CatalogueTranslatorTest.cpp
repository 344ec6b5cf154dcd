// The translator by itself; the forms and the shipped catalogue are tested in ShippedCatalogueTest.cpp.

#include "controls/Form.h"
#include "fakes/FakePlatform.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "translation/CatalogueTranslator.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SmallForm : public Form {
  public:
    SmallForm() : Form(u"frmSmall") {
        Caption(u"Title");
        label.Caption(u"Text");
        Add(label);
    }
    void Take(Control& control) { Add(control); }
    Label label{u"lblText"};
};

class TranslatorTest : public testing::Test {
  protected:
    TranslatorTest() { windows.files.AddFolder(u"C:\\Korvanta"); }

    void Write(const std::u16string& text) { windows.files.WriteUtf16(path, text); }
    // In the order in which the program does it.
    void Choose(const std::u16string& language, const std::u16string& section = u"TLXActTrkClient") {
        translator.SetSections({u"TLXActTrkClient"});
        translator.LoadCatalogue(path);
        translator.SetLanguage(language);
        translator.SelectSection(section);
    }
    std::u16string Translated() {
        SmallForm form;
        translator.Translate(form);
        return form.Caption() + u"/" + form.label.Caption();
    }

    const std::u16string path = u"C:\\Korvanta\\Korvanta.tam";
    const std::u16string catalogue =
        u"[TLXActTrkClient deu]\r\nfrmSmall = Titel\r\nfrmSmall.lblText = Text auf Deutsch\r\n"
        u"[TLXActTrkClient deu-at]\r\nfrmSmall.lblText = Text auf \u00D6sterreichisch\r\n"
        u"[Other deu]\r\nfrmSmall = other\r\n";
    fakes::FakePlatform windows;
    CatalogueTranslator translator{windows.files};
};

TEST_F(TranslatorTest, ReplacesCaptionsByThoseOfTheLanguage) {
    Write(catalogue);
    Choose(u"deu");
    EXPECT_EQ(Translated(), u"Titel/Text auf Deutsch");
    EXPECT_THAT(translator.Problems(), IsEmpty());
}

TEST_F(TranslatorTest, LanguagesGoByTheirNamesWhateverTheLetterCaseAndBlanks) {
    Write(catalogue);
    Choose(u" DEU ");
    EXPECT_EQ(Translated(), u"Titel/Text auf Deutsch");
}

TEST_F(TranslatorTest, AVariantOfALanguageHasWhatItLacksFromTheLanguage) {
    Write(catalogue);
    Choose(u"deu-AT");
    EXPECT_EQ(Translated(), u"Titel/Text auf \u00D6sterreichisch");
    Choose(u"deu_ch_zurich");
    EXPECT_EQ(Translated(), u"Titel/Text auf Deutsch");
    EXPECT_THAT(translator.Problems(), IsEmpty());
}

TEST_F(TranslatorTest, WithoutACatalogueCaptionsStayAndOnlyAForeignLanguageMissesIt) {
    Choose(u"eng");
    EXPECT_EQ(Translated(), u"Title/Text");
    EXPECT_THAT(translator.Problems(), IsEmpty());
    Choose(u"deu");
    EXPECT_EQ(Translated(), u"Title/Text");
    EXPECT_THAT(translator.Problems(), ElementsAre(u"Catalogue C:\\Korvanta\\Korvanta.tam: 53 - File not found"));
}

TEST_F(TranslatorTest, AnUnknownLanguageSectionOrKeyLeavesCaptionsAsTheyAre) {
    Write(u"[TLXActTrkClient deu]\r\nfrmSmall.lblOther = x\r\n");
    Choose(u"deu");
    EXPECT_EQ(Translated(), u"Title/Text");
    EXPECT_THAT(translator.Problems(), IsEmpty());
    Choose(u"fra");
    EXPECT_EQ(Translated(), u"Title/Text");
    EXPECT_THAT(translator.Problems(),
                ElementsAre(u"Catalogue C:\\Korvanta\\Korvanta.tam: there is no language \"fra\""));
    Choose(u"deu", u"Nothing");
    EXPECT_EQ(Translated(), u"Title/Text");
    Choose(u"");
    EXPECT_EQ(Translated(), u"Title/Text");
}

TEST_F(TranslatorTest, EnglishNeedsNoEntriesAndMayHaveThem) {
    Write(catalogue);
    Choose(u"eng");
    EXPECT_EQ(Translated(), u"Title/Text");
    EXPECT_THAT(translator.Problems(), IsEmpty());
    Write(u"[TLXActTrkClient eng]\r\nfrmSmall = Heading\r\n");
    Choose(u"eng");
    EXPECT_EQ(Translated(), u"Heading/Text");
}

TEST_F(TranslatorTest, BrokenLinesAreToldWithTheFileAndAreLeftOut) {
    Write(u"[TLXActTrkClient deu]\r\nfrmSmall = Titel\r\noops\r\nfrmSmall.lblText = Wort\r\n");
    Choose(u"deu");
    EXPECT_EQ(Translated(), u"Titel/Wort");
    EXPECT_THAT(translator.Problems(),
                ElementsAre(u"Catalogue C:\\Korvanta\\Korvanta.tam: line 3: neither a comment, a "
                            u"header nor \"name = text\""));
}

TEST_F(TranslatorTest, AnAccessKeyThatIsTakenIsLeftOutAndTold) {
    Write(u"[TLXActTrkClient deu]\r\nfrmSmall.lblText = &Wort\r\n");
    Choose(u"deu");
    SmallForm form;
    CommandButton button(u"cmdOther");
    button.Caption(u"&Whatever");
    form.Take(button);
    translator.Translate(form);
    EXPECT_EQ(form.label.Caption(), u"&Wort");
    EXPECT_EQ(button.Caption(), u"Whatever") << "what the catalogue lacks may collide too";
    EXPECT_THAT(translator.Problems(),
                ElementsAre(u"Catalogue C:\\Korvanta\\Korvanta.tam: frmSmall.cmdOther has the access key of an earlier "
                            u"text of its form, and loses it"));
    Choose(u"deu");
    EXPECT_THAT(translator.Problems(), IsEmpty());
}

TEST_F(TranslatorTest, ACatalogueMayLackTheByteOrderMarkAndHaveHalfAUnitAtItsEnd) {
    std::string bytes;
    for (const char16_t unit : std::u16string(u"[TLXActTrkClient deu]\nfrmSmall = Titel\n")) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    windows.files.WriteBytes(path, bytes + "x");
    Choose(u"deu");
    EXPECT_EQ(Translated(), u"Titel/Text");
    EXPECT_THAT(translator.Problems(), IsEmpty());
}

TEST_F(TranslatorTest, AFileThatIsNoCatalogueTranslatesNothing) {
    const std::string ansi = "[TLXActTrkClient deu]\r\nfrmSmall = Titel\r\n";
    std::string noise;
    for (int i = 0; i < 300'001; ++i) {
        noise += static_cast<char>(i * 7 % 251);
    }
    for (const std::string& bytes : {ansi, noise, std::string(200'000, '\0'), std::string("x")}) {
        windows.files.WriteBytes(path, bytes);
        Choose(u"deu");
        EXPECT_EQ(Translated(), u"Title/Text");
        EXPECT_FALSE(translator.Problems().empty());
        EXPECT_LE(translator.Problems().size(), Catalogue::mostProblems + 2);
    }
    windows.files.WriteBytes(path, "");
    Choose(u"eng");
    EXPECT_THAT(translator.Problems(), IsEmpty());
}

TEST_F(TranslatorTest, AHugeCatalogueIsNotRead) {
    for (const std::size_t bytes : {std::size_t{3'000'000}, std::size_t{50'000'000}}) {
        windows.files.WriteBytes(path, std::string(bytes, ' '));
        Choose(u"eng");
        EXPECT_EQ(Translated(), u"Title/Text");
        ASSERT_EQ(translator.Problems().size(), 1U);
    }
}

TEST_F(TranslatorTest, ALockedCatalogueIsToldInEveryLanguage) {
    Write(catalogue);
    windows.files.FailPath(path, windowsError::sharingViolation);
    Choose(u"eng");
    EXPECT_EQ(Translated(), u"Title/Text");
    EXPECT_THAT(translator.Problems(), ElementsAre(u"Catalogue C:\\Korvanta\\Korvanta.tam: 70 - Permission denied"));
}

TEST_F(TranslatorTest, LoadingAgainForgetsWhatWasThere) {
    Write(catalogue);
    Choose(u"deu");
    Write(u"[TLXActTrkClient deu]\r\nfrmSmall.lblText = neu\r\n");
    Choose(u"deu");
    EXPECT_EQ(Translated(), u"Title/neu");
}

}  // namespace
}  // namespace korvanta
