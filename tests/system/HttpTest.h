#pragma once

#include <string>

#include "SystemTest.h"
#include "driver/WebServer.h"

// A client with HTTP monitoring. Its server is one of this machine's own addresses, for its shares as for its web
// service. What the web service has lies in a folder apart, so that nothing is found in the shares by mistake.
class HttpTest : public SystemTest {
  protected:
    HttpTest();
    ~HttpTest() override { server_.Remove(); }

    // The paths of the user's files, as the web server counts them.
    static std::string CounterPath();
    static std::string JobPath(int number);
    std::wstring PrinterName(const std::wstring& printer = L"Laser") const;

    void PublishInWeb(const std::wstring& file, const std::wstring& text) const;
    // Without a start of the web service; the lists lie there.
    void PublishEverything(const driver::ClientSettings& settings = {.jobDetectionMethod = 2}) const;
    void StartHttpMonitoring(const driver::ClientSettings& settings = {.jobDetectionMethod = 2});
    // The job file, then the counter.
    driver::Job AnnounceInWeb(int number, const std::wstring& document) const;

    // From now on the trace log tells what the client does.
    void EnableLogging();
    std::string TraceLog();
    // How often the trace log has the text.
    int Logged(const std::string& text);
    // Waits until the client, answering all the time, has looked for jobs so often from now on.
    bool Polls(int times);

    std::string address_;
    driver::PrintServer server_;
    std::wstring folder_;
    driver::WebServer web_;
};
