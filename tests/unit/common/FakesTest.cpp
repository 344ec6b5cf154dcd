#include <gtest/gtest.h>

#include "fakes/FakePlatform.h"

namespace korvanta {
namespace {

using fakes::FakeClock;
using fakes::FakePlatform;
using fakes::FaultPlan;

// What other tests build on: that the fakes fail where the system would, and where a test tells them to.

TEST(FaultPlanTest, TheNthCallFailsOnce) {
    FaultPlan plan;
    plan.Check("Read");
    plan.FailOnce("Read", 2, 5);
    EXPECT_EQ(plan.Check("Read"), 0U);
    EXPECT_EQ(plan.Check("Write"), 0U);
    EXPECT_EQ(plan.Check("Read"), 5U);
    EXPECT_EQ(plan.Check("Read"), 0U);
    EXPECT_EQ(plan.Calls("Read"), 4);
    EXPECT_EQ(plan.Calls(FaultPlan::anyCall), 5);
}

TEST(FaultPlanTest, FromTheNthCallOnAllFailUntilTheFaultsAreCleared) {
    FaultPlan plan;
    plan.FailFrom(FaultPlan::anyCall, 2, 5);
    EXPECT_EQ(plan.Check("Read"), 0U);
    EXPECT_EQ(plan.Check("Write"), 5U);
    EXPECT_EQ(plan.Check("Read"), 5U);
    plan.Clear();
    EXPECT_EQ(plan.Check("Read"), 0U);
}

class FakeFileSystemTest : public testing::Test {
  protected:
    std::uint32_t Open(const std::u16string& path) {
        std::unique_ptr<InputFile> file;
        return files.OpenForReading(path, file);
    }
    fakes::FakeClock clock;
    fakes::FakeFileSystem files{clock};
};

TEST_F(FakeFileSystemTest, PathsAreTheSameWhateverTheirLetterCase) {
    files.WriteUtf16(u"\\\\SRV1\\TLXData$\\Accounts.txt", u"text");
    EXPECT_TRUE(files.FileExists(u"\\\\srv1\\tlxdata$\\ACCOUNTS.TXT"));
    EXPECT_EQ(files.ReadUtf16(u"\\\\srv1\\tlxdata$\\accounts.txt"), u"text");
    EXPECT_EQ(files.FilesIn(u"\\\\srv1\\TLXData$"), std::vector<std::u16string>{u"Accounts.txt"});
}

TEST_F(FakeFileSystemTest, WhatIsMissingFailsAsTheSystemDoes) {
    files.AddFolder(u"\\\\SRV1\\TLXData$\\jobs");
    EXPECT_EQ(Open(u"\\\\SRV1\\TLXData$\\none.txt"), windowsError::fileNotFound);
    EXPECT_EQ(Open(u"\\\\SRV1\\TLXData$\\none\\none.txt"), windowsError::pathNotFound);
    EXPECT_EQ(Open(u"\\\\SRV1\\none$\\none.txt"), windowsError::badNetName);
    EXPECT_EQ(Open(u"\\\\SRV2\\TLXData$\\none.txt"), windowsError::badNetPath);
    EXPECT_EQ(Open(u"D:\\none.txt"), windowsError::pathNotFound);
    EXPECT_EQ(Open(u"\\\\SRV1\\TLXData$\\jobs"), windowsError::accessDenied);
    EXPECT_TRUE(files.FolderExists(u"\\\\SRV1\\TLXData$"));
    EXPECT_TRUE(files.FolderExists(u"\\\\SRV1\\TLXData$\\"));
    EXPECT_FALSE(files.FolderExists(u"\\\\SRV1"));
    EXPECT_FALSE(files.FileExists(u"\\\\SRV1\\TLXData$\\jobs"));
}

TEST_F(FakeFileSystemTest, AServerThatIsDownAnswersNothing) {
    files.WriteUtf16(u"\\\\SRV1\\TLXData$\\a.txt", u"text");
    files.Down(u"srv1");
    std::uint64_t time = 0;
    std::unique_ptr<OutputFile> output;
    EXPECT_EQ(Open(u"\\\\SRV1\\TLXData$\\a.txt"), windowsError::badNetPath);
    EXPECT_EQ(files.OpenForWriting(u"\\\\SRV1\\TLXData$\\a.txt", OutputMode::Truncate, output),
              windowsError::badNetPath);
    EXPECT_EQ(files.LastModified(u"\\\\SRV1\\TLXData$\\a.txt", time), windowsError::badNetPath);
    EXPECT_FALSE(files.FileExists(u"\\\\SRV1\\TLXData$\\a.txt"));
    EXPECT_FALSE(files.FolderExists(u"\\\\SRV1\\TLXData$"));
    files.Up(u"SRV1");
    EXPECT_EQ(files.ReadUtf16(u"\\\\SRV1\\TLXData$\\a.txt"), u"text");
    EXPECT_TRUE(files.FolderExists(u"\\\\SRV1\\TLXData$"));
}

TEST_F(FakeFileSystemTest, TimesComeFromTheClockOrByHand) {
    std::uint64_t first = 0;
    std::uint64_t second = 0;
    files.WriteUtf16(u"C:\\a.txt", u"a");
    files.LastModified(u"C:\\a.txt", first);
    clock.AdvanceSeconds(1);
    files.WriteUtf16(u"C:\\a.txt", u"b");
    files.LastModified(u"C:\\a.txt", second);
    EXPECT_EQ(second - first, 10'000'000U);
    files.SetModified(u"C:\\a.txt", 7);
    files.LastModified(u"C:\\a.txt", second);
    EXPECT_EQ(second, 7U);
}

TEST_F(FakeFileSystemTest, FilesAreSharedAsTheSystemSharesThem) {
    std::unique_ptr<OutputFile> first;
    std::unique_ptr<OutputFile> second;
    ASSERT_EQ(files.OpenForWriting(u"C:\\Temp\\a.txt", OutputMode::Truncate, first), 0U);
    EXPECT_EQ(files.OpenForWriting(u"C:\\Temp\\a.txt", OutputMode::Append, second), windowsError::sharingViolation);
    EXPECT_EQ(files.Delete(u"C:\\Temp\\a.txt"), windowsError::sharingViolation);
    EXPECT_EQ(Open(u"C:\\Temp\\a.txt"), 0U);
    first.reset();
    EXPECT_EQ(files.Delete(u"C:\\Temp\\a.txt"), 0U);
    EXPECT_FALSE(files.Has(u"C:\\Temp\\a.txt"));
}

TEST_F(FakeFileSystemTest, CopiesOverwrite) {
    files.WriteUtf16(u"C:\\a.txt", u"new");
    files.WriteUtf16(u"C:\\b.txt", u"old");
    EXPECT_EQ(files.Copy(u"C:\\a.txt", u"C:\\b.txt"), 0U);
    EXPECT_EQ(files.ReadUtf16(u"C:\\b.txt"), u"new");
    EXPECT_EQ(files.Copy(u"C:\\none.txt", u"C:\\b.txt"), windowsError::fileNotFound);
    EXPECT_NE(files.TemporaryName(), files.TemporaryName());
}

class FakeSpoolerTest : public testing::Test {
  protected:
    FakeSpoolerTest() {
        spooler.AddPrinter(u"\\\\srv\\laser");
        spooler.OpenPrinter(u"\\\\SRV\\LASER", handle);
    }
    fakes::FakeWaitableHandles handles;
    fakes::FakeSpooler spooler{handles};
    PrinterHandle handle = 0;
    std::vector<std::uint32_t> words;
    std::uint32_t needed = 0;
    std::uint32_t returned = 0;
};

TEST_F(FakeSpoolerTest, JobsLieInBlocksOfSixteenWords) {
    spooler.AddJob(u"\\\\srv\\laser", {17, u"\\\\WS01", u"JSmith", u"Größe.doc", {1, 2, 3, 4}});
    spooler.AddJob(u"\\\\srv\\laser", {18, u"\\\\WS02", u"Other", u"b.doc"});
    EXPECT_EQ(spooler.EnumJobs(handle, 0, 0xFFFFFFFF, words, 0, needed, returned), 0);
    EXPECT_EQ(spooler.LastError(), 122U);
    words.resize(needed / 4 + 2);
    ASSERT_EQ(spooler.EnumJobs(handle, 0, 0xFFFFFFFF, words, needed, needed, returned), 1);
    EXPECT_EQ(returned, 2U);
    EXPECT_EQ(words[0], 17U);
    EXPECT_EQ(spooler.TextAt(words[1]), u"\\\\srv\\laser");
    EXPECT_EQ(spooler.TextAt(words[2]), u"\\\\WS01");
    EXPECT_EQ(spooler.TextAt(words[3]), u"JSmith");
    EXPECT_EQ(spooler.TextAt(words[4]), u"Größe.doc");
    EXPECT_EQ(words[12], 1U);
    EXPECT_EQ(words[15], 4U);
    EXPECT_EQ(words[16], 18U);
    EXPECT_EQ(spooler.TextAt(words[16 + 3]), u"Other");
    EXPECT_EQ(spooler.TextAt(0), u"");
}

TEST_F(FakeSpoolerTest, AJobSignalsUntilTheHandleIsArmedAgain) {
    const ChangeHandle change = spooler.FindFirstChange(handle, 0x100);
    EXPECT_EQ(handles.PollAny({change}), 258U);
    spooler.AddJob(u"\\\\srv\\laser", {17});
    EXPECT_EQ(handles.PollAny({change}), 0U);
    EXPECT_EQ(handles.PollAny({change}), 0U);
    spooler.FindNextChange(change);
    EXPECT_EQ(handles.PollAny({change}), 258U);
    EXPECT_EQ(handles.PollAny({}), 0xFFFFFFFFU);
}

TEST_F(FakeSpoolerTest, BrokenHandlesAndFaultsFail) {
    spooler.AddJob(u"\\\\srv\\laser", {17});
    spooler.faults.FailOnce("SetJob", 1, 5);
    EXPECT_EQ(spooler.SetJob(handle, 17, cancelJobCommand), 0);
    EXPECT_EQ(spooler.LastError(), 5U);
    EXPECT_EQ(spooler.SetJob(handle, 17, cancelJobCommand), 1);
    EXPECT_TRUE(spooler.Jobs(u"\\\\srv\\laser").empty());
    spooler.BreakHandles(u"\\\\srv\\laser");
    EXPECT_EQ(spooler.EnumJobs(handle, 0, 1, words, 0, needed, returned), 0);
    EXPECT_EQ(spooler.LastError(), 6U);
    EXPECT_EQ(spooler.log.back(), u"EnumJobs 4096 0 1 0");
}

TEST(FakePlatformTest, ThePlatformIsWiredToItsFakes) {
    FakePlatform fake;
    const Platform platform = fake.Make();
    platform.system.Sleep(1500);
    EXPECT_EQ(fake.clock.now.milliseconds, FakeClock::At(2026, 11, 20, 14, 3, 10).milliseconds + 500);
    EXPECT_EQ(platform.clock.ShortDate(platform.clock.Now()), u"2026-11-20");
    EXPECT_TRUE(platform.files.FolderExists(platform.files.TemporaryFolder()));
    int ran = 0;
    fake.messageLoop.onRunPending = [&ran] { ++ran; };
    platform.messageLoop.RunPending();
    platform.messageLoop.RunPendingOften();
    EXPECT_EQ(ran, 2);
    EXPECT_EQ(platform.messageBoxes.Show(u"t", u"c", MessageButtons::YesNo, MessageIcon::Question), MessageAnswer::No);
    EXPECT_EQ(platform.textMeasure.Width(u"&OK", false), 220);
    EXPECT_EQ(platform.sockets.ParseAddress(u"10.0.0.1"), fakes::FakeSockets::Address(10, 0, 0, 1));
    EXPECT_EQ(platform.sockets.ParseAddress(u"10.0.0.256"), 0xFFFFFFFFU);
}

}  // namespace
}  // namespace korvanta
