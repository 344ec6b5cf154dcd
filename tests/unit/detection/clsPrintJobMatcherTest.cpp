#include "detection/clsPrintJobMatcher.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/Error.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSystemInformation.h"
#include "fakes/FakeTraceLog.h"
#include "server/clsClientSettings.h"

namespace korvanta::tests {
namespace {

using fakes::FakeSockets;
using Texts = std::vector<std::u16string>;

class PrintJobMatcher : public testing::Test {
  protected:
    PrintJobMatcher() {
        systemInformation_.userName = u"JSmith";
        sockets_.AddHost(u"WS01", FakeSockets::Address(10, 0, 0, 1));
    }

    clsPrintJobMatcher& Matcher() {
        if (!matcher_) {
            matcher_ = std::make_unique<clsPrintJobMatcher>(systemInformation_, sockets_, platform_.codePage,
                                                            platform_.system, settings_, log_);
        }
        return *matcher_;
    }
    bool Match(const std::u16string& user, const std::u16string& machine,
               const std::u16string& printer = u"\\\\Srv\\Laser") {
        return Matcher().JobMatch(user, machine, printer);
    }
    std::ptrdiff_t NameLookUps() const {
        return std::count_if(sockets_.log.begin(), sockets_.log.end(),
                             [](const std::u16string& call) { return call.starts_with(u"NameOf "); });
    }
    bool HasResolvingLine() const { return log_.Has(u"Attempting to resolve IP address to a machine name"); }

    fakes::FakePlatform platform_;
    FakeSockets& sockets_ = platform_.sockets;
    fakes::FakeSystemInformation systemInformation_;
    fakes::FakeTraceLog log_;
    clsClientSettings settings_;
    std::unique_ptr<clsPrintJobMatcher> matcher_;
};

TEST_F(PrintJobMatcher, ByUserTheLetterCaseDoesNotMatter) {
    settings_.JobMatchMethod(2);
    EXPECT_TRUE(Match(u"jSMITH", u"elsewhere"));
    EXPECT_FALSE(Match(u"jsmith2", u"WS01"));
    EXPECT_FALSE(Match(u"jsmith ", u"WS01"));
}

TEST_F(PrintJobMatcher, UserIsKnownByTheLookAlikeThatTheSpoolerMakesOfHisName) {
    systemInformation_.userName = u"\u0141ukasz";
    platform_.codePage.lookAlikes = {{u'\u0141', u'L'}};
    for (const int method : {0, 2}) {
        settings_.JobMatchMethod(method);
        EXPECT_TRUE(Match(u"Lukasz", u"WS01"));
        EXPECT_TRUE(Match(u"lukasz", u"WS01"));
        EXPECT_TRUE(Match(u"\u0142ukasz", u"WS01")) << "a job file has his name whole";
        EXPECT_FALSE(Match(u"?ukasz", u"WS01"));
        EXPECT_FALSE(Match(u"lucas", u"WS01"));
    }
}

TEST_F(PrintJobMatcher, QuestionMarksAreNobodysName) {
    systemInformation_.userName = u"\u042E\u043B\u044F";
    settings_.JobMatchMethod(2);
    EXPECT_FALSE(Match(u"???", u"WS01")) << "any name of three letters that the code page lacks looks so";
    EXPECT_TRUE(Match(u"\u044E\u043B\u044F", u"WS01"));
}

TEST_F(PrintJobMatcher, ByMachineTheNameOrTheAddressDoes) {
    settings_.JobMatchMethod(1);
    EXPECT_TRUE(Match(u"anybody", u"Ws01"));
    EXPECT_TRUE(Match(u"anybody", u"10.0.0.1"));
    EXPECT_FALSE(Match(u"jsmith", u"WS02"));
}

TEST_F(PrintJobMatcher, ByMachineNoAddressIsResolved) {
    settings_.JobMatchMethod(1);
    sockets_.AddHost(u"ws01", FakeSockets::Address(10, 1, 2, 3));
    ASSERT_FALSE(Matcher().JobMatch(u"jsmith", u"10.9.9.9", u"\\\\srv\\laser"));
    EXPECT_EQ(NameLookUps(), 0);
}

TEST_F(PrintJobMatcher, ByUserAndMachineBothMustBeRight) {
    EXPECT_TRUE(Match(u"JSMITH", u"WS01"));
    EXPECT_FALSE(Match(u"other", u"WS01"));
    EXPECT_FALSE(Match(u"jsmith", u"WS02"));
    EXPECT_EQ(NameLookUps(), 0);
}

TEST_F(PrintJobMatcher, OwnAddressMatchesWithoutALookUp) {
    EXPECT_TRUE(Match(u"jsmith", u"10.0.0.1"));
    EXPECT_EQ(NameLookUps(), 0);
    EXPECT_FALSE(HasResolvingLine());
}

TEST_F(PrintJobMatcher, OtherAddressMatchesByTheFirstLabelOfItsNameWhichIsAskedForOnce) {
    sockets_.names[FakeSockets::Address(10, 1, 2, 3)] = u" WS01.Example.com ";
    EXPECT_TRUE(Match(u"jsmith", u"10.1.2.3"));
    EXPECT_EQ(NameLookUps(), 1);
    EXPECT_TRUE(log_.Has(u"Resolved IP: 10.1.2.3 to machine: ws01.example.com"));
    log_.lines.clear();
    EXPECT_TRUE(Match(u"jsmith", u"10.1.2.3"));
    EXPECT_EQ(NameLookUps(), 1);
    EXPECT_FALSE(HasResolvingLine());
}

TEST_F(PrintJobMatcher, AddressOfAnotherMachineDoesNotMatchAndIsRememberedToo) {
    sockets_.names[FakeSockets::Address(10, 1, 2, 3)] = u"ws02";
    EXPECT_FALSE(Match(u"jsmith", u"10.1.2.3"));
    EXPECT_FALSE(Match(u"jsmith", u"10.1.2.3"));
    EXPECT_EQ(NameLookUps(), 1);
}

TEST_F(PrintJobMatcher, FailedLookUpIsTriedAgainWithTheNextJob) {
    EXPECT_FALSE(Match(u"jsmith", u"10.1.2.3"));
    EXPECT_TRUE(log_.Has(u"Resolved IP: 10.1.2.3 to machine: "));
    sockets_.names[FakeSockets::Address(10, 1, 2, 3)] = u"ws01";
    EXPECT_TRUE(Match(u"jsmith", u"10.1.2.3"));
    EXPECT_EQ(NameLookUps(), 2);
}

TEST_F(PrintJobMatcher, OtherUsersAddressIsNotResolved) {
    EXPECT_FALSE(Match(u"other", u"10.1.2.3"));
    EXPECT_EQ(NameLookUps(), 0);
    EXPECT_FALSE(HasResolvingLine());
}

TEST_F(PrintJobMatcher, OnlyFourNumbersAreAnAddress) {
    for (const std::u16string machine :
         {u"10.1.2", u"10.1.2.3.4", u"10.1.2.x", u"10.1..3", u"", u"...", u"ws02", u"10.1.2."}) {
        EXPECT_FALSE(Match(u"jsmith", machine));
        EXPECT_FALSE(HasResolvingLine());
    }
    EXPECT_FALSE(Match(u"jsmith", u"999.1.2.3")) << "numbers out of range are still asked for";
    EXPECT_TRUE(HasResolvingLine());
}

TEST_F(PrintJobMatcher, AnyOtherMethodIsAnInternalErrorAndDecidesByUserAndMachine) {
    for (const std::int32_t method : {7, -1, 3}) {
        settings_.JobMatchMethod(method);
        log_.lines.clear();
        EXPECT_TRUE(Match(u"jsmith", u"WS01"));
        EXPECT_TRUE(log_.Has(u"Match method Internal error"));
        EXPECT_FALSE(Match(u"other", u"WS01"));
        EXPECT_FALSE(Match(u"jsmith", u"WS02"));
    }
}

TEST_F(PrintJobMatcher, WritesItsLinesInOrder) {
    sockets_.names[FakeSockets::Address(10, 1, 2, 3)] = u"WS01.example.com";
    Match(u"JSmith", u"10.1.2.3");
    EXPECT_EQ(log_.lines,
              (Texts{u"New Job Username jsmith", u"New Job Machine 10.1.2.3 8", u"Match method User and Machine",
                     u"New Job Desired Username jsmith", u"New Job Desired Machine ws01 4",
                     u"New Job Desired Machine IP 10.0.0.1", u"Machine == Desired Machine: False",
                     u"Attempting to resolve IP address to a machine name",
                     u"Resolved IP: 10.1.2.3 to machine: ws01.example.com", u"Match result: True"}));
}

TEST_F(PrintJobMatcher, NamesEachMethodInTheLog) {
    settings_.JobMatchMethod(1);
    Match(u"other", u"WS01");
    EXPECT_TRUE(log_.Has(u"Match method Machine"));
    EXPECT_TRUE(log_.Has(u"Machine == Desired Machine: True"));
    EXPECT_EQ(log_.lines.back(), u"Match result: True");
    settings_.JobMatchMethod(2);
    Match(u"other", u"WS01");
    EXPECT_TRUE(log_.Has(u"Match method User"));
    EXPECT_EQ(log_.lines.back(), u"Match result: False");
}

TEST_F(PrintJobMatcher, OwnNamesAndAddressAreFixedFromTheStart) {
    Matcher();
    systemInformation_.userName = u"somebody";
    systemInformation_.computerName = u"ws99";
    sockets_.AddHost(u"ws01", FakeSockets::Address(10, 0, 0, 9));
    EXPECT_TRUE(Match(u"jsmith", u"ws01"));
    EXPECT_TRUE(Match(u"jsmith", u"10.0.0.1"));
}

TEST_F(PrintJobMatcher, WithoutAnAddressTheNameStillMatches) {
    sockets_.faults.FailFrom("Start", 1, 10091);
    EXPECT_TRUE(Match(u"jsmith", u"ws01"));
    EXPECT_TRUE(log_.Has(u"New Job Desired Machine IP "));
    EXPECT_FALSE(Match(u"jsmith", u"10.0.0.1"));
    EXPECT_TRUE(log_.Has(u"Resolved IP: 10.0.0.1 to machine: "));
}

class PrintJobMatcherOnWindows9x : public PrintJobMatcher {
  protected:
    PrintJobMatcherOnWindows9x() {
        systemInformation_.BeWindows9x();
        sockets_.AddHost(u"srv", FakeSockets::Address(10, 0, 0, 2));
    }
};

TEST_F(PrintJobMatcherOnWindows9x, WithFileMonitoringTheDesiredMachineIsTheOwn) {
    settings_.JobMatchMethod(1);
    EXPECT_TRUE(Match(u"anybody", u"WS01", u"no server in this name"));
    EXPECT_FALSE(Match(u"anybody", u"srv"));
}

TEST_F(PrintJobMatcherOnWindows9x, WithOtherDetectionTheDesiredMachineIsThePrintersServer) {
    settings_.JobMatchMethod(1);
    settings_.JobDetectionMethodWin9X(1);
    EXPECT_TRUE(Match(u"anybody", u"SRV"));
    EXPECT_TRUE(log_.Has(u"New Job Desired Machine srv 3"));
    EXPECT_TRUE(log_.Has(u"New Job Desired Machine IP 10.0.0.1")) << "the own address, whichever is compared";
    EXPECT_TRUE(log_.Has(u"Machine == Desired Machine: False")) << "the own name, whichever is compared";
    EXPECT_TRUE(Match(u"anybody", u"10.0.0.2"));
    EXPECT_FALSE(Match(u"anybody", u"WS01"));
    EXPECT_FALSE(Match(u"anybody", u"10.0.0.1"));
}

TEST_F(PrintJobMatcherOnWindows9x, PrinterNameWithoutASecondBackslashIsAnErrorAndWritesNothing) {
    settings_.JobDetectionMethodWin9X(2);
    Matcher();
    for (const std::u16string printer : {u"\\\\srv", u"laser", u"\\", u""}) {
        try {
            Match(u"jsmith", u"WS01", printer);
            ADD_FAILURE() << "no error";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), 5);
        }
    }
    EXPECT_EQ(log_.lines, Texts());
}

TEST_F(PrintJobMatcherOnWindows9x, TheRightUserMatchesOnWhateverMachine) {
    EXPECT_TRUE(Match(u"jsmith", u"WS02"));
    EXPECT_FALSE(Match(u"other", u"WS01"));
}

TEST_F(PrintJobMatcherOnWindows9x, TheAddressIsResolvedAllTheSame) {
    sockets_.names[FakeSockets::Address(10, 1, 2, 3)] = u"ws02";
    EXPECT_TRUE(Match(u"jsmith", u"10.1.2.3"));
    EXPECT_TRUE(log_.Has(u"Resolved IP: 10.1.2.3 to machine: ws02"));
    EXPECT_EQ(log_.lines.back(), u"Match result: True");
}

TEST_F(PrintJobMatcher, OnWindowsNTThePrinterNameDoesNotMatter) {
    settings_.JobDetectionMethodWin9X(1);
    EXPECT_TRUE(Match(u"jsmith", u"WS01", u""));
}

TEST_F(PrintJobMatcher, RaisesWhatTheSystemInformationRaises) {
    systemInformation_.userNameFails = true;
    EXPECT_THROW(Matcher(), Error);
}

}  // namespace
}  // namespace korvanta::tests
