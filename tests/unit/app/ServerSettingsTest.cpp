#include "app/ServerSettings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/FakeMessageTexts.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSystemInformation.h"
#include "fakes/FakeTraceLog.h"

namespace korvanta {
namespace {

const std::u16string cachePath = u"C:\\Temp\\ClientSet.txt";
const std::u16string sharePath = u"\\\\SRV1\\TLXData$\\ClientSet.txt";
const std::u16string ratesPath = u"\\\\SRV1\\TLXData$\\ChargeRates.txt";
const std::u16string webAddress = u"http://SRV1/TLXData/ClientSet.txt";

// Thirteen lines; the matching method tells one text from another.
std::u16string Settings(const std::u16string& match, const std::u16string& method, const std::u16string& method9x) {
    return match + u"\r\n" + method + u"\r\n" + method9x +
           u"\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n-1\r\n\r\nhello\r\n\r\n";
}

class ServerSettingsTest : public testing::Test {
  protected:
    ServerSettingsTest() { windows.files.AddFolder(u"\\\\SRV1\\TLXData$\\jobs"); }

    void Publish(const std::u16string& text) { windows.files.WriteUtf16(sharePath, text); }
    void PublishOnWeb(const std::u16string& text) { windows.internet.PutUtf16(webAddress, text); }
    void Cache(const std::u16string& text) { windows.files.WriteUtf16(cachePath, text); }
    std::int32_t Match() const { return settings.ClientSettings().JobMatchMethod(); }
    // Whether interfaces that are made now go over HTTP.
    bool GoesOverHTTP() {
        const std::size_t before = windows.internet.requests.size();
        interfaces.Interface(u"OTHER")->GetPrintersFile();
        return windows.internet.requests.size() > before;
    }
    std::int64_t Opened(const std::u16string& path) const {
        return std::count(windows.files.log.begin(), windows.files.log.end(), u"OpenForReading " + path);
    }

    fakes::FakePlatform windows;
    fakes::FakeTraceLog log;
    fakes::FakeMessageTexts texts;
    fakes::FakeSystemInformation information;
    clsServerInterfaces interfaces{windows.files, windows.internet, windows.messageLoop, windows.messageBoxes, texts,
                                   log,           u"jsmith"};
    const std::u16string server = u"SRV1";
    ServerSettings settings{windows.platform, log, information, interfaces, server};
};

TEST_F(ServerSettingsTest, ComeFromTheServerAndAreKeptForAStartWithoutIt) {
    Publish(Settings(u"2", u"0", u"0") + u"a line more");
    settings.LoadClientSettings();
    EXPECT_EQ(settings.ClientSettingsCachePath(), cachePath);
    EXPECT_EQ(windows.files.ReadUtf16(cachePath), Settings(u"2", u"0", u"0") + u"a line more");
    EXPECT_EQ(Match(), 2);
    EXPECT_TRUE(log.Has(u"Loading client settings ..."));
}

TEST_F(ServerSettingsTest, CachedOnesServeWhenTheServerIsDown) {
    Cache(Settings(u"1", u"0", u"0"));
    windows.files.Down(u"SRV1");
    settings.LoadClientSettings();
    EXPECT_EQ(Match(), 1);
    EXPECT_EQ(settings.ClientSettings().DefaultComment(), u"hello");
}

TEST_F(ServerSettingsTest, DefaultsServeWhenTheyAreNowhereEvenAfterOthers) {
    Publish(Settings(u"1", u"0", u"0"));
    settings.LoadClientSettings();
    EXPECT_EQ(settings.ClientSettings().ServerHealthTestInterval(), 5);
    windows.files.Down(u"SRV1");
    windows.files.RemoveFile(cachePath);
    settings.LoadClientSettings();
    EXPECT_EQ(Match(), 0);
    EXPECT_EQ(settings.ClientSettings().ServerHealthTestInterval(), 31);
}

TEST_F(ServerSettingsTest, FileThatBreaksOffInTheMiddleLeavesTheCachedOnesWhollyInForceAndTheCacheAlone) {
    Cache(Settings(u"1", u"0", u"0"));
    Publish(u"2\r\n0\r\n0\r\n99\r\nabc\r\n7\r\n8\r\n9\r\n10\r\n-1\r\n\r\n");
    settings.LoadClientSettings();
    EXPECT_EQ(Match(), 1);
    EXPECT_EQ(settings.ClientSettings().ServerHealthTestInterval(), 5);
    EXPECT_EQ(windows.files.ReadUtf16(cachePath), Settings(u"1", u"0", u"0"));
}

TEST_F(ServerSettingsTest, CacheThatCannotBeWrittenIsNoTrouble) {
    Publish(Settings(u"2", u"0", u"0"));
    windows.files.FailPath(cachePath, windowsError::accessDenied);
    settings.LoadClientSettings();
    EXPECT_EQ(Match(), 2);
}

TEST_F(ServerSettingsTest, WithoutACopyTheServerIsFirstAskedByFileShare) {
    Publish(Settings(u"1", u"0", u"0"));
    PublishOnWeb(Settings(u"2", u"0", u"0"));
    settings.LoadClientSettings();
    EXPECT_EQ(Match(), 1);
    EXPECT_TRUE(windows.internet.requests.empty());
}

TEST_F(ServerSettingsTest, TransportOfTheLastTimeIsNotTheOneToAskWith) {
    Publish(Settings(u"1", u"2", u"0"));
    settings.LoadClientSettings();
    windows.files.RemoveFile(cachePath);
    PublishOnWeb(Settings(u"2", u"2", u"0"));
    settings.LoadClientSettings();
    EXPECT_EQ(Match(), 1);
    EXPECT_TRUE(windows.internet.requests.empty());
}

TEST_F(ServerSettingsTest, CopyThatSaysHTTPHasTheServerAskedByHTTP) {
    Cache(Settings(u"0", u"2", u"0"));
    Publish(Settings(u"1", u"2", u"0"));
    PublishOnWeb(Settings(u"2", u"2", u"0"));
    settings.LoadClientSettings();
    EXPECT_EQ(Match(), 2);
    EXPECT_EQ(Opened(sharePath), 0);
}

TEST_F(ServerSettingsTest, TransportIsTheOneOfTheSettingsInForce) {
    Publish(Settings(u"0", u"0", u"0"));
    settings.LoadClientSettings();
    EXPECT_FALSE(GoesOverHTTP());
    Publish(Settings(u"0", u"2", u"0"));
    settings.LoadClientSettings();
    EXPECT_TRUE(GoesOverHTTP());
    PublishOnWeb(Settings(u"0", u"0", u"0"));
    settings.LoadClientSettings();
    EXPECT_FALSE(GoesOverHTTP()) << "the change back asks no web server any more";
}

TEST_F(ServerSettingsTest, EachFamilyOfWindowsHasALineOfItsOwnForTheMethod) {
    Publish(Settings(u"0", u"1", u"2"));
    settings.LoadClientSettings();
    EXPECT_EQ(settings.EffectiveDetectionMethod(), DetectionMethod::Printer);
    EXPECT_FALSE(GoesOverHTTP());
    information.BeWindows9x();
    windows.files.RemoveFile(cachePath);
    settings.LoadClientSettings();
    EXPECT_EQ(settings.EffectiveDetectionMethod(), DetectionMethod::HTTP);
    EXPECT_TRUE(GoesOverHTTP());
}

TEST_F(ServerSettingsTest, InterfacesAreMadeAnew) {
    const auto before = interfaces.Interface(u"SRV1");
    settings.LoadClientSettings();
    EXPECT_NE(interfaces.Interface(u"SRV1"), before);
}

TEST_F(ServerSettingsTest, RatesAreReadFromTheShareByHTTPMonitoringAsWell) {
    Publish(Settings(u"0", u"2", u"0"));
    settings.LoadClientSettings();
    windows.files.WriteUtf16(ratesPath, u"100\u0001Standard\r\n50.5\u0001Discount\r\n");
    EXPECT_TRUE(settings.LoadChargeRates());
    ASSERT_EQ(settings.ChargeRates()->Length(), 2);
    EXPECT_EQ(settings.ChargeRates()->ChargeRates()->Item(1).Number(), 50.5);
    EXPECT_TRUE(log.Has(u"Loading charge rates ..."));
}

TEST_F(ServerSettingsTest, RatesFallBackToTheDefaultOneWhenTheServerIsAway) {
    windows.files.WriteUtf16(ratesPath, u"50\u0001Standard\r\n60\u0001Discount\r\n");
    EXPECT_TRUE(settings.LoadChargeRates());
    const auto before = settings.ChargeRates();
    windows.files.Down(u"SRV1");
    EXPECT_FALSE(settings.LoadChargeRates());
    ASSERT_EQ(settings.ChargeRates()->Length(), 1);
    EXPECT_EQ(settings.ChargeRates()->Descriptions()->Item(0).Text(), u"Default");
    EXPECT_EQ(settings.ChargeRates()->ChargeRates()->Item(0).Number(), 100.0);
    EXPECT_EQ(before->Length(), 2) << "who holds the old ones keeps them";
}

}  // namespace
}  // namespace korvanta
