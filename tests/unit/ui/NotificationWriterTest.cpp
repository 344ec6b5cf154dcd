#include "ui/NotificationWriter.h"

#include "common/Text.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeTraceLog.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using Result = NotificationWriter::Result;

class NotificationWriterTest : public testing::Test {
  protected:
    NotificationWriterTest() {
        files.AddFolder(u"\\\\SRV\\TLXActN$");
        job.JobID = 5;
        job.MachineName = u"WS17";
        job.PrinterName = u"Laser";
        job.UserName = u"jsmith";
        job.Document = u"Letter";
        job.FullPrinterName = u"\\\\SRV\\Laser";
        job.PrinterHandle = 77;
        choice.account = std::make_shared<clsAccount>();
        choice.account->AccountID = 12;
        choice.account->MainTitle = u"Sales";
        choice.account->SubTitle = u"North";
    }
    ~NotificationWriterTest() override { EXPECT_EQ(files.OpenFiles(), 0) << "a file was left open"; }

    std::vector<std::u16string> Lines() { return Split(files.ReadUtf16(path), u"\r\n"); }

    const std::u16string path = u"\\\\SRV\\TLXActN$\\WS17.77.5.tlx";
    fakes::FakeClock clock;
    fakes::FakeFileSystem files{clock};
    fakes::FakeErrorReports reports;
    fakes::FakeTraceLog log;
    NotificationWriter writer{files, clock, reports, log};
    clsJobInfo job;
    ChargeChoice choice;
};

}  // namespace

TEST_F(NotificationWriterTest, WritesTheJobAndTheChoiceToThePrintersServer) {
    choice.comment = u"urgent";
    choice.invoiceable = true;
    choice.rateDescription = u"Night";
    choice.rateValue = 1.5;
    job.JobEventFilename = u"0005.job";
    EXPECT_EQ(writer.Write(job, choice), Result::Written);
    EXPECT_THAT(Lines(), ElementsAre(u"5", u"WS17", u"Laser", u"jsmith", u"Letter", u"77", u"12", u"Sales / North",
                                     u"1", u"urgent", u"0005.job", u"Night", u"1.5", u""));
    EXPECT_THAT(log.lines, ElementsAre(u"Uploading notification file to server: " + path));
}

TEST_F(NotificationWriterTest, EveryTextKeepsToItsLine) {
    const std::u16string broken = u"a\r\nb\rc\nd";
    for (std::u16string* text : {&job.PrinterName, &job.UserName, &job.Document, &job.JobEventFilename,
                                 &choice.account->MainTitle, &choice.comment, &choice.rateDescription}) {
        *text = broken;
    }
    EXPECT_EQ(writer.Write(job, choice), Result::Written);
    const std::vector<std::u16string> lines = Lines();
    ASSERT_EQ(lines.size(), 14U);
    for (const std::size_t line : {2U, 3U, 4U, 9U, 10U, 11U}) {
        EXPECT_EQ(lines[line], u"a b c d") << line;
    }
    EXPECT_EQ(lines[7], u"a b c d / North");

    job.MachineName = u"WS\n17";
    EXPECT_EQ(writer.Write(job, choice), Result::Written);
    EXPECT_TRUE(files.ReadUtf16(u"\\\\SRV\\TLXActN$\\WS\n17.77.5.tlx").starts_with(u"5\r\nWS 17\r\na b c d\r\n"));
}

TEST_F(NotificationWriterTest, APrinterWithoutServerGetsNoFile) {
    job.FullPrinterName = u"Laser";
    EXPECT_EQ(writer.Write(job, choice), Result::NoServer);
    EXPECT_THAT(files.FilesIn(u"\\\\SRV\\TLXActN$"), testing::IsEmpty());
}

TEST_F(NotificationWriterTest, WhatFailsOnTheWayIsAFailure) {
    for (const char* call : {"OpenForWriting", "Write", "Close"}) {
        files.faults.FailOnce(call, 1, windowsError::diskFull);
        EXPECT_EQ(writer.Write(job, choice), Result::Failed) << call;
        files.faults.Clear();
    }
    EXPECT_EQ(writer.Write(job, choice), Result::Written);
}

}  // namespace korvanta
