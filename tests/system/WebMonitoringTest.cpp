// HTTP monitoring: the lists and the jobs come from the server's web service, over real sockets.

#include "HttpTest.h"
#include "driver/Files.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

TEST_F(HttpTest, JobAnnouncedByTheWebServiceIsChargedThroughTheShare) {
    ASSERT_NO_FATAL_FAILURE(StartHttpMonitoring());
    EXPECT_EQ(Status(L"lblJobDetectionMethod").Text(), L"HTTP monitoring");
    EXPECT_TRUE(WaitFor([&] {
        return driver::ListWindow(Status(L"lvwPrinters")).Column(0) == std::vector<std::wstring>{PrinterName()};
    }));
    const driver::Job job = AnnounceInWeb(0, L"Fetched \u00fcber HTTP.doc");
    ASSERT_TRUE(DialogOffers(job.document));
    ASSERT_TRUE(ChooseAccount(L"Audit"));
    const driver::Notification expected =
        Expected(job, driver::JobFileName(driver::CurrentUser(), 0), 2, L"Smith / Audit");
    PressOk();
    ExpectNotification(expected, server_);
}

TEST_F(HttpTest, ClientAnswersWhileTheWebServiceIsDownAndGoesOnAfterwards) {
    ASSERT_NO_FATAL_FAILURE(StartHttpMonitoring());
    web_.Stop();
    ASSERT_TRUE(Polls(2));
    web_.Start();
    // A server that did not answer had every file, so the client has lost count; it asks for the counter again.
    ASSERT_TRUE(Polls(4));
    const driver::Job job = AnnounceInWeb(0, L"After the outage.doc");
    EXPECT_TRUE(DialogOffers(job.document));
}

// Apache and lighttpd, for example: their page for what is missing does not have the words that count, so that every
// number seems to have a file.
TEST_F(HttpTest, ServerWithAnotherPageForWhatIsMissingHasItsJobsFoundToo) {
    web_.AbsentPage("<h1>Not Found</h1><p>The requested URL was not found on this server.</p>");
    ASSERT_NO_FATAL_FAILURE(StartHttpMonitoring());
    ASSERT_TRUE(Polls(4));
    EXPECT_EQ(web_.Requests(JobPath(5)), 0) << "a poll asks for a few numbers in vain, not for all";
    const driver::Job job = AnnounceInWeb(0, L"Behind the page.doc");
    ASSERT_TRUE(DialogOffers(job.document));
    EXPECT_TRUE(Client().Answers());
    AnnounceInWeb(1, L"The next one.doc");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
}

TEST_F(HttpTest, ServerThatSendsItsFilesInChunksIsUnderstood) {
    ASSERT_NO_FATAL_FAILURE(StartHttpMonitoring());
    const driver::Job job = server_.Complete({.document = L"Chunks.doc"});
    const std::string text = driver::Utf16Bytes(job.Text());
    web_.Misbehave(JobPath(0), [text](const driver::Connection& client) {
        client.Send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nConnection: close\r\n\r\n");
        for (const char byte : text) {
            client.Send("1\r\n" + std::string(1, byte) + "\r\n");
        }
        client.Send("0\r\n\r\n");
    });
    EXPECT_TRUE(DialogOffers(job.document));
}

// The server dies while the client reads a job, and is back a little later.
TEST_F(HttpTest, JobWhoseServerStopsAndReturnsIsOffered) {
    ASSERT_NO_FATAL_FAILURE(StartHttpMonitoring());
    EnableLogging();
    std::atomic<int> asked = 0;
    web_.Misbehave(JobPath(0), [&](const driver::Connection& client) {
        if (++asked == 1) {
            client.Send(driver::Response("200 OK", "it is there"));
        } else {
            client.Send(driver::ResponseHead(100) + "\xFF\xFE");
            client.Pause(60'000);
        }
    });
    ASSERT_TRUE(WaitFor([&] { return asked == 2; }));
    web_.Stop();
    ASSERT_TRUE(WaitFor([&] { return Logged("Invalid job event file processed") > 0; }));
    const driver::Job job = AnnounceInWeb(0, L"Interrupted.doc");
    web_.Behave();
    web_.Start();
    EXPECT_TRUE(DialogOffers(job.document));
    EXPECT_TRUE(Client().Answers());
}

}  // namespace
