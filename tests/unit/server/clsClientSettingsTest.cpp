#include "server/clsClientSettings.h"

#include "ServerFixture.h"

namespace korvanta {
namespace {

const std::u16string elevenLines = u"1\r\n2\r\n7\r\n32\r\n61\r\n45\r\n33\r\n9\r\n5\r\n-1\r\nguests";
const std::u16string thirteenLines = elevenLines + u"\r\nthe comment\r\nthe label";

class ClientSettings : public ServerFixture {
  protected:
    // All thirteen, one per line.
    static std::u16string All(const clsClientSettings& settings) {
        std::u16string text;
        for (const std::int32_t number :
             {settings.JobMatchMethod(), settings.JobDetectionMethod(), settings.JobDetectionMethodWin9X(),
              settings.ServerHealthTestInterval(), settings.FullRefreshInterval(),
              settings.PrinterListRefreshInterval(), settings.ServerDownFullRefreshInterval(),
              settings.PrinterPollingInterval(), settings.FilePollingInterval()}) {
            text += NumberText(number) + u"|";
        }
        return text + BooleanText(settings.ClientPopupOnTop()) + u"|" + settings.UsersDoNotRequireAccount() + u"|" +
               settings.DefaultComment() + u"|" + settings.ShowOnInvoiceLabel();
    }
    static std::u16string WithLine(std::size_t line, const std::u16string& text) {
        std::vector<std::u16string> lines = Split(thirteenLines, lineBreak);
        lines[line - 1] = text;
        return Join(lines, lineBreak);
    }

    const std::u16string defaults = u"0|0|0|31|60|44|30|8|4|False|||";
    clsClientSettings settings;
};

TEST_F(ClientSettings, ANewObjectHasTheDefaults) {
    EXPECT_EQ(All(settings), defaults);
}

TEST_F(ClientSettings, PropertiesAreStoredUnchecked) {
    settings.JobMatchMethod(-1);
    settings.JobDetectionMethod(99);
    settings.JobDetectionMethodWin9X(98);
    settings.ServerHealthTestInterval(0);
    settings.FullRefreshInterval(-5);
    settings.PrinterListRefreshInterval(2147483647);
    settings.ServerDownFullRefreshInterval(7);
    settings.PrinterPollingInterval(6);
    settings.FilePollingInterval(5);
    settings.ClientPopupOnTop(true);
    settings.UsersDoNotRequireAccount(u"u");
    settings.DefaultComment(u"c");
    settings.ShowOnInvoiceLabel(u"l");
    EXPECT_EQ(All(settings), u"-1|99|98|0|-5|2147483647|7|6|5|True|u|c|l");
}

TEST_F(ClientSettings, EachFamilyOfWindowsHasItsOwnDetectionMethod) {
    settings.JobDetectionMethod(1);
    settings.JobDetectionMethodWin9X(2);
    EXPECT_EQ(settings.EffectiveDetectionMethod(false), DetectionMethod::Printer);
    EXPECT_EQ(settings.EffectiveDetectionMethod(true), DetectionMethod::HTTP);
    settings.JobDetectionMethod(-7);
    EXPECT_EQ(static_cast<std::int32_t>(settings.EffectiveDetectionMethod(false)), -7) << "any number is carried";
}

TEST_F(ClientSettings, ThirteenLinesSetEverything) {
    EXPECT_TRUE(settings.LoadString(thirteenLines));
    EXPECT_EQ(All(settings), u"1|2|7|32|61|45|33|9|5|True|guests|the comment|the label");
}

TEST_F(ClientSettings, LinesAfterTheThirteenthAreIgnored) {
    EXPECT_TRUE(settings.LoadString(thirteenLines + u"\r\nmore\r\nand more"));
    EXPECT_EQ(settings.ShowOnInvoiceLabel(), u"the label");
}

TEST_F(ClientSettings, ExactlyElevenLinesLeaveTheLastTwoAsTheyWere) {
    settings.DefaultComment(u"before");
    settings.ShowOnInvoiceLabel(u"before too");
    EXPECT_TRUE(settings.LoadString(elevenLines));
    EXPECT_EQ(All(settings), u"1|2|7|32|61|45|33|9|5|True|guests|before|before too");
    EXPECT_TRUE(settings.LoadString(elevenLines + u"\r\nafter"));
    EXPECT_EQ(All(settings), u"1|2|7|32|61|45|33|9|5|True|guests|after|before too");
    EXPECT_TRUE(settings.LoadString(elevenLines + u"\r\n\r\n"));
    EXPECT_EQ(All(settings), u"1|2|7|32|61|45|33|9|5|True|guests||");
}

TEST_F(ClientSettings, ALineThatIsNoNumberEndsTheLoadThere) {
    EXPECT_FALSE(settings.LoadString(WithLine(5, u"abc")));
    EXPECT_EQ(All(settings), u"1|2|7|32|60|44|30|8|4|False|||");
}

TEST_F(ClientSettings, AnyOfTheNineNumbersMustConvert) {
    for (std::size_t line = 1; line <= 9; ++line) {
        for (const std::u16string text : {u"", u"x", u"2147483648", u"-2147483649", u"1 2", u"99999999999999999999"}) {
            clsClientSettings fresh;
            EXPECT_FALSE(fresh.LoadString(WithLine(line, text))) << line << " " << testing::PrintToString(text);
            EXPECT_EQ(fresh.UsersDoNotRequireAccount(), u"");
        }
    }
}

TEST_F(ClientSettings, NumbersMayHaveBlanksAroundThemAndAMinusSign) {
    EXPECT_TRUE(settings.LoadString(WithLine(4, u"  -2147483648 ")));
    EXPECT_EQ(settings.ServerHealthTestInterval(), -2147483647 - 1);
}

TEST_F(ClientSettings, TheBooleanIsAnyNumberOrTrueOrFalse) {
    for (const std::u16string text : {u"-1", u"1", u"0.5", u" 42 ", u"TRUE", u"true", u"True"}) {
        clsClientSettings fresh;
        EXPECT_TRUE(fresh.LoadString(WithLine(10, text))) << testing::PrintToString(text);
        EXPECT_TRUE(fresh.ClientPopupOnTop()) << testing::PrintToString(text);
    }
    for (const std::u16string text : {u"0", u" 0 ", u"0.0", u"FALSE", u"false"}) {
        clsClientSettings fresh;
        fresh.ClientPopupOnTop(true);
        EXPECT_TRUE(fresh.LoadString(WithLine(10, text))) << testing::PrintToString(text);
        EXPECT_FALSE(fresh.ClientPopupOnTop()) << testing::PrintToString(text);
    }
    for (const std::u16string text : {u"", u"yes", u"Truely"}) {
        clsClientSettings fresh;
        EXPECT_FALSE(fresh.LoadString(WithLine(10, text))) << testing::PrintToString(text);
        EXPECT_EQ(fresh.FilePollingInterval(), 5) << "the lines before it hold";
    }
}

TEST_F(ClientSettings, FewerThanElevenLinesFailAfterApplyingWhatIsThere) {
    EXPECT_FALSE(settings.LoadString(elevenLines.substr(0, elevenLines.rfind(u"\r\n"))));
    EXPECT_EQ(All(settings), u"1|2|7|32|61|45|33|9|5|True|||");
}

TEST_F(ClientSettings, TheEmptyTextChangesNothing) {
    EXPECT_FALSE(settings.LoadString(u""));
    EXPECT_EQ(All(settings), defaults);
}

TEST_F(ClientSettings, LineFeedsAloneMakeOneLineAndFail) {
    EXPECT_FALSE(settings.LoadString(Replace(thirteenLines, u"\r\n", u"\n")));
    EXPECT_EQ(All(settings), defaults);
}

TEST_F(ClientSettings, ALoneLineFeedInATextStaysInIt) {
    EXPECT_TRUE(settings.LoadString(WithLine(12, u"first\nsecond\rthird")));
    EXPECT_EQ(settings.DefaultComment(), u"first\nsecond\rthird");
}

TEST_F(ClientSettings, OddCharactersComeThroughUnchanged) {
    const std::u16string odd{u' ', u'\0', 0xD800, u'\u0001', 0xFFFF, u' '};
    EXPECT_TRUE(settings.LoadString(WithLine(12, odd)));
    EXPECT_EQ(settings.DefaultComment(), odd);
}

TEST_F(ClientSettings, BinaryTextsFail) {
    EXPECT_FALSE(settings.LoadString(std::u16string(100'000, u'\0')));
    EXPECT_FALSE(settings.LoadString(std::u16string(1'000'000, u'9')));
    EXPECT_EQ(All(settings), defaults);
}

TEST_F(ClientSettings, SavingWritesTheThirteenLinesInOrder) {
    ASSERT_TRUE(settings.LoadString(thirteenLines));
    TextOutput stream = Create();
    EXPECT_TRUE(settings.SaveFile(stream));
    EXPECT_EQ(files.ReadBytes(written), Utf16(thirteenLines + u"\r\n"));
}

TEST_F(ClientSettings, SavingTheDefaultsWritesZeroForFalse) {
    TextOutput stream = Create();
    EXPECT_TRUE(settings.SaveFile(stream));
    EXPECT_EQ(files.ReadBytes(written), Utf16(u"0\r\n0\r\n0\r\n31\r\n60\r\n44\r\n30\r\n8\r\n4\r\n0\r\n\r\n\r\n\r\n"));
}

TEST_F(ClientSettings, LoadingWhatWasSavedRestoresEverything) {
    ASSERT_TRUE(settings.LoadString(thirteenLines));
    TextOutput stream = Create();
    ASSERT_TRUE(settings.SaveFile(stream));
    clsClientSettings fromText;
    EXPECT_TRUE(fromText.LoadString(files.ReadUtf16(written)));
    EXPECT_EQ(All(fromText), All(settings));
    clsClientSettings fromFile;
    TextInput saved = TextInput::OpenUtf16(files, written);
    EXPECT_TRUE(fromFile.LoadFile(saved));
    EXPECT_EQ(All(fromFile), All(settings));
}

TEST_F(ClientSettings, SavingToAFullDiskFails) {
    TextOutput stream = Create();
    files.freeBytes = 10;
    EXPECT_FALSE(settings.SaveFile(stream));
}

TEST_F(ClientSettings, LoadFileFailsAndForgivesAsLoadStringDoes) {
    settings.DefaultComment(u"before");
    TextInput eleven = Open(elevenLines);
    EXPECT_TRUE(settings.LoadFile(eleven));
    EXPECT_EQ(All(settings), u"1|2|7|32|61|45|33|9|5|True|guests|before|");

    clsClientSettings fresh;
    TextInput broken = Open(WithLine(5, u"abc"));
    EXPECT_FALSE(fresh.LoadFile(broken));
    EXPECT_EQ(All(fresh), u"1|2|7|32|60|44|30|8|4|False|||");
    TextInput empty = Open(u"");
    EXPECT_FALSE(fresh.LoadFile(empty));
}

TEST_F(ClientSettings, AFileThatCannotBeReadToTheEndKeepsWhatCameBefore) {
    files.largestRead = 2 * (1 + 6);  // the byte-order mark and two lines
    TextInput stream = Open(thirteenLines);
    files.faults.FailFrom("Read", 2, 64);
    EXPECT_FALSE(settings.LoadFile(stream));
    EXPECT_EQ(All(settings), u"1|2|0|31|60|44|30|8|4|False|||");
}

TEST_F(ClientSettings, ANeverEndingCommentLeavesTheCommentAsItWas) {
    const std::string start = Utf16(elevenLines + u"\r\n");
    files.WriteGenerated(written, fakes::FakeFileSystem::endless,
                         [&start](std::uint64_t offset, char* buffer, std::size_t size) {
                             for (std::size_t at = 0; at < size; ++at) {
                                 buffer[at] = offset + at < start.size() ? start[offset + at] : 'x';
                             }
                         });
    settings.DefaultComment(u"before");
    TextInput stream = TextInput::OpenUtf16(files, written);
    EXPECT_TRUE(settings.LoadFile(stream));
    EXPECT_EQ(settings.DefaultComment(), u"before");
}

}  // namespace
}  // namespace korvanta
