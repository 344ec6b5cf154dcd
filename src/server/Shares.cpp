#include "server/Shares.h"

namespace korvanta {

namespace {

std::u16string In(const std::u16string& folder, std::u16string_view name) {
    return (folder + u"\\").append(name);
}

}  // namespace

Shares::Shares(std::u16string_view serverName) : server_(std::u16string(u"\\\\").append(serverName)) {}

std::u16string Shares::DataFolder() const {
    return In(server_, u"TLXData$");
}

std::u16string Shares::PrintersFile() const {
    return In(DataFolder(), dataFile::printers);
}

std::u16string Shares::ServersFile() const {
    return In(DataFolder(), dataFile::servers);
}

std::u16string Shares::ClientSettingsFile() const {
    return In(DataFolder(), dataFile::clientSettings);
}

std::u16string Shares::AccountsFile() const {
    return In(DataFolder(), u"Accounts.txt");
}

std::u16string Shares::ChargeRatesFile() const {
    return In(DataFolder(), u"ChargeRates.txt");
}

std::u16string Shares::JobsFolder() const {
    return In(DataFolder(), u"jobs");
}

std::u16string Shares::JobFile(std::u16string_view fileName) const {
    return In(JobsFolder(), fileName);
}

std::u16string Shares::AccountNotificationFile(std::u16string_view fileName) const {
    return In(In(server_, u"TLXActN$"), fileName);
}

std::u16string Shares::PreferencesFile(std::u16string_view userName) const {
    return In(In(server_, u"TLXPrefs$"), userName) + u".txt";
}

}  // namespace korvanta
