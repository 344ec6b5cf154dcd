#include "detection/clsPrintersMonitored.h"

#include <gtest/gtest.h>

#include <chrono>

#include "unit/detection/Support.h"

namespace korvanta::tests {
namespace {

class PrintersMonitored : public testing::Test {
  protected:
    Texts Servers() const { return TextsOf(*organisation_.printersMonitored.ServerList()); }
    Texts Printers() const { return TextsOf(*organisation_.printersMonitored.PrinterList()); }
    bool Refresh() {
        organisation_.printersMonitored.RefreshPrinterLists();
        return organisation_.printersMonitored.PrinterListChanged();
    }

    Organisation organisation_;
    fakes::FakeFileSystem& files_ = organisation_.platform.files;
};

TEST_F(PrintersMonitored, ListsAreEmptyAtFirst) {
    EXPECT_EQ(Servers(), Texts());
    EXPECT_EQ(Printers(), Texts());
    EXPECT_FALSE(organisation_.printersMonitored.PrinterListChanged());
}

TEST_F(PrintersMonitored, RecordWithoutBackslashIsAShareOfThePublishingServerAndAnyOtherIsTakenAsItStands) {
    organisation_.PublishPrinters(u"srv", {u"laser", u"\\\\srv2\\colour", u"a\\b", u" blank "});
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\laser", u"\\\\srv2\\colour", u"a\\b", u"\\\\srv\\ blank "}));
}

TEST_F(PrintersMonitored, EmptyServersFileLeavesThePrimaryServerAlone) {
    files_.WriteUtf16(u"\\\\srv\\TLXData$\\Servers.txt", u"");
    Refresh();
    EXPECT_EQ(Servers(), Texts{u"srv"});
}

TEST_F(PrintersMonitored, MissingServersFileLeavesThePrimaryServerAlone) {
    Refresh();
    EXPECT_EQ(Servers(), Texts{u"srv"});
}

TEST_F(PrintersMonitored, ServersAreListedAsTheyStandBehindThePrimaryServer) {
    organisation_.PublishServers({u"two", u"", u"srv", u" Three ", u"two", u""});
    Refresh();
    EXPECT_EQ(Servers(), (Texts{u"srv", u"two", u"srv", u" Three ", u"two"}));
}

TEST_F(PrintersMonitored, PrintersAreGroupedByServerInOrderAndDuplicatesStay) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"two", u"srv"});
    organisation_.PublishPrinters(u"srv", {u"b", u"", u"a", u"b", u""});
    organisation_.PublishPrinters(u"two", {u"c"});
    Refresh();
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\b", u"\\\\srv\\a", u"\\\\srv\\b", u"\\\\two\\c", u"\\\\srv\\b",
                                 u"\\\\srv\\a", u"\\\\srv\\b"}));
}

TEST_F(PrintersMonitored, OnlyOtherPrintersAreAChange) {
    EXPECT_FALSE(Refresh()) << "no printer before, none now";
    organisation_.PublishPrinters(u"srv", {u"a", u"b"});
    EXPECT_TRUE(Refresh()) << "first printers";
    EXPECT_FALSE(Refresh()) << "the same";
    organisation_.PublishPrinters(u"srv", {u"b", u"a"});
    EXPECT_FALSE(Refresh()) << "another order";
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\b", u"\\\\srv\\a"})) << "the new order is taken all the same";
    organisation_.PublishPrinters(u"srv", {u"b", u"c"});
    EXPECT_TRUE(Refresh()) << "one replaced";
    organisation_.PublishPrinters(u"srv", {u"b", u"C"});
    EXPECT_TRUE(Refresh()) << "names are compared exactly";
    organisation_.PublishPrinters(u"srv", {u"b", u"C", u"b"});
    EXPECT_TRUE(Refresh()) << "one listed twice";
    organisation_.PublishPrinters(u"srv", {u"b"});
    EXPECT_TRUE(Refresh()) << "one gone";
}

TEST_F(PrintersMonitored, ServerTakenOffTheListTakesItsPrintersAlongAndBringsThemBack) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"two"});
    organisation_.PublishPrinters(u"srv", {u"a"});
    organisation_.PublishPrinters(u"two", {u"b"});
    Refresh();
    organisation_.PublishServers({});
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Printers(), Texts{u"\\\\srv\\a"});
    files_.Down(u"two");
    organisation_.PublishServers({u"two"});
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\a", u"\\\\two\\b"})) << "known from before";
}

TEST_F(PrintersMonitored, UnreachableServerKeepsItsLastKnownPrinters) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"two"});
    organisation_.PublishPrinters(u"srv", {u"a"});
    organisation_.PublishPrinters(u"two", {u"b"});
    Refresh();
    files_.Down(u"two");
    EXPECT_FALSE(Refresh());
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\a", u"\\\\two\\b"}));
}

TEST_F(PrintersMonitored, AServersPrintersGoWhenItSaysThatItHasNone) {
    organisation_.PublishPrinters(u"srv", {u"a"});
    Refresh();
    organisation_.PublishPrinters(u"srv", {u"", u""});
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Printers(), Texts());
}

TEST_F(PrintersMonitored, ServerNamesAreKeptInTheirLetterCase) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"Two", u"TWO"});
    organisation_.PublishPrinters(u"two", {u"b"});
    Refresh();
    EXPECT_EQ(Printers(), (Texts{u"\\\\Two\\b", u"\\\\TWO\\b"}));
}

TEST_F(PrintersMonitored, FailureToMakeTheServersListChangesNothingAndLeavesOneLine) {
    organisation_.PublishPrinters(u"srv", {u"a"});
    ASSERT_TRUE(Refresh());
    organisation_.PublishPrinters(u"srv", {u"b"});
    organisation_.log.lines.clear();
    organisation_.platform.mutexes.faults.FailOnce("CreateOwned", 1, 8);
    EXPECT_TRUE(Refresh()) << "still what the refresh before found";
    EXPECT_EQ(Printers(), Texts{u"\\\\srv\\a"});
    EXPECT_EQ(Servers(), Texts{u"srv"});
    EXPECT_EQ(organisation_.log.lines, Texts{u"Refreshing printer lists"});
}

TEST_F(PrintersMonitored, WritesItsLinesInOrder) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"two", u"gone"});
    organisation_.PublishPrinters(u"srv", {u"a", u"b"});
    organisation_.PublishPrinters(u"two", {u"c"});
    Refresh();
    Texts own;
    for (const std::u16string& line : organisation_.log.lines) {
        if (!line.starts_with(u"IServerInterface_")) {
            own.push_back(line);
        }
    }
    EXPECT_EQ(own, (Texts{u"Refreshing printer lists",
                          u"GetPrinterNames: Successfully obtained list of printer names. Count: 2",
                          u"GetPrinterNames: Successfully obtained list of printer names. Count: 1",
                          u"Printer List Changed? True"}));
    Refresh();
    EXPECT_EQ(organisation_.log.lines.back(), u"Printer List Changed? False");
}

TEST_F(PrintersMonitored, ListOfTheSameLengthThatOnlyRepeatsOldNamesIsUnchanged) {
    organisation_.PublishPrinters(u"srv", {u"a", u"b"});
    Refresh();
    organisation_.PublishPrinters(u"srv", {u"a", u"a"});
    EXPECT_FALSE(Refresh());
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\a", u"\\\\srv\\a"}));
}

TEST_F(PrintersMonitored, PrimaryServerThatIsAwayChangesNothing) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"two"});
    organisation_.PublishPrinters(u"srv", {u"a"});
    organisation_.PublishPrinters(u"two", {u"b"});
    EXPECT_TRUE(Refresh());
    EXPECT_FALSE(Refresh());
    files_.Down(u"srv");
    organisation_.PublishPrinters(u"two", {u"b", u"c"});
    EXPECT_FALSE(Refresh());
    EXPECT_EQ(Servers(), (Texts{u"srv", u"two"}));
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\a", u"\\\\two\\b"}));
    files_.Up(u"srv");
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\a", u"\\\\two\\b", u"\\\\two\\c"}));
}

TEST_F(PrintersMonitored, ServersListThatBecomesEmptyLeavesThePrimaryServerAlone) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"two"});
    organisation_.PublishPrinters(u"srv", {u"a"});
    organisation_.PublishPrinters(u"two", {u"b"});
    Refresh();
    organisation_.PublishServers({});
    organisation_.PublishPrinters(u"srv", {u"a2"});
    files_.log.clear();
    EXPECT_TRUE(Refresh());
    EXPECT_EQ(Servers(), Texts{u"srv"});
    EXPECT_EQ(Printers(), Texts{u"\\\\srv\\a2"});
    EXPECT_EQ(std::count(files_.log.begin(), files_.log.end(), u"OpenForReading \\\\SRV\\TLXData$\\Printers.txt"), 1);
    organisation_.PublishServers({u"two"});
    Refresh();
    EXPECT_EQ(Servers(), (Texts{u"srv", u"two"}));
}

TEST_F(PrintersMonitored, PrimaryServerThatHasNeverBeenThereIsTheOnlyOne) {
    files_.Down(u"srv");
    EXPECT_FALSE(Refresh());
    EXPECT_EQ(Servers(), Texts{u"srv"});
}

TEST_F(PrintersMonitored, HoldersOfTheOldListsKeepThem) {
    organisation_.PublishPrinters(u"srv", {u"a"});
    Refresh();
    const auto servers = organisation_.printersMonitored.ServerList();
    const auto printers = organisation_.printersMonitored.PrinterList();
    organisation_.PublishServers({u"two"});
    organisation_.PublishPrinters(u"srv", {u"b"});
    Refresh();
    EXPECT_EQ(TextsOf(*servers), Texts{u"srv"});
    EXPECT_EQ(TextsOf(*printers), Texts{u"\\\\srv\\a"});
}

TEST_F(PrintersMonitored, RefreshDuringARefreshLeavesTheNewestLists) {
    organisation_.AddServer(u"two");
    organisation_.PublishServers({u"two"});
    organisation_.PublishPrinters(u"srv", {u"a"});
    organisation_.PublishPrinters(u"two", {u"b"});
    const auto inner = Once([this] {
        organisation_.PublishPrinters(u"srv", {u"a2"});
        EXPECT_TRUE(Refresh());
        EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\a2", u"\\\\two\\b"}));
    });
    files_.onCall = [&inner](const std::u16string& call, const std::u16string& path) {
        if (call == u"OpenForReading" && path == u"\\\\TWO\\TLXData$\\Printers.txt") {
            inner();
        }
    };
    EXPECT_FALSE(Refresh()) << "nothing has changed since the inner refresh";
    EXPECT_EQ(Printers(), (Texts{u"\\\\srv\\a2", u"\\\\two\\b"}));
    EXPECT_EQ(Servers(), (Texts{u"srv", u"two"}));
}

TEST_F(PrintersMonitored, TenThousandPrintersAreComparedInNoTime) {
    Texts printers;
    for (int i = 0; i < 10'000; ++i) {
        printers.push_back(u"printer " + NumberText(i));
    }
    organisation_.PublishPrinters(u"srv", printers);
    EXPECT_TRUE(Refresh());
    organisation_.PublishPrinters(u"srv", Texts(printers.rbegin(), printers.rend()));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(Refresh());
    // Under the sanitizers a set takes a few milliseconds for it; a walk through the list for each name, many seconds.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace korvanta::tests
