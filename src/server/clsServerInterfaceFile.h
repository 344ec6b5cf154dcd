#pragma once

#include <cstdint>
#include <string>

#include "common/Services.h"
#include "platform/FileSystem.h"
#include "server/IServerInterface.h"

namespace korvanta {

// Reads a server's files from its hidden share "TLXData$". Never lets messages run.
class clsServerInterfaceFile : public IServerInterface {
  public:
    // `userName` is the current user's login name: trimmed, without NULs, in lower case.
    clsServerInterfaceFile(FileSystem& files, TraceLog& log, std::u16string userName);

  private:
    void IServerInterface_ServerName(const std::u16string& serverName) override;
    std::u16string IServerInterface_GetPrintersFile() override;
    std::u16string IServerInterface_GetServersFile() override;
    std::u16string IServerInterface_GetClientSettingsFile() override;
    bool IServerInterface_TestHealth() override;
    std::u16string IServerInterface_GetJobCounter() override;
    std::u16string IServerInterface_GetJobNotificationFile(std::int32_t jobId) override;
    bool IServerInterface_TestJobNotificationFile(std::int32_t jobId) override;

    // Raises Error.
    std::u16string Read(const std::u16string& path) const;
    std::u16string ReadJobFile(const std::u16string& name, const std::u16string& failure);

    FileSystem& files_;
    TraceLog& log_;
    const std::u16string userName_;
    std::u16string serverName_;
};

}  // namespace korvanta
