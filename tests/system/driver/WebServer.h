#pragma once

#include <windows.h>
#include <winsock2.h>

#include <string>

namespace driver {

// A small web server on the standard port of one address of this machine. It serves the files of a folder byte for
// byte, and says "File not found" of what is not there. It runs on a thread of its own from Start to Stop.
class WebServer {
  public:
    // `address` is one of 127.0.0.0/8, so that several servers do not meet.
    WebServer(const std::string& address, const std::wstring& folder);
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    // Raises std::runtime_error when the port cannot be had.
    void Start();
    // Connections are refused from now on.
    void Stop();

  private:
    static DWORD WINAPI Serve(void* server);
    void Answer(SOCKET connection) const;

    std::string address_;
    std::wstring folder_;
    SOCKET listener_ = INVALID_SOCKET;
    HANDLE thread_ = nullptr;
};

}  // namespace driver
