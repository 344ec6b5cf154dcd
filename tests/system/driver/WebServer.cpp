#include "driver/WebServer.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>

#include "driver/Files.h"

namespace driver {
namespace {

constexpr unsigned short port = 80;

class Locked {
  public:
    explicit Locked(CRITICAL_SECTION& lock) : lock_(lock) { EnterCriticalSection(&lock_); }
    ~Locked() { LeaveCriticalSection(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

  private:
    CRITICAL_SECTION& lock_;
};

std::string RequestedPath(const std::string& request) {
    const std::size_t start = request.find(' ') + 1;
    return request.substr(start, request.find(' ', start) - start);
}

std::wstring FileOf(const std::string& path) {
    std::wstring file = FromUtf8(path);
    std::replace(file.begin(), file.end(), L'/', L'\\');
    return file;
}

// Empty when the client goes before it has asked.
std::string Receive(SOCKET connection) {
    std::string request;
    char buffer[2048];
    while (request.find("\r\n\r\n") == std::string::npos) {
        const int count = recv(connection, buffer, sizeof buffer, 0);
        if (count <= 0) {
            return {};
        }
        request.append(buffer, static_cast<std::size_t>(count));
    }
    return request;
}

}  // namespace

bool Connection::Send(const std::string& bytes) const {
    for (std::size_t sent = 0; sent < bytes.size();) {
        const auto piece = static_cast<int>(std::min<std::size_t>(bytes.size() - sent, 65536));
        const int count = stopping_ ? -1 : send(socket_, bytes.data() + sent, piece, 0);
        if (count <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

bool Connection::Pause(DWORD milliseconds) const {
    constexpr DWORD step = 20;
    for (DWORD waited = 0; waited < milliseconds && !stopping_; waited += step) {
        Sleep(step);
    }
    return !stopping_;
}

void Connection::Reset() const {
    const linger atOnce{1, 0};
    setsockopt(socket_, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&atOnce), sizeof atOnce);
}

std::string Response(const std::string& status, const std::string& body, const std::string& headers) {
    return "HTTP/1.0 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" + headers +
           "Connection: close\r\n\r\n" + body;
}

std::string ResponseHead(std::size_t size) {
    return "HTTP/1.0 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\nConnection: close\r\n\r\n";
}

struct WebServer::Visit {
    WebServer& server;
    SOCKET connection;
};

WebServer::WebServer(const std::string& address, const std::wstring& folder) : address_(address), folder_(folder) {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
    InitializeCriticalSection(&lock_);
}

WebServer::~WebServer() {
    Stop();
    DeleteCriticalSection(&lock_);
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
    stopping_ = false;
    thread_ = CreateThread(nullptr, 0, &WebServer::Serve, this, 0, nullptr);
}

void WebServer::Stop() {
    if (thread_ != nullptr) {
        stopping_ = true;
        closesocket(listener_);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        thread_ = nullptr;
    }
}

void WebServer::AbsentPage(const std::string& body) {
    const Locked locked(lock_);
    absentPage_ = body;
}

void WebServer::Misbehave(const std::string& path, const Behaviour& behaviour) {
    const Locked locked(lock_);
    behaviours_[path] = behaviour;
}

void WebServer::Behave() {
    const Locked locked(lock_);
    behaviours_.clear();
}

int WebServer::Requests(const std::string& path) const {
    const Locked locked(lock_);
    const auto found = requests_.find(path);
    return found == requests_.end() ? 0 : found->second;
}

DWORD WINAPI WebServer::Serve(void* server) {
    WebServer& self = *static_cast<WebServer*>(server);
    for (;;) {
        const SOCKET connection = accept(self.listener_, nullptr, nullptr);
        if (connection == INVALID_SOCKET) {
            break;
        }
        auto visit = std::make_unique<Visit>(Visit{self, connection});
        self.visits_.push_back(CreateThread(nullptr, 0, &WebServer::Answer, visit.release(), 0, nullptr));
    }
    for (const HANDLE visit : self.visits_) {
        WaitForSingleObject(visit, INFINITE);
        CloseHandle(visit);
    }
    self.visits_.clear();
    return 0;
}

DWORD WINAPI WebServer::Answer(void* visit) {
    const std::unique_ptr<Visit> own(static_cast<Visit*>(visit));
    own->server.Answer(own->connection);
    closesocket(own->connection);
    return 0;
}

void WebServer::Answer(SOCKET connection) {
    const std::string request = Receive(connection);
    if (request.empty()) {
        return;
    }
    const Connection client(connection, stopping_);
    BehaviourOf(RequestedPath(request))(client);
    shutdown(connection, SD_SEND);
}

Behaviour WebServer::BehaviourOf(const std::string& path) {
    const Locked locked(lock_);
    ++requests_[path];
    const auto found = behaviours_.find(path);
    if (found != behaviours_.end()) {
        return found->second;
    }
    const std::optional<std::string> body = TryReadBytes(folder_ + FileOf(path));
    const std::string response = body ? Response("200 OK", *body) : Response("404 Not Found", absentPage_);
    return [response](const Connection& client) { client.Send(response); };
}

}  // namespace driver
