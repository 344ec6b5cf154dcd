#include "common/clsRegSettings.h"

#include <gtest/gtest.h>

#include "common/Deployment.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakeRegistry.h"
#include "fakes/FakeSetupFile.h"

namespace korvanta {
namespace {

const std::u16string subKey = registrySubKey;

class clsRegSettingsTest : public testing::Test {
  protected:
    fakes::FakeRegistry registry;
    fakes::FakeSetupFile setupFile;
    fakes::FakeErrorReports errorReports;
    clsRegSettings settings{registry, setupFile, errorReports};
};

TEST_F(clsRegSettingsTest, AllValuesLieUnderOneKeyOfTheMachine) {
    EXPECT_EQ(subKey, u"SOFTWARE\\Korvanta");
    registry.Put(RegistryHive::CurrentUser, subKey, u"Language", u"deu");
    EXPECT_EQ(settings.Language(), u"eng");
    registry.Put(RegistryHive::LocalMachine, subKey, u"Language", u"fra");
    EXPECT_EQ(settings.Language(), u"fra");
}

TEST_F(clsRegSettingsTest, ThePrimaryServerOfTheSetupFileIsStoredAtTheFirstRead) {
    setupFile.primaryServer = u"srv1";
    EXPECT_EQ(settings.TLXPrimaryServer(), u"srv1");
    EXPECT_EQ(registry.Text(subKey, u"TLXPrimaryServer"), u"srv1");
    EXPECT_EQ(setupFile.reads, 1);
    setupFile.primaryServer = u"srv2";
    EXPECT_EQ(settings.TLXPrimaryServer(), u"srv1");
    EXPECT_EQ(setupFile.reads, 1);
}

TEST_F(clsRegSettingsTest, WithAPrimaryServerInTheRegistryTheSetupFileIsNotConsulted) {
    registry.Put(subKey, u"TLXPrimaryServer", u"main");
    setupFile.primaryServer = u"srv1";
    EXPECT_EQ(settings.TLXPrimaryServer(), u"main");
    EXPECT_EQ(setupFile.reads, 0);
}

TEST_F(clsRegSettingsTest, AnUnknownPrimaryServerIsEmptyAndNotStored) {
    EXPECT_EQ(settings.TLXPrimaryServer(), u"");
    EXPECT_FALSE(registry.Has(subKey, u"TLXPrimaryServer"));
    EXPECT_TRUE(errorReports.messages.empty());
}

TEST_F(clsRegSettingsTest, AnEmptyPrimaryServerInTheRegistryCountsAsNone) {
    registry.Put(subKey, u"TLXPrimaryServer", u"");
    setupFile.primaryServer = u"srv1";
    EXPECT_EQ(settings.TLXPrimaryServer(), u"srv1");
    EXPECT_EQ(registry.Text(subKey, u"TLXPrimaryServer"), u"srv1");
}

TEST_F(clsRegSettingsTest, ThePrimaryServerIsStoredAsGiven) {
    settings.TLXPrimaryServer(u" srv 1 ");
    EXPECT_EQ(registry.Text(subKey, u"TLXPrimaryServer"), u" srv 1 ");
    EXPECT_EQ(settings.TLXPrimaryServer(), u" srv 1 ");
    settings.TLXPrimaryServer(u"");
    EXPECT_TRUE(registry.Has(subKey, u"TLXPrimaryServer"));
}

TEST_F(clsRegSettingsTest, AMissingOrEmptyLanguageReadsAsEng) {
    EXPECT_EQ(settings.Language(), u"eng");
    registry.Put(subKey, u"Language", u"");
    EXPECT_EQ(settings.Language(), u"eng");
    registry.Put(subKey, u"Language", u"deu");
    EXPECT_EQ(settings.Language(), u"deu");
}

TEST_F(clsRegSettingsTest, AResellerUrlOfErrorReadsAsEmpty) {
    EXPECT_EQ(settings.ResellerURL(), u"");
    registry.Put(subKey, u"ResellerURL", u"error");
    EXPECT_EQ(settings.ResellerURL(), u"");
    registry.Put(subKey, u"ResellerURL", u"Error");
    EXPECT_EQ(settings.ResellerURL(), u"Error");
    registry.Put(subKey, u"ResellerURL", u"http://reseller.example");
    EXPECT_EQ(settings.ResellerURL(), u"http://reseller.example");
}

TEST_F(clsRegSettingsTest, RememberedSettingsAreAnyNumberButZero) {
    EXPECT_FALSE(settings.TLXClientRemembersSettings());
    for (const std::int32_t number : {1, -1, 7, INT32_MIN}) {
        registry.Put(subKey, u"TLXClientRemembersSettings", number);
        EXPECT_TRUE(settings.TLXClientRemembersSettings());
    }
    registry.Put(subKey, u"TLXClientRemembersSettings", 0);
    EXPECT_FALSE(settings.TLXClientRemembersSettings());
    registry.Put(subKey, u"TLXClientRemembersSettings", u"1");  // not a number
    EXPECT_FALSE(settings.TLXClientRemembersSettings());
}

TEST_F(clsRegSettingsTest, TheLinkNameComesFromTheRegistryTheSetupFileOrTheProduct) {
    EXPECT_EQ(settings.LinkName(), productWebSite);
    EXPECT_EQ(registry.Text(subKey, u"LinkName"), productWebSite);
    for (const std::u16string& unset : {std::u16string(), std::u16string(u"Failed")}) {
        registry.Put(subKey, u"LinkName", unset);
        setupFile.linkName = u"http://set-up.example";
        EXPECT_EQ(settings.LinkName(), u"http://set-up.example");
        EXPECT_EQ(registry.Text(subKey, u"LinkName"), u"http://set-up.example");
    }
    registry.Put(subKey, u"LinkName", u"http://registry.example");
    EXPECT_EQ(settings.LinkName(), u"http://registry.example");
}

TEST_F(clsRegSettingsTest, ShowLinkComesFromTheSetupFileAndIsStoredAsAWord) {
    EXPECT_TRUE(settings.ShowLink());
    EXPECT_EQ(registry.Text(subKey, u"ShowLink"), u"True");
    registry.Put(subKey, u"ShowLink", u"Failed");
    setupFile.showLink = false;
    EXPECT_FALSE(settings.ShowLink());
    EXPECT_EQ(registry.Text(subKey, u"ShowLink"), u"False");
    setupFile.showLink = true;
    EXPECT_FALSE(settings.ShowLink());  // stored by now
}

TEST_F(clsRegSettingsTest, AStoredShowLinkIsAnyTextThatIsABoolean) {
    for (const char16_t* text : {u"True", u"true", u"-1", u"1"}) {
        registry.Put(subKey, u"ShowLink", std::u16string(text));
        EXPECT_TRUE(settings.ShowLink());
    }
    for (const char16_t* text : {u"False", u"0"}) {
        registry.Put(subKey, u"ShowLink", std::u16string(text));
        EXPECT_FALSE(settings.ShowLink());
    }
    EXPECT_EQ(setupFile.reads, 0);
}

TEST_F(clsRegSettingsTest, AShowLinkThatIsNoBooleanDoesNotRaise) {
    registry.Put(subKey, u"ShowLink", u"perhaps");
    setupFile.showLink = false;
    EXPECT_FALSE(settings.ShowLink());
    setupFile.showLink = true;
    EXPECT_TRUE(settings.ShowLink());
    EXPECT_EQ(registry.Text(subKey, u"ShowLink"), u"perhaps");
}

TEST_F(clsRegSettingsTest, ReadsAskForQueryAccessAloneAndCloseTheKey) {
    registry.Put(subKey, u"Language", u"deu");
    settings.Language();
    EXPECT_EQ(registry.log, (std::vector<std::u16string>{u"Open SOFTWARE\\Korvanta 1", u"QueryText Language"}));
    EXPECT_EQ(registry.openKeys, 0);
}

TEST_F(clsRegSettingsTest, AWriteTriesFullAccessFirst) {
    settings.TLXPrimaryServer(u"srv1");
    EXPECT_EQ(registry.log,
              (std::vector<std::u16string>{u"Create SOFTWARE\\Korvanta 63", u"SetText TLXPrimaryServer"}));
    EXPECT_EQ(registry.openKeys, 0);
}

TEST_F(clsRegSettingsTest, AWriteWithoutFullAccessTriesSetValueAccess) {
    registry.refusedAccess = {registryAccess::full};
    settings.TLXPrimaryServer(u"srv1");
    EXPECT_EQ(registry.Text(subKey, u"TLXPrimaryServer"), u"srv1");
    EXPECT_EQ(registry.log[1], u"Create SOFTWARE\\Korvanta 2");
    EXPECT_TRUE(errorReports.messages.empty());
}

TEST_F(clsRegSettingsTest, AWriteThatFailsChangesNothingAndIsReported) {
    registry.Put(subKey, u"TLXPrimaryServer", u"old");
    registry.refusedAccess = {registryAccess::full, registryAccess::set};
    settings.TLXPrimaryServer(u"new");
    EXPECT_EQ(registry.Text(subKey, u"TLXPrimaryServer"), u"old");
    ASSERT_EQ(errorReports.messages.size(), 1U);
    EXPECT_NE(errorReports.messages[0].find(u"TLXPrimaryServer"), std::u16string::npos);
    EXPECT_NE(errorReports.messages[0].find(u"5"), std::u16string::npos);

    registry.refusedAccess.clear();
    registry.faults.FailOnce("SetText", 1, 1018);
    settings.TLXPrimaryServer(u"new");
    EXPECT_EQ(registry.Text(subKey, u"TLXPrimaryServer"), u"old");
    EXPECT_EQ(errorReports.messages.size(), 2U);
    EXPECT_EQ(registry.openKeys, 0);
}

TEST_F(clsRegSettingsTest, WhatCannotBeStoredIsStillAnswered) {
    registry.refusedAccess = {registryAccess::full, registryAccess::set};
    setupFile.primaryServer = u"srv1";
    setupFile.linkName = u"link";
    setupFile.showLink = false;
    EXPECT_EQ(settings.TLXPrimaryServer(), u"srv1");
    EXPECT_EQ(settings.LinkName(), u"link");
    EXPECT_FALSE(settings.ShowLink());
}

TEST_F(clsRegSettingsTest, EveryReadThatFailsGivesItsDefault) {
    registry.Put(subKey, u"TLXPrimaryServer", u"srv1");
    registry.Put(subKey, u"Language", u"deu");
    registry.Put(subKey, u"ResellerURL", u"http://reseller.example");
    registry.Put(subKey, u"TLXClientRemembersSettings", 1);
    for (const char* call : {"Open", "Query"}) {
        const bool open = call == std::string_view("Open");
        registry.faults.FailFrom(open ? "Open" : "QueryText", 1, 5);
        registry.faults.FailFrom(open ? "Open" : "QueryNumber", 1, 5);
        EXPECT_EQ(settings.TLXPrimaryServer(), u"");
        EXPECT_EQ(settings.Language(), u"eng");
        EXPECT_EQ(settings.ResellerURL(), u"");
        EXPECT_FALSE(settings.TLXClientRemembersSettings());
        registry.faults.Clear();
    }
    EXPECT_EQ(settings.TLXPrimaryServer(), u"srv1");
}

}  // namespace
}  // namespace korvanta
