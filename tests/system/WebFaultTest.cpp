// Web servers that do anything but serve the file: what the client makes of each answer, how often it asks, and that
// it loses nothing by it.

#include "HttpTest.h"
#include "driver/Files.h"
#include "driver/Wait.h"

using driver::Behaviour;
using driver::Connection;
using driver::Response;
using driver::ResponseHead;
using driver::WaitFor;

namespace {

const std::string printersPath = "/TLXData/Printers.txt";
const std::string settingsPath = "/TLXData/ClientSet.txt";
const std::string printersRead = "IServerInterface_GetPrintersFile: Successfully obtained list of printer names.";

constexpr int watched = 1;
constexpr int failed = 2;

// A list of one printer, as bytes.
std::string ListOf(const std::wstring& printer) {
    return driver::Utf16Bytes(printer + L"\r\n");
}

Behaviour Answer(const std::string& response) {
    return [response](const Connection& client) { client.Send(response); };
}

class WebFaultTest : public HttpTest {
  protected:
    WebFaultTest() {
        PublishEverything();
        web_.Start();
        Client().Start();
        EXPECT_TRUE(Client().WaitForMonitoring());
        EXPECT_TRUE(ShowsPrinter(L"Laser", watched));
        EnableLogging();
        RefreshEverything();
        handles_ = Client().HandleCount();
        EXPECT_GT(handles_, 0);
    }

    driver::ListWindow Printers() const { return driver::ListWindow(Status(L"lvwPrinters")); }
    bool ShowsPrinter(const std::wstring& printer, int picture) const {
        return WaitFor([&] {
            return Printers().Column(0) == std::vector<std::wstring>{PrinterName(printer)} &&
                   Printers().Picture(0) == picture;
        });
    }
    // Has the list of printers, and the file by which servers are tested, answered so, and refreshes all.
    void RefreshAgainst(const Behaviour& behaviour) {
        web_.Misbehave(printersPath, behaviour);
        web_.Misbehave(settingsPath, behaviour);
        const int before = web_.Requests(printersPath);
        const int successes = Logged(printersRead);
        RefreshEverything();
        requests_ = web_.Requests(printersPath) - before;
        EXPECT_GT(Logged(printersRead), successes) << "said whatever came";
    }
    // What is to hold after everything that a server may do.
    void ExpectNoHarm() {
        EXPECT_TRUE(Client().Answers());
        EXPECT_FALSE(Client().WaitForMessage(std::chrono::milliseconds(0)));
        web_.Behave();
        RefreshEverything();
        EXPECT_TRUE(ShowsPrinter(L"Laser", watched));
        EXPECT_TRUE(WaitFor([&] { return Client().HandleCount() <= handles_; }))
            << handles_ << " handles before, now " << Client().HandleCount();
    }
    // One request, and no complaint in the log.
    void ExpectOneRequest() {
        EXPECT_EQ(requests_, 1);
        EXPECT_EQ(Logged("GetURL error"), 0);
        EXPECT_EQ(Logged("TestURL error"), 0);
    }

    int handles_ = 0;
    int requests_ = 0;
};

TEST_F(WebFaultTest, RefusedConnectionLeavesTheListAndCountsAsHealthy) {
    web_.Stop();
    RefreshEverything();
    EXPECT_TRUE(ShowsPrinter(L"Laser", watched));
    EXPECT_EQ(Logged("GetURL error") + Logged("TestURL error"), 0);
    EXPECT_TRUE(Client().Answers());
    web_.Start();
    ExpectNoHarm();
}

TEST_F(WebFaultTest, PagesWithoutTheMarkOfATextLeaveTheListAndCountAsHealthy) {
    const std::string list = driver::Utf8Bytes(L"Other\r\n");
    for (const std::string& response :
         {Response("404 Not Found", "<html><h1>404 Not Found</h1></html>"), Response("200 OK", list),
          Response("200 OK", "\xEF\xBB\xBF" + list), Response("200 OK", ""), Response("200 OK", "\xFF\xFE"),
          ResponseHead(100), std::string("HTTP/1.0 200 OK\r\n\r\n"), std::string("nonsense"), std::string(),
          Response("500 Internal Server Error", "")}) {
        RefreshAgainst(Answer(response));
        EXPECT_TRUE(ShowsPrinter(L"Laser", watched)) << response;
        EXPECT_GE(requests_, 1) << response;
        EXPECT_LE(requests_, 4) << response;
        EXPECT_EQ(Logged("GetURL error") + Logged("TestURL error"), 0) << response;
        ASSERT_TRUE(Client().Answers()) << response;
    }
    ExpectNoHarm();
}

TEST_F(WebFaultTest, TheWordsFileNotFoundLeaveTheListAndCountAsAbsent) {
    RefreshAgainst(Answer(Response("404 Not Found", "<p>The FILE not Found.</p>")));
    EXPECT_TRUE(ShowsPrinter(L"Laser", failed));
    ExpectOneRequest();
    ExpectNoHarm();
}

TEST_F(WebFaultTest, BodyThatBreaksOffIsTakenAsFarAsItCame) {
    // In the middle of a character.
    RefreshAgainst([](const Connection& client) {
        client.Send(ResponseHead(1000) + driver::Utf16Bytes(L"Cut") + "x");
        client.Reset();
    });
    EXPECT_TRUE(ShowsPrinter(L"Cut", watched));
    ExpectOneRequest();
    ExpectNoHarm();
}

TEST_F(WebFaultTest, HalfACharacterAtTheEndIsLeftOut) {
    RefreshAgainst(Answer(Response("200 OK", ListOf(L"Half") + "x")));
    EXPECT_TRUE(ShowsPrinter(L"Half", watched));
    ExpectOneRequest();
    ExpectNoHarm();
}

TEST_F(WebFaultTest, RedirectionIsFollowed) {
    PublishInWeb(L"Elsewhere.txt", L"Elsewhere\r\n");
    RefreshAgainst(Answer(Response("302 Found", "", "Location: /TLXData/Elsewhere.txt\r\n")));
    EXPECT_TRUE(ShowsPrinter(L"Elsewhere", watched));
    ExpectOneRequest();
    ExpectNoHarm();
}

TEST_F(WebFaultTest, OneByteASecondIsWaitedForWhileTheClientAnswers) {
    std::atomic<int> sent = 0;
    web_.Misbehave(printersPath, [&](const Connection& client) {
        const std::string list = driver::Utf16Bytes(L"S");
        client.Send(ResponseHead(list.size()));
        for (const char byte : list) {
            if (!client.Pause(1000) || !client.Send(std::string(1, byte))) {
                break;
            }
            ++sent;
        }
    });
    Status(L"cmdRefresh").Click();
    EXPECT_TRUE(WaitFor([&] {
        EXPECT_TRUE(Client().Answers());
        return sent >= 4;
    }));
    EXPECT_TRUE(ShowsPrinter(L"S", watched));
    ExpectNoHarm();
}

TEST_F(WebFaultTest, FiftyMegabytesComeWholeInSeconds) {
    std::string body = ListOf(L"Large");
    const std::string filler = driver::Utf16Bytes(L"\r\n");
    while (body.size() < 50'000'000) {
        body.append(filler, 2, std::string::npos);
    }
    const DWORD start = GetTickCount();
    const int before = web_.Requests(printersPath);
    web_.Misbehave(printersPath, Answer(Response("200 OK", body)));
    Status(L"cmdRefresh").Click();
    EXPECT_TRUE(WaitFor([&] { return Printers().Column(0) == std::vector<std::wstring>{PrinterName(L"Large")}; },
                        std::chrono::seconds(60)));
    std::printf("50 MB took %lu ms\n", GetTickCount() - start);
    requests_ = web_.Requests(printersPath) - before;
    ExpectOneRequest();
    ExpectNoHarm();
}

// The client takes 64 MiB, then it tells the user and has no list.
TEST_F(WebFaultTest, EndlessBodyIsGivenUpWithAMessageBeforeMemoryEnds) {
    web_.Misbehave(printersPath, [](const Connection& client) {
        client.Send("HTTP/1.0 200 OK\r\nConnection: close\r\n\r\n" + ListOf(L"Endless"));
        while (client.Send(std::string(65536, 'x'))) {
        }
    });
    const int before = web_.Requests(printersPath);
    Status(L"cmdRefresh").Click();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage(std::chrono::seconds(60));
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Text(), L"GetURLSource: err#14  Out of string space");
    web_.Behave();
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    EXPECT_EQ(web_.Requests(printersPath) - before, 1);
    EXPECT_TRUE(WaitFor([&] { return Status(L"lblFullRefreshResult").Text() == L"Completed."; }));
    EXPECT_EQ(Logged("GetURL error"), 0);
    ExpectNoHarm();
}

// Wine goes from the one to the other for ever; Windows gives up after some rounds.
TEST_F(WebFaultTest, RedirectionToItselfKeepsNobodyFromEndingTheSession) {
    const int before = web_.Requests(printersPath);
    web_.Misbehave(printersPath, Answer(Response("302 Found", "", "Location: " + printersPath + "\r\n")));
    Status(L"cmdRefresh").Click();
    ASSERT_TRUE(WaitFor([&] { return web_.Requests(printersPath) - before >= 3; }));
    EXPECT_TRUE(Client().Answers());
    EXPECT_TRUE(Client().EndSession());
    EXPECT_TRUE(Client().WaitForEnd(std::chrono::seconds(5)));
}

// A download whose temporary file can be written and read, but not removed. The scan of the lists goes on using it.
TEST_F(WebFaultTest, DownloadThatFailsIsTriedFourTimesAndLogged) {
    Client().Kill();
    PublishEverything({.jobDetectionMethod = 2, .printerListRefreshInterval = 2});
    Client().Start();
    ASSERT_TRUE(Client().WaitForMonitoring());
    EnableLogging();
    web_.Misbehave(printersPath, Answer(Response("404 Not Found", "short")));
    HANDLE held = INVALID_HANDLE_VALUE;
    EXPECT_TRUE(WaitFor([&] {
        for (const std::wstring& name : driver::FileNames(Client().TemporaryFolder())) {
            if (held == INVALID_HANDLE_VALUE && name.ends_with(L".tmp")) {
                held = CreateFileW((Client().TemporaryFolder() + L"\\" + name).c_str(), GENERIC_READ,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
            }
        }
        return held != INVALID_HANDLE_VALUE;
    }));
    const int before = web_.Requests(printersPath);
    web_.Misbehave(printersPath, Answer(Response("200 OK", ListOf(L"Never"))));
    const std::string line = "GetURL error for URL http://" + address_ + printersPath + " - 70 / Permission denied";
    EXPECT_TRUE(WaitFor([&] { return Logged(line) == 1; }));
    EXPECT_EQ(web_.Requests(printersPath) - before, 4);
    EXPECT_TRUE(ShowsPrinter(L"Laser", watched));
    CloseHandle(held);
    ExpectNoHarm();
}

TEST_F(WebFaultTest, SessionEndsAtOnceThoughAServerKeepsADownloadWaiting) {
    std::atomic<bool> waiting = false;
    web_.Misbehave(printersPath, [&](const Connection& client) {
        client.Send(ResponseHead(100) + "\xFF\xFE");
        waiting = true;
        client.Pause(60'000);
    });
    Status(L"cmdRefresh").Click();
    ASSERT_TRUE(WaitFor([&] { return waiting.load(); }));
    EXPECT_TRUE(Client().EndSession());
    EXPECT_TRUE(Client().WaitForEnd(std::chrono::seconds(5)));
    EXPECT_EQ(Client().ExitCode(), 0U);
}

TEST_F(WebFaultTest, ClosingEndsADownloadWithoutEnd) {
    std::atomic<bool> waiting = false;
    web_.Misbehave(printersPath, [&](const Connection& client) {
        client.Send("HTTP/1.0 200 OK\r\nConnection: close\r\n\r\n" + ListOf(L"Endless"));
        waiting = true;
        while (client.Pause(20) && client.Send(std::string(2048, 'x'))) {
        }
    });
    Status(L"cmdRefresh").Click();
    ASSERT_TRUE(WaitFor([&] { return waiting.load(); }));
    CloseFromTaskManager();
}

}  // namespace
