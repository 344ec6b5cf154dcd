#include "server/ServerLog.h"

namespace korvanta::serverLog {

std::u16string PrintersFailed(const Error& error, std::u16string_view place, const std::u16string& address) {
    std::u16string line = u"IServerInterface_GetPrintersFile: Error occured whilst obtaining list of printer names: " +
                          error.NumberAndDescription() + u" (" + error.Source() + u"). Tried to read from the ";
    return line.append(place) + u": " + address;
}

std::u16string CounterFailed(const std::u16string& serverName) {
    return u"IServerInterface_GetJobCounter: Error getting counter file from server " + serverName;
}

std::u16string JobFileFailed(const std::u16string& serverName) {
    return u"IServerInterface_GetJobNotificationFile: Error getting job notification file from server " + serverName;
}

}  // namespace korvanta::serverLog
