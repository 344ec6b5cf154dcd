// What a start and a full refresh make of the settings and rates that the whole program finds.

#include <algorithm>

#include "unit/app/ProgramFixture.h"

namespace korvanta {
namespace {

class RefreshedSettings : public fakes::ProgramFixture {
  protected:
    RefreshedSettings() { windows.internet.unknownUrlBody = "file not found"; }

    void PublishOnWeb(const std::u16string& settings) {
        for (const auto& [name, text] : {std::pair{u"ClientSet.txt", settings},
                                         {u"Servers.txt", u""},
                                         {u"Printers.txt", u"laser\r\n"},
                                         {u"jobs/jsmith.tlu", u"0"}}) {
            windows.internet.PutUtf16(u"http://SRV1/TLXData/" + std::u16string(name), text);
        }
    }
    void Refresh() {
        program->MainForm()->cmdRefresh.HandleClick();
        Tick();
    }
    const std::u16string& Method() { return program->MainForm()->lblJobDetectionMethod.Caption(); }
};

TEST_F(RefreshedSettings, ChangeFromHTTPToFilesAsksNoWebServerAnyMore) {
    PublishSettings(Settings(u"2"));
    PublishOnWeb(Settings(u"2"));
    ASSERT_TRUE(Start());
    ASSERT_EQ(Method(), u"HTTP monitoring");
    PublishSettings(Settings(u"0"));
    PublishOnWeb(Settings(u"0"));
    Refresh();
    EXPECT_EQ(Method(), u"File monitoring");
    const std::size_t requests = windows.internet.requests.size();
    windows.clock.AdvanceMinutes(61);
    Tick(10);
    EXPECT_EQ(windows.internet.requests.size(), requests);
    AnnounceJob(0, u"letter");
    Tick(2);
    EXPECT_EQ(program->AccountDialog()->lblJobsQueued.Caption(), u"1");
}

TEST_F(RefreshedSettings, Windows9xGoesByTheThirdLineAlone) {
    windows.system.platformId = 1;
    PublishSettings(Settings(u"2", u"0"));
    ASSERT_TRUE(Start());
    EXPECT_EQ(Method(), u"File monitoring");
    EXPECT_TRUE(windows.internet.requests.empty());
    PublishSettings(Settings(u"0", u"2"));
    Refresh();
    EXPECT_EQ(Method(), u"HTTP monitoring");
    EXPECT_FALSE(windows.internet.requests.empty());
}

TEST_F(RefreshedSettings, RatesOfAServerThatIsAwayAreTheDefaultOne) {
    windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\ChargeRates.txt", u"50\u0001Half\r\n75\u0001Most\r\n");
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->ChargeRates()->Length(), 2);
    windows.files.Down(u"SRV1");
    Refresh();
    ASSERT_EQ(program->ChargeRates()->Length(), 1);
    EXPECT_EQ(program->ChargeRates()->Descriptions()->Item(0).Text(), u"Default");
}

TEST_F(RefreshedSettings, CachedSettingsThatSayHTTPMakeTheVeryFirstFetchGoByHTTP) {
    windows.files.WriteUtf16(u"C:\\Temp\\ClientSet.txt", Settings(u"2"));
    PublishOnWeb(Settings(u"2"));
    ASSERT_TRUE(Start());
    ASSERT_FALSE(windows.internet.requests.empty());
    EXPECT_EQ(windows.internet.requests.front().url, u"http://SRV1/TLXData/ClientSet.txt");
    const auto& log = windows.files.log;
    EXPECT_EQ(std::count(log.begin(), log.end(), u"OpenForReading \\\\SRV1\\TLXData$\\ClientSet.txt"), 0);
}

TEST_F(RefreshedSettings, FileThatBreaksInTheMiddleLeavesTheCachedOnesInForce) {
    const std::u16string cached = u"1\r\n0\r\n1\r\n5\r\n60\r\n44\r\n30\r\n8\r\n0\r\n0\r\n\r\n";
    windows.files.WriteUtf16(u"C:\\Temp\\ClientSet.txt", cached);
    PublishSettings(u"2\r\n1\r\n0\r\n99\r\nabc\r\n");
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->ClientSettings().JobMatchMethod(), 1);
    EXPECT_EQ(program->ClientSettings().ServerHealthTestInterval(), 5);
    EXPECT_EQ(Method(), u"File monitoring");
}

}  // namespace
}  // namespace korvanta
