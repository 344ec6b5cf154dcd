#include "unit/common/TextStreamFixture.h"

namespace korvanta {
namespace {

const std::u16string path = u"C:\\Temp\\out.txt";

class TextOutputTest : public TextStreamFixture {};

TEST_F(TextOutputTest, AUtf16FileBeginsWithTheByteOrderMark) {
    TextOutput output = TextOutput::OpenUtf16(files, path);
    output.Write(u"aß");
    output.Close();
    EXPECT_EQ(files.ReadBytes(path), std::string("\xFF\xFE"
                                                 "a\0\xDF\0",
                                                 6));
}

TEST_F(TextOutputTest, AUtf16FileInWhichNothingWasWrittenHoldsTheByteOrderMark) {
    TextOutput::OpenUtf16(files, path).Close();
    EXPECT_EQ(files.ReadBytes(path), "\xFF\xFE");
}

TEST_F(TextOutputTest, LinesEndWithCrLf) {
    TextOutput output = TextOutput::OpenUtf16(files, path);
    output.WriteLine(u"one");
    output.WriteLine(u"");
    output.Write(u"two");
    output.Close();
    EXPECT_EQ(files.ReadUtf16(path), u"one\r\n\r\ntwo");
}

TEST_F(TextOutputTest, WhatTheFileHeldBeforeIsGone) {
    files.WriteUtf16(path, u"a much longer text than the new one");
    TextOutput output = TextOutput::OpenUtf16(files, path);
    output.Write(u"new");
    output.Close();
    EXPECT_EQ(files.ReadUtf16(path), u"new");
}

TEST_F(TextOutputTest, AnsiFilesHaveNoMarkAndQuestionMarksForWhatTheCodePageLacks) {
    TextOutput output = TextOutput::OpenAnsi(files, codePage, path);
    output.WriteLine(u"Müller Ё");
    output.Close();
    EXPECT_EQ(files.ReadBytes(path), "M\xFCller ?\r\n");
}

TEST_F(TextOutputTest, AnsiFilesCanBeAppendedToAndWrittenOver) {
    files.WriteAnsi(path, u"12345");
    TextOutput appended = TextOutput::OpenAnsi(files, codePage, path, OutputMode::Append);
    appended.Write(u"67");
    appended.Close();
    EXPECT_EQ(files.ReadAnsi(path), u"1234567");
    TextOutput over = TextOutput::OpenAnsi(files, codePage, path, OutputMode::Overwrite);
    over.Write(u"ab");
    over.Close();
    EXPECT_EQ(files.ReadAnsi(path), u"ab34567");
}

TEST_F(TextOutputTest, AnyUnitsComeBackAsTheyWereWritten) {
    const std::u16string odd{u'a', 0, 0xD800, u'b', 0xDFFF, 0xFEFF, 0xFFFF};
    TextOutput output = TextOutput::OpenUtf16(files, path);
    output.WriteLine(odd);
    output.Write(odd);
    output.Close();
    TextInput input = TextInput::OpenUtf16(files, path);
    EXPECT_EQ(input.ReadLine(), odd);
    EXPECT_EQ(input.ReadAll(), odd);
}

TEST_F(TextOutputTest, TextReachesTheFileAtFlushAndClose) {
    TextOutput output = TextOutput::OpenAnsi(files, codePage, path);
    output.Write(u"one");
    EXPECT_EQ(files.ReadAnsi(path), u"");
    EXPECT_EQ(output.FileLength(), 0U);
    output.Flush();
    EXPECT_EQ(files.ReadAnsi(path), u"one");
    EXPECT_EQ(output.FileLength(), 3U);
    output.Flush();
    EXPECT_EQ(files.faults.Calls("Write"), 1);
    output.Write(u"two");
    output.Close();
    EXPECT_EQ(files.ReadAnsi(path), u"onetwo");
    EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(TextOutputTest, MuchTextReachesTheFileByItselfAndOnce) {
    TextOutput output = TextOutput::OpenAnsi(files, codePage, path);
    const std::u16string line(1000, u'x');
    for (int i = 0; i < 1000; ++i) {
        output.Write(line);
    }
    EXPECT_GT(files.ReadBytes(path).size(), 900'000U);
    EXPECT_LT(files.faults.Calls("Write"), 20);
    output.Close();
    EXPECT_EQ(files.ReadBytes(path).size(), 1'000'000U);
}

TEST_F(TextOutputTest, WithoutCloseWhatWasNotFlushedIsLost) {
    {
        TextOutput output = TextOutput::OpenAnsi(files, codePage, path);
        output.Write(u"one");
        output.Flush();
        output.Write(u"two");
    }
    EXPECT_EQ(files.ReadAnsi(path), u"one");
    EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(TextOutputTest, OpeningTellsWhyItFails) {
    EXPECT_EQ(ErrorOf([&] { TextOutput::OpenUtf16(files, u"C:\\none\\out.txt"); }), 76);
    files.AddFolder(u"\\\\SRV1\\TLXActN$");
    files.Down(u"SRV1");
    EXPECT_EQ(ErrorOf([&] { TextOutput::OpenUtf16(files, u"\\\\SRV1\\TLXActN$\\out.txt"); }), 76);
    files.WriteAnsi(path, u"kept");
    files.SetReadOnly(path);
    EXPECT_EQ(ErrorOf([&] { TextOutput::OpenAnsi(files, codePage, path); }), 70);
    EXPECT_EQ(files.ReadAnsi(path), u"kept");
}

TEST_F(TextOutputTest, AFullDiskIsError61AtFlushAndAtClose) {
    files.freeBytes = 4;
    TextOutput output = TextOutput::OpenUtf16(files, path);
    EXPECT_NO_THROW(output.Write(u"text"));
    EXPECT_EQ(ErrorOf([&] { output.Flush(); }), 61);
    EXPECT_EQ(ErrorOf([&] { output.Close(); }), 0);  // what could not be written is dropped

    TextOutput other = TextOutput::OpenUtf16(files, path);
    other.Write(u"text");
    EXPECT_EQ(ErrorOf([&] { other.Close(); }), 61);
}

TEST_F(TextOutputTest, AWriteThatFailsInTheMiddleRaisesFromWriteOnceMuchHasGathered) {
    files.faults.FailOnce("Write", 1, windowsError::diskFull);
    TextOutput output = TextOutput::OpenUtf16(files, path);
    EXPECT_EQ(ErrorOf([&] { output.Write(std::u16string(100'000, u'x')); }), 61);
}

TEST_F(TextOutputTest, AFailingCloseIsToldOnce) {
    files.faults.FailOnce("Close", 1, 59);
    TextOutput output = TextOutput::OpenUtf16(files, path);
    output.Write(u"text");
    EXPECT_EQ(ErrorOf([&] { output.Close(); }), 57);
    EXPECT_EQ(ErrorOf([&] { output.Close(); }), 0);
    EXPECT_EQ(files.OpenFiles(), 0);
}

TEST_F(TextOutputTest, ALengthThatCannotBeToldRaises) {
    TextOutput output = TextOutput::OpenUtf16(files, path);
    files.faults.FailOnce("Length", 1, windowsError::accessDenied);
    EXPECT_EQ(ErrorOf([&] { output.FileLength(); }), 70);
}

}  // namespace
}  // namespace korvanta
