#include "server/PrinterName.h"

#include "gtest/gtest.h"

namespace korvanta {
namespace {

const std::u16string_view noBackslash[] = {u"laser", u"\\\\laser", u""};

TEST(PrinterName, IsSplitAtTheFirstSingleBackslash) {
    const PrinterName name(u"\\\\srv\\laser");
    EXPECT_EQ(name.Server(), u"srv");
    EXPECT_EQ(name.ShortName(), u"laser");
    EXPECT_EQ(PrinterName(u"\\\\srv\\a\\b").Server(), u"srv");
    EXPECT_EQ(PrinterName(u"\\\\srv\\a\\b").ShortName(), u"a\\b");
    EXPECT_EQ(PrinterName(u"\\\\srv\\").Server(), u"srv");
    EXPECT_EQ(PrinterName(u"\\\\srv\\").ShortName(), u"");
    EXPECT_EQ(PrinterName(u"srv\\laser").Server(), u"srv");
}

TEST(PrinterName, WithoutABackslashIsTheShortNameAlone) {
    for (const std::u16string_view name : noBackslash) {
        EXPECT_FALSE(PrinterName(name).Server().has_value());
        EXPECT_EQ(PrinterName(name).ShortName(), name.empty() ? u"" : u"laser");
    }
}

TEST(PrinterName, PairsOfBackslashesGoWhereverTheyAre) {
    EXPECT_FALSE(PrinterName(u"\\\\srv\\\\laser").Server().has_value());
    EXPECT_EQ(PrinterName(u"\\\\srv\\\\laser").ShortName(), u"srvlaser");
    EXPECT_EQ(PrinterName(u"\\\\\\\\srv\\laser").Server(), u"srv");
    EXPECT_EQ(PrinterName(u"\\\\\\srv\\laser").Server(), u"");
    EXPECT_EQ(PrinterName(u"\\\\\\srv\\laser").ShortName(), u"srv\\laser");
}

TEST(PrinterName, TheOtherReadingSkipsTwoCharactersWhateverTheyAre) {
    EXPECT_EQ(PrinterName(u"\\\\srv\\laser").ServerFromThirdCharacter(), u"srv");
    EXPECT_EQ(PrinterName(u"\\\\srv\\\\laser").ServerFromThirdCharacter(), u"srv");
    EXPECT_EQ(PrinterName(u"server\\laser").ServerFromThirdCharacter(), u"rver");
    EXPECT_EQ(PrinterName(u"\\\\\\laser").ServerFromThirdCharacter(), u"");
    for (const std::u16string_view name : noBackslash) {
        EXPECT_FALSE(PrinterName(name).ServerFromThirdCharacter().has_value());
    }
    EXPECT_FALSE(PrinterName(u"s\\l").ServerFromThirdCharacter().has_value());
}

TEST(PrinterName, APublishedNameWithABackslashStaysAndAnyOtherGetsItsServer) {
    EXPECT_EQ(PrinterName::Published(u"srv1", u"laser"), u"\\\\srv1\\laser");
    EXPECT_EQ(PrinterName::Published(u"srv1", u"\\\\srv2\\colour"), u"\\\\srv2\\colour");
    EXPECT_EQ(PrinterName::Published(u"srv1", u"a\\"), u"a\\");
}

}  // namespace
}  // namespace korvanta
