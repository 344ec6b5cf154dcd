#include "common/clsRegSettings.h"

#include "common/Conversion.h"
#include "common/Deployment.h"
#include "common/Error.h"
#include "common/Text.h"
#include "platform/FileSystem.h"

namespace korvanta {

clsRegSettings::clsRegSettings(Registry& registry, SetupFile& setupFile, ErrorReports& errorReports)
    : registry_(registry), setupFile_(setupFile), errorReports_(errorReports) {}

std::u16string clsRegSettings::LinkName() {
    std::u16string name = ReadText(u"LinkName", u"Failed");
    if (name == u"Failed" || name.empty()) {
        name = setupFile_.LinkName();
        if (name.empty()) {
            name = productWebSite;
        }
        WriteText(u"LinkName", name);
    }
    return name;
}

bool clsRegSettings::ShowLink() {
    std::u16string show = ReadText(u"ShowLink", u"Failed");
    if (show == u"Failed" || show.empty()) {
        show = BooleanText(setupFile_.ShowLink());
        WriteText(u"ShowLink", show);
    }
    try {
        return ToBoolean(show);
    } catch (const Error&) {
        return setupFile_.ShowLink();
    }
}

std::u16string clsRegSettings::TLXPrimaryServer() {
    std::u16string server = ReadText(u"TLXPrimaryServer", u"");
    if (server.empty()) {
        server = setupFile_.TLXPrimaryServer();
        if (!server.empty()) {
            WriteText(u"TLXPrimaryServer", server);
        }
    }
    return server;
}

void clsRegSettings::TLXPrimaryServer(const std::u16string& serverName) {
    WriteText(u"TLXPrimaryServer", serverName);
}

std::u16string clsRegSettings::Language() {
    const std::u16string language = ReadText(u"Language", u"");
    return language.empty() ? u"eng" : language;
}

std::u16string clsRegSettings::ResellerURL() {
    const std::u16string url = ReadText(u"ResellerURL", u"error");
    return url == u"error" ? u"" : url;
}

bool clsRegSettings::TLXClientRemembersSettings() {
    return ReadNumber(u"TLXClientRemembersSettings", 0) != 0;
}

std::u16string clsRegSettings::ReadText(const std::u16string& name, const std::u16string& defaultText) {
    std::unique_ptr<RegistryKey> key;
    std::u16string text;
    if (registry_.Open(RegistryHive::LocalMachine, registrySubKey, registryAccess::query, key) != windowsError::none ||
        key->QueryText(name, text) != windowsError::none) {
        return defaultText;
    }
    return text;
}

std::int32_t clsRegSettings::ReadNumber(const std::u16string& name, std::int32_t defaultNumber) {
    std::unique_ptr<RegistryKey> key;
    std::int32_t number = 0;
    if (registry_.Open(RegistryHive::LocalMachine, registrySubKey, registryAccess::query, key) != windowsError::none ||
        key->QueryNumber(name, number) != windowsError::none) {
        return defaultNumber;
    }
    return number;
}

bool clsRegSettings::WriteText(const std::u16string& name, const std::u16string& text) {
    return Write(name, [&](RegistryKey& key) { return key.SetText(name, text); });
}

bool clsRegSettings::WriteNumber(const std::u16string& name, std::int32_t number) {
    return Write(name, [&](RegistryKey& key) { return key.SetNumber(name, number); });
}

template <class Setter>
bool clsRegSettings::Write(const std::u16string& name, Setter set) {
    std::unique_ptr<RegistryKey> key;
    std::uint32_t code = registry_.Create(RegistryHive::LocalMachine, registrySubKey, registryAccess::full, key);
    if (code != windowsError::none) {
        // A user without full access to the key may still be allowed to set values.
        code = registry_.Create(RegistryHive::LocalMachine, registrySubKey, registryAccess::set, key);
    }
    if (code == windowsError::none) {
        code = set(*key);
    }
    if (code != windowsError::none) {
        errorReports_.Message(u"clsRegSettings: Unable to write the registry value " + name + u". Windows error: " +
                              NumberText(static_cast<std::int64_t>(code)));
    }
    return code == windowsError::none;
}

}  // namespace korvanta
