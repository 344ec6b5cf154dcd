#pragma once

#include <string>
#include <string_view>

namespace korvanta {

// Where a server keeps the product's files: the paths of its hidden shares.
class Shares {
  public:
    // The bare name, as it goes into every path; nothing is checked.
    explicit Shares(std::u16string_view serverName);

    // "\\PRINTSRV\TLXData$"
    std::u16string DataFolder() const;
    std::u16string PrintersFile() const;
    std::u16string ServersFile() const;
    std::u16string ClientSettingsFile() const;
    std::u16string AccountsFile() const;
    std::u16string ChargeRatesFile() const;

    // "\\PRINTSRV\TLXData$\jobs": job counters and job notification files, whose names basJobNotificationFile gives.
    std::u16string JobsFolder() const;
    std::u16string JobFile(std::u16string_view fileName) const;

    // "\\PRINTSRV\TLXActN$": what clients write.
    std::u16string AccountNotificationFile(std::u16string_view fileName) const;
    // "\\PRINTSRV\TLXPrefs$\jsmith.txt" for the user jsmith.
    std::u16string PreferencesFile(std::u16string_view userName) const;

  private:
    std::u16string server_;
};

// The names of files that are read in more than one way.
namespace dataFile {
inline constexpr std::u16string_view printers = u"Printers.txt";
inline constexpr std::u16string_view servers = u"Servers.txt";
inline constexpr std::u16string_view clientSettings = u"ClientSet.txt";
}  // namespace dataFile

}  // namespace korvanta
