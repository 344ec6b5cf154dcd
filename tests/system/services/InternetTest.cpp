#include "platform/win32/services/WindowsInternet.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <tlhelp32.h>
#include <winsock.h>

#include <array>
#include <atomic>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/services/DialogWindows.h"
#include "platform/win32/services/WindowsMessageLoop.h"
#include "platform/win32/services/WindowsSockets.h"

namespace korvanta {
namespace {

constexpr std::uint32_t loopback = 0x0100007F;
constexpr LRESULT windowsAnswer = 4711;

// A window of the test's thread that tells of what it is sent.
class TellingWindow {
  public:
    explicit TellingWindow(std::function<void()> onMessage)
        : onMessage_(std::move(onMessage)),
          window_(::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr)) {
        ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }
    ~TellingWindow() { ::DestroyWindow(window_); }
    TellingWindow(const TellingWindow&) = delete;
    TellingWindow& operator=(const TellingWindow&) = delete;

    HWND Get() const { return window_; }

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_APP) {
            reinterpret_cast<const TellingWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA))->onMessage_();
            return windowsAnswer;
        }
        return ::DefWindowProcW(window, message, wParam, lParam);
    }

    std::function<void()> onMessage_;
    HWND window_;
};

// A free port of this machine that is listened at.
class Listener {
  public:
    Listener() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = loopback;
        int size = sizeof(address);
        if (::bind(socket_, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(socket_, 5) != 0 ||
            ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
            ADD_FAILURE() << "no port to listen at";
        }
        port_ = ::ntohs(address.sin_port);
    }
    ~Listener() { Close(); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    SOCKET Accept() const { return ::accept(socket_, nullptr, nullptr); }
    void Close() { ::closesocket(std::exchange(socket_, INVALID_SOCKET)); }
    std::u16string Url(const std::string& path) const {
        const std::string url = "http://127.0.0.1:" + std::to_string(port_) + path;
        return {url.begin(), url.end()};
    }

  private:
    SOCKET socket_;
    int port_ = 0;
};

// A server that goes on, after the beginning of its answer, only when a window has answered it; not at all if `silent`.
class AskingServer {
  public:
    AskingServer(HWND window, std::string beginning, bool silent = false)
        : window_(window), beginning_(std::move(beginning)), silent_(silent) {
        thread_ = KernelHandle(::CreateThread(nullptr, 0, Run, this, 0, nullptr));
    }
    ~AskingServer() {
        ::SetEvent(released_.Get());
        ::WaitForSingleObject(thread_.Get(), 10000);
    }
    AskingServer(const AskingServer&) = delete;
    AskingServer& operator=(const AskingServer&) = delete;

    std::u16string Url() const { return listener_.Url("/"); }
    bool WasAnswered() const { return answered_; }

  private:
    static DWORD WINAPI Run(void* parameter) {
        auto& self = *static_cast<AskingServer*>(parameter);
        const SOCKET connection = self.listener_.Accept();
        char buffer[512];
        ::recv(connection, buffer, sizeof(buffer), 0);
        ::send(connection, self.beginning_.data(), static_cast<int>(self.beginning_.size()), 0);
        DWORD_PTR answer = 0;
        self.answered_ = ::SendMessageTimeoutW(self.window_, WM_APP, 0, 0, SMTO_NORMAL, 5000, &answer) != 0 &&
                         answer == windowsAnswer;
        if (!self.silent_) {
            ::send(connection, "end", 3, 0);
        } else {
            ::WaitForSingleObject(self.released_.Get(), 10000);
        }
        ::closesocket(connection);
        return 0;
    }

    const HWND window_;
    const std::string beginning_;
    const bool silent_;
    const Listener listener_;
    std::atomic<bool> answered_ = false;
    KernelHandle released_{::CreateEventA(nullptr, TRUE, FALSE, nullptr)};
    KernelHandle thread_;
};

// A web server on a free port of this machine that gives one answer after the other.
class WebServer {
  public:
    explicit WebServer(std::vector<std::string> answers)
        : answers_(std::move(answers)), thread_(::CreateThread(nullptr, 0, Run, this, 0, nullptr)) {}
    ~WebServer() { Wait(); }
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    std::u16string Url(const std::string& path) const { return listener_.Url(path); }
    // What was asked for last, when every answer has been given.
    const std::string& Request() {
        Wait();
        return request_;
    }

  private:
    static DWORD WINAPI Run(void* parameter) {
        auto& server = *static_cast<WebServer*>(parameter);
        for (const std::string& answer : server.answers_) {
            server.Answer(answer);
        }
        return 0;
    }
    void Answer(const std::string& answer) {
        const SOCKET connection = listener_.Accept();
        char buffer[512];
        request_.clear();
        while (request_.find("\r\n\r\n") == std::string::npos) {
            const int got = ::recv(connection, buffer, sizeof(buffer), 0);
            if (got <= 0) {
                break;
            }
            request_.append(buffer, static_cast<std::size_t>(got));
        }
        ::send(connection, answer.data(), static_cast<int>(answer.size()), 0);
        ::closesocket(connection);
    }
    void Wait() {
        if (thread_ && ::WaitForSingleObject(thread_.Get(), 10000) != WAIT_OBJECT_0) {
            ADD_FAILURE() << "the web server was asked too seldom";
        }
        thread_.Reset();
        listener_.Close();
    }

    std::vector<std::string> answers_;
    std::string request_;
    Listener listener_;
    KernelHandle thread_;
};

class InternetTests : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(sockets_.Start(version_)); }
    void TearDown() override { EXPECT_TRUE(sockets_.Stop()); }

    // The whole body, or the error's number.
    std::string Fetch(const std::u16string& url) {
        std::unique_ptr<InternetFile> file;
        std::uint32_t error = internet_.OpenUrl(u"Korvanta", url, file);
        std::string body;
        char buffer[2048];
        std::size_t got = 1;
        while (error == 0 && got > 0) {
            error = file->Read(buffer, sizeof(buffer), got);
            body.append(buffer, got);
        }
        return error == 0 ? body : "error " + std::to_string(error);
    }

    WindowsSockets sockets_;  // of the servers that the tests are
    SocketsVersion version_;
    DialogWindows dialogs_;
    WindowsMessageLoop messages_{dialogs_};
    WindowsInternet internet_{messages_};
};

TEST_F(InternetTests, TheBodyComesInPiecesByteForByte) {
    std::string body = "\xff\xfe";
    for (int i = 0; i < 5000; ++i) {
        body += static_cast<char>(i);
    }
    WebServer server({"HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body});
    EXPECT_EQ(Fetch(server.Url("/TLXData/Printers.txt")), body);
}

TEST_F(InternetTests, TheRequestNamesTheAgent) {
    WebServer server({"HTTP/1.0 200 OK\r\nContent-Length: 1\r\n\r\nx"});
    EXPECT_EQ(Fetch(server.Url("/x y")), "x");
    EXPECT_TRUE(server.Request().starts_with("GET /x%20y HTTP/1.")) << server.Request();
    EXPECT_NE(server.Request().find("User-Agent: Korvanta\r\n"), std::string::npos) << server.Request();
}

TEST_F(InternetTests, NothingComesFromACache) {
    const std::string keep = "HTTP/1.0 200 OK\r\nCache-Control: public, max-age=3600\r\nContent-Length: 3\r\n\r\n";
    WebServer server({keep + "old", keep + "new"});
    EXPECT_EQ(Fetch(server.Url("/same")), "old");
    EXPECT_EQ(Fetch(server.Url("/same")), "new");
}

TEST_F(InternetTests, AnErrorPageIsABodyToo) {
    WebServer server({"HTTP/1.0 404 Not Found\r\nContent-Length: 9\r\n\r\nNot there"});
    EXPECT_EQ(Fetch(server.Url("/missing")), "Not there");
}

TEST_F(InternetTests, AServerThatRefusesIsAnError) {
    std::u16string url;
    {
        const WebServer server({});
        url = server.Url("/");
    }
    constexpr std::uint32_t cannotConnect = 12029;
    std::unique_ptr<InternetFile> file;
    EXPECT_EQ(internet_.OpenUrl(u"Korvanta", url, file), cannotConnect);
    EXPECT_EQ(file, nullptr);
    EXPECT_NE(internet_.OpenUrl(u"Korvanta", u"not a URL", file), 0U);
    EXPECT_EQ(file, nullptr);
}

// The server says nothing more until a window of the waiting thread has answered.
TEST_F(InternetTests, WhatIsSentToAWindowIsAnsweredWhileTheServerKeepsACallWaiting) {
    const std::string head = "HTTP/1.0 200 OK\r\nContent-Length: 3\r\n\r\n";
    for (const std::string& beginning : {std::string(), head}) {
        int messages = 0;
        TellingWindow window([&] { ++messages; });
        AskingServer server(window.Get(), beginning);
        EXPECT_EQ(Fetch(server.Url()), beginning.empty() ? "" : "end") << beginning;
        EXPECT_TRUE(server.WasAnswered()) << beginning;
        EXPECT_EQ(messages, 1);
    }
}

TEST_F(InternetTests, PostedMessagesWaitUntilTheCallIsOver) {
    int messages = 0;
    TellingWindow window([&] { ++messages; });
    WebServer server({"HTTP/1.0 200 OK\r\nContent-Length: 1\r\n\r\nx"});
    ::PostMessageW(window.Get(), WM_APP, 0, 0);
    EXPECT_EQ(Fetch(server.Url("/")), "x");
    EXPECT_EQ(messages, 0);
    messages_.RunPending();
    EXPECT_EQ(messages, 1);
}

// A program that ends while a server keeps it waiting, before or after the beginning of the answer.
class EndingProgram : public InternetTests {
  protected:
    void EndWhileWaiting(const std::string& beginning) {
        DialogWindows dialogs;
        WindowsMessageLoop messages(dialogs);
        WindowsInternet internet(messages);
        TellingWindow window([&] { messages.Quit(); });
        AskingServer server(window.Get(), beginning, true);
        std::unique_ptr<InternetFile> file;
        std::uint32_t error = internet.OpenUrl(u"Korvanta", server.Url(), file);
        if (error == 0) {
            char buffer[2048];
            std::size_t got = 1;
            error = file->Read(buffer, sizeof(buffer), got);
            EXPECT_EQ(got, 0U);
            EXPECT_EQ(file->Read(buffer, sizeof(buffer), got), cancelled_) << "and the calls after it";
        }
        EXPECT_EQ(error, cancelled_);
        EXPECT_EQ(internet.OpenUrl(u"Korvanta", server.Url(), file), cancelled_);
        // For the tests that follow.
        MSG message;
        while (::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
    }

    static constexpr std::uint32_t cancelled_ = 12017;
    const std::array<std::string, 2> beginnings_{"", "HTTP/1.0 200 OK\r\nContent-Length: 3\r\n\r\n"};
};

TEST_F(EndingProgram, WaitsNoLongerForASilentServer) {
    for (const std::string& beginning : beginnings_) {
        EndWhileWaiting(beginning);
    }
}

// The threads of this process.
int Threads() {
    const FileHandle all(::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 thread{};
    thread.dwSize = sizeof(thread);
    int count = 0;
    for (BOOL found = ::Thread32First(all.Get(), &thread); found != 0; found = ::Thread32Next(all.Get(), &thread)) {
        count += thread.th32OwnerProcessID == ::GetCurrentProcessId() ? 1 : 0;
    }
    return count;
}

TEST_F(EndingProgram, HasNoThreadLeftWhenTheServerHasGone) {
    EndWhileWaiting(beginnings_[1]);  // what the libraries of Windows start for themselves is there by now
    const int before = Threads();
    ASSERT_GT(before, 0);
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        for (const std::string& beginning : beginnings_) {
            EndWhileWaiting(beginning);
        }
    }
    const DWORD start = ::GetTickCount();
    while (Threads() > before && ::GetTickCount() - start < 10000) {
        ::Sleep(10);
    }
    EXPECT_LE(Threads(), before);
}

}  // namespace
}  // namespace korvanta
