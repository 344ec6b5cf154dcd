#include "detection/basIPUtil.h"

#include <gtest/gtest.h>

#include "fakes/FakePlatform.h"

namespace korvanta::tests {
namespace {

using fakes::FakeSockets;
using Texts = std::vector<std::u16string>;

class IPUtil : public testing::Test {
  protected:
    std::u16string AddressOf(std::u16string host) {
        hostName_ = std::move(host);
        return util_.IPAddressOfHost(hostName_, errorText_);
    }
    std::u16string NameOf(const std::u16string& address) { return util_.HostNameOfIPAddress(address, errorText_); }

    fakes::FakePlatform platform_;
    FakeSockets& sockets_ = platform_.sockets;
    basIPUtil util_{sockets_, platform_.system};
    std::u16string hostName_;
    std::u16string errorText_;
};

TEST_F(IPUtil, AddressIsWrittenAsFourDecimalBytesFirstByteFirst) {
    sockets_.AddHost(u"ws01", FakeSockets::Address(10, 0, 200, 255));
    EXPECT_EQ(AddressOf(u"ws01"), u"10.0.200.255");
    EXPECT_EQ(errorText_, u"");
    EXPECT_EQ(sockets_.log, (Texts{u"Start", u"AddressOf ws01", u"Stop"}));
}

TEST_F(IPUtil, HostNamePassedInIsTrimmed) {
    sockets_.AddHost(u"srv", FakeSockets::Address(1, 2, 3, 4));
    EXPECT_EQ(AddressOf(u"  srv "), u"1.2.3.4");
    EXPECT_EQ(hostName_, u"srv");
}

TEST_F(IPUtil, EmptyHostNameIsThisMachine) {
    sockets_.hostName = u"thishost";
    sockets_.AddHost(u"thishost", FakeSockets::Address(1, 2, 3, 4));
    EXPECT_EQ(AddressOf(u""), u"1.2.3.4");
    EXPECT_EQ(hostName_, u"thishost");
    EXPECT_EQ(sockets_.log, (Texts{u"Start", u"HostName", u"AddressOf thishost", u"Stop"}));
}

TEST_F(IPUtil, UnknownHostIsEmptyWithTheCodeAndSocketsAreStopped) {
    EXPECT_EQ(AddressOf(u"nowhere"), u"");
    EXPECT_EQ(errorText_, u"Windows Sockets error 11001 has occurred. Unable to successfully get Host Name.\r\n");
    EXPECT_EQ(sockets_.started, 0);
}

TEST_F(IPUtil, FailureToTellTheOwnHostNameIsEmptyWithTheCode) {
    sockets_.faults.FailOnce("HostName", 1, 10050);
    EXPECT_EQ(AddressOf(u""), u"");
    EXPECT_EQ(errorText_, u"Windows Sockets error 10050 has occurred. Unable to successfully get Host Name.\r\n");
    EXPECT_EQ(sockets_.started, 0);
}

TEST_F(IPUtil, SocketsThatDoNotStartAreNotAskedAndNotStopped) {
    sockets_.faults.FailFrom("Start", 1, 10091);
    EXPECT_EQ(AddressOf(u"ws01"), u"");
    EXPECT_EQ(errorText_, u"The 32-bit Windows Socket is not responding.");
    errorText_.clear();
    EXPECT_EQ(NameOf(u"1.2.3.4"), u"");
    EXPECT_EQ(errorText_, u"The 32-bit Windows Socket is not responding.");
    EXPECT_EQ(sockets_.log, (Texts{u"Start", u"Start"}));
}

TEST_F(IPUtil, FewerThanOneSocketIsTooFew) {
    sockets_.version = {1, 1, 0};
    EXPECT_EQ(AddressOf(u"ws01"), u"");
    EXPECT_EQ(errorText_, u"This application requires a minimum of 1 supported sockets.");
    EXPECT_EQ(sockets_.started, 0);
}

TEST_F(IPUtil, VersionsBelowOneOneAreRefused) {
    sockets_.version = {1, 0, 100};
    EXPECT_EQ(AddressOf(u"ws01"), u"");
    EXPECT_EQ(errorText_, u"Sockets version 1.0 is not supported by 32-bit Windows Sockets.");
    sockets_.version = {0, 9, 100};
    EXPECT_FALSE(util_.StartSockets(errorText_));
    EXPECT_EQ(errorText_, u"Sockets version 0.9 is not supported by 32-bit Windows Sockets.");
    sockets_.version = {2, 0, 100};
    EXPECT_TRUE(util_.StartSockets(errorText_));
}

TEST_F(IPUtil, FailingStopGoesToTheEventLogAndTheResultStays) {
    sockets_.AddHost(u"ws01", FakeSockets::Address(10, 0, 0, 1));
    sockets_.faults.FailOnce("Stop", 1, 10036);
    EXPECT_EQ(AddressOf(u"ws01"), u"10.0.0.1");
    EXPECT_EQ(platform_.system.eventLog, Texts{u"Socket error occurred in Cleanup."});
}

TEST_F(IPUtil, HostNameOfAnAddressIsTheOfficialOne) {
    sockets_.AddHost(u"WS01.example.com", FakeSockets::Address(10, 1, 2, 3));
    EXPECT_EQ(NameOf(u"10.1.2.3"), u"WS01.example.com");
    EXPECT_EQ(errorText_, u"");
    EXPECT_EQ(sockets_.log, (Texts{u"Start", u"ParseAddress 10.1.2.3", u"NameOf 10.1.2.3", u"Stop"}));
}

TEST_F(IPUtil, AddressWithoutANameIsEmptyWithTheCode) {
    EXPECT_EQ(NameOf(u"10.1.2.3"), u"");
    EXPECT_EQ(errorText_, u"Windows Sockets error 11001 has occurred. Unable to successfully get Host Name.\r\n");
    EXPECT_EQ(sockets_.started, 0);
}

}  // namespace
}  // namespace korvanta::tests
