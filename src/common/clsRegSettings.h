#pragma once

#include <cstdint>
#include <string>

#include "common/Services.h"
#include "platform/Registry.h"

namespace korvanta {

// The machine-wide settings of the installation, with the set-up file behind them for what the registry does not hold
// yet. No member raises: a failing read gives the default, a failing write changes nothing and is reported to the
// event log.
class clsRegSettings {
  public:
    clsRegSettings(Registry& registry, SetupFile& setupFile, ErrorReports& errorReports);

    // The product's web address behind the banner link; written back when it came from elsewhere.
    std::u16string LinkName();
    // Whether the banner shows its link; written back when it came from the set-up file.
    bool ShowLink();
    // The primary server's name, empty when it is not known; written back when it came from the set-up file.
    std::u16string TLXPrimaryServer();
    void TLXPrimaryServer(const std::u16string& serverName);
    // Language code of the translation, "eng" by default.
    std::u16string Language();
    // A customised link address, or empty.
    std::u16string ResellerURL();
    // Whether the invoice box and the comment keep their state from job to job.
    bool TLXClientRemembersSettings();

  private:
    std::u16string ReadText(const std::u16string& name, const std::u16string& defaultText);
    std::int32_t ReadNumber(const std::u16string& name, std::int32_t defaultNumber);
    bool WriteText(const std::u16string& name, const std::u16string& text);
    bool WriteNumber(const std::u16string& name, std::int32_t number);
    template <class Setter>
    bool Write(const std::u16string& name, Setter set);

    Registry& registry_;
    SetupFile& setupFile_;
    ErrorReports& errorReports_;
};

}  // namespace korvanta
