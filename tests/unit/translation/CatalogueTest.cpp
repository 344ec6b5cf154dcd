#include "translation/Catalogue.h"

#include "common/Text.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char16_t* section = u"TLXActTrkClient";

class CatalogueTest : public testing::Test {
  protected:
    // The text of the key in the block that every test's catalogue has; "(none)" without one.
    std::u16string Text(std::u16string_view key, std::u16string_view language = u"deu") {
        const std::u16string* text = catalogue.Find(section, language, key);
        return text ? *text : u"(none)";
    }
    // Reads lines below a header.
    void Read(const std::u16string& lines) { catalogue.Read(u"[TLXActTrkClient deu]\r\n" + lines); }
    std::vector<std::u16string> Problems() { return catalogue.Problems(); }

    Catalogue catalogue;
};

TEST_F(CatalogueTest, TextsAreFoundBySectionLanguageAndKeyWhateverTheLetterCase) {
    catalogue.Read(
        u"[TLXActTrkClient deu]\r\nfrmMain.cmdClose = S&chlie\u00DFen\r\n\r\n[tlxacttrkclient FRA]\r\n"
        u"FRMMAIN.CMDCLOSE=&Fermer\r\n[Other deu]\r\nfrmMain.cmdClose = other\r\n");
    EXPECT_EQ(Text(u"frmMain.cmdClose"), u"S&chlie\u00DFen");
    EXPECT_EQ(Text(u"FrmMAIN.cmdclose", u"Fra"), u"&Fermer");
    EXPECT_EQ(*catalogue.Find(u"OTHER", u"DEU", u"frmmain.cmdclose"), u"other");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(CatalogueTest, WhatItDoesNotSayIsNotFound) {
    Read(u"a = A\r\n");
    EXPECT_EQ(Text(u"b"), u"(none)");
    EXPECT_EQ(Text(u"a", u"fra"), u"(none)");
    EXPECT_EQ(catalogue.Find(u"Other", u"deu", u"a"), nullptr);
    EXPECT_TRUE(catalogue.Has(section, u"DEU"));
    EXPECT_FALSE(catalogue.Has(section, u"fra"));
    EXPECT_THAT(catalogue.Languages(section), ElementsAre(u"deu"));
    EXPECT_THAT(catalogue.Keys(section, u"deu"), ElementsAre(u"a"));
    EXPECT_THAT(catalogue.Keys(section, u"fra"), IsEmpty());
}

TEST_F(CatalogueTest, AnEmptyTextSaysNothing) {
    Read(u"a =\r\nb = B\r\nb = \r\nc = \\s\r\n");
    EXPECT_EQ(Text(u"a"), u"(none)");
    EXPECT_EQ(Text(u"b"), u"B");
    EXPECT_EQ(Text(u"c"), u" ");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(CatalogueTest, TheLaterOfTwoTextsCountsSoThatOwnWordsCanBePutAtTheEnd) {
    Read(u"a = first\r\nA = second\r\n[TLXActTrkClient deu]\r\na = third\r\n");
    EXPECT_EQ(Text(u"a"), u"third");
    catalogue.Read(u"[TLXActTrkClient deu]\na = fourth\n");
    EXPECT_EQ(Text(u"a"), u"fourth");
}

TEST_F(CatalogueTest, BlanksAroundNamesAndTextsDoNotCount) {
    catalogue.Read(u"  [ \tTLXActTrkClient   deu ]  \n\t a.b \t= \t text  \t\n");
    EXPECT_EQ(Text(u"a.b"), u"text");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(CatalogueTest, EscapesWriteLineBreaksBlanksAtTheEndsAndBackslashes) {
    Read(u"a = \\sone\\n\\ntwo\\s\\s\r\nb = \\\\SERVER\\\\Share\r\nc = back\\\\\r\n");
    EXPECT_EQ(Text(u"a"), u" one\r\n\r\ntwo  ");
    EXPECT_EQ(Text(u"b"), u"\\SERVER\\Share");
    EXPECT_EQ(Text(u"c"), u"back\\");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(CatalogueTest, AmpersandsAndEqualsSignsAreOrdinaryInATextAndSoAreMarks) {
    Read(u"a = R&D && = [x] ; y\r\n");
    EXPECT_EQ(Text(u"a"), u"R&D && = [x] ; y");
}

TEST_F(CatalogueTest, ALineThatEndsWithABackslashGoesOnInTheNextOne) {
    Read(u"a = one \\\r\n    two\\\r\n   \\s three\r\nb = B\r\nc \\\r\n = \\\r\n; no comment\r\n");
    EXPECT_EQ(Text(u"a"), u"one two  three");
    EXPECT_EQ(Text(u"b"), u"B");
    EXPECT_EQ(Text(u"c"), u"; no comment");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(CatalogueTest, ACommentDoesNotGoOn) {
    Read(u"; C:\\Folder\\\r\na = A\r\n   ;b = B\r\n");
    EXPECT_EQ(Text(u"a"), u"A");
    EXPECT_EQ(Text(u"b"), u"(none)");
}

TEST_F(CatalogueTest, LinesEndWithLineFeedsToo) {
    catalogue.Read(u"[TLXActTrkClient deu]\na = \\\nA\nb = B");
    EXPECT_EQ(Text(u"a"), u"A");
    EXPECT_EQ(Text(u"b"), u"B");
}

TEST_F(CatalogueTest, BrokenLinesAreToldWithTheirNumbersAndTheOthersCount) {
    Read(u"a = A\r\nnonsense\r\n= text\r\nb b = text\r\nc = \\x\r\nd = one\\\r\ntwo \\q\r\ne = E\r\n");
    EXPECT_THAT(Problems(), ElementsAre(u"line 3: neither a comment, a header nor \"name = text\"",
                                        u"line 4: neither a comment, a header nor \"name = text\"",
                                        u"line 5: neither a comment, a header nor \"name = text\"",
                                        u"line 6: a \"\\\" is followed by something else than n, s or \\",
                                        u"line 7: a \"\\\" is followed by something else than n, s or \\"));
    EXPECT_EQ(Text(u"a"), u"A");
    EXPECT_EQ(Text(u"e"), u"E");
    EXPECT_THAT(catalogue.Keys(section, u"deu"), ElementsAre(u"a", u"e"));
}

TEST_F(CatalogueTest, TheLastLineCannotGoOn) {
    Read(u"a = A\r\nb = B \\\r\n");
    EXPECT_THAT(Problems(), ElementsAre(u"line 3: the line to go on with is missing"));
    EXPECT_EQ(Text(u"b"), u"(none)");
}

TEST_F(CatalogueTest, ATextBeforeTheFirstHeaderIsBroken) {
    catalogue.Read(u"; says nothing\na = A\n[TLXActTrkClient deu]\nb = B\n");
    EXPECT_THAT(Problems(), ElementsAre(u"line 2: a text comes before the first header"));
    EXPECT_EQ(Text(u"b"), u"B");
}

TEST_F(CatalogueTest, TextsBelowABrokenHeaderGoNowhere) {
    Read(
        u"a = A\n[TLXActTrkClient]\na = wrong\n[TLXActTrkClient fra\na = wrong\n[TLXActTrkClient a b]\na = wrong\n[]\n["
        u"\n[TLXActTrkClient fra]\na = right\n");
    EXPECT_EQ(Text(u"a"), u"A");
    EXPECT_EQ(Text(u"a", u"fra"), u"right");
    EXPECT_THAT(
        Problems(),
        ElementsAre(u"line 3: a header is not a section and a language", u"line 5: a header does not end with \"]\"",
                    u"line 7: a header is not a section and a language",
                    u"line 9: a header is not a section and a language", u"line 10: a header does not end with \"]\""));
}

TEST_F(CatalogueTest, OnlyTheSectionsThatAreAskedForAreKept) {
    catalogue.Read(u"[One deu]\na = 1\nbroken in a foreign section\n[TWO deu]\na = 2\n", {u"two"});
    EXPECT_EQ(catalogue.Find(u"One", u"deu", u"a"), nullptr);
    EXPECT_EQ(*catalogue.Find(u"Two", u"deu", u"a"), u"2");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(CatalogueTest, ControlCharactersMakeATextBroken) {
    Read(u"a = o" + std::u16string(1, u'\0') + u"ne\nb = o\u0001ne\nc = o\rne\nd = o\tne\n");
    EXPECT_EQ(Problems().size(), 3U);
    EXPECT_EQ(Text(u"a"), u"(none)");
    EXPECT_EQ(Text(u"d"), u"o\tne");
}

TEST_F(CatalogueTest, ATextOfTheGreatestLengthIsTakenAndALongerOneIsBroken) {
    Read(u"a = " + std::u16string(Catalogue::longestText, u'x') + u"\nb = " +
         std::u16string(Catalogue::longestText + 1, u'x') + u"\nc = C\n");
    EXPECT_EQ(Text(u"a").size(), Catalogue::longestText);
    EXPECT_THAT(Problems(), ElementsAre(u"line 3: a text is too long"));
    EXPECT_EQ(Text(u"c"), u"C");
}

TEST_F(CatalogueTest, ACatalogueOfTheGreatestSizeIsReadAndALargerOneIsNot) {
    std::u16string text = u"[TLXActTrkClient deu]\na = A\n;";
    text.resize(Catalogue::largestCatalogue, u'\\');
    catalogue.Read(text);
    EXPECT_EQ(Text(u"a"), u"A");
    EXPECT_THAT(Problems(), IsEmpty());
    Catalogue larger;
    larger.Read(text + u"x");
    EXPECT_THAT(larger.Problems(), ElementsAre(u"the catalogue is too large"));
    EXPECT_FALSE(larger.Has(section, u"deu"));
}

TEST_F(CatalogueTest, EndlesslyContinuedBackslashesAreReadAtOnce) {
    std::u16string text = u"[TLXActTrkClient deu]\na = " + std::u16string(500'001, u'\\') + u"\n";
    for (int i = 0; i < 250'000; ++i) {
        text += u"\\\n";
    }
    catalogue.Read(text);
    EXPECT_EQ(Problems().size(), 1U);
}

TEST_F(CatalogueTest, OfManyBrokenLinesTheFirstAreToldAndTheOthersCounted) {
    std::u16string lines;
    for (std::size_t i = 0; i < Catalogue::mostProblems + 7; ++i) {
        lines += u"broken\n";
    }
    Read(lines + u"a = A\n");
    ASSERT_EQ(Problems().size(), Catalogue::mostProblems + 1);
    EXPECT_EQ(Problems().back(), u"and 7 more broken lines");
    EXPECT_EQ(Text(u"a"), u"A");
}

TEST_F(CatalogueTest, AnEmptyCatalogueHasNothingAndNothingIsWrongWithIt) {
    catalogue.Read(u"");
    catalogue.Read(u"\r\n\r\n ; \n");
    EXPECT_THAT(Problems(), IsEmpty());
    EXPECT_THAT(catalogue.Languages(section), IsEmpty());
}

}  // namespace
}  // namespace korvanta
