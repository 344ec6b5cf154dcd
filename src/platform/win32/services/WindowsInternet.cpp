#include "platform/win32/services/WindowsInternet.h"

#include <windows.h>

#include <wininet.h>

#include <atomic>
#include <cstring>
#include <vector>

#include "platform/win32/calls/Failure.h"
#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/WindowsMessageLoop.h"

namespace korvanta {

namespace {

// Milliseconds. Windows takes a program for hanging that has not looked for messages for five seconds.
constexpr DWORD longestPause = 1000;

struct InternetTraits : NullIsNone<HINTERNET> {
    static bool Close(HINTERNET handle) { return ::InternetCloseHandle(handle) != 0; }
};
using InternetHandle = Handle<InternetTraits>;

enum class Request { Open, Read, End };

// What two threads share: the program's thread asks, the other one waits for the network and answers. They take turns
// by two events, so that no lock is needed. When the program's thread gives up waiting, all but `request` belongs to
// the other one: once the network has answered it finds that it is to end, and closes the handles.
struct Exchange {
    KernelHandle asked{::CreateEventA(nullptr, FALSE, FALSE, nullptr)};
    KernelHandle answered{::CreateEventA(nullptr, FALSE, FALSE, nullptr)};
    std::atomic<Request> request = Request::Open;  // atomic, since End may come out of turn
    std::string agent;
    std::string url;
    std::vector<char> buffer;  // of the size that is to be read
    DWORD got = 0;
    std::uint32_t error = ERROR_SUCCESS;
    // In this order: the body is closed before its session.
    InternetHandle session;
    InternetHandle body;

    void Open() {
        session = InternetHandle(::InternetOpenA(agent.c_str(), INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
        if (session) {
            body = InternetHandle(::InternetOpenUrlA(session.Get(), url.c_str(), nullptr, 0, INTERNET_FLAG_RELOAD, 0));
        }
        error = body ? ERROR_SUCCESS : FailureCode();
    }
    void Read() {
        const bool done = ::InternetReadFile(body.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &got) != 0;
        error = done ? ERROR_SUCCESS : FailureCode();
    }
    // Waits for the next request and fulfils it. False when it is to end.
    bool Serve() {
        if (::WaitForSingleObject(asked.Get(), INFINITE) != WAIT_OBJECT_0) {
            return false;
        }
        switch (request) {
            case Request::Open:
                Open();
                break;
            case Request::Read:
                Read();
                break;
            case Request::End:
                return false;
        }
        ::SetEvent(answered.Get());
        return true;
    }
};

// The waiting thread.
DWORD WINAPI Wait(void* parameter) {
    const std::unique_ptr<std::shared_ptr<Exchange>> own(static_cast<std::shared_ptr<Exchange>*>(parameter));
    while ((*own)->Serve()) {
    }
    return 0;
}

class WindowsInternetFile : public InternetFile {
  public:
    explicit WindowsInternetFile(const WindowsMessageLoop& messages) : messages_(messages) {}
    WindowsInternetFile(const WindowsInternetFile&) = delete;
    WindowsInternetFile& operator=(const WindowsInternetFile&) = delete;
    ~WindowsInternetFile() override {
        if (!givenUp_) {
            exchange_->body.Reset();
            exchange_->session.Reset();
        }
        Tell(Request::End);
    }

    std::uint32_t Open(const std::u16string& agent, const std::u16string& url) {
        exchange_->agent = textCalls::ToCodePage(agent);
        exchange_->url = textCalls::ToCodePage(url);
        auto own = std::make_unique<std::shared_ptr<Exchange>>(exchange_);
        DWORD identifier = 0;  // Windows 9x fails without a place for it
        const KernelHandle thread(exchange_->asked && exchange_->answered
                                      ? ::CreateThread(nullptr, 0, &Wait, own.get(), 0, &identifier)
                                      : nullptr);
        if (!thread) {
            return FailureCode();
        }
        static_cast<void>(own.release());  // the thread owns it now
        return Ask(Request::Open);
    }

    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
        got = 0;
        if (givenUp_) {
            return ERROR_INTERNET_OPERATION_CANCELLED;
        }
        exchange_->buffer.resize(size);
        const std::uint32_t error = Ask(Request::Read);
        if (error == ERROR_SUCCESS) {
            got = exchange_->got;
            std::memcpy(buffer, exchange_->buffer.data(), got);
        }
        return error;
    }

  private:
    void Tell(Request request) {
        exchange_->request = request;
        ::SetEvent(exchange_->asked.Get());
    }
    // Tells the request and waits until it is fulfilled or the program ends.
    std::uint32_t Ask(Request request) {
        Tell(request);
        const HANDLE answered = exchange_->answered.Get();
        while (!messages_.Quitting()) {
            const DWORD woken = ::MsgWaitForMultipleObjects(1, &answered, FALSE, longestPause, QS_SENDMESSAGE);
            if (woken == WAIT_OBJECT_0) {
                return exchange_->error;
            }
            // Looking for a posted message lets Windows deliver what other threads have sent.
            MSG message;
            textCalls::PeekNextMessage(message, PM_NOREMOVE);
        }
        givenUp_ = true;
        return ERROR_INTERNET_OPERATION_CANCELLED;
    }

    const WindowsMessageLoop& messages_;
    const std::shared_ptr<Exchange> exchange_ = std::make_shared<Exchange>();
    bool givenUp_ = false;  // the waiting thread is still in a call, and the exchange is its own
};

}  // namespace

std::uint32_t WindowsInternet::OpenUrl(const std::u16string& agent, const std::u16string& url,
                                       std::unique_ptr<InternetFile>& file) {
    if (messages_.Quitting()) {
        return ERROR_INTERNET_OPERATION_CANCELLED;
    }
    auto opened = std::make_unique<WindowsInternetFile>(messages_);
    const std::uint32_t error = opened->Open(agent, url);
    if (error == ERROR_SUCCESS) {
        file = std::move(opened);
    }
    return error;
}

}  // namespace korvanta
