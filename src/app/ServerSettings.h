#pragma once

#include <memory>
#include <string>

#include "common/Services.h"
#include "platform/Platform.h"
#include "server/clsChargeRates.h"
#include "server/clsClientSettings.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {

// The client settings and the charge rates in force, as the primary server lays them down for every client. Both are
// loaded at the start and again at each full refresh.
class ServerSettings {
  public:
    // Everything outlives it.
    ServerSettings(Platform& platform, TraceLog& log, SystemInformation& information,
                   clsServerInterfaces& serverInterfaces, const std::u16string& primaryServerName);

    // The server's settings, or those of the last time when it has none that can be read, or else the defaults. The
    // server interfaces are renewed, for the transport that these settings ask for. Raises only what the question after
    // the family of Windows raises.
    void LoadClientSettings();
    // False: the file could not be read, and the rates are the default ones.
    bool LoadChargeRates();

    // The same object whatever is loaded.
    const clsClientSettings& ClientSettings() const { return clientSettings_; }
    // None before they are loaded; replaced at each load.
    std::shared_ptr<clsChargeRates> ChargeRates() const { return chargeRates_; }
    // Where the settings are kept for a start without the server.
    const std::u16string& ClientSettingsCachePath() const { return clientSettingsCachePath_; }
    // The job detection method that the settings ask for on this family of Windows.
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
