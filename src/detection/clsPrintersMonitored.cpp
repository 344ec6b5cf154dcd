#include "detection/clsPrintersMonitored.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "common/Text.h"
#include "server/PrinterName.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {

namespace {

void AppendRecords(List& list, const std::u16string& text) {
    for (const std::u16string& record : Split(text, lineBreak)) {
        if (!record.empty()) {
            list.Append(record);
        }
    }
}

// Whether the lists differ in length or the new one has a name that the old one lacks. A set, since List::Contains
// would compare each of ten thousand printers with all the others.
bool Changed(const List& oldList, const List& newList) {
    const std::vector<Variant> oldNames = oldList.Items();
    const std::vector<Variant> newNames = newList.Items();
    if (oldNames.size() != newNames.size()) {
        return true;
    }
    std::unordered_set<std::u16string_view> known;
    for (const Variant& name : oldNames) {
        known.insert(name.Text());
    }
    return std::any_of(newNames.begin(), newNames.end(),
                       [&known](const Variant& name) { return !known.contains(name.Text()); });
}

}  // namespace

clsPrintersMonitored::clsPrintersMonitored(clsServerInterfaces& serverInterfaces, MutexFactory& mutexes, TraceLog& log,
                                           const std::u16string& primaryServerName)
    : serverInterfaces_(serverInterfaces),
      mutexes_(mutexes),
      log_(log),
      primaryServerName_(primaryServerName),
      serverList_(std::make_shared<List>(mutexes)),
      printerList_(std::make_shared<List>(mutexes)) {}

void clsPrintersMonitored::RefreshPrinterLists() {
    log_.Log(u"Refreshing printer lists");
    const std::shared_ptr<List> servers = ReadServerNames();
    if (!servers) {
        return;
    }
    std::shared_ptr<List> primaryPrinters;
    if (servers->Length() == 1 && serverList_->Length() > 1) {
        // Either the servers list has become empty, or the primary server is away. With nothing from it at all it is
        // away, and the other servers are watched as before.
        primaryPrinters = ReadPrinterNames(primaryServerName_);
        if (!primaryPrinters) {
            printerListChanged_ = false;
            return;
        }
    }
    serverList_ = servers;
    for (const Variant& server : servers->Items()) {
        const std::shared_ptr<List> printers = primaryPrinters ? primaryPrinters : ReadPrinterNames(server.Text());
        if (printers) {
            printersByServer_[server.Text()] = printers;
        }
    }
    // Messages may have run another refresh meanwhile, which replaced both lists: read them again.
    const std::shared_ptr<List> printers = PrintersOfAllServers();
    const bool changed = Changed(*printerList_, *printers);
    printerList_ = printers;
    printerListChanged_ = changed;
    log_.Log(u"Printer List Changed? " + BooleanText(changed));
}

// Null on failure. An empty file is no failure: then the primary server is the only one.
std::shared_ptr<List> clsPrintersMonitored::ReadServerNames() {
    try {
        auto servers = std::make_shared<List>(mutexes_);
        servers->Append(primaryServerName_);
        AppendRecords(*servers, serverInterfaces_.Interface(primaryServerName_)->GetServersFile());
        return servers;
    } catch (...) {
        return nullptr;
    }
}

// Null on failure. An empty text is one: a server that cannot be reached gives it too.
std::shared_ptr<List> clsPrintersMonitored::ReadPrinterNames(const std::u16string& serverName) {
    try {
        const std::u16string text = serverInterfaces_.Interface(serverName)->GetPrintersFile();
        if (text.empty()) {
            return nullptr;
        }
        auto printers = std::make_shared<List>(mutexes_);
        for (const std::u16string& record : Split(text, lineBreak)) {
            if (!record.empty()) {
                printers->Append(PrinterName::Published(serverName, record));
            }
        }
        log_.Log(u"GetPrinterNames: Successfully obtained list of printer names. Count: " +
                 NumberText(printers->Length()));
        return printers;
    } catch (...) {
        return nullptr;
    }
}

std::shared_ptr<List> clsPrintersMonitored::PrintersOfAllServers() const {
    auto printers = std::make_shared<List>(mutexes_);
    for (const Variant& server : serverList_->Items()) {
        const auto found = printersByServer_.find(server.Text());
        if (found != printersByServer_.end()) {
            printers->Extend(*found->second);
        }
    }
    return printers;
}

}  // namespace korvanta
