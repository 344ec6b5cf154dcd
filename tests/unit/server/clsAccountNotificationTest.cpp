#include "server/clsAccountNotification.h"

#include "ServerFixture.h"

namespace korvanta {
namespace {

const std::u16string eightLines = u"56\r\nWS17\r\nLaser\r\njsmith\r\nletter.doc\r\n1234\r\n-7\r\nSmith / Audit\r\n";
const std::u16string thirteenLines = eightLines + u"1\r\nurgent\r\njsmith.056\r\nStandard\r\n0.15\r\n";

class AccountNotification : public ServerFixture {
  protected:
    bool Read(std::u16string_view text) {
        TextInput stream = Open(text);
        return notification.ReadFile(stream);
    }
    bool Write() {
        TextOutput stream = Create();
        return notification.WriteFile(stream);
    }

    clsAccountNotification notification{clock, reports};
};

TEST_F(AccountNotification, ANewRecordIsEmpty) {
    EXPECT_TRUE(Write());
    EXPECT_EQ(files.ReadBytes(written), Utf16(u"0\r\n\r\n\r\n\r\n\r\n0\r\n0\r\n\r\n0\r\n\r\n\r\n\r\n0\r\n"));
}

TEST_F(AccountNotification, TheFileHasTheThirteenLinesInOrder) {
    notification.JobID = 56;
    notification.MachineName = u"WS17";
    notification.PrinterName = u"Laser";
    notification.UserName = u"jsmith";
    notification.Document = u"letter.doc";
    notification.PrinterHandle = 1234;
    notification.AccountID = -7;
    notification.AccountTitle = u"Smith / Audit";
    notification.Invoiceable = true;
    notification.Comment = u"urgent";
    notification.JobEventFilename = u"jsmith.056";
    notification.ChargeRateDescription = u"Standard";
    notification.ChargeRateValue = 0.15;
    EXPECT_TRUE(Write());
    EXPECT_EQ(files.ReadBytes(written), Utf16(thirteenLines));
}

TEST_F(AccountNotification, TheFileIsWrittenInOneGoHoweverLong) {
    notification.Document = std::u16string(100'000, u'd');
    notification.Comment = std::u16string(100'000, u'c');
    int writes = 0;
    files.onWrite = [&writes](const std::u16string&) { ++writes; };
    EXPECT_TRUE(Write());
    EXPECT_EQ(writes, 1);
}

TEST_F(AccountNotification, EveryFailureToWriteShowsInTheResult) {
    TextOutput stream = Create();
    files.faults.FailOnce("Write", 1, windowsError::diskFull);
    EXPECT_FALSE(notification.WriteFile(stream));
    EXPECT_TRUE(reports.messages.empty());
}

TEST_F(AccountNotification, ALineBreakInTheCommentMakesMoreLines) {
    notification.Comment = u"one\r\ntwo";
    EXPECT_TRUE(Write());
    EXPECT_EQ(Split(files.ReadUtf16(written), lineBreak).size(), 14U + 1);
}

TEST_F(AccountNotification, OddCharactersAreWrittenAsTheyStand) {
    notification.Document = std::u16string{u'\0', 0xD800, 0xFFFF};
    EXPECT_TRUE(Write());
    EXPECT_EQ(files.ReadBytes(written),
              Utf16(u"0\r\n\r\n\r\n\r\n" + notification.Document + u"\r\n0\r\n0\r\n\r\n0\r\n\r\n\r\n\r\n0\r\n"));
}

TEST_F(AccountNotification, TheValueIsWrittenAsRegionalSettingsSayAndReadWithAPoint) {
    notification.ChargeRateValue = 0.15;
    clock.decimalSeparator = u",";
    EXPECT_TRUE(Write());
    EXPECT_TRUE(files.ReadUtf16(written).ends_with(u"\r\n0,15\r\n"));
    TextInput stream = TextInput::OpenUtf16(files, written);
    EXPECT_TRUE(notification.ReadFile(stream));
    EXPECT_EQ(notification.ChargeRateValue, 0.0);
}

TEST_F(AccountNotification, ReadingRestoresWhatWasWritten) {
    EXPECT_TRUE(Read(thirteenLines));
    EXPECT_EQ(notification.JobID, 56);
    EXPECT_EQ(notification.PrinterHandle, 1234);
    EXPECT_EQ(notification.AccountID, -7);
    EXPECT_EQ(notification.ChargeRateValue, 0.15);
    EXPECT_TRUE(Write());
    EXPECT_EQ(files.ReadBytes(written), Utf16(thirteenLines));
}

TEST_F(AccountNotification, AZeroOnLineNineLeavesInvoiceableAsItWas) {
    EXPECT_TRUE(Read(eightLines + u" 0 \r\n"));
    EXPECT_FALSE(notification.Invoiceable);
    notification.Invoiceable = true;
    EXPECT_TRUE(Read(eightLines + u"0\r\n"));
    EXPECT_TRUE(notification.Invoiceable);
}

TEST_F(AccountNotification, AnythingElseOnLineNineMakesItInvoiceable) {
    for (const std::u16string line : {u"1", u"False", u"00", u"", u"word"}) {
        notification.Invoiceable = false;
        EXPECT_TRUE(Read(eightLines + line + u"\r\n"));
        EXPECT_TRUE(notification.Invoiceable) << testing::PrintToString(line);
    }
}

TEST_F(AccountNotification, AFileThatEndsAfterLineEightLeavesTheRestAsItWas) {
    notification.Comment = u"before";
    notification.ChargeRateValue = 3;
    EXPECT_TRUE(Read(eightLines));
    EXPECT_FALSE(notification.Invoiceable);
    EXPECT_EQ(notification.Comment, u"before");
    EXPECT_EQ(notification.ChargeRateValue, 3);
    EXPECT_TRUE(Read(eightLines + u"1\r\nafter\r\n"));
    EXPECT_EQ(notification.Comment, u"after");
    EXPECT_EQ(notification.ChargeRateValue, 3);
    EXPECT_TRUE(reports.messages.empty());
}

TEST_F(AccountNotification, AMissingLineFailsAndIsReportedWithWhatWasRead) {
    EXPECT_FALSE(Read(u"56\r\nWS17\r\nLaser\r\n"));
    EXPECT_EQ(reports.messages,
              Lines{u"cldAccountNotification.ReadFile Failed - ; JobID: 56; MachineName: WS17; PrinterName: Laser; "
                    u"UserName: ; Document: ; AccountID: 0; AccountTitle: "});
}

TEST_F(AccountNotification, ANumberThatIsNoneFailsAndIsReportedWithWhatWasRead) {
    EXPECT_FALSE(Read(Replace(eightLines, u"-7", u"seven")));
    EXPECT_EQ(reports.messages,
              Lines{u"cldAccountNotification.ReadFile Failed - ; JobID: 56; MachineName: WS17; PrinterName: Laser; "
                    u"UserName: jsmith; Document: letter.doc; AccountID: 0; AccountTitle: "});
    EXPECT_EQ(notification.PrinterHandle, 1234);
    EXPECT_FALSE(Read(Replace(eightLines, u"1234", u"99999999999")));
    EXPECT_FALSE(Read(u"\r\n"));
    EXPECT_FALSE(Read(u""));
    EXPECT_EQ(reports.messages.size(), 4U);
}

TEST_F(AccountNotification, TheFilesNameIsMachineHandleAndJob) {
    EXPECT_EQ(NotificationFileName(u"WS17", 1234, 56), u"WS17.1234.56.tlx");
    EXPECT_EQ(NotificationFileName(u"WS17", -1, 0), u"WS17.-1.0.tlx");
}

}  // namespace
}  // namespace korvanta
