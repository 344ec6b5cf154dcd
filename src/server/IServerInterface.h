#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

// Everything that the client reads from one server, whatever transport brings it.
//
// Set ServerName before any other operation: the bare name, without backslashes or scheme. Nothing here raises: a file
// that cannot be read gives the empty text, a test that fails gives false, and the trace log has the reason where it
// is of use. Texts are whole files without their byte-order mark; the caller takes them apart. An operation blocks the
// thread while the server answers, and may let messages run meanwhile.
class IServerInterface {
  public:
    virtual ~IServerInterface() = default;

    void ServerName(const std::u16string& serverName) { IServerInterface_ServerName(serverName); }
    std::u16string GetPrintersFile() {
        return WithoutRaising([&] { return IServerInterface_GetPrintersFile(); });
    }
    std::u16string GetServersFile() {
        return WithoutRaising([&] { return IServerInterface_GetServersFile(); });
    }
    std::u16string GetClientSettingsFile() {
        return WithoutRaising([&] { return IServerInterface_GetClientSettingsFile(); });
    }
    // Whether the server's data area is reachable. Over HTTP a server that does not answer counts as healthy.
    bool TestHealth() {
        return WithoutRaising([&] { return IServerInterface_TestHealth(); });
    }
    // The current user's job counter file on this server.
    std::u16string GetJobCounter() {
        return WithoutRaising([&] { return IServerInterface_GetJobCounter(); });
    }
    // The current user's notification file for that job.
    std::u16string GetJobNotificationFile(std::int32_t jobId) {
        return WithoutRaising([&] { return IServerInterface_GetJobNotificationFile(jobId); });
    }
    // Whether that file is there. Over HTTP a server that does not answer counts as having it.
    bool TestJobNotificationFile(std::int32_t jobId) {
        return WithoutRaising([&] { return IServerInterface_TestJobNotificationFile(jobId); });
    }

  private:
    // An implementation catches its failures, but without memory even its log line can raise.
    template <class Operation>
    static auto WithoutRaising(const Operation& operation) -> decltype(operation()) {
        try {
            return operation();
        } catch (...) {
            return {};
        }
    }

    virtual void IServerInterface_ServerName(const std::u16string& serverName) = 0;
    virtual std::u16string IServerInterface_GetPrintersFile() = 0;
    virtual std::u16string IServerInterface_GetServersFile() = 0;
    virtual std::u16string IServerInterface_GetClientSettingsFile() = 0;
    virtual bool IServerInterface_TestHealth() = 0;
    virtual std::u16string IServerInterface_GetJobCounter() = 0;
    virtual std::u16string IServerInterface_GetJobNotificationFile(std::int32_t jobId) = 0;
    virtual bool IServerInterface_TestJobNotificationFile(std::int32_t jobId) = 0;
};

}  // namespace korvanta
