#include "platform/win32/services/WindowsSockets.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <winsock.h>

#include <string>

namespace korvanta {
namespace {

constexpr std::uint32_t loopback = 0x0100007F;

TEST(SocketsTests, LookUpsFailBeforeTheStartAndAfterTheStop) {
    WindowsSockets sockets;
    std::uint32_t address = 0;
    EXPECT_FALSE(sockets.AddressOf(u"localhost", address));
    EXPECT_EQ(sockets.LastError(), WSANOTINITIALISED);
    EXPECT_FALSE(sockets.Stop());
    EXPECT_EQ(sockets.LastError(), WSANOTINITIALISED);
}

class StartedSocketsTests : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(sockets_.Start(version_)); }
    void TearDown() override { EXPECT_TRUE(sockets_.Stop()); }

    WindowsSockets sockets_;
    SocketsVersion version_;
};

TEST_F(StartedSocketsTests, VersionOneOneIsThere) {
    EXPECT_EQ(version_.major, 1);
    EXPECT_EQ(version_.minor, 1);
    EXPECT_GE(version_.maximumSockets, 1);
}

TEST_F(StartedSocketsTests, ThisMachineHasAName) {
    std::u16string name;
    ASSERT_TRUE(sockets_.HostName(name));
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(name.find(u'\0'), std::u16string::npos);
}

TEST_F(StartedSocketsTests, NamesAndAddressesAreFoundForEachOther) {
    std::uint32_t address = 0;
    ASSERT_TRUE(sockets_.AddressOf(u"localhost", address));
    EXPECT_EQ(address, loopback);
    std::u16string host;
    ASSERT_TRUE(sockets_.NameOf(loopback, host));
    EXPECT_FALSE(host.empty());
}

TEST_F(StartedSocketsTests, DottedTextsAreAddressesAndOthersAreNone) {
    EXPECT_EQ(sockets_.ParseAddress(u"127.0.0.1"), loopback);
    EXPECT_EQ(sockets_.ParseAddress(u"10.1.2.3"), 0x0302010AU);
    EXPECT_EQ(sockets_.ParseAddress(u"WS01"), 0xFFFFFFFFU);
    EXPECT_EQ(sockets_.ParseAddress(u"300.1.2.3"), 0xFFFFFFFFU);
}

TEST_F(StartedSocketsTests, ANameThatCannotBeIsNotFound) {
    std::uint32_t address = 5;
    EXPECT_FALSE(sockets_.AddressOf(u"not a host name", address));
    EXPECT_NE(sockets_.LastError(), 0);
    EXPECT_EQ(address, 5U);
}

}  // namespace
}  // namespace korvanta
