#include "server/Shares.h"

#include "gtest/gtest.h"
#include "server/PrinterName.h"
#include "server/clsAccountNotification.h"

namespace korvanta {
namespace {

TEST(Shares, TheDataShareHasTheListsAndTheSettings) {
    const Shares shares(u"Srv");
    EXPECT_EQ(shares.DataFolder(), u"\\\\Srv\\TLXData$");
    EXPECT_EQ(shares.PrintersFile(), u"\\\\Srv\\TLXData$\\Printers.txt");
    EXPECT_EQ(shares.ServersFile(), u"\\\\Srv\\TLXData$\\Servers.txt");
    EXPECT_EQ(shares.ClientSettingsFile(), u"\\\\Srv\\TLXData$\\ClientSet.txt");
    EXPECT_EQ(shares.AccountsFile(), u"\\\\Srv\\TLXData$\\Accounts.txt");
    EXPECT_EQ(shares.ChargeRatesFile(), u"\\\\Srv\\TLXData$\\ChargeRates.txt");
}

TEST(Shares, JobFilesLieInAFolderOfTheDataShare) {
    EXPECT_EQ(Shares(u"SRV").JobsFolder(), u"\\\\SRV\\TLXData$\\jobs");
    EXPECT_EQ(Shares(u"SRV").JobFile(u"jsmith.007"), u"\\\\SRV\\TLXData$\\jobs\\jsmith.007");
}

TEST(Shares, WhatClientsWriteHasSharesOfItsOwn) {
    EXPECT_EQ(Shares(u"SRV").PreferencesFile(u"jsmith"), u"\\\\SRV\\TLXPrefs$\\jsmith.txt");
    EXPECT_EQ(Shares(*PrinterName(u"\\\\PRINTSRV\\Laser").Server())
                  .AccountNotificationFile(NotificationFileName(u"WS17", 0, 5)),
              u"\\\\PRINTSRV\\TLXActN$\\WS17.0.5.tlx");
}

TEST(Shares, TheNameIsTakenAsItIsGiven) {
    EXPECT_EQ(Shares(u"").DataFolder(), u"\\\\\\TLXData$");
    EXPECT_EQ(Shares(u" a b\\").DataFolder(), u"\\\\ a b\\\\TLXData$");
}

}  // namespace
}  // namespace korvanta
