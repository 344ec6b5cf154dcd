#include "lanes/LanePlatform.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fakes/FakePlatform.h"
#include "fakes/FakeWorkers.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace korvanta {
namespace {

class LanePlatformTest : public testing::Test {
  protected:
    LanePlatformTest() {
        fake.files.AddFolder(u"\\\\SRV\\Data$");
        fake.files.WriteBytes(u"\\\\SRV\\Data$\\a.txt", "0123456789");
        fake.files.WriteBytes(u"C:\\Temp\\local.txt", "local");
        fake.spooler.AddPrinter(u"\\\\SRV\\Laser");
        fake.spooler.AddPrinter(u"Local");
        fake.internet.Put(u"http://SRV/a.txt", "page");
        fake.sockets.AddHost(u"ws01", 0x0100007F);
    }

    void Hang() {
        workers.hangs = [] { return fakes::FakeWorkers::forever; };
    }
    void Recover() {
        workers.hangs = {};
        workers.LetGo();
    }
    std::string ReadAll(InputFile& file, std::size_t size) {
        std::string all;
        std::vector<char> piece(size);
        std::size_t got = 0;
        while (file.Read(piece.data(), size, got) == windowsError::none && got != 0) {
            all.append(piece.data(), got);
        }
        return all;
    }

    fakes::FakePlatform fake;
    fakes::FakeWorkers workers{fake.clock, fake.messageLoop};
    LanePlatform lanes{fake.platform, workers};
    Platform& platform = lanes.Services();
};

TEST_F(LanePlatformTest, FilesOfThisMachineAreAskedForAtOnce) {
    Hang();
    std::unique_ptr<InputFile> file;
    EXPECT_EQ(platform.files.OpenForReading(u"C:\\Temp\\local.txt", file), windowsError::none);
    EXPECT_EQ(ReadAll(*file, 100), "local");
    std::unique_ptr<OutputFile> written;
    EXPECT_EQ(platform.files.OpenForWriting(u"C:\\Temp\\new.txt", OutputMode::Truncate, written), windowsError::none);
    EXPECT_EQ(written->Write("x", 1), windowsError::none);
    EXPECT_EQ(written->Close(), windowsError::none);
    EXPECT_TRUE(platform.files.FileExists(u"C:\\Temp\\new.txt"));
    EXPECT_EQ(platform.files.Copy(u"C:\\Temp\\new.txt", u"C:\\Temp\\newer.txt"), windowsError::none);
    EXPECT_EQ(platform.files.Delete(u"C:\\Temp\\newer.txt"), windowsError::none);
    EXPECT_EQ(workers.started, 0);
}

TEST_F(LanePlatformTest, AServersFileIsReadPieceByPiece) {
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(platform.files.OpenForReading(u"\\\\SRV\\Data$\\a.txt", file), windowsError::none);
    EXPECT_EQ(ReadAll(*file, 4), "0123456789");
    file.reset();
    EXPECT_EQ(fake.files.OpenFiles(), 0);
    EXPECT_GT(workers.started, 4);
}

TEST_F(LanePlatformTest, WhatAServerSaysIsWhatTheCallSays) {
    std::unique_ptr<InputFile> file;
    std::uint64_t time = 0;
    fake.files.SetModified(u"\\\\SRV\\Data$\\a.txt", 77);
    EXPECT_EQ(platform.files.OpenForReading(u"\\\\SRV\\Data$\\none.txt", file), windowsError::fileNotFound);
    EXPECT_EQ(file, nullptr);
    EXPECT_EQ(platform.files.LastModified(u"\\\\SRV\\Data$\\a.txt", time), windowsError::none);
    EXPECT_EQ(time, 77U);
    EXPECT_EQ(platform.files.LastModified(u"\\\\SRV\\Data$\\none.txt", time), windowsError::fileNotFound);
    EXPECT_EQ(time, 77U);
    EXPECT_TRUE(platform.files.FolderExists(u"\\\\SRV\\Data$"));
    EXPECT_FALSE(platform.files.FolderExists(u"\\\\SRV\\None$"));
    EXPECT_FALSE(platform.files.FileExists(u"\\\\SRV\\Data$\\none.txt"));
    EXPECT_EQ(platform.files.Delete(u"\\\\SRV\\Data$\\none.txt"), windowsError::fileNotFound);
}

TEST_F(LanePlatformTest, AServerThatHangsIsLikeOneOutOfReach) {
    Hang();
    std::unique_ptr<InputFile> file;
    std::uint64_t time = 0;
    EXPECT_TRUE(platform.files.IsAnswering(u"\\\\SRV\\Data$\\a.txt"));
    EXPECT_EQ(platform.files.OpenForReading(u"\\\\srv\\Data$\\a.txt", file), windowsError::badNetPath);
    EXPECT_EQ(file, nullptr);
    EXPECT_FALSE(platform.files.IsAnswering(u"\\\\SRV\\Data$\\a.txt"));
    EXPECT_TRUE(platform.files.IsAnswering(u"\\\\OTHER\\Data$\\a.txt"));
    EXPECT_EQ(platform.files.LastModified(u"\\\\SRV\\Data$\\a.txt", time), windowsError::badNetPath);
    EXPECT_FALSE(platform.files.FileExists(u"\\\\SRV\\Data$\\a.txt"));
    EXPECT_FALSE(platform.files.FolderExists(u"\\\\SRV\\Data$"));
    EXPECT_EQ(platform.files.Copy(u"\\\\SRV\\Data$\\a.txt", u"C:\\Temp\\a.txt"), windowsError::badNetPath);
    EXPECT_FALSE(fake.files.Has(u"C:\\Temp\\a.txt"));
    EXPECT_EQ(workers.started, 1);
}

TEST_F(LanePlatformTest, AFileThatWasOpenedTooLateIsClosed) {
    Hang();
    std::unique_ptr<InputFile> file;
    EXPECT_EQ(platform.files.OpenForReading(u"\\\\SRV\\Data$\\a.txt", file), windowsError::badNetPath);
    Recover();
    EXPECT_EQ(fake.files.OpenFiles(), 0);
}

TEST_F(LanePlatformTest, AReadThatWasGivenUpEndsTheFile) {
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(platform.files.OpenForReading(u"\\\\SRV\\Data$\\a.txt", file), windowsError::none);
    Hang();
    char buffer[4] = {};
    std::size_t got = 1;
    EXPECT_EQ(file->Read(buffer, 4, got), windowsError::badNetPath);
    EXPECT_EQ(got, 0U);
    Recover();
    // The piece that was given up is missing; what follows must not pass for it.
    EXPECT_EQ(file->Read(buffer, 4, got), windowsError::badNetPath);
    file.reset();
    EXPECT_EQ(fake.files.OpenFiles(), 0);
}

TEST_F(LanePlatformTest, AFileWhoseReadIsStuckIsClosedWhenItReturns) {
    std::unique_ptr<InputFile> file;
    ASSERT_EQ(platform.files.OpenForReading(u"\\\\SRV\\Data$\\a.txt", file), windowsError::none);
    Hang();
    char buffer[4] = {};
    std::size_t got = 0;
    EXPECT_EQ(file->Read(buffer, 4, got), windowsError::badNetPath);
    file.reset();
    EXPECT_EQ(fake.files.OpenFiles(), 1);
    Recover();
    EXPECT_EQ(fake.files.OpenFiles(), 0);
}

TEST_F(LanePlatformTest, WhatIsWrittenIsWaitedFor) {
    workers.hangs = [] { return 90'000U; };
    std::unique_ptr<OutputFile> file;
    ASSERT_EQ(platform.files.OpenForWriting(u"\\\\SRV\\Data$\\b.txt", OutputMode::Truncate, file), windowsError::none);
    EXPECT_EQ(file->Write("abc", 3), windowsError::none);
    std::uint64_t length = 0;
    EXPECT_EQ(file->Length(length), windowsError::none);
    EXPECT_EQ(length, 3U);
    EXPECT_EQ(file->Close(), windowsError::none);
    EXPECT_EQ(fake.files.ReadBytes(u"\\\\SRV\\Data$\\b.txt"), "abc");
}

TEST_F(LanePlatformTest, AFailedWriteSaysWhy) {
    std::unique_ptr<OutputFile> file;
    EXPECT_EQ(platform.files.OpenForWriting(u"\\\\SRV\\None$\\b.txt", OutputMode::Truncate, file),
              windowsError::badNetName);
    EXPECT_EQ(file, nullptr);
    ASSERT_EQ(platform.files.OpenForWriting(u"\\\\SRV\\Data$\\b.txt", OutputMode::Truncate, file), windowsError::none);
    fake.files.faults.FailOnce("Write", 1, windowsError::diskFull);
    EXPECT_EQ(file->Write("abc", 3), windowsError::diskFull);
}

TEST_F(LanePlatformTest, AServersFileIsCopied) {
    const std::string large(200'000, 'x');
    fake.files.WriteBytes(u"\\\\SRV\\Data$\\large.txt", large);
    EXPECT_EQ(platform.files.Copy(u"\\\\SRV\\Data$\\large.txt", u"C:\\Temp\\large.txt"), windowsError::none);
    EXPECT_EQ(fake.files.ReadBytes(u"C:\\Temp\\large.txt"), large);
    EXPECT_EQ(fake.files.OpenFiles(), 0);
}

TEST_F(LanePlatformTest, ACopyThatBreaksOffFails) {
    fake.files.WriteBytes(u"\\\\SRV\\Data$\\large.txt", std::string(200'000, 'x'));
    fake.files.faults.FailOnce("Read", 2, windowsError::badNetName);
    EXPECT_EQ(platform.files.Copy(u"\\\\SRV\\Data$\\large.txt", u"C:\\Temp\\large.txt"), windowsError::badNetName);
    EXPECT_EQ(fake.files.OpenFiles(), 0);
}

TEST_F(LanePlatformTest, APageIsFetchedOnItsServersLane) {
    Hang();
    std::unique_ptr<InternetFile> page;
    EXPECT_NE(platform.internet.OpenUrl(u"agent", u"http://srv/a.txt", page), windowsError::none);
    EXPECT_FALSE(platform.files.IsAnswering(u"\\\\SRV\\Data$\\a.txt"));
    Recover();
    EXPECT_EQ(fake.internet.openFiles, 0);
    ASSERT_EQ(platform.internet.OpenUrl(u"agent", u"http://SRV/a.txt", page), windowsError::none);
    EXPECT_EQ(fake.internet.requests.back().agent, u"agent");
    char buffer[10] = {};
    std::size_t got = 0;
    EXPECT_EQ(page->Read(buffer, 10, got), windowsError::none);
    EXPECT_EQ(std::string(buffer, got), "page");
    page.reset();
    EXPECT_EQ(fake.internet.openFiles, 0);
}

TEST_F(LanePlatformTest, AResponseAsAWholeHasADeadline) {
    fake.internet.PutGenerated(u"http://SRV/long.txt", fakes::FakeInternet::endless,
                               [](std::uint64_t, char* buffer, std::size_t size) { std::fill_n(buffer, size, 'x'); });
    std::unique_ptr<InternetFile> page;
    ASSERT_EQ(platform.internet.OpenUrl(u"agent", u"http://SRV/long.txt", page), windowsError::none);
    workers.hangs = [] { return 4'000U; };
    const std::int64_t asked = fake.clock.now.milliseconds;
    char buffer[10] = {};
    std::size_t got = 0;
    while (page->Read(buffer, 10, got) == windowsError::none) {
    }
    EXPECT_GE(fake.clock.now.milliseconds - asked, 60'000);
    EXPECT_LE(fake.clock.now.milliseconds - asked, 65'000);
}

TEST_F(LanePlatformTest, LookUpsHangByThemselves) {
    Hang();
    std::uint32_t address = 1;
    EXPECT_FALSE(platform.sockets.AddressOf(u"elsewhere", address));
    EXPECT_EQ(platform.sockets.LastError(), 11002);
    EXPECT_EQ(address, 1U);
    workers.hangs = {};
    EXPECT_TRUE(platform.sockets.AddressOf(u"ws01", address));
    EXPECT_EQ(address, 0x0100007FU);
    std::u16string host;
    EXPECT_TRUE(platform.sockets.NameOf(0x0100007F, host));
    EXPECT_EQ(host, u"ws01");
    EXPECT_FALSE(platform.sockets.NameOf(5, host));
    EXPECT_EQ(platform.sockets.LastError(), 11001);
    EXPECT_TRUE(platform.files.IsAnswering(u"\\\\elsewhere\\share\\file"));
}

TEST_F(LanePlatformTest, APrinterOfAServerThatHangsIsOutOfReach) {
    Hang();
    PrinterHandle handle = 1;
    EXPECT_FALSE(platform.spooler.OpenPrinter(u"\\\\SRV\\Laser", handle));
    EXPECT_EQ(handle, 0);
    EXPECT_EQ(platform.spooler.LastError(), LaneSpooler::serverUnavailable);
    EXPECT_EQ(fake.spooler.OpenHandles(), 0U);
    Recover();
    // It was opened after all, and nobody waits for it.
    EXPECT_EQ(fake.spooler.OpenHandles(), 0U);
    EXPECT_EQ(fake.spooler.log.back().substr(0, 12), u"ClosePrinter");
}

TEST_F(LanePlatformTest, JobsKeepTheirTextsWhereTheyLie) {
    fake.spooler.AddJob(u"\\\\SRV\\Laser", {.id = 4, .user = u"jsmith", .document = u"Letter"});
    PrinterHandle handle = 0;
    ASSERT_TRUE(platform.spooler.OpenPrinter(u"\\\\SRV\\Laser", handle));
    std::vector<std::uint32_t> words(1'000);
    std::uint32_t needed = 0;
    std::uint32_t returned = 0;
    ASSERT_NE(platform.spooler.EnumJobs(handle, 0, 10, words, 4'000, needed, returned), 0);
    EXPECT_EQ(returned, 1U);
    EXPECT_EQ(words.size(), 1'000U);
    EXPECT_EQ(platform.spooler.TextAt(words[3]), u"jsmith");

    Hang();
    EXPECT_EQ(platform.spooler.EnumJobs(handle, 0, 10, words, 4'000, needed, returned), 0);
    EXPECT_EQ(returned, 0U);
    EXPECT_EQ(words.size(), 1'000U);
    EXPECT_EQ(platform.spooler.LastError(), LaneSpooler::serverUnavailable);
    EXPECT_EQ(platform.spooler.FindFirstChange(handle, 256), 0);
    Recover();
    const ChangeHandle change = platform.spooler.FindFirstChange(handle, 256);
    EXPECT_GT(change, 0);
    Hang();
    EXPECT_EQ(platform.spooler.FindNextChange(change), 0);
    workers.hangs = [] { return 90'000U; };
    EXPECT_NE(platform.spooler.SetJob(handle, 4, cancelJobCommand), 0);
    EXPECT_TRUE(fake.spooler.Jobs(u"\\\\SRV\\Laser").empty());
    Recover();
    EXPECT_NE(platform.spooler.FindCloseChange(change), 0);
    EXPECT_TRUE(platform.spooler.ClosePrinter(handle));
    EXPECT_EQ(fake.spooler.OpenHandles(), 0U);
    EXPECT_EQ(fake.spooler.OpenChangeHandles(), 0U) << "the one that came too late was closed as well";
}

TEST_F(LanePlatformTest, PrintersOfThisMachineAreAskedAtOnce) {
    Hang();
    PrinterHandle handle = 0;
    EXPECT_TRUE(platform.spooler.OpenPrinter(u"Local", handle));
    EXPECT_FALSE(platform.spooler.OpenPrinter(u"None", handle));
    EXPECT_EQ(platform.spooler.LastError(), 1801U);
    EXPECT_EQ(workers.started, 0);
}

TEST_F(LanePlatformTest, EverythingElseIsTheDirectPlatforms) {
    EXPECT_EQ(&platform.registry, &fake.registry);
    EXPECT_EQ(&platform.messageLoop, &fake.messageLoop);
    EXPECT_EQ(platform.files.TemporaryFolder(), fake.files.TemporaryFolder());
}

}  // namespace
}  // namespace korvanta
