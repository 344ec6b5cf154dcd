#include "driver/WebServer.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "driver/Files.h"

namespace driver {
namespace {

constexpr unsigned short port = 80;

// The path that the request asks for, with backslashes.
std::wstring RequestedPath(const std::string& request) {
    const std::size_t start = request.find(' ') + 1;
    std::wstring path = FromUtf8(request.substr(start, request.find(' ', start) - start));
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

std::string Response(const std::string& status, const std::string& body) {
    return "HTTP/1.0 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

void SendAll(SOCKET connection, const std::string& bytes) {
    for (std::size_t sent = 0; sent < bytes.size();) {
        const int count = send(connection, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
        if (count <= 0) {
            return;
        }
        sent += static_cast<std::size_t>(count);
    }
}

}  // namespace

WebServer::WebServer(const std::string& address, const std::wstring& folder) : address_(address), folder_(folder) {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
}

WebServer::~WebServer() {
    Stop();
    WSACleanup();
}

void WebServer::Start() {
    listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    const int reuse = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, reinterpret_cast<const char*>(&reuse), sizeof reuse);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(port);
    place.sin_addr.s_addr = inet_addr(address_.c_str());
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0 || listen(listener_, 16) != 0) {
        throw std::runtime_error("cannot listen at port 80 of " + address_ + ": error " +
                                 std::to_string(WSAGetLastError()));
    }
    thread_ = CreateThread(nullptr, 0, &WebServer::Serve, this, 0, nullptr);
}

void WebServer::Stop() {
    if (thread_ != nullptr) {
        closesocket(listener_);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        thread_ = nullptr;
    }
}

DWORD WINAPI WebServer::Serve(void* server) {
    const WebServer& self = *static_cast<const WebServer*>(server);
    for (;;) {
        const SOCKET connection = accept(self.listener_, nullptr, nullptr);
        if (connection == INVALID_SOCKET) {
            return 0;
        }
        self.Answer(connection);
        closesocket(connection);
    }
}

void WebServer::Answer(SOCKET connection) const {
    std::string request;
    char buffer[2048];
    while (request.find("\r\n\r\n") == std::string::npos) {
        const int count = recv(connection, buffer, sizeof buffer, 0);
        if (count <= 0) {
            return;
        }
        request.append(buffer, static_cast<std::size_t>(count));
    }
    const std::optional<std::string> body = TryReadBytes(folder_ + RequestedPath(request));
    SendAll(connection, body ? Response("200 OK", *body) : Response("404 Not Found", "<p>File not found</p>"));
    shutdown(connection, SD_SEND);
}

}  // namespace driver
