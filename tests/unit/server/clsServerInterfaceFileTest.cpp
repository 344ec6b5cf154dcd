#include "server/clsServerInterfaceFile.h"

#include <new>

#include "ServerFixture.h"

namespace korvanta {
namespace {

const std::u16string data = u"\\\\SRV\\TLXData$\\";
const std::u16string jobs = u"\\\\SRV\\TLXData$\\jobs\\";
const std::u16string printersRead = u"IServerInterface_GetPrintersFile: Successfully obtained list of printer names.";
const std::u16string printersFailed =
    u"IServerInterface_GetPrintersFile: Error occured whilst obtaining list of printer names: ";
const std::u16string serversFailed =
    u"IServerInterface_GetServersFile: Error occured whilst obtaining list of Korvanta Costbridge servers: ";
const std::u16string counterFailed = u"IServerInterface_GetJobCounter: Error getting counter file from server SRV";
const std::u16string jobFailed =
    u"IServerInterface_GetJobNotificationFile: Error getting job notification file from server SRV";

class ServerInterfaceFile : public ServerFixture {
  protected:
    ServerInterfaceFile() { server.ServerName(u"SRV"); }

    clsServerInterfaceFile file{files, log, u"jsmith"};
    IServerInterface& server = file;
};

TEST_F(ServerInterfaceFile, EachOperationReadsItsOwnFileWhole) {
    files.WriteUtf16(data + u"Printers.txt", u"one\r\ntwo\r\n");
    files.WriteUtf16(data + u"Servers.txt", u"servers");
    files.WriteUtf16(data + u"ClientSet.txt", u"settings");
    files.WriteUtf16(jobs + u"jsmith.tlu", u"counter");
    files.WriteUtf16(jobs + u"jsmith.007", u"job");
    EXPECT_EQ(server.GetPrintersFile(), u"one\r\ntwo\r\n");
    EXPECT_EQ(server.GetServersFile(), u"servers");
    EXPECT_EQ(server.GetClientSettingsFile(), u"settings");
    EXPECT_EQ(server.GetJobCounter(), u"counter");
    EXPECT_EQ(server.GetJobNotificationFile(7), u"job");
    EXPECT_TRUE(server.TestJobNotificationFile(7));
    EXPECT_FALSE(server.TestJobNotificationFile(8));
    EXPECT_TRUE(server.TestHealth());
    EXPECT_EQ(
        files.log,
        (Lines{u"OpenForReading \\\\SRV\\TLXData$\\Printers.txt", u"OpenForReading \\\\SRV\\TLXData$\\Servers.txt",
               u"OpenForReading \\\\SRV\\TLXData$\\ClientSet.txt",
               u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith.tlu",
               u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith.007", u"FileExists \\\\SRV\\TLXData$\\jobs\\jsmith.007",
               u"FileExists \\\\SRV\\TLXData$\\jobs\\jsmith.008", u"FolderExists \\\\SRV\\TLXData$\\jobs"}));
    EXPECT_EQ(log.lines, Lines{printersRead});
}

TEST_F(ServerInterfaceFile, TheServerNameIsTakenAtCallTime) {
    files.WriteUtf16(u"\\\\OTHER\\TLXData$\\Servers.txt", u"other");
    EXPECT_EQ(server.GetServersFile(), u"");
    server.ServerName(u"OTHER");
    EXPECT_EQ(server.GetServersFile(), u"other");
}

TEST_F(ServerInterfaceFile, AMissingPrintersListIsEmptyAndLogsTheErrorWithThePath) {
    EXPECT_EQ(server.GetPrintersFile(), u"");
    EXPECT_EQ(log.lines, Lines{printersFailed + u"53 - File not found (FileSystem). Tried to read from the file: " +
                               data + u"Printers.txt"});
}

TEST_F(ServerInterfaceFile, AnEmptyPrintersListIsEmptyAndLogsTheErrorWithThePath) {
    const Lines expected{printersFailed + u"62 - Input past end of file (TextStream). Tried to read from the file: " +
                         data + u"Printers.txt"};
    files.WriteBytes(data + u"Printers.txt", "");
    EXPECT_EQ(server.GetPrintersFile(), u"");
    EXPECT_EQ(log.lines, expected);

    log.lines.clear();
    files.WriteUtf16(data + u"Printers.txt", u"");  // the byte-order mark alone
    EXPECT_EQ(server.GetPrintersFile(), u"");
    EXPECT_EQ(log.lines, expected);
}

TEST_F(ServerInterfaceFile, AMissingServersListIsEmptyAndLogsTheErrorWithoutThePath) {
    EXPECT_EQ(server.GetServersFile(), u"");
    EXPECT_EQ(log.lines, Lines{serversFailed + u"53 - File not found (FileSystem)"});
}

TEST_F(ServerInterfaceFile, FailingToReadTheSettingsLogsNothing) {
    EXPECT_EQ(server.GetClientSettingsFile(), u"");
    files.Down(u"SRV");
    EXPECT_EQ(server.GetClientSettingsFile(), u"");
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(ServerInterfaceFile, MissingJobFilesAreEmptyAndLogNothing) {
    EXPECT_EQ(server.GetJobCounter(), u"");
    EXPECT_EQ(server.GetJobNotificationFile(7), u"");
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(ServerInterfaceFile, JobFilesOnAnUnreachableServerAreEmptyAndLogOneLineThatNamesTheServer) {
    files.Down(u"SRV");
    EXPECT_EQ(server.GetJobCounter(), u"");
    EXPECT_EQ(log.lines, Lines{counterFailed});
    EXPECT_EQ(server.GetJobNotificationFile(7), u"");
    EXPECT_EQ(log.lines, (Lines{counterFailed, jobFailed}));
}

TEST_F(ServerInterfaceFile, AMissingShareOrFolderIsLoggedForJobFiles) {
    files.RemoveFolder(u"\\\\SRV\\TLXData$\\jobs");
    EXPECT_EQ(server.GetJobCounter(), u"");
    files.RemoveFolder(u"\\\\SRV\\TLXData$");
    EXPECT_EQ(server.GetJobNotificationFile(7), u"");
    EXPECT_EQ(log.lines, (Lines{counterFailed, jobFailed}));
}

TEST_F(ServerInterfaceFile, AServerThatComesBackIsReadAgain) {
    files.WriteUtf16(jobs + u"jsmith.tlu", u"3");
    files.Down(u"SRV");
    EXPECT_EQ(server.GetJobCounter(), u"");
    EXPECT_FALSE(server.TestHealth());
    files.Up(u"SRV");
    EXPECT_EQ(server.GetJobCounter(), u"3");
    EXPECT_TRUE(server.TestHealth());
}

TEST_F(ServerInterfaceFile, EveryUnreachableServersCodeIsLoggedForTheCounter) {
    for (const std::uint32_t code :
         {windowsError::pathNotFound, windowsError::accessDenied, windowsError::badNetPath, windowsError::badNetName,
          windowsError::semaphoreTimeout, std::uint32_t{59}, std::uint32_t{64}}) {
        log.lines.clear();
        files.FailPath(jobs + u"jsmith.tlu", code);
        EXPECT_EQ(server.GetJobCounter(), u"") << code;
        EXPECT_EQ(log.lines, Lines{counterFailed}) << code;
    }
}

TEST_F(ServerInterfaceFile, TestsAnswerFalseAndLogNothing) {
    files.RemoveFolder(u"\\\\SRV\\TLXData$\\jobs");
    EXPECT_FALSE(server.TestHealth());
    files.Down(u"SRV");
    EXPECT_FALSE(server.TestHealth());
    EXPECT_FALSE(server.TestJobNotificationFile(7));
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(ServerInterfaceFile, AFileNamedJobsIsNoHealthyServer) {
    files.RemoveFolder(u"\\\\SRV\\TLXData$\\jobs");
    files.WriteUtf16(u"\\\\SRV\\TLXData$\\jobs", u"");
    EXPECT_FALSE(server.TestHealth());
}

TEST_F(ServerInterfaceFile, AFileThatBreaksOffWhileReadIsEmpty) {
    files.WriteUtf16(data + u"Printers.txt", u"one\r\ntwo\r\n");
    files.largestRead = 6;
    files.faults.FailFrom("Read", 2, 64);
    EXPECT_EQ(server.GetPrintersFile(), u"");
    EXPECT_EQ(log.lines, Lines{printersFailed + u"57 - Device I/O error (Windows error 64) (FileSystem). Tried to " +
                               u"read from the file: " + data + u"Printers.txt"});
}

TEST_F(ServerInterfaceFile, RunningOutOfMemoryGivesEmptyResults) {
    for (const std::u16string& path : {data + u"Printers.txt", data + u"Servers.txt", data + u"ClientSet.txt",
                                       jobs + u"jsmith.tlu", jobs + u"jsmith.007"}) {
        files.WriteUtf16(path, u"text");
    }
    files.onRead = [](const std::u16string&) { throw std::bad_alloc(); };
    EXPECT_EQ(server.GetPrintersFile(), u"");
    EXPECT_EQ(server.GetServersFile(), u"");
    EXPECT_EQ(server.GetClientSettingsFile(), u"");
    EXPECT_EQ(server.GetJobCounter(), u"");
    EXPECT_EQ(server.GetJobNotificationFile(7), u"");
    EXPECT_EQ(log.lines,
              (Lines{printersFailed + u"7 - Out of memory (). Tried to read from the file: " + data + u"Printers.txt",
                     serversFailed + u"7 - Out of memory ()", counterFailed, jobFailed}));
}

TEST_F(ServerInterfaceFile, TestsThatRaiseAnswerFalse) {
    files.onCall = [](const std::u16string&, const std::u16string&) { throw std::bad_alloc(); };
    EXPECT_FALSE(server.TestHealth());
    EXPECT_FALSE(server.TestJobNotificationFile(7));
}

TEST_F(ServerInterfaceFile, AFileOf200MegabytesIsEmpty) {
    files.WriteGenerated(data + u"Printers.txt", 200'000'000,
                         [](std::uint64_t, char* buffer, std::size_t size) { std::fill_n(buffer, size, 'x'); });
    EXPECT_EQ(server.GetPrintersFile(), u"");
    EXPECT_TRUE(log.HasStart(printersFailed + u"7 - Out of memory"));
}

TEST_F(ServerInterfaceFile, UserNamesAreTakenIntoPathsAsTheyAre) {
    for (const std::u16string user : {u"j. o'neil", u"m\u00FCller \u0416", u"50% #1 & \"x\"", u""}) {
        clsServerInterfaceFile other(files, log, user);
        IServerInterface& theirs = other;
        theirs.ServerName(u"SRV");
        files.WriteUtf16(jobs + user + u".tlu", u"8");
        files.WriteUtf16(jobs + user + u".007", u"job");
        EXPECT_EQ(theirs.GetJobCounter(), u"8");
        EXPECT_TRUE(theirs.TestJobNotificationFile(7));
        EXPECT_EQ(theirs.GetJobNotificationFile(7), u"job");
        EXPECT_EQ(files.log.back(), u"OpenForReading " + jobs + user + u".007");
    }
}

TEST_F(ServerInterfaceFile, TextsComeUndecoded) {
    const std::u16string odd{u'a', u'\0', 0xD800, u'\n', 0xDC00, 0xFFFF, u'\u0001'};
    files.WriteUtf16(data + u"Printers.txt", odd);
    EXPECT_EQ(server.GetPrintersFile(), odd);
    files.WriteBytes(data + u"Printers.txt", std::string("a\0b\0c", 5));  // no byte-order mark, half a unit too many
    EXPECT_EQ(server.GetPrintersFile(), u"ab");
}

}  // namespace
}  // namespace korvanta
