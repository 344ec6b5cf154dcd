#include <gtest/gtest.h>

#include "app/clsSetupTxt.h"
#include "fakes/FakePlatform.h"

namespace korvanta {
namespace {

const std::u16string folder = u"C:\\Program Files\\Korvanta";
const std::u16string setupPath = folder + u"\\setup.txt";

class SetupFileTest : public testing::Test {
  protected:
    void Holds(const std::u16string& text) { windows.files.WriteAnsi(setupPath, text); }

    fakes::FakePlatform windows;
    clsSetupTxt setup{windows.files, windows.codePage, folder};
};

TEST_F(SetupFileTest, MissingFileGivesEmptyTextsAndTrueFlags) {
    EXPECT_EQ(setup.TLXPrimaryServer(), u"");
    EXPECT_EQ(setup.LinkName(), u"");
    EXPECT_EQ(setup.LinkPath(), u"");
    EXPECT_EQ(setup.UserDBPath(), u"");
    EXPECT_TRUE(setup.ShowLink());
    EXPECT_TRUE(setup.ShowOnStartup());
}

TEST_F(SetupFileTest, KeyAtTheLineStartGivesTheValueUntrimmed) {
    Holds(u"LinkName=http://x\r\nTLXPrimaryServer=srv1\r\nLinkPath= c:\\a b \r\n");
    EXPECT_EQ(setup.TLXPrimaryServer(), u"srv1");
    EXPECT_EQ(setup.LinkName(), u"http://x");
    EXPECT_EQ(setup.LinkPath(), u" c:\\a b ");
}

TEST_F(SetupFileTest, OneMoreCharacterBeforeTheKeyShiftsTheValueToBeginWithTheEqualsSign) {
    Holds(u"xTLXPrimaryServer=srv1\r\n");
    EXPECT_EQ(setup.TLXPrimaryServer(), u"=srv1");
}

TEST_F(SetupFileTest, KeyIsFoundWhateverItsLetterCaseAndTheFirstLineWins) {
    Holds(u"tlxprimaryserver=first\r\nTLXPrimaryServer=second\r\n");
    EXPECT_EQ(setup.TLXPrimaryServer(), u"first");
}

TEST_F(SetupFileTest, EmptyOrMissingFlagIsTrueOneIsTrueAnythingElseIsFalse) {
    Holds(u"ShowOnStartup=\r\nShowLink=1\r\n");
    EXPECT_TRUE(setup.ShowOnStartup());
    EXPECT_TRUE(setup.ShowLink());
    Holds(u"ShowOnStartup=yes\r\nShowLink=0\r\n");
    EXPECT_FALSE(setup.ShowOnStartup());
    EXPECT_FALSE(setup.ShowLink());
}

TEST_F(SetupFileTest, PathThatIsNotThereReadsAsEmpty) {
    Holds(u"UserDBPath=C:\\Data\\users.mdb\r\n");
    EXPECT_EQ(setup.UserDBPath(), u"");
    windows.files.WriteBytes(u"C:\\Data\\users.mdb", "x");
    EXPECT_EQ(setup.UserDBPath(), u"C:\\Data\\users.mdb");
}

TEST_F(SetupFileTest, EachPropertyReadsTheFileAnew) {
    Holds(u"TLXPrimaryServer=a\r\n");
    EXPECT_EQ(setup.TLXPrimaryServer(), u"a");
    Holds(u"TLXPrimaryServer=b\r\n");
    EXPECT_EQ(setup.TLXPrimaryServer(), u"b");
}

TEST_F(SetupFileTest, UnreadableBinaryOrEndlessFileGivesEmptyTexts) {
    Holds(std::u16string(u"\0\1\2\3", 4));
    EXPECT_EQ(setup.TLXPrimaryServer(), u"");
    windows.files.WriteGenerated(setupPath, fakes::FakeFileSystem::endless,
                                 [](std::uint64_t, char* buffer, std::size_t size) { std::fill_n(buffer, size, 'a'); });
    EXPECT_EQ(setup.TLXPrimaryServer(), u"");
    windows.files.FailPath(setupPath, windowsError::accessDenied);
    EXPECT_EQ(setup.TLXPrimaryServer(), u"");
}

TEST_F(SetupFileTest, TextIsReadInTheMachinesCodePage) {
    windows.files.WriteBytes(setupPath, "TLXPrimaryServer=B\xFCro\r\n");
    EXPECT_EQ(setup.TLXPrimaryServer(), u"Büro");
}

}  // namespace
}  // namespace korvanta
