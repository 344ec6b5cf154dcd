#include "app/ServerSettings.h"

#include "common/TextStream.h"
#include "server/Shares.h"

namespace korvanta {

ServerSettings::ServerSettings(Platform& platform, TraceLog& log, SystemInformation& information,
                               clsServerInterfaces& serverInterfaces, const std::u16string& primaryServerName)
    : platform_(platform),
      log_(log),
      information_(information),
      serverInterfaces_(serverInterfaces),
      primaryServerName_(primaryServerName) {}

// The local copy is loaded first because it says which transport to fetch the server's file by.
void ServerSettings::LoadClientSettings() {
    log_.Log(u"Loading client settings ...");
    clientSettingsCachePath_ = platform_.files.TemporaryFolder() + u"\\" + std::u16string(dataFile::clientSettings);
    clientSettings_ = clsClientSettings();
    serverInterfaces_.InterfaceType(clsServerInterfaces::typeFile);
    if (LoadCachedClientSettings()) {
        ChooseInterfaceType();
    }
    if (!FetchClientSettings()) {
        LoadCachedClientSettings();
    }
    serverInterfaces_.Renew();
    ChooseInterfaceType();
}

bool ServerSettings::FetchClientSettings() {
    try {
        const std::u16string text = serverInterfaces_.Interface(primaryServerName_)->GetClientSettingsFile();
        if (!clientSettings_.LoadString(text)) {
            return false;
        }
        WriteCache(text);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void ServerSettings::WriteCache(const std::u16string& text) {
    try {
        TextOutput cache = TextOutput::OpenUtf16(platform_.files, clientSettingsCachePath_);
        cache.Write(text);
        cache.Close();
    } catch (const std::exception&) {
        // Without the copy only a later start without the server suffers.
        return;
    }
}

bool ServerSettings::LoadCachedClientSettings() {
    try {
        TextInput cache = TextInput::OpenUtf16(platform_.files, clientSettingsCachePath_);
        return clientSettings_.LoadString(cache.ReadAll());
    } catch (const std::exception&) {
        return false;
    }
}

void ServerSettings::ChooseInterfaceType() {
    if (EffectiveDetectionMethod() == DetectionMethod::HTTP) {
        serverInterfaces_.InterfaceType(clsServerInterfaces::typeHTTP);
    }
}

// Rates are always read from the file share, even when HTTP is the transport for everything else.
bool ServerSettings::LoadChargeRates() {
    log_.Log(u"Loading charge rates ...");
    chargeRates_ = std::make_shared<clsChargeRates>(platform_.mutexes, platform_.clock);
    try {
        TextInput file = TextInput::OpenUtf16(platform_.files, Shares(primaryServerName_).ChargeRatesFile());
        chargeRates_->LoadFile(file);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

DetectionMethod ServerSettings::EffectiveDetectionMethod() {
    return clientSettings_.EffectiveDetectionMethod(information_.IsWindows9x());
}

}  // namespace korvanta
