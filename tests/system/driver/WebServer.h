#pragma once

#include <windows.h>
#include <winsock2.h>

#include <atomic>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace driver {

// One request's connection, for a server that does not just serve a file. It is closed when the behaviour returns.
class Connection {
  public:
    Connection(SOCKET socket, const std::atomic<bool>& stopping) : socket_(socket), stopping_(stopping) {}

    // False when the client has gone, or the server is stopping.
    bool Send(const std::string& bytes) const;
    // Keeps the client waiting; false when the server is stopping.
    bool Pause(DWORD milliseconds) const;
    // As a server that dies: nothing of a proper end reaches the client.
    void Reset() const;

  private:
    SOCKET socket_;
    const std::atomic<bool>& stopping_;
};

using Behaviour = std::function<void(const Connection&)>;

// A complete response.
std::string Response(const std::string& status, const std::string& body, const std::string& headers = "");
// Only the beginning of one whose body will have `size` bytes.
std::string ResponseHead(std::size_t size);

// A small web server on the standard port of one address of this machine. It serves the files of a folder byte for
// byte, and has a page for what is not there; for single paths a test may have it misbehave. It runs on threads of its
// own from Start to Stop, one for each connection.
class WebServer {
  public:
    // `address` is one of 127.0.0.0/8, so that several servers do not meet.
    WebServer(const std::string& address, const std::wstring& folder);
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    // Raises std::runtime_error when the port cannot be had.
    void Start();
    // Connections are refused from now on, and those that are open end.
    void Stop();

    // What is answered where there is no file; "File not found" to begin with.
    void AbsentPage(const std::string& body);
    // How the path, such as "/TLXData/Servers.txt", is answered from now on.
    void Misbehave(const std::string& path, const Behaviour& behaviour);
    // Every path is a file again.
    void Behave();
    // How often the path has been asked for.
    int Requests(const std::string& path) const;

  private:
    struct Visit;
    static DWORD WINAPI Serve(void* server);
    static DWORD WINAPI Answer(void* visit);
    void Answer(SOCKET connection);
    Behaviour BehaviourOf(const std::string& path);

    std::string address_;
    std::wstring folder_;
    SOCKET listener_ = INVALID_SOCKET;
    HANDLE thread_ = nullptr;
    std::vector<HANDLE> visits_;  // the serving thread's alone
    std::atomic<bool> stopping_ = false;
    mutable CRITICAL_SECTION lock_;  // for what follows
    std::map<std::string, Behaviour> behaviours_;
    std::map<std::string, int> requests_;
    std::string absentPage_ = "<p>File not found</p>";
};

}  // namespace driver
