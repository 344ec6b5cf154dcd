// Which functions of WinINet are called for a page, and with what: the functions are stood in for.

#include <gtest/gtest.h>
#include <windows.h>

#include <wininet.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/services/DialogWindows.h"
#include "platform/win32/services/WindowsInternet.h"
#include "platform/win32/services/WindowsMessageLoop.h"

// Where this program keeps the addresses of the functions that it imports.
extern "C" {
extern decltype(&::InternetOpenA) importOfOpen asm("__imp__InternetOpenA@20");
extern decltype(&::InternetOpenUrlA) importOfOpenUrl asm("__imp__InternetOpenUrlA@24");
extern decltype(&::InternetReadFile) importOfReadFile asm("__imp__InternetReadFile@16");
extern decltype(&::InternetCloseHandle) importOfCloseHandle asm("__imp__InternetCloseHandle@4");
}

namespace korvanta {
namespace {

// Another function in the place of an imported one, while it lives.
template <class Function>
class StandIn {
  public:
    StandIn(Function& import, Function standIn) : import_(import), original_(import) { Put(standIn); }
    ~StandIn() { Put(original_); }
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

  private:
    void Put(Function function) {
        DWORD protection = 0;
        ::VirtualProtect(&import_, sizeof(import_), PAGE_READWRITE, &protection);
        import_ = function;
        ::VirtualProtect(&import_, sizeof(import_), protection, &protection);
    }

    Function& import_;
    const Function original_;
};

using Calls = std::vector<std::string>;

// The network as the stand-ins play it. The thread that calls them and the test take turns.
struct Network {
    Calls calls;
    std::string body;
    DWORD sessionError = 0;
    DWORD urlError = 0;
    DWORD readError = 0;
};
Network network;

HINTERNET Number(std::uintptr_t number) {
    return reinterpret_cast<HINTERNET>(number);
}
const HINTERNET session = Number(1);
const HINTERNET page = Number(2);

std::string Text(const char* text) {
    return text ? text : "none";
}

// The handle, or none and the error.
HINTERNET Opened(HINTERNET handle, DWORD error) {
    ::SetLastError(error);
    return error == 0 ? handle : nullptr;
}

HINTERNET WINAPI Open(LPCSTR agent, DWORD accessType, LPCSTR proxy, LPCSTR bypass, DWORD flags) {
    network.calls.push_back("open a session for " + Text(agent) + ", access type " + std::to_string(accessType) +
                            ", proxy " + Text(proxy) + ", bypass " + Text(bypass) + ", flags " + std::to_string(flags));
    return Opened(session, network.sessionError);
}

HINTERNET WINAPI OpenUrl(HINTERNET handle, LPCSTR url, LPCSTR headers, DWORD headersLength, DWORD flags,
                         DWORD_PTR context) {
    EXPECT_EQ(handle, session);
    EXPECT_EQ(context, 0U);
    constexpr DWORD pastEveryCache = 0x80000000;
    network.calls.push_back("open " + Text(url) + ", headers " + Text(headers) + " of " +
                            std::to_string(headersLength) +
                            (flags == pastEveryCache ? ", past every cache" : ", flags " + std::to_string(flags)));
    return Opened(page, network.urlError);
}

BOOL WINAPI ReadFile(HINTERNET handle, LPVOID buffer, DWORD size, LPDWORD got) {
    EXPECT_EQ(handle, page);
    network.calls.push_back("read " + std::to_string(size));
    *got = static_cast<DWORD>(network.body.copy(static_cast<char*>(buffer), size));
    network.body.erase(0, *got);
    ::SetLastError(network.readError);
    return network.readError == 0 ? TRUE : FALSE;
}

BOOL WINAPI CloseHandle(HINTERNET handle) {
    network.calls.push_back(handle == session ? "close the session" : "close the page");
    return TRUE;
}

class InternetCalls : public ::testing::Test {
  protected:
    InternetCalls() { network = {}; }

    static Calls With(Calls calls, const Calls& more) {
        calls.insert(calls.end(), more.begin(), more.end());
        return calls;
    }
    std::uint32_t Open() { return internet_.OpenUrl(u"Korvanta", u"http://SRV/TLXData/Printers.txt", file_); }

    const Calls opening_{"open a session for Korvanta, access type 0, proxy none, bypass none, flags 0",
                         "open http://SRV/TLXData/Printers.txt, headers none of 0, past every cache"};
    DialogWindows dialogs_;
    WindowsMessageLoop messages_{dialogs_};
    WindowsInternet internet_{messages_};
    std::unique_ptr<InternetFile> file_;

  private:
    StandIn<decltype(importOfOpen)> open_{importOfOpen, &korvanta::Open};
    StandIn<decltype(importOfOpenUrl)> openUrl_{importOfOpenUrl, &korvanta::OpenUrl};
    StandIn<decltype(importOfReadFile)> readFile_{importOfReadFile, &korvanta::ReadFile};
    StandIn<decltype(importOfCloseHandle)> closeHandle_{importOfCloseHandle, &korvanta::CloseHandle};
};

TEST_F(InternetCalls, APageIsOpenedByTheSystemsProxiesPastEveryCacheReadAndClosed) {
    network.body = "body";
    ASSERT_EQ(Open(), 0U);
    EXPECT_EQ(network.calls, opening_);
    char buffer[3] = {};
    std::size_t got = 0;
    EXPECT_EQ(file_->Read(buffer, sizeof(buffer), got), 0U);
    EXPECT_EQ(std::string(buffer, got), "bod");
    EXPECT_EQ(file_->Read(buffer, sizeof(buffer), got), 0U);
    EXPECT_EQ(std::string(buffer, got), "y");
    EXPECT_EQ(file_->Read(buffer, sizeof(buffer), got), 0U);
    EXPECT_EQ(got, 0U);
    file_.reset();
    EXPECT_EQ(network.calls, With(opening_, {"read 3", "read 3", "read 3", "close the page", "close the session"}));
}

TEST_F(InternetCalls, ASessionThatCannotBeOpenedIsTriedOnce) {
    network.sessionError = ERROR_INTERNET_INTERNAL_ERROR;
    EXPECT_EQ(Open(), static_cast<std::uint32_t>(ERROR_INTERNET_INTERNAL_ERROR));
    EXPECT_EQ(file_, nullptr);
    EXPECT_EQ(network.calls, Calls{opening_[0]});
}

TEST_F(InternetCalls, AUrlThatCannotBeOpenedIsTriedOnceAndItsSessionClosed) {
    network.urlError = ERROR_INTERNET_CANNOT_CONNECT;
    EXPECT_EQ(Open(), static_cast<std::uint32_t>(ERROR_INTERNET_CANNOT_CONNECT));
    EXPECT_EQ(file_, nullptr);
    EXPECT_EQ(network.calls, With(opening_, {"close the session"}));
}

TEST_F(InternetCalls, AReadThatFailsGivesItsErrorAndNoBytes) {
    ASSERT_EQ(Open(), 0U);
    network.body = "half";
    network.readError = ERROR_INTERNET_CONNECTION_RESET;
    char buffer[8] = {};
    std::size_t got = 1;
    EXPECT_EQ(file_->Read(buffer, sizeof(buffer), got), static_cast<std::uint32_t>(ERROR_INTERNET_CONNECTION_RESET));
    EXPECT_EQ(got, 0U);
    EXPECT_EQ(network.calls, With(opening_, {"read 8"})) << "once";
}

}  // namespace
}  // namespace korvanta
