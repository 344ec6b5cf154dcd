#include "platform/win32/WindowsInternet.h"

#include <windows.h>

#include <wininet.h>

#include "platform/win32/Failure.h"
#include "platform/win32/Handles.h"
#include "platform/win32/TextCalls.h"

namespace korvanta {

namespace {

struct InternetTraits : NullIsNone<HINTERNET> {
    static bool Close(HINTERNET handle) { return ::InternetCloseHandle(handle) != 0; }
};
using InternetHandle = Handle<InternetTraits>;

class WindowsInternetFile : public InternetFile {
  public:
    WindowsInternetFile(InternetHandle session, InternetHandle body)
        : session_(std::move(session)), body_(std::move(body)) {}

    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
        DWORD read = 0;
        const bool done = ::InternetReadFile(body_.Get(), buffer, static_cast<DWORD>(size), &read) != 0;
        got = done ? read : 0;
        return done ? ERROR_SUCCESS : FailureCode();
    }

  private:
    // In this order: the body is closed before its session.
    InternetHandle session_;
    InternetHandle body_;
};

}  // namespace

std::uint32_t WindowsInternet::OpenUrl(const std::u16string& agent, const std::u16string& url,
                                       std::unique_ptr<InternetFile>& file) {
    InternetHandle session(
        ::InternetOpenA(textCalls::ToCodePage(agent).c_str(), INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    if (!session) {
        return FailureCode();
    }
    InternetHandle body(
        ::InternetOpenUrlA(session.Get(), textCalls::ToCodePage(url).c_str(), nullptr, 0, INTERNET_FLAG_RELOAD, 0));
    if (!body) {
        return FailureCode();
    }
    file = std::make_unique<WindowsInternetFile>(std::move(session), std::move(body));
    return ERROR_SUCCESS;
}

}  // namespace korvanta
