#include "server/clsInet.h"

#include <new>
#include <utility>

#include "ServerFixture.h"

namespace korvanta {
namespace {

using fakes::FakeMessageBoxes;

const std::u16string url = u"http://SRV/page";
const std::u16string path = u"C:\\Temp\\page.tmp";

class Inet : public ServerFixture {
  protected:
    clsInet inet{files, internet, messages, boxes, texts};
};

TEST_F(Inet, ABodyComesByteForByteAndIsWrittenToTheFile) {
    std::string body(5000, '\0');
    for (std::size_t at = 0; at < body.size(); ++at) {
        body[at] = static_cast<char>(at % 251);
    }
    internet.Put(url, body);
    EXPECT_EQ(inet.GetURLSource(url, path), body);
    EXPECT_EQ(files.ReadBytes(path), body);
}

TEST_F(Inet, WithoutAPathNothingIsWritten) {
    internet.Put(url, "body");
    EXPECT_EQ(inet.GetURLSource(url, u""), "body");
    EXPECT_EQ(files.log, Lines());
}

TEST_F(Inet, EveryReadIsToldAndMessagesRunTwiceForEach) {
    internet.Put(url, std::string(2500, 'x'));
    std::vector<std::pair<std::int32_t, std::int32_t>> reads;
    std::vector<int> runsBefore;
    inet.BufferRead.Connect([&](std::int32_t size, std::int32_t received) {
        reads.emplace_back(size, received);
        runsBefore.push_back(messages.pendingRuns);
    });
    inet.GetURLSource(url, u"");
    EXPECT_EQ(reads, (std::vector<std::pair<std::int32_t, std::int32_t>>{{2048, 2048}, {2048, 2500}, {2048, 2500}}));
    EXPECT_EQ(runsBefore, (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(messages.pendingRuns, 6);
}

TEST_F(Inet, AnotherFetchInTheMiddleOfOneLeavesBothTheirBodies) {
    const std::string outer(5000, 'o');
    internet.Put(url, outer);
    internet.Put(u"http://SRV/other", std::string(3000, 'i'));
    int nested = 0;
    inet.BufferRead.Connect([&](std::int32_t, std::int32_t) {
        if (nested++ == 1) {
            EXPECT_EQ(inet.GetURLSource(u"http://SRV/other", path), std::string(3000, 'i'));
        }
    });
    EXPECT_EQ(inet.GetURLSource(url, path), outer);
    EXPECT_GT(nested, 2);
    EXPECT_EQ(files.ReadBytes(path), outer) << "each is written whole, after its last event";
}

TEST_F(Inet, AUrlThatCannotBeOpenedIsOneEmptyReadAndAnEmptyFile) {
    internet.Down(u"SRV");
    int reads = 0;
    inet.BufferRead.Connect([&](std::int32_t, std::int32_t received) {
        ++reads;
        EXPECT_EQ(received, 0);
    });
    EXPECT_EQ(inet.GetURLSource(url, path), "");
    EXPECT_EQ(reads, 1);
    EXPECT_TRUE(files.Has(path));
    EXPECT_EQ(files.ReadBytes(path), "");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Inet, AConnectionThatBreaksEndsTheBodyThere) {
    internet.Put(url, std::string(5000, 'x'));
    internet.faults.FailFrom("Read", 3, 12030);
    EXPECT_EQ(inet.GetURLSource(url, path), std::string(4096, 'x'));
    EXPECT_TRUE(boxes.shown.empty());
    internet.faults.Clear();
    internet.faults.FailFrom("Read", 1, 12030);
    EXPECT_EQ(inet.GetURLSource(url, u""), "");
}

TEST_F(Inet, AnOlderLongerFileKeepsItsTail) {
    files.WriteBytes(path, "0123456789");
    internet.Put(url, "body");
    EXPECT_EQ(inet.GetURLSource(url, path), "body");
    EXPECT_EQ(files.ReadBytes(path), "body456789");
}

TEST_F(Inet, AFileThatCannotBeWrittenIsToldToTheUserAndGivesTheEmptyBody) {
    internet.Put(url, "body");
    files.FailPath(path, windowsError::accessDenied);
    EXPECT_EQ(inet.GetURLSource(url, path), "");
    EXPECT_EQ(boxes.shown, (std::vector<FakeMessageBoxes::Box>{{u"GetURLSource: err#70  Permission denied",
                                                                u"Korvanta Client - Account Tracking",
                                                                MessageButtons::OK, MessageIcon::None}}));
}

TEST_F(Inet, AFullDiskIsToldToTheUser) {
    internet.Put(url, "body");
    files.freeBytes = 3;
    EXPECT_EQ(inet.GetURLSource(url, path), "");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, u"GetURLSource: err#61  Disk full");
}

TEST_F(Inet, AFailureWhileClosingTheFileIsToldToTheUser) {
    internet.Put(url, "body");
    files.faults.FailOnce("Close", 1, windowsError::diskFull);
    EXPECT_EQ(inet.GetURLSource(url, path), "");
    EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(Inet, ABadFileNameIsSilent) {
    internet.Put(url, "body");
    files.FailPath(path, windowsError::invalidName);
    EXPECT_EQ(inet.GetURLSource(url, path), "");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Inet, RunningOutOfMemoryIsToldToTheUser) {
    internet.Put(url, "body");
    inet.BufferRead.Connect([](std::int32_t, std::int32_t) { throw std::bad_alloc(); });
    EXPECT_EQ(inet.GetURLSource(url, u""), "");
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, u"GetURLSource: err#7  Out of memory");
}

TEST_F(Inet, TheBoxLetsAnotherFetchRun) {
    internet.Put(url, "body");
    files.faults.FailOnce("OpenForWriting", 1, windowsError::accessDenied);
    std::string nested;
    boxes.whileOpen = [&](const auto&) { nested = inet.GetURLSource(url, path); };
    EXPECT_EQ(inet.GetURLSource(url, path), "");
    EXPECT_EQ(nested, "body");
}

}  // namespace
}  // namespace korvanta
