#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/Services.h"
#include "server/IServerInterface.h"
#include "server/clsInet.h"

namespace korvanta {

// Fetches a server's files from its web service, on the default port. Messages run while a response comes in. Every
// download of one object goes through one temporary file.
class clsServerInterfaceHTTP : public IServerInterface {
  public:
    // `userName` is the current user's login name: trimmed, without NULs, in lower case.
    clsServerInterfaceHTTP(FileSystem& files, Internet& internet, MessageLoop& messages, MessageBoxes& boxes,
                           MessageTexts& texts, TraceLog& log, std::u16string userName);
    // Deletes the temporary file, which the last download may have left.
    ~clsServerInterfaceHTTP() override;
    clsServerInterfaceHTTP(const clsServerInterfaceHTTP&) = delete;
    clsServerInterfaceHTTP& operator=(const clsServerInterfaceHTTP&) = delete;

  private:
    void IServerInterface_ServerName(const std::u16string& serverName) override;
    std::u16string IServerInterface_GetPrintersFile() override;
    std::u16string IServerInterface_GetServersFile() override;
    std::u16string IServerInterface_GetClientSettingsFile() override;
    bool IServerInterface_TestHealth() override;
    std::u16string IServerInterface_GetJobCounter() override;
    std::u16string IServerInterface_GetJobNotificationFile(std::int32_t jobId) override;
    bool IServerInterface_TestJobNotificationFile(std::int32_t jobId) override;

    std::u16string DataUrl(std::u16string_view name) const;
    std::u16string JobUrl(const std::u16string& name) const;
    // The text of the file; empty when the response does not begin with a UTF-16 byte-order mark.
    std::u16string GetURL(const std::u16string& url);
    // False when the response contains "file not found" or every attempt raised; true when the server does not answer.
    bool TestURL(const std::u16string& url);
    std::u16string ReadTemporaryFile();

    FileSystem& files_;
    TraceLog& log_;
    const std::u16string userName_;
    clsInet inet_;
    const std::u16string temporaryFile_;
    bool temporaryFileUsed_ = false;
    std::u16string serverName_;
};

}  // namespace korvanta
