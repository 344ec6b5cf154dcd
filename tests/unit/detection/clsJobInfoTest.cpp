#include "detection/clsJobInfo.h"

#include <gtest/gtest.h>

#include "common/Error.h"
#include "common/Text.h"
#include "fakes/FakePlatform.h"

namespace korvanta::tests {
namespace {

using fakes::FakeJob;

class JobInfoFromSpooler : public testing::Test {
  protected:
    // The words that the spooler gives for these jobs.
    std::vector<std::uint32_t> Enumerate(const std::vector<FakeJob>& jobs) {
        platform_.spooler.AddPrinter(u"\\\\srv\\laser");
        for (const FakeJob& job : jobs) {
            platform_.spooler.AddJob(u"\\\\srv\\laser", job);
        }
        PrinterHandle handle = 0;
        EXPECT_TRUE(platform_.spooler.OpenPrinter(u"\\\\srv\\laser", handle));
        std::vector<std::uint32_t> words(100'000);
        std::uint32_t needed = 0;
        std::uint32_t returned = 0;
        EXPECT_EQ(platform_.spooler.EnumJobs(handle, 0, 99, words, 400'000, needed, returned), 1);
        return words;
    }

    fakes::FakePlatform platform_;
};

TEST_F(JobInfoFromSpooler, TakesEveryFieldFromItsWord) {
    const auto words = Enumerate({{.id = 17,
                                   .machine = u"\\\\WS17",
                                   .user = u"JSmith",
                                   .document = u"Report.doc",
                                   .time = {1, 0x00140005, 0x0003000E, 0x03E70009}}});
    clsJobInfo job;
    job.JobEventFilename = u"kept";
    job.Load(platform_.spooler, words, 0, u"\\\\srv\\laser", 4096);
    EXPECT_EQ(job.JobID, 17);
    EXPECT_EQ(job.PrinterName, u"laser");
    EXPECT_EQ(job.MachineName, u"WS17");
    EXPECT_EQ(job.UserName, u"jsmith");
    EXPECT_EQ(job.Document, u"Report.doc");
    EXPECT_EQ(job.FullPrinterName, u"\\\\srv\\laser");
    EXPECT_EQ(job.PrinterHandle, 4096);
    EXPECT_EQ(job.Time1, 0x00140005);
    EXPECT_EQ(job.Time2, 0x0003000E);
    EXPECT_EQ(job.Time3, 0x03E70009);
    EXPECT_EQ(job.JobEventFilename, u"kept");
}

TEST_F(JobInfoFromSpooler, TakesBlockKFromWord16K) {
    const auto words = Enumerate({{.id = 1, .machine = u"A", .user = u"a", .document = u"first"},
                                  {.id = 2, .machine = u"B", .user = u"b", .document = u"second"}});
    clsJobInfo job;
    job.Load(platform_.spooler, words, 16, u"\\\\srv\\laser", 1);
    EXPECT_EQ(job.JobID, 2);
    EXPECT_EQ(job.Document, u"second");
}

TEST_F(JobInfoFromSpooler, MachineNameHasNoBackslashesAndNoBlanksAround) {
    const auto words = Enumerate({{.machine = u"\\\\WS01 ", .user = u"u", .document = u"d"}});
    clsJobInfo job;
    job.Load(platform_.spooler, words, 0, u"\\\\srv\\laser", 1);
    EXPECT_EQ(job.MachineName, u"WS01");
}

TEST_F(JobInfoFromSpooler, PrinterNameWithoutBackslashIsTheWholeName) {
    const auto words = Enumerate({{.machine = u"m", .user = u"u", .document = u"d"}});
    clsJobInfo job;
    job.Load(platform_.spooler, words, 0, u"Local Laser", 1);
    EXPECT_EQ(job.PrinterName, u"Local Laser");
    job.Load(platform_.spooler, words, 0, u"\\\\srv\\second\\floor", 1);
    EXPECT_EQ(job.PrinterName, u"second\\floor");
}

TEST_F(JobInfoFromSpooler, NullTextPointersAreEmptyTexts) {
    std::vector<std::uint32_t> words(16);
    words[0] = 0xFFFFFFFF;
    clsJobInfo job;
    job.UserName = u"before";
    job.Load(platform_.spooler, words, 0, u"\\\\srv\\laser", 1);
    EXPECT_EQ(job.JobID, -1);
    EXPECT_EQ(job.MachineName, u"");
    EXPECT_EQ(job.UserName, u"");
    EXPECT_EQ(job.Document, u"");
}

TEST_F(JobInfoFromSpooler, EmptyNamesStayEmpty) {
    const auto words = Enumerate({{.id = 3, .machine = u"", .user = u"", .document = u""}});
    clsJobInfo job;
    job.Load(platform_.spooler, words, 0, u"", 1);
    EXPECT_EQ(job.MachineName, u"");
    EXPECT_EQ(job.UserName, u"");
    EXPECT_EQ(job.Document, u"");
    EXPECT_EQ(job.PrinterName, u"");
}

TEST_F(JobInfoFromSpooler, DocumentOfSixtyThousandCharactersComesWhole) {
    const std::u16string document(60'000, u'x');
    const auto words = Enumerate({{.machine = u"m", .user = u"u", .document = document}});
    clsJobInfo job;
    job.Load(platform_.spooler, words, 0, u"\\\\srv\\laser", 1);
    EXPECT_EQ(job.Document, document);
}

TEST_F(JobInfoFromSpooler, BlockOutsideTheBufferRaisesError9AndChangesNothing) {
    const std::vector<std::uint32_t> words(31);
    for (const std::size_t start : {std::size_t{16}, std::size_t{31}, std::size_t{400}, ~std::size_t{0}}) {
        clsJobInfo job;
        job.MachineName = u"before";
        try {
            job.Load(platform_.spooler, words, start, u"\\\\srv\\laser", 1);
            ADD_FAILURE() << "no error for word " << start;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), 9);
        }
        EXPECT_EQ(job.MachineName, u"before");
    }
    clsJobInfo job;
    EXPECT_THROW(job.Load(platform_.spooler, {}, 0, u"\\\\srv\\laser", 1), Error);
    EXPECT_NO_THROW(job.Load(platform_.spooler, words, 15, u"\\\\srv\\laser", 1));
}

const std::vector<std::u16string> tenLines = {u"17",  u"laser", u"\\\\WS01 ", u"JSmith", u" Report ",
                                              u"srv", u"-5",    u"1310725",   u"196622", u"2147483647"};

std::u16string TextOf(std::vector<std::u16string> lines) {
    return Join(lines, u"\r\n");
}

TEST(JobInfoFromText, TakesTheLinesVerbatim) {
    clsJobInfo job;
    ASSERT_TRUE(job.ReadFromString(TextOf(tenLines)));
    EXPECT_EQ(job.JobID, 17);
    EXPECT_EQ(job.PrinterName, u"laser");
    EXPECT_EQ(job.MachineName, u"\\\\WS01 ");
    EXPECT_EQ(job.UserName, u"JSmith");
    EXPECT_EQ(job.Document, u" Report ");
    EXPECT_EQ(job.FullPrinterName, u"srv");
    EXPECT_EQ(job.PrinterHandle, -5);
    EXPECT_EQ(job.Time1, 1310725);
    EXPECT_EQ(job.Time2, 196622);
    EXPECT_EQ(job.Time3, 2147483647);
    EXPECT_EQ(job.JobEventFilename, u"");
}

TEST(JobInfoFromText, NineLinesAreTooFew) {
    auto lines = tenLines;
    lines.pop_back();
    clsJobInfo job;
    EXPECT_FALSE(job.ReadFromString(TextOf(lines)));
    EXPECT_EQ(job.Time2, 196622) << "the lines before have been taken";
    EXPECT_FALSE(job.ReadFromString(u""));
}

TEST(JobInfoFromText, LinesAfterTheTenthAreIgnored) {
    auto lines = tenLines;
    lines.push_back(u"eleven");
    lines.push_back(u"twelve");
    clsJobInfo job;
    EXPECT_TRUE(job.ReadFromString(TextOf(lines)));
    EXPECT_TRUE(job.ReadFromString(TextOf(tenLines) + u"\r\n"));
    EXPECT_EQ(job.Time3, 2147483647);
}

TEST(JobInfoFromText, ANumberThatIsNoneFailsAndKeepsWhatStoodBefore) {
    for (const std::size_t line : {0U, 6U, 7U, 8U, 9U}) {
        for (const std::u16string bad : {u"", u"x", u"1.5", u"2147483648", u"12x"}) {
            auto lines = tenLines;
            lines[line] = bad;
            clsJobInfo job;
            job.PrinterName = u"before";
            EXPECT_FALSE(job.ReadFromString(TextOf(lines))) << line;
            EXPECT_EQ(job.PrinterName, line == 0 ? u"before" : u"laser");
        }
    }
}

TEST(JobInfoFromText, LineFeedsAloneDoNotSeparateLines) {
    clsJobInfo job;
    EXPECT_FALSE(job.ReadFromString(Join(tenLines, u"\n")));
}

TEST(JobInfoFromText, EmptyTextsAndLongDocumentsAreRead) {
    auto lines = tenLines;
    lines[1] = lines[2] = lines[3] = lines[5] = u"";
    lines[4] = std::u16string(60'000, u'x');
    clsJobInfo job;
    ASSERT_TRUE(job.ReadFromString(TextOf(lines)));
    EXPECT_EQ(job.UserName, u"");
    EXPECT_EQ(job.Document.size(), 60'000U);
}

class JobInfoFromStream : public testing::Test {
  protected:
    bool Read(const std::u16string& text, clsJobInfo& job) {
        platform_.files.WriteUtf16(u"C:\\Temp\\job", text);
        TextInput stream = TextInput::OpenUtf16(platform_.files, u"C:\\Temp\\job");
        return job.ReadFromTextStream(stream);
    }

    fakes::FakePlatform platform_;
};

TEST_F(JobInfoFromStream, ReadsTenLines) {
    clsJobInfo job;
    ASSERT_TRUE(Read(TextOf(tenLines), job));
    EXPECT_EQ(job.JobID, 17);
    EXPECT_EQ(job.UserName, u"JSmith");
    EXPECT_EQ(job.Time3, 2147483647);
}

TEST_F(JobInfoFromStream, NineLinesAreTooFew) {
    auto lines = tenLines;
    lines.pop_back();
    clsJobInfo job;
    EXPECT_FALSE(Read(TextOf(lines), job));
    EXPECT_EQ(job.Time2, 196622);
}

TEST_F(JobInfoFromStream, AFailingReadIsFalse) {
    platform_.files.faults.FailFrom("Read", 1, windowsError::badNetPath);
    clsJobInfo job;
    EXPECT_FALSE(Read(TextOf(tenLines), job));
}

}  // namespace
}  // namespace korvanta::tests
