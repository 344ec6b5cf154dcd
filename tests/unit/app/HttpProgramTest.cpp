// The whole program with HTTP monitoring.

#include <array>
#include <cstddef>

#include "unit/app/ProgramFixture.h"

namespace korvanta {
namespace {

// The same organisation as ever, with its lists on the web as well. Absent pages say so in the words that count.
class HttpProgramTest : public fakes::ProgramFixture {
  protected:
    HttpProgramTest() {
        PublishSettings(Settings(u"2"));
        Put(u"ClientSet.txt", Settings(u"2"));
        Put(u"Servers.txt", u"");
        Put(u"Printers.txt", u"laser\r\ncolour\r\n");
        PutCounter(0);
        windows.internet.unknownUrlBody = "file not found";
    }

    void Put(const std::u16string& name, const std::u16string& text) {
        windows.internet.PutUtf16(u"http://SRV1/TLXData/" + name, text);
    }
    void PutCounter(int number) { Put(u"jobs/jsmith.tlu", Decimal(number)); }
    void AnnounceOverHttp(int number, const std::u16string& document) {
        Put(u"jobs/jsmith.00" + Decimal(number), Decimal(number + 1) + u"\r\nlaser\r\nWS01\r\njsmith\r\n" + document +
                                                     u"\r\n\\\\SRV1\\laser\r\n77\r\n1\r\n2\r\n" + Decimal(number));
        PutCounter(number + 1);
    }
    std::u16string Queued() { return program->AccountDialog()->lblJobsQueued.Caption(); }
};

TEST_F(HttpProgramTest, JobIsFoundOnTheWebAlone) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->MainForm()->lblJobDetectionMethod.Caption(), u"HTTP monitoring");
    AnnounceOverHttp(0, u"letter");
    Tick();
    EXPECT_EQ(Queued(), u"1");
    EXPECT_EQ(windows.internet.openFiles, 0);
}

// What may come between two reads of a download.
enum class Event { Refresh, Tick, ScanAndTests, Close };
constexpr std::array events{Event::Refresh, Event::Tick, Event::ScanAndTests, Event::Close};

class HttpReentryTest : public HttpProgramTest, public testing::WithParamInterface<Event> {
  protected:
    void Happen() {
        frmMain& form = *program->MainForm();
        switch (GetParam()) {
            case Event::Refresh:
                form.cmdRefresh.HandleClick();
                Tick(2);
                break;
            case Event::Tick:
                Tick();
                break;
            case Event::ScanAndTests:
                windows.clock.AdvanceMinutes(61);
                Tick(4);
                break;
            case Event::Close:
                form.Unload(CloseReason::WindowsSession);
                break;
        }
    }
};

TEST_P(HttpReentryTest, EveryJobIsOfferedOnceWhateverHappensInADownload) {
    ASSERT_TRUE(Start());
    int left = 0;
    windows.messageLoop.onRunPending = [&] {
        if (left > 0 && windows.internet.openFiles > 0) {
            --left;
            Happen();
        }
    };
    for (int number = 0; number < 5; ++number) {
        AnnounceOverHttp(number, u"document " + Decimal(number));
        left = 3;
        Tick();
        left = 3;
        program->MainForm()->cmdRefresh.HandleClick();
        Tick(4);
    }
    EXPECT_EQ(windows.internet.openFiles, 0);
    EXPECT_TRUE(windows.messageBoxes.shown.empty());
    if (GetParam() == Event::Close) {
        EXPECT_TRUE(windows.messageLoop.quit);
        EXPECT_FALSE(program->MainForm()->tmrActivity.Enabled());
    } else {
        EXPECT_EQ(Queued(), u"5");
    }
}

std::string NameOf(const testing::TestParamInfo<Event>& info) {
    static constexpr std::array names{"Refresh", "Tick", "ScanAndTests", "Close"};
    return names[static_cast<std::size_t>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(EveryEvent, HttpReentryTest, testing::ValuesIn(events), NameOf);

}  // namespace
}  // namespace korvanta
