#include "detection/clsPrintJobMatcher.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"
#include "server/PrinterName.h"
#include "server/clsClientSettings.h"

namespace korvanta {

namespace {

namespace matchMethod {
constexpr std::int32_t userAndMachine = 0;
constexpr std::int32_t machine = 1;
constexpr std::int32_t user = 2;
}  // namespace matchMethod

std::u16string Description(std::int32_t method) {
    switch (method) {
        case matchMethod::userAndMachine:
            return u"User and Machine";
        case matchMethod::machine:
            return u"Machine";
        case matchMethod::user:
            return u"User";
        default:
            return u"Internal error";
    }
}

bool IsIPAddress(const std::u16string& text) {
    const std::vector<std::u16string> parts = Split(text, u".");
    return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), IsNumeric);
}

std::u16string LengthText(const std::u16string& text) {
    return NumberText(static_cast<std::int64_t>(text.size()));
}

// The lower-cased server of a full printer name.
std::u16string ServerOf(const std::u16string& fullPrinterName) {
    const std::optional<std::u16string> server = PrinterName(fullPrinterName).ServerFromThirdCharacter();
    if (!server) {
        throw StandardError(errorNumber::invalidCall, u"clsPrintJobMatcher");
    }
    return Lower(*server);
}

// A name with characters that the code page lacks comes from the spooler with look-alikes in their place. A name of
// which only question marks are left could be anybody's.
std::u16string FromSpooler(const std::u16string& userName, const CodePage& codePage) {
    const std::u16string name = codePage.BestFit(userName);
    return Lower(name.find(u'?') == std::u16string::npos ? name : userName);
}

}  // namespace

clsPrintJobMatcher::clsPrintJobMatcher(SystemInformation& systemInformation, Sockets& sockets, const CodePage& codePage,
                                       System& system, const clsClientSettings& clientSettings, TraceLog& log)
    : systemInformation_(systemInformation),
      clientSettings_(clientSettings),
      log_(log),
      ipUtil_(sockets, system),
      ownUserName_(Lower(systemInformation.UserName())),
      ownUserNameFromSpooler_(FromSpooler(systemInformation.UserName(), codePage)),
      ownMachine_(MachineOf(Lower(systemInformation.ComputerName()))) {}

bool clsPrintJobMatcher::JobMatch(const std::u16string& strUsername, const std::u16string& strMachineName,
                                  const std::u16string& strPrinterMachineName) {
    const bool isWindows9x = systemInformation_.IsWindows9x();
    const Machine desired =
        isWindows9x && clientSettings_.EffectiveDetectionMethod(isWindows9x) != DetectionMethod::File
            ? MachineOf(ServerOf(strPrinterMachineName))
            : ownMachine_;
    const std::u16string user = Lower(strUsername);
    const std::u16string machine = Lower(strMachineName);
    const std::int32_t method = clientSettings_.JobMatchMethod();
    log_.Log(u"New Job Username " + user);
    log_.Log(u"New Job Machine " + machine + u" " + LengthText(machine));
    log_.Log(u"Match method " + Description(method));
    log_.Log(u"New Job Desired Username " + ownUserName_);
    log_.Log(u"New Job Desired Machine " + desired.name + u" " + LengthText(desired.name));
    log_.Log(u"New Job Desired Machine IP " + ownMachine_.address);
    log_.Log(u"Machine == Desired Machine: " + BooleanText(ownMachine_.name == machine));

    bool matches = false;
    if (method == matchMethod::machine) {
        matches = IsMachine(machine, desired);
    } else {
        matches = IsOwnUser(user);
        if (method != matchMethod::user && matches) {
            // On Windows 95/98/Me the user's name is enough; the machine is looked up for the log all the same.
            matches = IsOrResolvesToMachine(machine, desired) || isWindows9x;
        }
    }
    log_.Log(u"Match result: " + BooleanText(matches));
    return matches;
}

bool clsPrintJobMatcher::IsOwnUser(const std::u16string& user) const {
    return user == ownUserName_ || user == ownUserNameFromSpooler_;
}

bool clsPrintJobMatcher::IsMachine(const std::u16string& machine, const Machine& desired) {
    return machine == desired.address || machine == desired.name;
}

bool clsPrintJobMatcher::IsOrResolvesToMachine(const std::u16string& machine, const Machine& desired) {
    return IsMachine(machine, desired) || (IsIPAddress(machine) && ResolvedName(machine) == desired.name);
}

// Returns the address itself when no name is found for it.
std::u16string clsPrintJobMatcher::ResolvedName(const std::u16string& address) {
    const auto known = resolvedNames_.find(address);
    if (known != resolvedNames_.end()) {
        return known->second;
    }
    log_.Log(u"Attempting to resolve IP address to a machine name");
    std::u16string discardedError;
    const std::u16string name = Lower(Trim(ipUtil_.HostNameOfIPAddress(address, discardedError)));
    log_.Log(u"Resolved IP: " + address + u" to machine: " + name);
    if (name.empty()) {
        return address;
    }
    return resolvedNames_[address] = name.substr(0, name.find(u'.'));
}

clsPrintJobMatcher::Machine clsPrintJobMatcher::MachineOf(std::u16string name) {
    std::u16string hostName = name;
    std::u16string discardedError;
    std::u16string address = ipUtil_.IPAddressOfHost(hostName, discardedError);
    return {std::move(name), std::move(address)};
}

}  // namespace korvanta
