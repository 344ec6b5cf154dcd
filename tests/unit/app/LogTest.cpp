#include <gtest/gtest.h>

#include "app/basLog.h"
#include "app/clsErrorLog.h"
#include "fakes/FakePlatform.h"

namespace korvanta {
namespace {

using fakes::FakePlatform;

const std::u16string folder = u"C:\\Program Files\\Korvanta";
const std::u16string traceFile = folder + u"\\tlxlog.txt";
const std::u16string eventFile = folder + u"\\Logs\\event.log";
const std::u16string debugFile = folder + u"\\Logs\\debug.log";
constexpr std::uint64_t cap = 104'857'600;

class TraceLogTest : public testing::Test {
  protected:
    TraceLogTest() { windows.files.AddFolder(folder); }

    FakePlatform windows;
    basLog log{windows.files, windows.codePage, windows.clock, folder};
};

TEST_F(TraceLogTest, WritesNothingUntilLoggingIsTurnedOn) {
    log.Log(u"early");
    EXPECT_FALSE(windows.files.Has(traceFile));
    EXPECT_FALSE(log.LoggingEnabled());
}

TEST_F(TraceLogTest, WritesDateTimeBlankAndTextOnALine) {
    log.LoggingEnabled(true);
    log.Log(u"Loading client settings ...");
    EXPECT_EQ(windows.files.ReadBytes(traceFile), "2026-11-20 14:03:09 Loading client settings ...\r\n");
}

TEST_F(TraceLogTest, KeepsEmbeddedLineBreaksAsTheyAre) {
    log.LoggingEnabled(true);
    log.Log(u"one\r\ntwo");
    EXPECT_EQ(windows.files.ReadBytes(traceFile), "2026-11-20 14:03:09 one\r\ntwo\r\n");
}

TEST_F(TraceLogTest, WritesTheDateAloneAtMidnight) {
    windows.clock.Set(2026, 1, 2);
    log.LoggingEnabled(true);
    log.Log(u"text");
    EXPECT_EQ(windows.files.ReadBytes(traceFile), "2026-01-02 text\r\n");
}

TEST_F(TraceLogTest, FirstLineOfAnotherRunEmptiesTheFile) {
    {
        basLog first(windows.files, windows.codePage, windows.clock, folder);
        first.LoggingEnabled(true);
        first.Log(u"old");
    }
    log.LoggingEnabled(true);
    EXPECT_EQ(windows.files.ReadBytes(traceFile), "2026-11-20 14:03:09 old\r\n") << "until there is a line";
    log.Log(u"new");
    EXPECT_EQ(windows.files.ReadBytes(traceFile), "2026-11-20 14:03:09 new\r\n");
}

TEST_F(TraceLogTest, EveryLineReachesTheFileAtOnceAndTheFileStaysOpen) {
    log.LoggingEnabled(true);
    log.Log(u"a");
    log.Log(u"b");
    EXPECT_EQ(windows.files.ReadBytes(traceFile), "2026-11-20 14:03:09 a\r\n2026-11-20 14:03:09 b\r\n");
    EXPECT_EQ(windows.files.OpenFiles(), 1);
}

TEST_F(TraceLogTest, LosesLinesSilentlyWhenTheFileCannotBeWritten) {
    log.LoggingEnabled(true);
    windows.files.FailPath(traceFile, windowsError::accessDenied);
    log.Log(u"lost");
    windows.files.FailPath(traceFile, 0);
    log.Log(u"kept");
    EXPECT_EQ(windows.files.ReadBytes(traceFile), "2026-11-20 14:03:09 kept\r\n");
    windows.files.freeBytes = 0;
    EXPECT_NO_THROW(log.Log(u"disk full"));
}

class ErrorLogTest : public testing::Test {
  protected:
    ErrorLogTest() { windows.files.AddFolder(folder + u"\\Logs"); }

    FakePlatform windows;
    clsErrorLog log{windows.files, windows.codePage, windows.clock, folder};
};

TEST_F(ErrorLogTest, DefaultsNameTheFilesAndTurnTheDebugLogOff) {
    EXPECT_EQ(log.LogFileName(), eventFile);
    EXPECT_EQ(log.DebugFileName(), debugFile);
    EXPECT_EQ(log.CurrentDebugLevel(), 1);
}

TEST_F(ErrorLogTest, MessageWithDefaultsWritesOneEventLineAndNoDebugLine) {
    log.Message(u"trouble");
    EXPECT_EQ(windows.files.ReadBytes(eventFile), "2026-11-20 14:03:09   trouble\r\n");
    EXPECT_FALSE(windows.files.Has(debugFile));
}

TEST_F(ErrorLogTest, MessageAtDebugLevelTwoWritesBothLogs) {
    log.CurrentDebugLevel(2);
    log.Message(u"trouble");
    EXPECT_EQ(windows.files.ReadBytes(eventFile), "2026-11-20 14:03:09   trouble\r\n");
    EXPECT_EQ(windows.files.ReadBytes(debugFile), "2026-11-20 14:03:09   [Quell Desk]   trouble\r\n");
}

TEST_F(ErrorLogTest, PairOfCrLfBecomesABlankAndLoneOnesStay) {
    log.Message(u"a\r\nb\nc\rd");
    EXPECT_EQ(windows.files.ReadBytes(eventFile), "2026-11-20 14:03:09   a b\nc\rd\r\n");
}

TEST_F(ErrorLogTest, LevelTwoWithTheDefaultDebugLevelWritesNothing) {
    log.LogMessage(1, 2, u"quiet");
    EXPECT_FALSE(windows.files.Has(eventFile));
    EXPECT_FALSE(windows.files.Has(debugFile));
}

TEST_F(ErrorLogTest, LevelZeroIsForTheDebugLogAlone) {
    log.CurrentDebugLevel(2);
    log.LogMessage(1, 0, u"x");
    EXPECT_FALSE(windows.files.Has(eventFile));
    EXPECT_EQ(windows.files.ReadBytes(debugFile), "2026-11-20 14:03:09   [Quell Desk]   x\r\n");
}

TEST_F(ErrorLogTest, LevelThreeNeedsDebugLevelThreeAndGoesToTheDebugLogAlone) {
    log.CurrentDebugLevel(2);
    log.LogMessage(1, 3, u"detail");
    EXPECT_FALSE(windows.files.Has(debugFile));
    log.CurrentDebugLevel(3);
    log.LogMessage(1, 3, u"detail");
    EXPECT_EQ(windows.files.ReadBytes(debugFile), "2026-11-20 14:03:09   [Quell Desk]   detail\r\n");
    EXPECT_FALSE(windows.files.Has(eventFile));
}

TEST_F(ErrorLogTest, EachSourceHasItsTagAndAnyOtherHasNone) {
    log.CurrentDebugLevel(2);
    for (const std::int32_t source : {0, 1, 2, 3, 4, -1}) {
        log.LogMessage(source, 2, u"x");
    }
    EXPECT_EQ(windows.files.ReadBytes(debugFile),
              "2026-11-20 14:03:09   [Quell Admin]   x\r\n2026-11-20 14:03:09   [Quell Desk]   x\r\n"
              "2026-11-20 14:03:09   [Quell Wire]   x\r\n2026-11-20 14:03:09   [Quell Ledger]   x\r\n"
              "2026-11-20 14:03:09   x\r\n2026-11-20 14:03:09   x\r\n");
}

// A log of a given length, of which only what is added is kept.
class LongLog : public fakes::FakeFileSystem {
  public:
    LongLog(fakes::FakeClock& clock, std::uint64_t length) : FakeFileSystem(clock), length_(length) {}

    std::uint32_t OpenForWriting(const std::u16string&, OutputMode mode, std::unique_ptr<OutputFile>& file) override {
        EXPECT_EQ(mode, OutputMode::Append);
        file = std::make_unique<Tail>(*this);
        return windowsError::none;
    }
    std::string added;

  private:
    class Tail : public OutputFile {
      public:
        explicit Tail(LongLog& log) : log_(log) {}
        std::uint32_t Write(const void* bytes, std::size_t size) override {
            log_.added.append(static_cast<const char*>(bytes), size);
            return windowsError::none;
        }
        std::uint32_t Length(std::uint64_t& length) override {
            length = log_.length_ + log_.added.size();
            return windowsError::none;
        }
        std::uint32_t Close() override { return windowsError::none; }

      private:
        LongLog& log_;
    };
    std::uint64_t length_;
};

TEST_F(ErrorLogTest, FileOfExactlyTheCapGetsNoFurtherLine) {
    LongLog files(windows.clock, cap);
    clsErrorLog full(files, windows.codePage, windows.clock, folder);
    full.Message(u"too much");
    EXPECT_EQ(files.added, "");
}

TEST_F(ErrorLogTest, FileOneByteBelowTheCapGetsOneMoreLineThatMayPassIt) {
    LongLog files(windows.clock, cap - 1);
    clsErrorLog nearlyFull(files, windows.codePage, windows.clock, folder);
    nearlyFull.Message(u"more");
    nearlyFull.Message(u"no more");
    EXPECT_EQ(files.added, "2026-11-20 14:03:09   more\r\n");
}

TEST_F(ErrorLogTest, MissingFolderAndLockedFileAreSilent) {
    windows.files.RemoveFolder(folder + u"\\Logs");
    EXPECT_NO_THROW(log.Message(u"nowhere"));
    windows.files.AddFolder(folder + u"\\Logs");
    windows.files.FailPath(eventFile, windowsError::sharingViolation);
    EXPECT_NO_THROW(log.Message(u"locked"));
    EXPECT_EQ(windows.files.OpenFiles(), 0);
}

TEST_F(ErrorLogTest, FileNamesCanBeChanged) {
    windows.files.AddFolder(u"D:\\Elsewhere");
    log.LogFileName(u"D:\\Elsewhere\\e.log");
    log.Message(u"there");
    EXPECT_EQ(windows.files.ReadBytes(u"D:\\Elsewhere\\e.log"), "2026-11-20 14:03:09   there\r\n");
}

}  // namespace
}  // namespace korvanta
