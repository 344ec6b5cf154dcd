// HTTP monitoring: the lists and the jobs come from the server's web service, over real sockets.

#include <cstdlib>

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"
#include "driver/WebServer.h"

using driver::WaitFor;

namespace {

// An address that no other test has, nor one of another part of the tests that runs at this moment.
std::string OwnAddress(const std::wstring& number) {
    char part[8] = "0";
    GetEnvironmentVariableA("GTEST_SHARD_INDEX", part, sizeof part);
    return "127.0." + std::to_string(std::atoi(part) + 1) + "." + driver::Utf8Bytes(number);
}

// The server is one of this machine's own addresses, for its shares as for its web service. What the web service has
// lies in a folder apart, so that nothing is found in the shares by mistake.
class HttpTest : public SystemTest {
  protected:
    HttpTest()
        : address_(OwnAddress(ServerName().substr(3))),
          server_(SharesFolder(), driver::FromUtf8(address_)),
          folder_(Client().Folder() + L"\\web"),
          web_(address_, folder_) {
        driver::MakeFolders(folder_ + L"\\TLXData\\jobs");
    }
    ~HttpTest() override { server_.Remove(); }

    void PublishInWeb(const std::wstring& file, const std::wstring& text) const {
        driver::WriteBytes(folder_ + L"\\TLXData\\" + file, driver::Utf16Bytes(text));
    }
    void StartHttpMonitoring() {
        const driver::ClientSettings settings{.jobDetectionMethod = 2};
        server_.PublishAll(settings, Accounts());
        PublishInWeb(L"ClientSet.txt", settings.Text());
        PublishInWeb(L"Servers.txt", L"");
        PublishInWeb(L"Printers.txt", L"Laser\r\n");
        PublishInWeb(L"jobs\\" + driver::CurrentUserLowerCase() + L".tlu", L"0");
        web_.Start();
        driver::SetMachineSetting(L"TLXPrimaryServer", server_.Name());
        Client().Start();
        ASSERT_TRUE(Client().WaitForMonitoring());
    }
    // The job file alone: the client asks for the next number itself.
    driver::Job AnnounceInWeb(int number, const std::wstring& document) const {
        MarkComment();
        const driver::Job job = server_.Complete({.id = number + 1, .document = document});
        PublishInWeb(L"jobs\\" + driver::JobFileName(driver::CurrentUserLowerCase(), number), job.Text());
        PublishInWeb(L"jobs\\" + driver::CurrentUserLowerCase() + L".tlu", std::to_wstring(number + 1));
        return job;
    }

    std::string address_;
    driver::PrintServer server_;
    std::wstring folder_;
    driver::WebServer web_;
};

TEST_F(HttpTest, JobAnnouncedByTheWebServiceIsChargedThroughTheShare) {
    ASSERT_NO_FATAL_FAILURE(StartHttpMonitoring());
    EXPECT_EQ(Status(L"lblJobDetectionMethod").Text(), L"HTTP monitoring");
    EXPECT_TRUE(WaitFor([&] {
        return driver::ListWindow(Status(L"lvwPrinters")).Column(0) ==
               std::vector<std::wstring>{L"\\\\" + server_.Name() + L"\\Laser"};
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
    // Polls that nobody answers, the next one and those that follow.
    WaitFor(
        [&] {
            EXPECT_TRUE(Client().Answers());
            return false;
        },
        std::chrono::seconds(4));
    web_.Start();
    // A server that did not answer had every file, so the client has lost count; it asks for the counter again.
    for (int beats = 0; beats < 4; ++beats) {
        const std::wstring before = Status(L"lblActivity").Text();
        ASSERT_TRUE(WaitFor([&] { return Status(L"lblActivity").Text() != before; }));
    }
    const driver::Job job = AnnounceInWeb(0, L"After the outage.doc");
    EXPECT_TRUE(DialogOffers(job.document));
}

}  // namespace
