#include "server/clsServerInterfaces.h"

#include "common/Text.h"
#include "server/clsServerInterfaceFile.h"
#include "server/clsServerInterfaceHTTP.h"

namespace korvanta {

clsServerInterfaces::clsServerInterfaces(FileSystem& files, Internet& internet, MessageLoop& messages,
                                         MessageBoxes& boxes, MessageTexts& texts, TraceLog& log,
                                         std::u16string userName)
    : files_(files),
      internet_(internet),
      messages_(messages),
      boxes_(boxes),
      texts_(texts),
      log_(log),
      userName_(std::move(userName)) {}

void clsServerInterfaces::InterfaceType(std::int32_t type) {
    type_ = type;
}

std::shared_ptr<IServerInterface> clsServerInterfaces::Interface(const std::u16string& serverName) {
    const std::u16string key = Upper(serverName);
    auto found = interfaces_.find(key);
    if (found == interfaces_.end()) {
        found = interfaces_.emplace(key, Make()).first;
    }
    found->second->ServerName(key);
    return found->second;
}

void clsServerInterfaces::Renew() {
    type_ = typeFile;
    interfaces_.clear();
}

std::shared_ptr<IServerInterface> clsServerInterfaces::Make() const {
    if (type_ != typeFile) {
        return std::make_shared<clsServerInterfaceHTTP>(files_, internet_, messages_, boxes_, texts_, log_, userName_);
    }
    return std::make_shared<clsServerInterfaceFile>(files_, log_, userName_);
}

}  // namespace korvanta
