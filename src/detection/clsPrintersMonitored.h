#pragma once

#include <map>
#include <memory>
#include <string>

#include "common/List.h"
#include "common/Services.h"
#include "platform/Mutex.h"

namespace korvanta {

class clsServerInterfaces;

// The print servers and the printers that the client watches, as the servers publish them.
class clsPrintersMonitored {
  public:
    clsPrintersMonitored(clsServerInterfaces& serverInterfaces, MutexFactory& mutexes, TraceLog& log,
                         const std::u16string& primaryServerName);

    // Server names; the primary server first, and a second time where the servers list names it too. A refresh replaces
    // the lists and never changes them, so a caller may hold on to one.
    std::shared_ptr<List> ServerList() const { return serverList_; }
    // Full printer names ("\\server\printer"), grouped by server in the order of ServerList; duplicates are kept.
    std::shared_ptr<List> PrinterList() const { return printerList_; }
    // Whether the last completed refresh changed PrinterList; false before the first.
    bool PrinterListChanged() const { return printerListChanged_; }

    // Reads all lists from the servers again. A server that cannot be read keeps its last known printers. When the
    // primary server gives neither a servers list nor printers, and there was a servers list before, nothing changes.
    // Messages may run while a server answers.
    void RefreshPrinterLists();

  private:
    std::shared_ptr<List> ReadServerNames();
    std::shared_ptr<List> ReadPrinterNames(const std::u16string& serverName);
    std::shared_ptr<List> PrintersOfAllServers() const;

    clsServerInterfaces& serverInterfaces_;
    MutexFactory& mutexes_;
    TraceLog& log_;
    const std::u16string primaryServerName_;
    std::shared_ptr<List> serverList_;
    std::shared_ptr<List> printerList_;
    bool printerListChanged_ = false;
    std::map<std::u16string, std::shared_ptr<List>>
        printersByServer_;  // the last list that was read, by exact server name
};

}  // namespace korvanta
