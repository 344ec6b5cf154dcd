#include <algorithm>

#include "common/Text.h"
#include "unit/common/TextStreamFixture.h"

namespace korvanta {
namespace {

using Lines = std::vector<std::u16string>;

const std::u16string path = u"C:\\Data\\in.txt";
constexpr std::size_t chunkUnits = 32 * 1024;  // what is read at a time

class TextInputTest : public TextStreamFixture {
  protected:
    Lines ReadLines(TextInput input) {
        Lines lines;
        while (!input.AtEnd()) {
            lines.push_back(input.ReadLine());
        }
        return lines;
    }
    Lines Utf16Lines(std::u16string_view text) {
        files.WriteUtf16(path, text);
        return ReadLines(TextInput::OpenUtf16(files, path));
    }
    Lines AnsiLines(std::string_view bytes) {
        files.WriteBytes(path, bytes);
        return ReadLines(TextInput::OpenAnsi(files, codePage, path));
    }
    TextInput OpenBytes(std::string_view bytes) {
        files.WriteBytes(path, bytes);
        return TextInput::OpenUtf16(files, path);
    }
    // An endless run of one UTF-16 unit without a byte-order mark.
    void WriteEndless(char16_t unit, std::uint64_t length = fakes::FakeFileSystem::endless) {
        files.WriteGenerated(path, length, [unit](std::uint64_t offset, char* buffer, std::size_t size) {
            for (std::size_t i = 0; i < size; ++i) {
                buffer[i] = static_cast<char>((offset + i) % 2 == 0 ? unit & 0xFFU : unit >> 8U);
            }
        });
    }
};

TEST_F(TextInputTest, LinesEndWithCrLfOrLf) {
    EXPECT_EQ(Utf16Lines(u"one\r\ntwo\nthree\r\n"), (Lines{u"one", u"two", u"three"}));
    EXPECT_EQ(AnsiLines("one\r\ntwo\nthree\r\n"), (Lines{u"one", u"two", u"three"}));
}

TEST_F(TextInputTest, TheLastLineNeedsNoLineEnd) {
    EXPECT_EQ(Utf16Lines(u"one\r\ntwo"), (Lines{u"one", u"two"}));
    EXPECT_EQ(AnsiLines("one\r\ntwo"), (Lines{u"one", u"two"}));
}

TEST_F(TextInputTest, EmptyLinesAreLines) {
    EXPECT_EQ(Utf16Lines(u"\r\n\n\r\nx\r\n\r\n"), (Lines{u"", u"", u"", u"x", u""}));
}

TEST_F(TextInputTest, ALoneCarriageReturnEndsNoLine) {
    EXPECT_EQ(Utf16Lines(u"a\rb\r\r\nc\r"), (Lines{u"a\rb\r", u"c\r"}));
}

TEST_F(TextInputTest, AnEmptyFileIsAtItsEnd) {
    TextInput input = OpenBytes("");
    EXPECT_TRUE(input.AtEnd());
    EXPECT_EQ(ErrorOf([&] { input.ReadLine(); }), 62);
    EXPECT_EQ(ErrorOf([&] { input.ReadAll(); }), 62);
    EXPECT_TRUE(input.AtEnd());
}

TEST_F(TextInputTest, AByteOrderMarkAloneIsAnEmptyFile) {
    TextInput input = OpenBytes("\xFF\xFE");
    EXPECT_TRUE(input.AtEnd());
    EXPECT_EQ(ErrorOf([&] { input.ReadLine(); }), 62);
    EXPECT_EQ(ErrorOf([&] { input.ReadAll(); }), 62);
}

TEST_F(TextInputTest, AFileWithoutAByteOrderMarkIsReadAllTheSame) {
    EXPECT_EQ(ReadLines(OpenBytes(std::string_view("a\0\n\0b\0", 6))), (Lines{u"a", u"b"}));
}

TEST_F(TextInputTest, OnlyTheFirstByteOrderMarkIsPassedOver) {
    EXPECT_EQ(Utf16Lines(u"\uFEFFa\n\uFEFFb"), (Lines{u"\uFEFFa", u"\uFEFFb"}));
    EXPECT_EQ(AnsiLines("\xFF\xFE"), (Lines{u"ÿþ"}));
}

TEST_F(TextInputTest, HalfAUnitAtTheEndIsDropped) {
    EXPECT_EQ(ReadLines(OpenBytes(std::string_view("\xFF\xFE"
                                                   "a\0b",
                                                   5))),
              (Lines{u"a"}));
    EXPECT_TRUE(OpenBytes("\xFF\xFE\x41").AtEnd());
    EXPECT_TRUE(OpenBytes("A").AtEnd());
}

TEST_F(TextInputTest, SurrogatesAndNulAreReadAsTheyAre) {
    const std::u16string odd{u'a', 0, 0xD800, u'b', 0xDFFF, 0xD83D, 0xDE00};
    EXPECT_EQ(Utf16Lines(odd + u"\n" + odd), (Lines{odd, odd}));
    EXPECT_EQ(AnsiLines(std::string_view("a\0b\n\0", 5)),
              (Lines{std::u16string(u"a\0b", 3), std::u16string(u"\0", 1)}));
}

TEST_F(TextInputTest, Utf8ContentIsReadAsSomeTextWithoutHarm) {
    const std::string utf8 =
        "Gr\xC3\xB6\xC3\x9F"
        "e\r\n12345\r\n";
    files.WriteBytes(path, utf8);
    EXPECT_EQ(TextInput::OpenUtf16(files, path).ReadAll().size(), utf8.size() / 2);
}

TEST_F(TextInputTest, AnyBytesAreReadAsSomeTextWithoutHarm) {
    std::string bytes;
    for (std::uint32_t i = 0; i < 70'000; ++i) {
        bytes += static_cast<char>(i * i % 251 + i);
    }
    files.WriteBytes(path, bytes);
    EXPECT_EQ(TextInput::OpenUtf16(files, path).ReadAll().size(), bytes.size() / 2);
    std::size_t length = 0;
    for (const std::u16string& line : AnsiLines(bytes)) {
        length += line.size();
    }
    EXPECT_GT(length, 60'000U);
}

TEST_F(TextInputTest, BytesOfTheCodePageAreDecoded) {
    EXPECT_EQ(AnsiLines("M\xFCller\n\xA3"), (Lines{u"Müller", u"£"}));
}

TEST_F(TextInputTest, HowManyBytesComeAtATimeDoesNotMatter) {
    for (const std::size_t largest : {1U, 2U, 3U, 5U, 64U}) {
        files.largestRead = largest;
        EXPECT_EQ(Utf16Lines(u"one\r\n\r\ntwo\nthree"), (Lines{u"one", u"", u"two", u"three"})) << largest;
        EXPECT_EQ(AnsiLines("one\r\n\r\ntwo\nthree"), (Lines{u"one", u"", u"two", u"three"})) << largest;
        files.WriteUtf16(path, u"a\r\nb\r\n");
        EXPECT_EQ(TextInput::OpenUtf16(files, path).ReadAll(), u"a\r\nb\r\n") << largest;
    }
}

TEST_F(TextInputTest, ALineEndMayLieAcrossTwoReads) {
    for (std::size_t length = chunkUnits - 4; length < chunkUnits + 4; ++length) {
        const std::u16string first(length, u'x');
        EXPECT_EQ(Utf16Lines(first + u"\r\nsecond\r\n"), (Lines{first, u"second"})) << length;
    }
    for (std::size_t length = 2 * chunkUnits - 4; length < 2 * chunkUnits + 4; ++length) {
        const std::string first(length, 'x');
        EXPECT_EQ(AnsiLines(first + "\r\nsecond\r\n"), (Lines{FromAscii(first), u"second"})) << length;
    }
}

// Two bytes to a character wherever the first one is 0x81; the second one may be any.
class DoubleByteCodePage : public CodePage {
  public:
    std::u16string Decode(std::string_view bytes) const override {
        std::u16string text;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (bytes[i] == '\x81') {
                EXPECT_LT(i + 1, bytes.size()) << "a character was cut in two";
                ++i;
                text += u'あ';
            } else {
                text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]));
            }
        }
        return text;
    }
    std::string Encode(std::u16string_view) const override { return {}; }
    std::u16string BestFit(std::u16string_view) const override { return {}; }
};

TEST_F(TextInputTest, CharactersOfTwoBytesAreNeverCut) {
    std::string bytes;
    for (int line = 0; line < 9000; ++line) {
        bytes += "x\x81y\x81z\x81\x81\n";
    }
    files.WriteBytes(path, bytes);
    const DoubleByteCodePage doubleByte;
    TextInput input = TextInput::OpenAnsi(files, doubleByte, path);
    while (!input.AtEnd()) {
        ASSERT_EQ(input.ReadLineView(), u"xああ" + std::u16string(u"あ"));
    }
}

TEST_F(TextInputTest, ReadAllGivesWhatIsLeft) {
    files.WriteUtf16(path, u"one\r\ntwo\r\n\r\n");
    TextInput input = TextInput::OpenUtf16(files, path);
    EXPECT_EQ(input.ReadLine(), u"one");
    EXPECT_EQ(input.ReadAll(), u"two\r\n\r\n");
    EXPECT_TRUE(input.AtEnd());
    EXPECT_EQ(ErrorOf([&] { input.ReadAll(); }), 62);
}

TEST_F(TextInputTest, ReadingPastTheEndIsError62) {
    files.WriteUtf16(path, u"one");
    TextInput input = TextInput::OpenUtf16(files, path);
    input.ReadLine();
    EXPECT_EQ(ErrorOf([&] { input.ReadLine(); }), 62);
    EXPECT_EQ(ErrorOf([&] { input.ReadLine(); }), 62);
}

TEST_F(TextInputTest, TheViewOfALineHoldsUntilTheNextCall) {
    files.WriteUtf16(path, u"one\r\ntwo");
    TextInput input = TextInput::OpenUtf16(files, path);
    EXPECT_EQ(input.ReadLineView(), u"one");
    const std::u16string_view second = input.ReadLineView();
    EXPECT_EQ(second, u"two");
}

TEST_F(TextInputTest, ALineThatNeverEndsIsError14LongBeforeMemoryEnds) {
    WriteEndless(u'x');
    TextInput utf16 = TextInput::OpenUtf16(files, path);
    EXPECT_EQ(ErrorOf([&] { utf16.ReadLine(); }), 14);
    TextInput ansi = TextInput::OpenAnsi(files, codePage, path);
    EXPECT_EQ(ErrorOf([&] { ansi.ReadLine(); }), 14);
    EXPECT_LT(files.faults.Calls("Read"), 200);
}

TEST_F(TextInputTest, ATextThatNeverEndsIsAnErrorLongBeforeMemoryEnds) {
    WriteEndless(u'\n');
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenUtf16(files, path).ReadAll(); }), 7);
    files.WriteGenerated(path, fakes::FakeFileSystem::endless,
                         [](std::uint64_t, char* buffer, std::size_t size) { std::fill(buffer, buffer + size, '\n'); });
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenAnsi(files, codePage, path).ReadAll(); }), 7);
    EXPECT_LT(files.faults.Calls("Read"), 2000);
}

TEST_F(TextInputTest, TheLongestLineIsReadAndAnyLongerOneIsError14) {
    for (const std::u16string& end : {std::u16string(u""), std::u16string(u"\r\n"), std::u16string(u"\nnext")}) {
        const std::u16string longest(TextInput::longestLine, u'x');
        EXPECT_EQ(Utf16Lines(longest + end).front(), longest);
        EXPECT_EQ(ErrorOf([&] { Utf16Lines(longest + u"x" + end); }), 14);
        files.WriteAnsi(path, longest + end);
        EXPECT_EQ(TextInput::OpenAnsi(files, codePage, path).ReadLine(), longest);
        files.WriteAnsi(path, longest + u"x" + end);
        EXPECT_EQ(ErrorOf([&] { TextInput::OpenAnsi(files, codePage, path).ReadLine(); }), 14);
    }
}

TEST_F(TextInputTest, TheLongestTextIsReadAndAnyLongerOneIsError7) {
    WriteEndless(u'x', TextInput::longestText * 2);
    EXPECT_EQ(TextInput::OpenUtf16(files, path).ReadAll().size(), TextInput::longestText);
    WriteEndless(u'x', TextInput::longestText * 2 + 2);
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenUtf16(files, path).ReadAll(); }), 7);
}

TEST_F(TextInputTest, OfALargeFileOnlyWhatIsAskedForIsRead) {
    WriteEndless(u'\n', 200'000'000);
    TextInput input = TextInput::OpenUtf16(files, path);
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(input.ReadLine(), u"");
    }
    EXPECT_EQ(files.faults.Calls("Read"), 1);
}

TEST_F(TextInputTest, OpeningTellsWhyItFails) {
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenUtf16(files, u"C:\\Temp\\none.txt"); }), 53);
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenUtf16(files, u"C:\\none\\none.txt"); }), 76);
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenAnsi(files, codePage, u"\\\\SRV1\\none$\\none.txt"); }), 76);
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenUtf16(files, u"C:\\Temp"); }), 70);
    files.faults.FailOnce("OpenForReading", 1, windowsError::sharingViolation);
    EXPECT_EQ(ErrorOf([&] { TextInput::OpenUtf16(files, path); }), 70);
}

TEST_F(TextInputTest, AFailingReadRaisesAfterTheLinesThatCame) {
    files.WriteUtf16(path, u"one\r\ntwo\r\nthree");
    files.largestRead = 14;
    files.faults.FailOnce("Read", 2, 59);
    TextInput input = TextInput::OpenUtf16(files, path);
    EXPECT_EQ(input.ReadLine(), u"one");
    EXPECT_EQ(ErrorOf([&] { input.ReadLine(); }), 57);
    EXPECT_EQ(input.ReadLine(), u"two");  // the failure was a passing one
    EXPECT_EQ(input.ReadLine(), u"three");
    EXPECT_TRUE(input.AtEnd());
}

TEST_F(TextInputTest, AFailingReadRaisesFromReadAllAndFromAtEnd) {
    files.WriteUtf16(path, u"text");
    files.faults.FailOnce("Read", 2, 59);
    TextInput input = TextInput::OpenUtf16(files, path);
    EXPECT_EQ(ErrorOf([&] { input.ReadAll(); }), 57);
    files.faults.FailFrom("Read", 1, 59);
    TextInput other = TextInput::OpenUtf16(files, path);
    EXPECT_EQ(ErrorOf([&] { other.AtEnd(); }), 57);
    EXPECT_EQ(ErrorOf([&] { other.ReadLine(); }), 57);
}

TEST_F(TextInputTest, AFileThatShrinksWhileItIsReadSimplyEnds) {
    files.largestRead = 10;
    files.onRead = [this](const std::u16string&) {
        if (files.faults.Calls("Read") == 2) {
            files.WriteUtf16(path, u"");
        }
    };
    EXPECT_EQ(Utf16Lines(u"one\r\ntwo\r\nthree\r\nfour"), (Lines{u"one", u"two\r"}));
}

TEST_F(TextInputTest, AFileThatGrowsWhileItIsReadIsReadToItsNewEnd) {
    files.largestRead = 10;
    files.onRead = [this](const std::u16string&) {
        if (files.faults.Calls("Read") == 1) {
            files.WriteUtf16(path, u"one\r\ntwo\r\nthree");
        }
    };
    EXPECT_EQ(Utf16Lines(u"one\r\n"), (Lines{u"one", u"two", u"three"}));
}

TEST_F(TextInputTest, TheFileIsClosedWithTheStream) {
    files.WriteUtf16(path, u"text");
    {
        TextInput input = TextInput::OpenUtf16(files, path);
        const TextInput moved = std::move(input);
        EXPECT_EQ(files.OpenFiles(), 1);
    }
    EXPECT_EQ(files.OpenFiles(), 0);
}

}  // namespace
}  // namespace korvanta
