#include "server/clsTLXAccounts.h"

#include <new>

#include "ServerFixture.h"
#include "server/search/AccountSearch.h"

namespace korvanta {
namespace {

const std::u16string serverFile = u"\\\\SRV\\TLXData$\\Accounts.txt";
const std::u16string localCopy = u"C:\\Temp\\tlxact.txt";

std::u16string Line(std::int32_t id, bool isMain, std::u16string_view mainTitle, std::u16string_view subTitle = u"") {
    return clsAccount::GenerateStringForm(id, isMain, mainTitle, subTitle, true, false, 0, u"") + u"\r\n";
}

const std::u16string twoMainAccounts =
    Line(1, true, u"A") + Line(3, false, u"A", u"A1") + Line(4, false, u"A", u"A2") + Line(2, true, u"B");

class TLXAccounts : public ServerFixture {
  protected:
    // "A:1 A1:3 A2:4 | B:2" with a main account's MainTitle and a sub-account's SubTitle.
    static std::u16string Groups(const clsTLXAccounts& accounts) {
        std::vector<std::u16string> groups;
        for (const Variant& group : accounts.AccountList()->Items()) {
            std::vector<std::u16string> titles;
            for (const Variant& item : group.As<List>()->Items()) {
                const auto account = item.As<clsAccount>();
                titles.push_back((account->IsMain ? account->MainTitle : account->SubTitle) + u":" +
                                 NumberText(account->AccountID));
            }
            groups.push_back(Join(titles, u" "));
        }
        return Join(groups, u" | ");
    }
    std::u16string Groups() const { return Groups(accounts); }
    std::size_t Known() const { return accounts.AccountDict().Count(); }

    Lines LogOf(const std::function<void()>& action) {
        log.lines.clear();
        action();
        return log.lines;
    }

    // Which accounts a search shows, "A:1 A1:3" for a whole group.
    std::u16string Found(std::u16string_view text) const {
        AccountSearch search(accounts.Table(), text);
        std::vector<std::u16string> ids;
        for (std::size_t group = 0; group < accounts.Table()->GroupCount(); ++group) {
            for (const std::uint32_t number : search.Shown(group)) {
                ids.push_back(NumberText(accounts.Table()->Fields(number).accountId));
            }
        }
        return Join(ids, u" ");
    }
    // Memory runs out while a line of that file is read, the first time.
    void RunOutOfMemoryIn(const std::u16string& file, int read) {
        files.largestRead = 60;
        files.onRead = [this, file, read, reads = 0](const std::u16string& path) mutable {
            if (path == file && ++reads == read) {
                throw std::bad_alloc();
            }
        };
    }

    clsTLXAccounts accounts{files, mutexes, log, u"SRV"};
};

TEST_F(TLXAccounts, ANewObjectIsEmptyAndUnchanged) {
    EXPECT_EQ(Groups(), u"");
    EXPECT_EQ(Known(), 0U);
    EXPECT_EQ(accounts.Table()->Count(), 0U);
    EXPECT_FALSE(accounts.AccountsFileChanged());
    EXPECT_EQ(files.log, Lines());
}

TEST_F(TLXAccounts, AccountsAreGroupedByMainAccountInFileOrder) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
    EXPECT_EQ(Known(), 4U);
    EXPECT_EQ(accounts.AccountDict().Find(4)->SubTitle, u"A2");
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_EQ(log.lines,
              (Lines{u"Loading accounts ... ", u"Server file modified", u"Try to load accounts list from server",
                     u"Opening accounts list: " + serverFile, u"Loaded 2 accounts", u"Caching server accounts list"}));
    EXPECT_EQ(files.ReadBytes(localCopy), Utf16(twoMainAccounts));
}

TEST_F(TLXAccounts, TheListAndTheDictionaryHaveTheSameAccounts) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    const auto group = accounts.AccountList()->Item(0).As<List>();
    EXPECT_EQ(group->Item(2).As<clsAccount>()->StringForm(), accounts.AccountDict().Find(4)->StringForm());
    EXPECT_EQ(accounts.AccountDict().Find(5), nullptr);
}

TEST_F(TLXAccounts, TheListIsTheSameWhileSomebodyHoldsIt) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    const auto list = accounts.AccountList();
    EXPECT_EQ(accounts.AccountList(), list);
    files.SetModified(serverFile, 1);
    ASSERT_TRUE(accounts.LoadAccounts());
    EXPECT_NE(accounts.AccountList(), list);
}

TEST_F(TLXAccounts, TheAccountsAreSearchedByTheirTitles) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Found(u"a2"), u"1 4");
    EXPECT_EQ(Found(u"a"), u"1 3 4");
    EXPECT_EQ(Found(u"b"), u"2");
}

TEST_F(TLXAccounts, AnEmptyActiveFieldReadsAsActive) {
    files.WriteUtf16(serverFile, u"1\u00011\u0001A\u0001\u0001\u00010\u00010\u0001\r\n");
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountDict().Find(1)->IsActive);
}

TEST_F(TLXAccounts, ASecondLoadOfAnUnchangedFileLeavesTheListsInPlace) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    const auto list = accounts.AccountList();
    files.log.clear();
    EXPECT_EQ(LogOf([this] { EXPECT_TRUE(accounts.LoadAccounts()); }),
              (Lines{u"Loading accounts ... ", u"Server file not modified", u"Server accounts file not changed"}));
    EXPECT_FALSE(accounts.AccountsFileChanged());
    EXPECT_EQ(accounts.AccountList(), list);
    EXPECT_EQ(files.log, Lines{u"LastModified " + serverFile});
}

TEST_F(TLXAccounts, AFileWithAnotherTimeIsLoadedAgainEvenWhenOlder) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    files.WriteUtf16(serverFile, Line(5, true, u"C"));
    files.SetModified(serverFile, 1);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_EQ(Groups(), u"C:5");
}

TEST_F(TLXAccounts, AFileWithTheTimeZeroIsLoadedTheFirstTime) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    files.SetModified(serverFile, 0);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Known(), 4U);
}

TEST_F(TLXAccounts, WhoHoldsTheOldListsKeepsThem) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    const auto list = accounts.AccountList();
    const auto dictionary = accounts.AccountDict();
    const auto table = accounts.Table();
    files.WriteUtf16(serverFile, Line(5, true, u"C"));
    files.SetModified(serverFile, 1);
    ASSERT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(list->Length(), 2);
    EXPECT_EQ(dictionary.Count(), 4U);
    EXPECT_EQ(table->Count(), 4U);
}

TEST_F(TLXAccounts, OldListsAreGoneBeforeNewOnesAreRead) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    const std::weak_ptr<const AccountTable> table = accounts.Table();
    files.SetModified(serverFile, 1);
    int reads = 0;
    files.onRead = [&](const std::u16string&) {
        ++reads;
        EXPECT_TRUE(table.expired());
    };
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_GT(reads, 0);
}

TEST_F(TLXAccounts, AnotherOrderOfTheLinesIsAnotherList) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    files.WriteUtf16(serverFile, Line(2, true, u"B") + Line(3, false, u"B", u"A1") + Line(1, true, u"A") +
                                     Line(4, false, u"A", u"A2"));
    files.SetModified(serverFile, 1);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_EQ(Groups(), u"B:2 A1:3 | A:1 A2:4");
}

TEST_F(TLXAccounts, TitlesOf260CharactersComeWhole) {
    const std::u16string title(260, u'W');
    files.WriteUtf16(serverFile, Line(1, true, title) + Line(2, false, title, title + u"x"));
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(accounts.AccountDict().Find(2)->CompoundTitle(), title + u" / " + title + u"x");
    EXPECT_EQ(Found(u"wwx"), u"1 2");
}

TEST_F(TLXAccounts, AFirstLineThatIsASubAccountLoadsNothing) {
    files.WriteUtf16(serverFile, Line(3, false, u"A", u"A1") + Line(1, true, u"A"));
    EXPECT_FALSE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"");
    EXPECT_TRUE(log.Has(u"LoadAccountsFile Error: 91 - Object variable or With block variable not set"));
}

TEST_F(TLXAccounts, AFirstLineThatIsASubAccountStaysKnownAsWhatWasReadBeforeTheFailure) {
    files.WriteUtf16(localCopy, Line(3, false, u"A", u"A1") + Line(1, true, u"A"));
    EXPECT_FALSE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"");
    EXPECT_EQ(Known(), 1U);
    EXPECT_EQ(accounts.AccountDict().Find(3)->SubTitle, u"A1");
}

TEST_F(TLXAccounts, AFirstLineThatIsASubAccountHasTheLocalCopyLoaded) {
    files.WriteUtf16(serverFile, Line(3, false, u"A", u"A1") + Line(1, true, u"A"));
    files.WriteUtf16(localCopy, twoMainAccounts);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
    EXPECT_EQ(log.lines, (Lines{u"Loading accounts ... ", u"Server file modified",
                                u"Try to load accounts list from server", u"Opening accounts list: " + serverFile,
                                u"LoadAccountsFile Error: 91 - Object variable or With block variable not set",
                                u"Cannot load accounts from server, try the cached list",
                                u"Opening accounts list: " + localCopy, u"Loaded 2 accounts"}));
    EXPECT_EQ(files.ReadBytes(localCopy), Utf16(twoMainAccounts)) << "a bad file must not replace the copy";
}

TEST_F(TLXAccounts, AnUnreachableServerHasTheLocalCopyLoaded) {
    files.Down(u"SRV");
    files.WriteUtf16(localCopy, twoMainAccounts);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
    EXPECT_EQ(log.lines, (Lines{u"Loading accounts ... ", u"CheckServerAccountsFile Error: 76 - Path not found",
                                u"Try to load accounts list from server", u"Opening accounts list: " + serverFile,
                                u"LoadAccountsFile Error: 76 - Path not found",
                                u"Cannot load accounts from server, try the cached list",
                                u"Opening accounts list: " + localCopy, u"Loaded 2 accounts"}));
}

TEST_F(TLXAccounts, WithoutServerAndLocalCopyNothingIsLoaded) {
    files.Down(u"SRV");
    EXPECT_FALSE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_EQ(Groups(), u"");
    EXPECT_EQ(log.lines.back(), u"LoadAccountsFile Error: 53 - File not found");
}

TEST_F(TLXAccounts, AServerThatGoesDownHasTheListsRebuiltFromTheLocalCopy) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    const auto list = accounts.AccountList();
    files.Down(u"SRV");
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_NE(accounts.AccountList(), list);
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
    files.Up(u"SRV");
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_FALSE(accounts.AccountsFileChanged()) << "the local copy is of that very file";
}

TEST_F(TLXAccounts, AServerThatComesBackUnchangedIsLoadedAgainWhenNothingElseCouldBe) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    files.Down(u"SRV");
    files.RemoveFile(localCopy);
    EXPECT_FALSE(accounts.LoadAccounts());
    files.Up(u"SRV");
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
}

TEST_F(TLXAccounts, AFailingCopyIsIgnored) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    files.faults.FailFrom("Copy", 1, windowsError::diskFull);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(log.lines.back(), u"Caching server accounts list");
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_FALSE(accounts.AccountsFileChanged()) << "the file is remembered all the same";
}

TEST_F(TLXAccounts, AnUnreadableTimeIsIgnoredWhenTheFileItselfCanBeRead) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    files.faults.FailOnce("LastModified", 1, windowsError::accessDenied);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(log.lines[1], u"CheckServerAccountsFile Error: 70 - Permission denied");
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
}

TEST_F(TLXAccounts, AFileThatChangesWhileItIsReadIsFoundChangedTheNextTime) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    files.onRead = [this](const std::u16string&) {
        files.SetModified(serverFile, 77);
        files.onRead = nullptr;
    };
    ASSERT_TRUE(accounts.LoadAccounts());
    files.WriteUtf16(serverFile, Line(5, true, u"C"));
    files.SetModified(serverFile, 77);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(accounts.AccountsFileChanged());
    EXPECT_EQ(Groups(), u"C:5");
}

TEST_F(TLXAccounts, AFileThatShrinksWhileItIsReadIsAFailureAndNoCrash) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    files.WriteUtf16(localCopy, Line(9, true, u"Cached"));
    files.largestRead = 60;
    int reads = 0;
    files.onRead = [&](const std::u16string& path) {
        if (path == serverFile && ++reads == 2) {
            files.WriteUtf16(serverFile, u"");
        }
    };
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"Cached:9");
}

TEST_F(TLXAccounts, AFileWithoutAccountsFails) {
    for (const std::string& bytes : {std::string(), Utf16(u"")}) {
        files.WriteBytes(serverFile, bytes);
        EXPECT_EQ(LogOf([this] { EXPECT_FALSE(accounts.LoadAccounts()); }),
                  (Lines{u"Loading accounts ... ", u"Server file modified", u"Try to load accounts list from server",
                         u"Opening accounts list: " + serverFile, u"Loaded 0 accounts",
                         u"LoadAccountsFile Error: 99 - No accounts loaded",
                         u"Cannot load accounts from server, try the cached list",
                         u"Opening accounts list: " + localCopy, u"LoadAccountsFile Error: 53 - File not found"}));
    }
}

TEST_F(TLXAccounts, OfSeveralAccountsWithOneIdTheDictionaryHasTheLastAndTheListAll) {
    files.WriteUtf16(serverFile, Line(1, true, u"A") + Line(1, false, u"A", u"A1") + Line(1, true, u"B"));
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"A:1 A1:1 | B:1");
    EXPECT_EQ(Known(), 1U);
    EXPECT_EQ(accounts.AccountDict().Find(1)->MainTitle, u"B");
    EXPECT_TRUE(accounts.AccountDict().Find(1)->IsMain);
}

TEST_F(TLXAccounts, WhatWasReadBeforeABadLineStays) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    files.WriteUtf16(localCopy, twoMainAccounts + Line(5, true, u"C") + u"no account\r\n" + Line(6, true, u"D"));
    ASSERT_TRUE(accounts.LoadAccounts());
    files.WriteUtf16(localCopy, twoMainAccounts + Line(5, true, u"C") + u"no account\r\n" + Line(6, true, u"D"));
    files.Down(u"SRV");
    EXPECT_FALSE(accounts.LoadAccounts());
    EXPECT_EQ(log.lines.back(), u"LoadAccountsFile Error: 13 - Type mismatch");
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2") << "a group is listed when the next one begins";
    EXPECT_EQ(Known(), 5U);
    EXPECT_EQ(Found(u""), u"1 3 4 2") << "what is listed";
}

TEST_F(TLXAccounts, LinesThatAreNoAccountsFailWithTheirError) {
    const std::vector<std::pair<std::u16string, std::u16string>> cases{
        {u"\r\n", u"9 - Subscript out of range"},
        {u"6\u00011\u0001D\u0001\u00011\u00010\u00010\r\n", u"9 - Subscript out of range"},
        {u"six\u00011\u0001D\u0001\u00011\u00010\u00010\u0001\r\n", u"13 - Type mismatch"},
        {u"2147483648\u00011\u0001D\u0001\u00011\u00010\u00010\u0001\r\n", u"6 - Overflow"},
        {u"6\u00011\u0001D\u0001\u00011\u00010\u000132768\u0001\r\n", u"6 - Overflow"}};
    for (const auto& [line, error] : cases) {
        files.WriteUtf16(serverFile, twoMainAccounts + line);
        const Lines lines = LogOf([this] { EXPECT_FALSE(accounts.LoadAccounts()); });
        EXPECT_EQ(lines[4], u"LoadAccountsFile Error: " + error) << testing::PrintToString(line);
    }
}

TEST_F(TLXAccounts, AFileCutInTheMiddleOfALineFails) {
    const std::string whole = Utf16(twoMainAccounts);
    for (std::size_t length = whole.size() - 6; length > whole.size() - 20; --length) {
        files.WriteBytes(serverFile, whole.substr(0, length));
        EXPECT_FALSE(accounts.LoadAccounts()) << length;
    }
}

TEST_F(TLXAccounts, TheLastLineNeedsNoLineEnd) {
    files.WriteUtf16(serverFile, twoMainAccounts.substr(0, twoMainAccounts.size() - 2));
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
}

TEST_F(TLXAccounts, Utf8BinaryAndNeverEndingFilesFail) {
    files.WriteBytes(serverFile,
                     "1\x01"
                     "1\x01"
                     "A\x01\x01"
                     "1\x01"
                     "0\x01"
                     "0\x01\r\n");
    EXPECT_FALSE(accounts.LoadAccounts());
    files.WriteGenerated(serverFile, 200'000'000, [](std::uint64_t offset, char* buffer, std::size_t size) {
        for (std::size_t at = 0; at < size; ++at) {
            buffer[at] = static_cast<char>((offset + at) * 2654435761U >> 13U);
        }
    });
    EXPECT_FALSE(accounts.LoadAccounts());
    files.WriteGenerated(serverFile, fakes::FakeFileSystem::endless,
                         [](std::uint64_t, char* buffer, std::size_t size) { std::fill_n(buffer, size, '1'); });
    EXPECT_EQ(LogOf([this] { EXPECT_FALSE(accounts.LoadAccounts()); })[4],
              u"LoadAccountsFile Error: 14 - Out of string space");
    EXPECT_EQ(Groups(), u"");
}

TEST_F(TLXAccounts, OddCharactersInTitlesAreKeptAndFound) {
    const std::u16string odd{u'X', u'\0', 0xD800, u'Y', 0xDC00};
    files.WriteUtf16(serverFile, Line(1, true, odd) + Line(2, false, odd, odd));
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(accounts.AccountDict().Find(2)->SubTitle, odd);
    EXPECT_EQ(Found(std::u16string{u'\0', 0xD800, u'y'}), u"1 2");
}

TEST_F(TLXAccounts, AReadThatFailsHalfWayHasTheLocalCopyLoaded) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    files.WriteUtf16(localCopy, Line(9, true, u"Cached"));
    files.largestRead = 60;
    files.faults.FailOnce("Read", 2, 64);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(log.Has(u"LoadAccountsFile Error: 57 - Device I/O error (Windows error 64)"));
    EXPECT_EQ(Groups(), u"Cached:9");
}

TEST_F(TLXAccounts, RunningOutOfMemoryDropsWhatWasReadAndTriesTheLocalCopy) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    RunOutOfMemoryIn(serverFile, 2);
    EXPECT_FALSE(accounts.LoadAccounts());
    EXPECT_TRUE(log.Has(u"LoadAccountsFile Error: 7 - Out of memory"));
    files.WriteUtf16(localCopy, Line(9, true, u"Cached"));
    RunOutOfMemoryIn(serverFile, 2);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_EQ(Groups(), u"Cached:9");
    EXPECT_EQ(accounts.Table()->Count(), 1U);
}

TEST_F(TLXAccounts, OutOfMemoryForTheLocalCopyLeavesEmptyLists) {
    files.WriteUtf16(serverFile, u"");
    files.WriteUtf16(localCopy, twoMainAccounts);
    RunOutOfMemoryIn(localCopy, 2);
    EXPECT_FALSE(accounts.LoadAccounts());
    EXPECT_EQ(log.lines.back(), u"LoadAccountsFile Error: 7 - Out of memory");
    EXPECT_EQ(Groups(), u"");
    EXPECT_EQ(Known(), 0U);
    EXPECT_EQ(accounts.Table()->Count(), 0U);
}

TEST_F(TLXAccounts, AListThatCannotBeMadeIsTold) {
    files.WriteUtf16(serverFile, twoMainAccounts);
    ASSERT_TRUE(accounts.LoadAccounts());
    mutexes.faults.FailOnce("CreateOwned", 1, 8);
    EXPECT_THROW(accounts.AccountList(), Error);
    EXPECT_EQ(Groups(), u"A:1 A1:3 A2:4 | B:2");
}

TEST_F(TLXAccounts, ManyAccountsOfOneMainAccountAreOneGroup) {
    std::u16string text = Line(0, true, u"Main");
    for (std::int32_t id = 1; id <= 20'000; ++id) {
        text += Line(id, false, u"Main", u"Sub " + NumberText(id));
    }
    files.WriteUtf16(serverFile, text);
    EXPECT_TRUE(accounts.LoadAccounts());
    EXPECT_TRUE(log.Has(u"Loaded 1 accounts"));
    EXPECT_EQ(accounts.AccountList()->Item(0).As<List>()->Length(), 20'001);
    EXPECT_EQ(Known(), 20'001U);
    EXPECT_EQ(Found(u"sub 20000"), u"0 20000");
}

}  // namespace
}  // namespace korvanta
