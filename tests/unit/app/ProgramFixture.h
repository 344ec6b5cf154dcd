#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "app/basKorvanta.h"
#include "common/Text.h"
#include "fakes/FakePeers.h"
#include "fakes/FakePlatform.h"
#include "fakes/PlainTranslator.h"

namespace korvanta::fakes {

// The whole program over the fakes, with an organisation of one server SRV1 (data, notification and preferences
// shares), two printers, two accounts and file monitoring that polls each second.
class ProgramFixture : public testing::Test {
  protected:
    ProgramFixture() {
        windows.files.AddFolder(programFolder);
        windows.files.AddFolder(u"\\\\SRV1\\TLXData$\\jobs");
        windows.files.AddFolder(u"\\\\SRV1\\TLXActN$");
        windows.files.AddFolder(u"\\\\SRV1\\TLXPrefs$");
        windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\Servers.txt", u"");
        windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\Printers.txt", u"laser\r\ncolour\r\n");
        windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\Accounts.txt", accountsText);
        PublishSettings(Settings());
        windows.registry.Put(registryKey, u"TLXPrimaryServer", std::u16string(u"SRV1"));
    }
    ~ProgramFixture() override { program.reset(); }

    // The lines of a settings file, with a detection method for each family of Windows.
    static std::u16string Settings(const std::u16string& method = u"0", const std::u16string& methodWin9X = u"1") {
        return u"2\r\n" + method + u"\r\n" + methodWin9X + u"\r\n31\r\n60\r\n44\r\n30\r\n8\r\n0\r\n0\r\n\r\n";
    }
    void PublishSettings(const std::u16string& text) {
        windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\ClientSet.txt", text);
    }
    // A job of the logged-on user, announced as a server does.
    void AnnounceJob(int number, const std::u16string& document) {
        const std::u16string name = u"\\\\SRV1\\TLXData$\\jobs\\jsmith." + PaddedNumberText(number, 3);
        windows.files.WriteUtf16(name, Decimal(number + 1) + u"\r\nlaser\r\nWS01\r\njsmith\r\n" + document +
                                           u"\r\n\\\\SRV1\\laser\r\n77\r\n1\r\n2\r\n" + Decimal(number) + u"\r\n");
        windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\jobs\\jsmith.tlu", Decimal(number + 1));
    }
    static std::u16string Decimal(int number) {
        const std::string digits = std::to_string(number);
        return {digits.begin(), digits.end()};
    }

    bool Start() {
        program = std::make_unique<basKorvanta>(windows.platform, &peers, translator);
        return program->Main();
    }
    // One second of the main form.
    void Tick(int seconds = 1) {
        for (int i = 0; i < seconds; ++i) {
            windows.clock.AdvanceSeconds(1);
            program->MainForm()->tmrActivity.HandleTick();
        }
    }

    static constexpr const char16_t* registryKey = u"SOFTWARE\\Korvanta";
    const std::u16string programFolder = u"C:\\Program Files\\Korvanta";
    const std::u16string accountsText =
        u"1\u00011\u0001Smith\u0001\u00011\u00011\u00010\u0001\r\n2\u00010\u0001Smith\u0001Audit\u00011\u00010\u00011"
        u"\u0001\r\n";

    FakePlatform windows;
    FakePeers peers;
    PlainTranslator translator;
    std::unique_ptr<basKorvanta> program;
};

}  // namespace korvanta::fakes
