#pragma once

#include <cstdint>
#include <string>

#include "common/Services.h"
#include "platform/Registry.h"

namespace korvanta {

// The machine-wide settings of the installation. Three of them come from the set-up file when the registry does not
// hold them. No member raises: a failed read gives the default, a failed write changes nothing and puts a line into the
// event log.
class clsRegSettings {
  public:
    clsRegSettings(Registry& registry, SetupFile& setupFile, ErrorReports& errorReports);

    // The web address of the banner's link, the product's own when the set-up file names none. Stored in the registry
    // when it was not there.
    std::u16string LinkName();
    // Whether the banner shows its link. Stored in the registry when it came from the set-up file.
    bool ShowLink();
    // The primary server's name, empty when it is not known. Stored in the registry when it came from the set-up file.
    std::u16string TLXPrimaryServer();
    void TLXPrimaryServer(const std::u16string& serverName);
    // Language code of the translation, "eng" by default.
    std::u16string Language();
    // The address of a link of the reseller's own, or empty.
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
