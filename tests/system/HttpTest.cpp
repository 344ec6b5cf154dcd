#include "HttpTest.h"

#include <cstdlib>

#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

// An address that no other test has, nor one of another part of the tests that runs at this moment.
std::string OwnAddress(const std::wstring& number) {
    char part[8] = "0";
    GetEnvironmentVariableA("GTEST_SHARD_INDEX", part, sizeof part);
    return "127.0." + std::to_string(std::atoi(part) + 1) + "." + driver::Utf8Bytes(number);
}

}  // namespace

HttpTest::HttpTest()
    : address_(OwnAddress(ServerName().substr(3))),
      server_(SharesFolder(), driver::FromUtf8(address_)),
      folder_(Client().Folder() + L"\\web"),
      web_(address_, folder_) {
    driver::MakeFolders(folder_ + L"\\TLXData\\jobs");
}

std::string HttpTest::CounterPath() {
    return "/TLXData/jobs/" + driver::Utf8Bytes(driver::CurrentUserLowerCase()) + ".tlu";
}

std::string HttpTest::JobPath(int number) {
    return "/TLXData/jobs/" + driver::Utf8Bytes(driver::JobFileName(driver::CurrentUserLowerCase(), number));
}

std::wstring HttpTest::PrinterName(const std::wstring& printer) const {
    return L"\\\\" + server_.Name() + L"\\" + printer;
}

void HttpTest::PublishInWeb(const std::wstring& file, const std::wstring& text) const {
    driver::WriteBytes(folder_ + L"\\TLXData\\" + file, driver::Utf16Bytes(text));
}

void HttpTest::PublishEverything(const driver::ClientSettings& settings) const {
    server_.PublishAll(settings, Accounts());
    PublishInWeb(L"ClientSet.txt", settings.Text());
    PublishInWeb(L"Servers.txt", L"");
    PublishInWeb(L"Printers.txt", L"Laser\r\n");
    PublishInWeb(L"jobs\\" + driver::CurrentUserLowerCase() + L".tlu", L"0");
    driver::SetMachineSetting(L"TLXPrimaryServer", server_.Name());
}

void HttpTest::StartHttpMonitoring(const driver::ClientSettings& settings) {
    PublishEverything(settings);
    web_.Start();
    Client().Start();
    ASSERT_TRUE(Client().WaitForMonitoring());
}

driver::Job HttpTest::AnnounceInWeb(int number, const std::wstring& document) const {
    MarkComment();
    const driver::Job job = server_.Complete({.id = number + 1, .document = document});
    PublishInWeb(L"jobs\\" + driver::JobFileName(driver::CurrentUserLowerCase(), number), job.Text());
    PublishInWeb(L"jobs\\" + driver::CurrentUserLowerCase() + L".tlu", std::to_wstring(number + 1));
    return job;
}

void HttpTest::EnableLogging() {
    Client().ChooseMenuEntry(0);
    ExpectMessage(L"This will turn on logging. Only do this for debugging purposes.");
}

std::string HttpTest::TraceLog() {
    return driver::TryReadBytes(Client().Folder() + L"\\tlxlog.txt").value_or("");
}

int HttpTest::Logged(const std::string& text) {
    const std::string log = TraceLog();
    int times = 0;
    for (std::size_t at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) {
        ++times;
    }
    return times;
}

bool HttpTest::Polls(int times) {
    for (int polls = 0; polls < times; ++polls) {
        const std::wstring before = Status(L"lblActivity").Text();
        const auto polled = [&] {
            EXPECT_TRUE(Client().Answers());
            return Status(L"lblActivity").Text() != before;
        };
        if (!WaitFor(polled)) {
            return false;
        }
    }
    return true;
}
