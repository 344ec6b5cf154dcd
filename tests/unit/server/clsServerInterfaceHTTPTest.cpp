#include "server/clsServerInterfaceHTTP.h"

#include <algorithm>
#include <new>
#include <utility>

#include "ServerFixture.h"

namespace korvanta {
namespace {

const std::u16string data = u"http://SRV/TLXData/";
const std::u16string printersRead = u"IServerInterface_GetPrintersFile: Successfully obtained list of printer names.";
const std::u16string temporaryFile = u"C:\\Temp\\rad00001.tmp";

class ServerInterfaceHttp : public ServerFixture {
  protected:
    ServerInterfaceHttp() { server.ServerName(u"SRV"); }

    clsServerInterfaceHTTP http{files, internet, messages, boxes, texts, log, u"jsmith"};
    IServerInterface& server = http;
};

TEST_F(ServerInterfaceHttp, EachOperationFetchesItsOwnFileWhole) {
    internet.PutUtf16(data + u"Printers.txt", u"one\r\ntwo\r\n");
    internet.PutUtf16(data + u"Servers.txt", u"servers");
    internet.PutUtf16(data + u"ClientSet.txt", u"settings");
    internet.PutUtf16(data + u"jobs/jsmith.tlu", u"counter");
    internet.PutUtf16(data + u"jobs/jsmith.007", u"job");
    EXPECT_EQ(server.GetPrintersFile(), u"one\r\ntwo\r\n");
    EXPECT_EQ(server.GetServersFile(), u"servers");
    EXPECT_EQ(server.GetClientSettingsFile(), u"settings");
    EXPECT_EQ(server.GetJobCounter(), u"counter");
    EXPECT_EQ(server.GetJobNotificationFile(7), u"job");
    EXPECT_TRUE(server.TestJobNotificationFile(7));
    EXPECT_TRUE(server.TestHealth());
    Lines urls;
    for (const auto& request : internet.requests) {
        urls.push_back(request.url);
        EXPECT_FALSE(request.agent.empty());
    }
    EXPECT_EQ(urls,
              (Lines{data + u"Printers.txt", data + u"Servers.txt", data + u"ClientSet.txt", data + u"jobs/jsmith.tlu",
                     data + u"jobs/jsmith.007", data + u"jobs/jsmith.007", data + u"ClientSet.txt"}));
    EXPECT_EQ(log.lines, Lines{printersRead});
}

TEST_F(ServerInterfaceHttp, TheTemporaryFileIsDeletedAfterASuccessfulFetch) {
    internet.PutUtf16(data + u"Servers.txt", u"servers");
    EXPECT_EQ(server.GetServersFile(), u"servers");
    EXPECT_EQ(files.FilesIn(u"C:\\Temp"), Lines());
    EXPECT_EQ(files.log, (Lines{u"OpenForWriting " + temporaryFile, u"OpenForReading " + temporaryFile,
                                u"Delete " + temporaryFile}));
}

TEST_F(ServerInterfaceHttp, AnErrorPageIsNoFileAndStaysInTheTemporaryFile) {
    EXPECT_EQ(server.GetServersFile(), u"");
    EXPECT_EQ(files.ReadBytes(temporaryFile), internet.unknownUrlBody);
    EXPECT_EQ(log.lines, Lines());
    EXPECT_EQ(internet.requests.size(), 1U);
}

TEST_F(ServerInterfaceHttp, WhatADownloadHasLeftGoesWithTheObject) {
    {
        clsServerInterfaceHTTP other(files, internet, messages, boxes, texts, log, u"jsmith");
        other.ServerName(u"SRV");
        other.GetServersFile();
        EXPECT_EQ(files.FilesIn(u"C:\\Temp").size(), 1U);
    }
    EXPECT_EQ(files.FilesIn(u"C:\\Temp").size(), 0U);
    files.log.clear();
    clsServerInterfaceHTTP(files, internet, messages, boxes, texts, log, u"jsmith").TestHealth();
    EXPECT_EQ(files.log, Lines()) << "nothing was left";
}

TEST_F(ServerInterfaceHttp, WhatADownloadHasLeftGoesWithTheObjectThoughAnotherRanInItsMiddle) {
    internet.PutUtf16(data + u"Printers.txt", u"printers");
    {
        clsServerInterfaceHTTP other(files, internet, messages, boxes, texts, log, u"jsmith");
        IServerInterface& nested = other;
        nested.ServerName(u"SRV");
        messages.onRunPending = [&] {
            messages.onRunPending = nullptr;
            EXPECT_EQ(nested.GetPrintersFile(), u"printers");
        };
        EXPECT_EQ(nested.GetServersFile(), u"");
        EXPECT_EQ(files.FilesIn(u"C:\\Temp").size(), 1U) << "the page that was no file";
    }
    EXPECT_EQ(files.FilesIn(u"C:\\Temp").size(), 0U);
}

TEST_F(ServerInterfaceHttp, Utf8AnsiAndBigEndianTextsAreNoFiles) {
    for (const std::string& body : {std::string("\xEF\xBB\xBFPrinter"), std::string("Printer"),
                                    std::string("\xFE\xFF\0P", 4), std::string("\xFF"), std::string("\xFF\xFF\xFE")}) {
        internet.Put(data + u"Servers.txt", body);
        EXPECT_EQ(server.GetServersFile(), u"") << testing::PrintToString(body);
    }
}

TEST_F(ServerInterfaceHttp, TheByteOrderMarkAloneIsEmpty) {
    internet.PutUtf16(data + u"Servers.txt", u"");
    EXPECT_EQ(server.GetServersFile(), u"");
    EXPECT_EQ(files.ReadBytes(temporaryFile), "\xFF\xFE");
    internet.Put(data + u"Servers.txt", "\xFF\xFEx");  // half a character
    EXPECT_EQ(server.GetServersFile(), u"");
    EXPECT_FALSE(files.Has(temporaryFile));
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(ServerInterfaceHttp, TestsAreFalseOnlyWhenThePageSaysFileNotFound) {
    EXPECT_TRUE(server.TestHealth());
    internet.unknownUrlBody = "<html>FILE Not fOUND</html>";
    EXPECT_FALSE(server.TestHealth());
    EXPECT_FALSE(server.TestJobNotificationFile(7));
    internet.unknownUrlBody = "file not foun";
    EXPECT_TRUE(server.TestHealth());
    internet.unknownUrlBody = "";
    EXPECT_TRUE(server.TestJobNotificationFile(7));
    EXPECT_EQ(files.log, Lines()) << "tests write no file";
}

TEST_F(ServerInterfaceHttp, AnUnreachableServerGivesEmptyTextsAndPassesTests) {
    internet.Down(u"SRV");
    EXPECT_EQ(server.GetPrintersFile(), u"");
    EXPECT_EQ(log.lines, Lines{printersRead});
    EXPECT_EQ(server.GetServersFile(), u"");
    EXPECT_EQ(server.GetJobCounter(), u"");
    EXPECT_EQ(server.GetJobNotificationFile(7), u"");
    EXPECT_TRUE(server.TestHealth());
    EXPECT_TRUE(server.TestJobNotificationFile(7));
    EXPECT_EQ(internet.requests.size(), 6U) << "an empty response is not tried again";
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(log.lines, Lines{printersRead});
}

TEST_F(ServerInterfaceHttp, AFetchThatFailsIsTriedFourTimes) {
    internet.PutUtf16(data + u"Servers.txt", u"servers");
    files.faults.FailFrom("OpenForReading", 1, windowsError::accessDenied);
    EXPECT_EQ(server.GetServersFile(), u"");
    EXPECT_EQ(internet.requests.size(), 4U);
    EXPECT_EQ(log.lines, Lines{u"GetURL error for URL http://SRV/TLXData/Servers.txt - 70 / Permission denied"});
}

TEST_F(ServerInterfaceHttp, AFetchThatSucceedsTheFourthTimeIsAsGood) {
    internet.PutUtf16(data + u"Servers.txt", u"servers");
    for (int nth = 1; nth <= 3; ++nth) {
        files.faults.FailOnce("Delete", nth, windowsError::sharingViolation);
    }
    EXPECT_EQ(server.GetServersFile(), u"servers");
    EXPECT_EQ(internet.requests.size(), 4U);
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(ServerInterfaceHttp, ATemporaryFileThatCannotBeDeletedIsAFailure) {
    internet.PutUtf16(data + u"jobs/jsmith.tlu", u"3");
    files.faults.FailFrom("Delete", 1, windowsError::accessDenied);
    EXPECT_EQ(server.GetJobCounter(), u"");
    EXPECT_EQ(internet.requests.size(), 4U);
    EXPECT_EQ(log.lines, Lines{u"GetURL error for URL http://SRV/TLXData/jobs/jsmith.tlu - 70 / Permission denied"});
}

TEST_F(ServerInterfaceHttp, ATestThatRaisesIsTriedFourTimesAndLogged) {
    boxes.whileOpen = [](const auto&) { throw std::bad_alloc(); };
    internet.onRead = [](const std::u16string&) { throw std::bad_alloc(); };
    internet.PutUtf16(data + u"ClientSet.txt", u"settings");
    EXPECT_FALSE(server.TestHealth());
    EXPECT_EQ(internet.requests.size(), 4U);
    EXPECT_EQ(log.lines, Lines{u"TestURL error for URL http://SRV/TLXData/ClientSet.txt - 7 / Out of memory"});
}

TEST_F(ServerInterfaceHttp, ALongerEarlierResponseStaysBehindAShorterFile) {
    internet.unknownUrlBody = "<html>no such file</html>";
    EXPECT_EQ(server.GetServersFile(), u"");
    internet.PutUtf16(data + u"Servers.txt", u"SRV\r\n");
    EXPECT_EQ(server.GetServersFile(), u"SRV\r\n\u2068\u6966\u656C\u2F3C\u7468\u6C6D");
    EXPECT_EQ(server.GetServersFile(), u"SRV\r\n") << "the temporary file is gone by then";
}

TEST_F(ServerInterfaceHttp, AFetchInTheMiddleOfAFetchLeavesBothTheirResults) {
    internet.PutUtf16(data + u"Servers.txt", u"the servers");
    internet.PutUtf16(data + u"Printers.txt", u"the printers, a longer text than the servers");
    internet.largestRead = 5;
    int nested = 0;
    messages.onRunPending = [&] {
        if (messages.depth == 1 && nested < 3) {
            ++nested;
            EXPECT_EQ(server.GetPrintersFile(), u"the printers, a longer text than the servers");
        }
    };
    EXPECT_EQ(server.GetServersFile(), u"the servers");
    EXPECT_EQ(nested, 3);
    EXPECT_FALSE(files.Has(temporaryFile));
}

TEST_F(ServerInterfaceHttp, AnotherServerNameInTheMiddleOfAFetchLeavesItAlone) {
    internet.PutUtf16(data + u"Servers.txt", u"servers");
    messages.onRunPending = [&] { server.ServerName(u"OTHER"); };
    EXPECT_EQ(server.GetServersFile(), u"servers");
    EXPECT_EQ(server.GetServersFile(), u"") << "the next call goes to the other server";
}

TEST_F(ServerInterfaceHttp, TwoObjectsNeverShareATemporaryFile) {
    clsServerInterfaceHTTP other(files, internet, messages, boxes, texts, log, u"jsmith");
    other.ServerName(u"OTHER");
    server.GetServersFile();
    other.GetServersFile();
    EXPECT_EQ(files.FilesIn(u"C:\\Temp").size(), 2U);
}

TEST_F(ServerInterfaceHttp, TheLongestTextComesWholeAndALongerOneIsEmpty) {
    const auto fill = [](std::uint64_t offset, char* buffer, std::size_t size) {
        std::fill_n(buffer, size, 'x');
        for (std::size_t at = 0; offset + at < 2 && at < size; ++at) {
            buffer[at] = offset + at == 0 ? '\xFF' : '\xFE';
        }
    };
    internet.PutGenerated(data + u"Servers.txt", clsInet::longestResponse, fill);
    EXPECT_EQ(server.GetServersFile().size(), TextInput::longestText);
    EXPECT_TRUE(boxes.shown.empty());
    internet.PutGenerated(data + u"Servers.txt", fakes::FakeInternet::endless, fill);
    EXPECT_EQ(server.GetServersFile(), u"");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, u"GetURLSource: err#14  Out of string space");
}

// A log that has no room for one line.
class LogThatFailsOnce : public fakes::FakeTraceLog {
  public:
    void Log(const std::u16string& text) override {
        if (std::exchange(fails_, false)) {
            throw std::bad_alloc();
        }
        FakeTraceLog::Log(text);
    }

  private:
    bool fails_ = true;
};

TEST_F(ServerInterfaceHttp, AFailureBesideTheFetchIsLoggedByTheOperation) {
    const auto linesOf = [this](const auto& operation) {
        LogThatFailsOnce failing;
        clsServerInterfaceHTTP other(files, internet, messages, boxes, texts, failing, u"jsmith");
        IServerInterface& theirs = other;
        theirs.ServerName(u"SRV");
        EXPECT_EQ(operation(theirs), u"");
        return failing.lines;
    };
    EXPECT_EQ(linesOf([](IServerInterface& other) { return other.GetPrintersFile(); }),
              Lines{u"IServerInterface_GetPrintersFile: Error occured whilst obtaining list of printer names: 7 - Out "
                    u"of memory (). Tried to read from the URL: http://SRV/TLXData/Printers.txt"});
    // Their fetch fails, and then the line that says so.
    internet.PutUtf16(data + u"jobs/jsmith.tlu", u"3");
    internet.PutUtf16(data + u"jobs/jsmith.007", u"job");
    files.faults.FailFrom("OpenForReading", 1, windowsError::accessDenied);
    EXPECT_EQ(linesOf([](IServerInterface& other) { return other.GetJobCounter(); }),
              Lines{u"IServerInterface_GetJobCounter: Error getting counter file from server SRV"});
    EXPECT_EQ(linesOf([](IServerInterface& other) { return other.GetJobNotificationFile(7); }),
              Lines{u"IServerInterface_GetJobNotificationFile: Error getting job notification file from server SRV"});
}

}  // namespace
}  // namespace korvanta
