#pragma once

#include <memory>
#include <string>

#include "common/Services.h"
#include "platform/Platform.h"
#include "server/clsChargeRates.h"
#include "server/clsClientSettings.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {

// The client settings and charge rates in force. The primary server defines them for all clients; they are loaded at
// start-up and reloaded at each full refresh.
class ServerSettings {
  public:
    // All arguments must outlive this object.
    ServerSettings(Platform& platform, TraceLog& log, SystemInformation& information,
                   clsServerInterfaces& serverInterfaces, const std::u16string& primaryServerName);

    // Loads the server's settings; if they cannot be read, the local copy of the last ones; failing that, the defaults.
    // Then discards all server interfaces, so that new ones use the transport that the settings ask for. Raises Error
    // 23210 (see SystemInformation), nothing else.
    void LoadClientSettings();
    // Returns false if the file cannot be read; the only rate is then the default one.
    bool LoadChargeRates();

    // Loading changes this object; the reference stays valid.
    const clsClientSettings& ClientSettings() const { return clientSettings_; }
    // Null before the first load. Each load makes a new object.
    std::shared_ptr<clsChargeRates> ChargeRates() const { return chargeRates_; }
    // Path of the local copy, which serves when the server cannot be reached.
    const std::u16string& ClientSettingsCachePath() const { return clientSettingsCachePath_; }
    // The job detection method that the settings specify for this family of Windows.
    DetectionMethod EffectiveDetectionMethod();

  private:
    bool FetchClientSettings();
    bool LoadCachedClientSettings();
    void WriteCache(const std::u16string& text);
    void ChooseInterfaceType();

    Platform& platform_;
    TraceLog& log_;
    SystemInformation& information_;
    clsServerInterfaces& serverInterfaces_;
    const std::u16string& primaryServerName_;
    std::u16string clientSettingsCachePath_;
    clsClientSettings clientSettings_;
    std::shared_ptr<clsChargeRates> chargeRates_;
};

}  // namespace korvanta
