#include "server/clsServerInterfaces.h"

#include "ServerFixture.h"
#include "server/basJobNotificationFile.h"
#include "server/clsServerInterfaceFile.h"
#include "server/clsServerInterfaceHTTP.h"

namespace korvanta {
namespace {

class ServerInterfaces : public ServerFixture {
  protected:
    static bool IsFile(const std::shared_ptr<IServerInterface>& server) {
        return std::dynamic_pointer_cast<clsServerInterfaceFile>(server) != nullptr;
    }
    static bool IsHttp(const std::shared_ptr<IServerInterface>& server) {
        return std::dynamic_pointer_cast<clsServerInterfaceHTTP>(server) != nullptr;
    }

    clsServerInterfaces interfaces{files, internet, messages, boxes, texts, log, u"jsmith"};
};

TEST_F(ServerInterfaces, NamesThatDifferInLetterCaseShareOneObjectThatCarriesTheUpperCaseForm) {
    const auto lower = interfaces.Interface(u"srv");
    EXPECT_EQ(lower, interfaces.Interface(u"SRV"));
    lower->ServerName(u"elsewhere");
    EXPECT_EQ(lower, interfaces.Interface(u"Srv"));
    lower->TestHealth();
    EXPECT_EQ(files.log.back(), u"FolderExists \\\\SRV\\TLXData$\\jobs");
}

TEST_F(ServerInterfaces, AnotherServerHasAnotherObject) {
    EXPECT_NE(interfaces.Interface(u"a"), interfaces.Interface(u"b"));
}

TEST_F(ServerInterfaces, NonAsciiNamesAreFoldedToo) {
    EXPECT_EQ(interfaces.Interface(u"m\u00FCller"), interfaces.Interface(u"M\u00DCLLER"));
}

TEST_F(ServerInterfaces, AnObjectKeepsTheTransportItWasMadeWith) {
    const auto a = interfaces.Interface(u"a");
    EXPECT_TRUE(IsFile(a));
    interfaces.InterfaceType(1);
    EXPECT_EQ(interfaces.Interface(u"A"), a);
    EXPECT_TRUE(IsHttp(interfaces.Interface(u"b")));
}

TEST_F(ServerInterfaces, AnyTypeButZeroIsHttp) {
    interfaces.InterfaceType(-7);
    EXPECT_TRUE(IsHttp(interfaces.Interface(u"a")));
    interfaces.InterfaceType(0);
    EXPECT_TRUE(IsFile(interfaces.Interface(u"b")));
}

TEST_F(ServerInterfaces, MakingAnObjectAsksNoServer) {
    interfaces.Interface(u"SRV");
    interfaces.InterfaceType(1);
    interfaces.Interface(u"WEB");
    EXPECT_EQ(files.log, Lines());
    EXPECT_TRUE(internet.requests.empty());
}

TEST_F(ServerInterfaces, TheEmptyNameGivesAnObjectThatFailsSoftly) {
    const auto server = interfaces.Interface(u"");
    EXPECT_EQ(server->GetServersFile(), u"");
    EXPECT_EQ(server->GetJobCounter(), u"");
    EXPECT_FALSE(server->TestHealth());
}

TEST_F(ServerInterfaces, RenewForgetsObjectsAndTransportButHoldersKeepTheirs) {
    files.WriteUtf16(u"\\\\SRV\\TLXData$\\Servers.txt", u"SRV");
    const auto before = interfaces.Interface(u"SRV");
    interfaces.InterfaceType(1);
    interfaces.Renew();
    const auto after = interfaces.Interface(u"SRV");
    EXPECT_NE(before, after);
    EXPECT_TRUE(IsFile(after));
    EXPECT_EQ(before->GetServersFile(), u"SRV");
}

TEST_F(ServerInterfaces, RenewInTheMiddleOfADownloadLetsItFinish) {
    internet.PutUtf16(u"http://SRV/TLXData/Servers.txt", u"SRV");
    interfaces.InterfaceType(1);
    messages.onRunPending = [this] { interfaces.Renew(); };
    EXPECT_EQ(interfaces.Interface(u"srv")->GetServersFile(), u"SRV");
}

TEST(JobNotificationFile, JobIdsHaveAtLeastThreeDigits) {
    EXPECT_EQ(JobNotificationFileName(u"jsmith", 5), u"jsmith.005");
    EXPECT_EQ(JobNotificationFileName(u"jsmith", 42), u"jsmith.042");
    EXPECT_EQ(JobNotificationFileName(u"jsmith", 1000), u"jsmith.1000");
    EXPECT_EQ(JobNotificationFileName(u"jsmith", 2147483647), u"jsmith.2147483647");
    EXPECT_EQ(JobNotificationFileName(u"jsmith", -5), u"jsmith.-005");
}

TEST(JobNotificationFile, TheCounterHasTheUsersName) {
    EXPECT_EQ(JobCounterFileName(u"jsmith"), u"jsmith.tlu");
}

}  // namespace
}  // namespace korvanta
