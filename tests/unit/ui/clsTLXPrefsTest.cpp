#include "ui/clsTLXPrefs.h"

#include <memory>
#include <set>

#include "common/TextStream.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeMutexFactory.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PrefsTest : public testing::Test {
  protected:
    PrefsTest() { files.AddFolder(u"\\\\SRV\\TLXPrefs$"); }
    ~PrefsTest() override { EXPECT_EQ(files.OpenFiles(), 0) << "a file was left open"; }

    clsTLXPrefs Load() { return {files, mutexes, u"SRV", u"jsmith"}; }
    static std::vector<std::int32_t> Numbers(const std::shared_ptr<List>& list) {
        std::vector<std::int32_t> numbers;
        for (const Variant& item : list->Items()) {
            numbers.push_back(item.Integer());
        }
        return numbers;
    }
    static void ExpectDefaults(const clsTLXPrefs& prefs) {
        EXPECT_EQ(prefs.LastTab(), 1);
        EXPECT_EQ(prefs.LastSearchString(), u"");
        EXPECT_FALSE(prefs.LastSearchRemember());
        EXPECT_THAT(Numbers(prefs.History()), IsEmpty());
        EXPECT_THAT(Numbers(prefs.Preferred()), IsEmpty());
        EXPECT_EQ(prefs.GetLastSelectedAccount(), -1);
    }
    // History 4 from the server's copy and 5 from the local one tell which was read.
    void WriteGoodLocal() { files.WriteUtf16(local, u"history\u00015\r\npreferred\u000150,51\r\n"); }

    const std::u16string server = u"\\\\SRV\\TLXPrefs$\\jsmith.txt";
    const std::u16string local = u"C:\\Temp\\tlxpref.txt";
    fakes::FakeClock clock;
    fakes::FakeFileSystem files{clock};
    fakes::FakeMutexFactory mutexes;
};

}  // namespace

TEST_F(PrefsTest, AFirstRunHasTheDefaults) {
    ExpectDefaults(Load());
}

TEST_F(PrefsTest, Selecting1To21Keeps2To21AndSelecting5AgainMovesItToTheEnd) {
    clsTLXPrefs prefs = Load();
    for (std::int32_t id = 1; id <= 21; ++id) {
        prefs.SetLastSelectedAccount(id);
    }
    EXPECT_THAT(Numbers(prefs.History()),
                ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21));
    prefs.SetLastSelectedAccount(5);
    EXPECT_THAT(Numbers(prefs.History()),
                ElementsAre(2, 3, 4, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 5));
    EXPECT_EQ(prefs.GetLastSelectedAccount(), 5);
}

TEST_F(PrefsTest, AddingAPreferredAccountTwiceKeepsItsPlace) {
    clsTLXPrefs prefs = Load();
    for (const std::int32_t id : {3, 1, 2, 1}) {
        prefs.AddPreferred(id);
    }
    EXPECT_THAT(Numbers(prefs.Preferred()), ElementsAre(3, 1, 2));
    prefs.RemovePreferred(1);
    prefs.RemovePreferred(99);
    EXPECT_THAT(Numbers(prefs.Preferred()), ElementsAre(3, 2));
}

TEST_F(PrefsTest, AnEmptyRememberValueIsTrueAndOnlyZeroIsFalse) {
    for (const auto& [value, remembered] :
         {std::pair{u"", true}, {u"1", true}, {u"0", false}, {u"00", true}, {u" 0", true}, {u"no", true}}) {
        files.WriteUtf16(server, std::u16string(u"lastsearchremember\u0001") + value + u"\r\n");
        EXPECT_EQ(Load().LastSearchRemember(), remembered);
    }
}

TEST_F(PrefsTest, ABlankLineAnywhereMakesTheLoadFallBackToTheLocalCopy) {
    WriteGoodLocal();
    for (const char16_t* text :
         {u"\r\nhistory\u00014\r\n", u"history\u00014\r\n\r\n", u"history\u00014\r\n\r\nlasttab\u00012\r\n"}) {
        files.WriteUtf16(server, text);
        EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
        EXPECT_EQ(Load().LastTab(), 1);
    }
}

TEST_F(PrefsTest, UnknownKeysSurviveALoadAndASaveUnchanged) {
    files.WriteUtf16(server, u"zeta\u0001 keep me \r\nhistory\u00014\r\nlasttab\u00012\r\nZeta\u0001\r\n");
    clsTLXPrefs prefs = Load();
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(files.ReadUtf16(server),
              u"zeta\u0001 keep me \r\nhistory\u00014\r\nlasttab\u00012\r\nZeta\u0001\r\n"
              u"preferred\u0001\r\n");
    EXPECT_EQ(files.ReadBytes(local), files.ReadBytes(server));
}

TEST_F(PrefsTest, BothCopiesAreWrittenInTheOrderInWhichTheKeysWereSet) {
    clsTLXPrefs prefs = Load();
    prefs.LastTab(3);
    prefs.LastSearchRemember(true);
    prefs.LastSearchString(u"n\u00F6rd");
    prefs.SetLastSelectedAccount(12);
    prefs.SetLastSelectedAccount(-7);
    prefs.AddPreferred(2);
    EXPECT_TRUE(prefs.Save());
    const std::u16string expected =
        u"lasttab\u00013\r\nlastsearchremember\u00011\r\nlastsearchstring\u0001n\u00F6rd\r\n"
        u"history\u000112,-7\r\npreferred\u00012\r\n";
    EXPECT_EQ(files.ReadUtf16(server), expected);
    EXPECT_EQ(files.ReadUtf16(local), expected);
}

TEST_F(PrefsTest, TheFileIsUtf16WithItsMarkByteForByte) {
    clsTLXPrefs prefs = Load();
    prefs.SetLastSelectedAccount(1);
    EXPECT_TRUE(prefs.Save());
    std::string expected = "\xFF\xFE";
    for (const char unit : std::string("history\1"
                                       "1\r\npreferred\1\r\n")) {
        expected += unit;
        expected += '\0';
    }
    EXPECT_EQ(files.ReadBytes(server), expected);
}

TEST_F(PrefsTest, NothingIsWrittenBeforeSave) {
    clsTLXPrefs prefs = Load();
    prefs.LastTab(2);
    prefs.AddPreferred(1);
    prefs.SetLastSelectedAccount(1);
    EXPECT_FALSE(files.Has(server));
    EXPECT_FALSE(files.Has(local));
}

TEST_F(PrefsTest, WhatWasSavedIsReadAgain) {
    {
        clsTLXPrefs prefs = Load();
        prefs.LastTab(-32768);
        prefs.LastSearchRemember(true);
        prefs.LastSearchString(std::u16string{u'a', 0xD800, u',', u'\0', u'"'});
        prefs.SetLastSelectedAccount(2147483647);
        prefs.SetLastSelectedAccount(-2147483647 - 1);
        prefs.AddPreferred(0);
        EXPECT_TRUE(prefs.Save());
    }
    const clsTLXPrefs prefs = Load();
    EXPECT_EQ(prefs.LastTab(), -32768);
    EXPECT_TRUE(prefs.LastSearchRemember());
    EXPECT_EQ(prefs.LastSearchString(), (std::u16string{u'a', 0xD800, u',', u'\0', u'"'}));
    EXPECT_THAT(Numbers(prefs.History()), ElementsAre(2147483647, -2147483647 - 1));
    EXPECT_THAT(Numbers(prefs.Preferred()), ElementsAre(0));
}

TEST_F(PrefsTest, ALaterLineOfTheSameKeyOverwritesAnEarlierOneInItsPlace) {
    files.WriteUtf16(server, u"lasttab\u00012\r\nhistory\u00014\r\nlasttab\u00013\r\nLastTab\u00019\r\n");
    clsTLXPrefs prefs = Load();
    EXPECT_EQ(prefs.LastTab(), 3);
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(files.ReadUtf16(server), u"lasttab\u00013\r\nhistory\u00014\r\nLastTab\u00019\r\npreferred\u0001\r\n");
}

TEST_F(PrefsTest, WhatFollowsASecondSeparatorIsDroppedOnReading) {
    files.WriteUtf16(server, u"lastsearchstring\u0001one\u0001two\u0001three\r\n");
    EXPECT_EQ(Load().LastSearchString(), u"one");
}

TEST_F(PrefsTest, ASearchTextWithSeparatorsReadsAsItWasSetAndLosesOnlyItsTailInTheFile) {
    clsTLXPrefs prefs = Load();
    prefs.LastSearchString(u"one\u0001two");
    EXPECT_EQ(prefs.LastSearchString(), u"one\u0001two");
    prefs.SetLastSelectedAccount(4);
    EXPECT_TRUE(prefs.Save());
    const clsTLXPrefs again = Load();
    EXPECT_EQ(again.LastSearchString(), u"one");
    EXPECT_EQ(again.GetLastSelectedAccount(), 4);
}

TEST_F(PrefsTest, ASearchTextWithLineBreaksDoesNotCorruptTheFile) {
    for (const char16_t* text : {u"a\r\nb", u"a\nb", u"a\rb", u"ab\r", u"ab\n", u"\r\nab"}) {
        clsTLXPrefs prefs = Load();
        prefs.LastSearchString(text);
        prefs.SetLastSelectedAccount(4);
        prefs.AddPreferred(6);
        EXPECT_TRUE(prefs.Save());
        const clsTLXPrefs again = Load();
        EXPECT_EQ(again.LastSearchString(), u"ab");
        EXPECT_EQ(again.GetLastSelectedAccount(), 4);
        EXPECT_THAT(Numbers(again.Preferred()), ElementsAre(6));
    }
}

TEST_F(PrefsTest, ASearchTextOf60000CharactersIsRemembered) {
    clsTLXPrefs prefs = Load();
    prefs.LastSearchString(std::u16string(60'000, u'x'));
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(Load().LastSearchString().size(), 60'000U);
}

TEST_F(PrefsTest, TheServersCopyIsPreferredToTheLocalOne) {
    files.WriteUtf16(server, u"history\u00014\r\n");
    WriteGoodLocal();
    const clsTLXPrefs prefs = Load();
    EXPECT_THAT(Numbers(prefs.History()), ElementsAre(4));
    EXPECT_THAT(Numbers(prefs.Preferred()), IsEmpty());
}

TEST_F(PrefsTest, TheLocalCopyServesWhenTheServersIsMissingUnreadableOrTheServerIsDown) {
    WriteGoodLocal();
    EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
    files.WriteUtf16(server, u"history\u00014\r\n");
    files.FailPath(server, windowsError::accessDenied);
    EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
    files.FailPath(server, 0);
    files.Down(u"SRV");
    EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
}

TEST_F(PrefsTest, AReadThatFailsHalfWayFallsBackToTheLocalCopy) {
    std::u16string text = u"history\u00014\r\n";
    text += u"filler\u0001" + std::u16string(100'000, u'x') + u"\r\n";
    files.WriteUtf16(server, text);
    WriteGoodLocal();
    files.faults.FailOnce("Read", 2, windowsError::sharingViolation);
    EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
}

TEST_F(PrefsTest, ATruncatedServerCopyFallsBackToTheLocalOne) {
    WriteGoodLocal();
    files.WriteUtf16(server, u"history\u00014\r\nprefer");
    EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
    EXPECT_THAT(Numbers(Load().Preferred()), ElementsAre(50, 51));
}

// A save that met a full disk leaves an emptied file on the share; the local copy has the newest state.
TEST_F(PrefsTest, AnEmptiedServerCopyDoesNotTakeThePreferencesAway) {
    WriteGoodLocal();
    files.WriteBytes(server, "");
    EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
    files.WriteBytes(server, "\xFF\xFE");
    EXPECT_THAT(Numbers(Load().History()), ElementsAre(5));
}

TEST_F(PrefsTest, AMalformedNumberMakesACopyUnreadableAsAWhole) {
    WriteGoodLocal();
    for (const char16_t* bad : {u"history\u00014,,6\r\n", u"history\u00014,\r\n", u"history\u0001four\r\n",
                                u"history\u00014\r\npreferred\u00011,x\r\n", u"history\u00012147483648\r\n",
                                u"preferred\u000199999999999999999999999999\r\n", u"history\u00014;5\r\n"}) {
        files.WriteUtf16(server, bad);
        const clsTLXPrefs prefs = Load();
        EXPECT_THAT(Numbers(prefs.History()), ElementsAre(5));
        EXPECT_THAT(Numbers(prefs.Preferred()), ElementsAre(50, 51));
    }
}

TEST_F(PrefsTest, WhenBothCopiesFailNothingOfEitherIsKept) {
    files.WriteUtf16(server, u"lasttab\u00013\r\nhistory\u00014,5,x\r\n");
    files.WriteUtf16(local, u"lasttab\u00012\r\nlastsearchremember\u00011\r\nhistory\u00016\r\npreferred\u0001y\r\n");
    clsTLXPrefs prefs = Load();
    ExpectDefaults(prefs);
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(files.ReadUtf16(server), u"history\u0001\r\npreferred\u0001\r\n");
}

TEST_F(PrefsTest, AnUnusableLastTabIsTheFirst) {
    for (const char16_t* value : {u"", u"two", u"99999", u"-40000", u"99999999999999999999"}) {
        files.WriteUtf16(server, std::u16string(u"history\u00014\r\nlasttab\u0001") + value + u"\r\n");
        EXPECT_EQ(Load().LastTab(), 1);
    }
    files.WriteUtf16(server, u"lasttab\u000199\r\n");
    EXPECT_EQ(Load().LastTab(), 99);
}

TEST_F(PrefsTest, SaveWritesTheLocalCopyThoughTheServerIsDownAndSaysSo) {
    clsTLXPrefs prefs = Load();
    prefs.SetLastSelectedAccount(4);
    files.Down(u"SRV");
    EXPECT_FALSE(prefs.Save());
    EXPECT_EQ(files.ReadUtf16(local), u"history\u00014\r\npreferred\u0001\r\n");
    files.Up(u"SRV");
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(files.ReadBytes(local), files.ReadBytes(server));
}

TEST_F(PrefsTest, SaveWritesTheServersCopyThoughTheLocalOneCannotBeWritten) {
    clsTLXPrefs prefs = Load();
    prefs.SetLastSelectedAccount(4);
    files.FailPath(local, windowsError::accessDenied);
    EXPECT_FALSE(prefs.Save());
    EXPECT_EQ(files.ReadUtf16(server), u"history\u00014\r\npreferred\u0001\r\n");
}

TEST_F(PrefsTest, SaveTellsOfAWriteOrACloseThatFails) {
    clsTLXPrefs prefs = Load();
    files.faults.FailOnce("Write", 1, windowsError::diskFull);
    EXPECT_FALSE(prefs.Save());
    files.faults.FailOnce("Close", 2, windowsError::diskFull);
    EXPECT_FALSE(prefs.Save());
    EXPECT_TRUE(prefs.Save());
}

TEST_F(PrefsTest, WhenNothingCanBeWrittenTheLocalCopyStaysAsItWas) {
    files.WriteUtf16(server, u"preferred\u000150,51\r\n");
    WriteGoodLocal();
    clsTLXPrefs prefs = Load();
    prefs.AddPreferred(52);
    for (const std::uint32_t code : {windowsError::diskFull, fakes::FaultPlan::halfDone}) {
        files.faults.FailFrom("Write", 1, code);
        EXPECT_FALSE(prefs.Save());
        files.faults.Clear();
        EXPECT_THAT(Numbers(Load().Preferred()), ElementsAre(50, 51));
    }
    EXPECT_TRUE(prefs.Save());
    EXPECT_THAT(Numbers(Load().Preferred()), ElementsAre(50, 51, 52));
    EXPECT_THAT(files.FilesIn(u"C:\\Temp"), ElementsAre(u"tlxpref.txt"));
}

TEST_F(PrefsTest, AServersCopyThatWasWrittenHalfIsNotTakenForAWholeOne) {
    files.WriteUtf16(server, u"preferred\u000150,51\r\n");
    clsTLXPrefs prefs = Load();
    prefs.AddPreferred(52);
    files.faults.FailOnce("Write", 1, fakes::FaultPlan::halfDone);
    EXPECT_FALSE(prefs.Save());
    EXPECT_THAT(Numbers(Load().Preferred()), ElementsAre(50, 51, 52));
}

TEST_F(PrefsTest, WhatTheLastReadingGaveIsTold) {
    using Reading = clsTLXPrefs::Reading;
    EXPECT_EQ(Load().LastReading(), Reading::Missing);
    files.WriteUtf16(local, u"history\u00014,x\r\n");
    EXPECT_EQ(Load().LastReading(), Reading::Malformed);
    files.WriteUtf16(local, u"no separator\r\n");
    EXPECT_EQ(Load().LastReading(), Reading::Malformed);
    files.WriteUtf16(local, u"key\u0001" + std::u16string(TextInput::longestLine + 1, u'x'));
    EXPECT_EQ(Load().LastReading(), Reading::Malformed);
    files.WriteUtf16(local, u"history\u00012147483648\r\n");
    EXPECT_EQ(Load().LastReading(), Reading::Malformed);
    for (const auto& [code, reading] : {std::pair{windowsError::sharingViolation, Reading::Locked},
                                        {windowsError::accessDenied, Reading::Locked},
                                        {windowsError::diskFull, Reading::Locked},
                                        {windowsError::badNetPath, Reading::Unreachable},
                                        {windowsError::badNetName, Reading::Unreachable},
                                        {windowsError::pathNotFound, Reading::Unreachable},
                                        {windowsError::invalidName, Reading::Missing},
                                        {windowsError::fileNotFound, Reading::Missing}}) {
        files.FailPath(local, code);
        EXPECT_EQ(Load().LastReading(), reading) << "Windows error " << code;
    }
    files.FailPath(local, 0);
    WriteGoodLocal();
    EXPECT_EQ(Load().LastReading(), Reading::Good);
}

TEST_F(PrefsTest, AServersCopyThatWasWrittenCountsAsRead) {
    clsTLXPrefs prefs = Load();
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(prefs.LastReading(), clsTLXPrefs::Reading::Good);
    files.WriteUtf16(server, u"history\u00014\r\n");
    EXPECT_TRUE(prefs.Save());
    EXPECT_THAT(Numbers(Load().History()), IsEmpty()) << "the last writer wins";
}

TEST_F(PrefsTest, WhatCouldNotBeReadAtTheStartIsNotOverwrittenBySave) {
    files.WriteUtf16(server, u"other\u0001kept\r\nlasttab\u00012\r\nhistory\u00014,6\r\npreferred\u000150,51\r\n");
    files.Down(u"SRV");
    clsTLXPrefs prefs = Load();
    const std::shared_ptr<List> preferred = prefs.Preferred();
    ExpectDefaults(prefs);
    prefs.SetLastSelectedAccount(4);
    prefs.AddPreferred(51);
    prefs.AddPreferred(7);
    prefs.LastTab(3);
    EXPECT_FALSE(prefs.Save());
    EXPECT_FALSE(prefs.Save());
    files.Up(u"SRV");
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(prefs.Preferred(), preferred);
    for (const clsTLXPrefs& one : {prefs, Load()}) {
        EXPECT_THAT(Numbers(one.History()), ElementsAre(6, 4));
        EXPECT_THAT(Numbers(one.Preferred()), ElementsAre(50, 51, 7));
        EXPECT_EQ(one.LastTab(), 3);
    }
    EXPECT_NE(files.ReadUtf16(server).find(u"other\u0001kept\r\n"), std::u16string::npos);
}

TEST_F(PrefsTest, AServersCopyThatStillCannotBeReadWaitsForALaterSave) {
    files.WriteUtf16(server, u"preferred\u000150,51\r\n");
    files.Down(u"SRV");
    clsTLXPrefs prefs = Load();
    prefs.AddPreferred(7);
    files.Up(u"SRV");
    for (const char* call : {"OpenForReading", "Read"}) {
        files.faults.FailOnce(call, 1, windowsError::sharingViolation);
        EXPECT_FALSE(prefs.Save()) << call;
    }
    EXPECT_TRUE(prefs.Save());
    EXPECT_THAT(Numbers(Load().Preferred()), ElementsAre(50, 51, 7));
}

TEST_F(PrefsTest, ALocalCopyThatCouldNotBeReadAtTheStartIsNotOverwrittenBySave) {
    files.Down(u"SRV");
    WriteGoodLocal();
    files.faults.FailOnce("Read", 1, windowsError::sharingViolation);
    clsTLXPrefs prefs = Load();
    ExpectDefaults(prefs);
    prefs.Save();
    EXPECT_THAT(Numbers(Load().Preferred()), ElementsAre(50, 51));
}

TEST_F(PrefsTest, AStoredCopyThatCannotBeTakenOverIsLeftAlone) {
    files.WriteUtf16(server, u"preferred\u000150,51\r\n");
    files.Down(u"SRV");
    clsTLXPrefs prefs = Load();
    prefs.AddPreferred(7);
    files.Up(u"SRV");
    // Wherever a list fails while they are put together.
    for (int good = 0; good < 12; ++good) {
        for (int i = 0; i < good; ++i) {
            mutexes.state.waitResults.push_back(WaitResult::Acquired);
        }
        mutexes.state.waitResults.push_back(WaitResult::TimedOut);
        EXPECT_NO_THROW(prefs.Save());
        mutexes.state.waitResults.clear();
        EXPECT_THAT(Numbers(Load().Preferred()), testing::IsSupersetOf({50, 51})) << good;
    }
    prefs.Save();
    EXPECT_THAT(Numbers(Load().Preferred()), ElementsAre(50, 51, 7));
}

TEST_F(PrefsTest, SaveDoesNotRaiseWhenAListCannotBeRead) {
    clsTLXPrefs prefs = Load();
    prefs.SetLastSelectedAccount(4);
    mutexes.state.waitResults.push_back(WaitResult::TimedOut);
    bool saved = true;
    EXPECT_NO_THROW(saved = prefs.Save());
    EXPECT_FALSE(saved);
    // The local copy was written none the less.
    EXPECT_EQ(files.ReadUtf16(local), u"history\u00014\r\npreferred\u0001\r\n");
}

TEST_F(PrefsTest, AHistoryLongerThan20IsKeptAndLosesItsOldestAtEachNewSelection) {
    files.WriteUtf16(server, u"history\u00011,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22\r\n");
    clsTLXPrefs prefs = Load();
    EXPECT_EQ(prefs.History()->Length(), 22);
    prefs.SetLastSelectedAccount(23);
    EXPECT_EQ(prefs.History()->Length(), 22);
    EXPECT_EQ(prefs.History()->Item(0).Integer(), 2);
}

TEST_F(PrefsTest, TheListsStayTheSameObjectsWhateverIsSelected) {
    clsTLXPrefs prefs = Load();
    const std::shared_ptr<List> preferred = prefs.Preferred();
    prefs.AddPreferred(1);
    prefs.AddPreferred(2);
    preferred->Item(0, 2);
    preferred->Item(1, 1);
    EXPECT_TRUE(prefs.Save());
    EXPECT_EQ(files.ReadUtf16(server), u"history\u0001\r\npreferred\u00012,1\r\n");
}

TEST_F(PrefsTest, SeveralPreferredAccountsGoAtOnceAndTheOthersKeepTheirOrder) {
    files.WriteUtf16(server, u"preferred\u00015,1,4,1,3,2\r\n");
    clsTLXPrefs prefs = Load();
    const std::shared_ptr<List> preferred = prefs.Preferred();
    prefs.RemovePreferred(std::set<std::int32_t>{});
    EXPECT_THAT(Numbers(preferred), ElementsAre(5, 1, 4, 1, 3, 2));
    prefs.RemovePreferred({1, 3, 77});
    EXPECT_THAT(Numbers(preferred), ElementsAre(5, 4, 2));
    prefs.RemovePreferred({5, 4, 2});
    EXPECT_THAT(Numbers(preferred), IsEmpty());
}

}  // namespace korvanta
