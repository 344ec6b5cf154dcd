#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "common/Services.h"
#include "platform/FileSystem.h"
#include "platform/Internet.h"
#include "platform/MessageBoxes.h"
#include "platform/MessageLoop.h"
#include "server/IServerInterface.h"
#include "translation/MessageTexts.h"

namespace korvanta {

// Has one IServerInterface for each server, whatever the letter case of the server's name.
class clsServerInterfaces {
  public:
    // `userName` is the current user's login name: trimmed, without NULs, in lower case.
    clsServerInterfaces(FileSystem& files, Internet& internet, MessageLoop& messages, MessageBoxes& boxes,
                        MessageTexts& texts, TraceLog& log, std::u16string userName);

    static constexpr std::int32_t typeFile = 0;
    static constexpr std::int32_t typeHTTP = 1;

    // The transport of the interfaces made from now on: file shares for 0 (the default), HTTP for any other number.
    // The others keep theirs.
    void InterfaceType(std::int32_t type);
    // The server's interface, with the name in upper case as its ServerName. Making it does not ask the server.
    std::shared_ptr<IServerInterface> Interface(const std::u16string& serverName);
    // Forgets all interfaces and goes back to file shares. Interfaces that callers hold stay usable.
    void Renew();

  private:
    std::shared_ptr<IServerInterface> Make() const;

    FileSystem& files_;
    Internet& internet_;
    MessageLoop& messages_;
    MessageBoxes& boxes_;
    MessageTexts& texts_;
    TraceLog& log_;
    const std::u16string userName_;
    std::int32_t type_ = typeFile;
    std::map<std::u16string, std::shared_ptr<IServerInterface>> interfaces_;
};

}  // namespace korvanta
