#pragma once

#include <map>
#include <string>

#include "common/Services.h"
#include "detection/basIPUtil.h"
#include "platform/CodePage.h"
#include "platform/Sockets.h"
#include "platform/System.h"

namespace korvanta {

class clsClientSettings;

// Decides whether a job belongs to the user who is logged on to this machine.
class clsPrintJobMatcher {
  public:
    // Looks up the user's and this machine's names and its address once and for all. Raises what `systemInformation`
    // raises.
    clsPrintJobMatcher(SystemInformation& systemInformation, Sockets& sockets, const CodePage& codePage, System& system,
                       const clsClientSettings& clientSettings, TraceLog& log);

    // `strPrinterMachineName` is the job's full printer name. On Windows 95/98/Me with job detection other than file
    // monitoring the job's machine is compared with the printer's server; a printer name without one raises Error 5.
    bool JobMatch(const std::u16string& strUsername, const std::u16string& strMachineName,
                  const std::u16string& strPrinterMachineName);

  private:
    struct Machine {
        std::u16string name;
        std::u16string address;
    };

    static bool IsMachine(const std::u16string& machine, const Machine& desired);
    bool IsOwnUser(const std::u16string& user) const;
    bool IsOrResolvesToMachine(const std::u16string& machine, const Machine& desired);
    std::u16string ResolvedName(const std::u16string& address);
    Machine MachineOf(std::u16string name);

    SystemInformation& systemInformation_;
    const clsClientSettings& clientSettings_;
    TraceLog& log_;
    basIPUtil ipUtil_;
    const std::u16string ownUserName_;
    const std::u16string ownUserNameFromSpooler_;  // what is left of it in a single-byte call
    const Machine ownMachine_;
    std::map<std::u16string, std::u16string> resolvedNames_;  // short host names by address text
};

}  // namespace korvanta
