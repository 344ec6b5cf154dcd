// The catalogue that is shipped, and that every text of the program comes from a catalogue.

#include <algorithm>
#include <set>

#include "translation/Catalogue.h"
#include "translation/CatalogueTranslator.h"
#include "unit/app/ProgramFixture.h"
#include "unit/layout/Languages.h"

namespace korvanta {
namespace {

using fakes::ProgramText;
using fakes::ProgramTexts;
using languages::section;

std::string Narrow(const std::u16string& text) {
    std::string narrow;
    for (const char16_t unit : text) {
        narrow += unit < 128 ? static_cast<char>(unit) : '?';
    }
    return narrow;
}

// The letter behind a single "&", folded; 0 without one.
char16_t AccessKey(const std::u16string& text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == u'&' && text[++i] != u'&') {
            return LowerUnit(text[i]);
        }
    }
    return 0;
}

std::set<std::u16string> Places(const std::u16string& text) {
    std::set<std::u16string> places;
    for (std::size_t i = text.find(u'%'); i != std::u16string::npos; i = text.find(u'%', i + 1)) {
        places.insert(text.substr(i, 2));
    }
    return places;
}

// Each shipped language, against what the program has.
class ShippedCatalogueTest : public testing::Test {
  protected:
    ShippedCatalogueTest() { catalogue.Read(languages::ShippedText()); }

    // Of what a language lacks another test tells.
    template <class Check>
    void ForEachText(Check check) {
        for (const std::u16string& language : catalogue.Languages(section)) {
            for (const ProgramText& english : texts) {
                SCOPED_TRACE(Narrow(language + u" " + english.key));
                if (const std::u16string* translation = catalogue.Find(section, language, english.key)) {
                    check(language, english, *translation);
                }
            }
        }
    }

    const std::vector<ProgramText> texts = ProgramTexts();
    Catalogue catalogue;
};

TEST_F(ShippedCatalogueTest, HasEnglishAndGermanWithoutABrokenLine) {
    EXPECT_EQ(catalogue.Languages(section), (std::vector<std::u16string>{u"deu", u"eng"}));
    EXPECT_TRUE(catalogue.Problems().empty());
    EXPECT_TRUE(languages::ShippedBytes().starts_with("\xFF\xFE"));
    EXPECT_GT(texts.size(), 80U);
}

TEST_F(ShippedCatalogueTest, KnowsEveryTextOfTheProgramAndNoOther) {
    std::set<std::u16string> keys;
    for (const ProgramText& text : texts) {
        keys.insert(Lower(text.key));
    }
    for (const std::u16string& language : catalogue.Languages(section)) {
        const std::vector<std::u16string> known = catalogue.Keys(section, language);
        for (const std::u16string& key : keys) {
            EXPECT_TRUE(std::binary_search(known.begin(), known.end(), key)) << Narrow(language + u" lacks " + key);
        }
        for (const std::u16string& key : known) {
            EXPECT_TRUE(keys.contains(key)) << Narrow(u"no form has " + key + u" of " + language);
        }
    }
}

TEST_F(ShippedCatalogueTest, EnglishIsWhatTheProgramSaysAnyway) {
    for (const ProgramText& text : texts) {
        const std::u16string* shipped = catalogue.Find(section, u"eng", text.key);
        ASSERT_NE(shipped, nullptr) << Narrow(text.key);
        EXPECT_EQ(*shipped, text.text) << Narrow(text.key) << ": let tools/catalogue/catalogue print eng.txt anew";
    }
}

TEST_F(ShippedCatalogueTest, TranslationsHaveAnAccessKeyWhereEnglishHasOne) {
    ForEachText([](const std::u16string&, const ProgramText& english, const std::u16string& translation) {
        EXPECT_EQ(AccessKey(english.text) != 0, AccessKey(translation) != 0);
    });
}

TEST_F(ShippedCatalogueTest, NoTwoAccessKeysOfAFormAreTheSame) {
    std::set<std::u16string> taken;
    ForEachText(
        [&taken](const std::u16string& language, const ProgramText& english, const std::u16string& translation) {
            const char16_t key = AccessKey(translation);
            if (key != 0) {
                EXPECT_TRUE((key >= u'a' && key <= u'z') || (key >= u'0' && key <= u'9'));
                const std::u16string form = english.key.substr(0, english.key.find(u'.'));
                EXPECT_TRUE(taken.insert(language + u" " + form + u" " + key).second) << "another text has the same";
            }
        });
    EXPECT_GT(taken.size(), 10U);
}

TEST_F(ShippedCatalogueTest, TranslationsHaveTheSamePlacesForValuesAndTheSameEnds) {
    ForEachText([](const std::u16string&, const ProgramText& english, const std::u16string& translation) {
        EXPECT_EQ(Places(english.text), Places(translation));
        EXPECT_EQ(english.text.back() == u':', translation.back() == u':');
        EXPECT_EQ(english.text.back() == u'?', translation.back() == u'?');
        EXPECT_EQ(Trim(translation), translation);
    });
}

TEST_F(ShippedCatalogueTest, TranslationsCanBeShownByWindows98OfTheLanguagesCountries) {
    ForEachText([](const std::u16string&, const ProgramText&, const std::u16string& translation) {
        EXPECT_TRUE(std::all_of(translation.begin(), translation.end(), [](char16_t unit) { return unit < 0x100; }));
    });
}

TEST_F(ShippedCatalogueTest, TheTitleFitsIntoTheToolTipOfTheIcon) {
    ForEachText([](const std::u16string&, const ProgramText& english, const std::u16string& translation) {
        EXPECT_TRUE(english.key != u"frmMain.ctlBanner1.lblTitle" || translation.size() <= 63U);
    });
}

// The program with a catalogue in which each text is its own key, so that one sees where a text comes from.
class EveryTextTest : public fakes::ProgramFixture {
  protected:
    EveryTextTest() {
        std::vector<ProgramText> keys = ProgramTexts();
        for (ProgramText& text : keys) {
            text.text = text.key;
        }
        WriteCatalogue(fakes::CatalogueOf(section, u"key", keys));
        windows.registry.Put(registryKey, u"Language", std::u16string(u"KEY"));
    }
    void WriteCatalogue(const std::u16string& catalogue) {
        windows.files.WriteUtf16(programFolder + u"\\" + languages::catalogueFile, catalogue);
    }
    bool StartTranslated() {
        windows.system.claimedInstances.clear();
        program = std::make_unique<basKorvanta>(windows.platform, &peers, catalogueTranslator);
        return program->Main();
    }
    frmMain& Status() { return *program->MainForm(); }
    std::u16string LastBox() {
        const auto& box = windows.messageBoxes.shown.back();
        return box.title + u": " + box.text;
    }

    CatalogueTranslator catalogueTranslator{windows.files};
};

TEST_F(EveryTextTest, WorkOfTheStatusFormIsToldInTheLanguage) {
    ASSERT_TRUE(StartTranslated());
    EXPECT_EQ(Status().Caption(), u"frmMain");
    EXPECT_EQ(windows.shell.trayIcons.front().tip, u"frmMain.ctlBanner1.lblTitle");
    EXPECT_EQ(Status().lblJobDetectionMethod.Caption(), u"frmMain.lblFileMonitoring");
    std::vector<std::u16string> activities;
    windows.messageLoop.onRunPending = [&] { activities.push_back(Status().lblActivity.Caption()); };
    const auto wasAt = [&activities](const std::u16string& key) {
        return std::any_of(activities.begin(), activities.end(),
                           [&key](const std::u16string& activity) { return activity.ends_with(u" frmMain." + key); });
    };
    Tick(10);
    EXPECT_TRUE(wasAt(u"lblIdleActivity"));
    EXPECT_TRUE(wasAt(u"lblPollingServers"));
    Status().cmdRefresh.HandleClick();
    Tick(1);
    EXPECT_TRUE(wasAt(u"lblFullRefreshActivity"));
    EXPECT_EQ(Status().lblFullRefreshResult.Caption(), u"frmMain.lblRefreshCompleted");
    Tick(60);
    EXPECT_TRUE(wasAt(u"lblPrinterListScanActivity"));
    EXPECT_TRUE(wasAt(u"lblServerHealthTestActivity"));
    EXPECT_EQ(Status().lblPrinterListScanResult.Caption(), u"frmMain.lblPrinterListUnchanged");
    EXPECT_EQ(Status().lblServerHealthTestResult.Caption(), u"frmMain.lblServersValid");
    EXPECT_EQ(Status().texts.Activity(u"Polling printers"), u"frmMain.lblPollingPrinters");
    EXPECT_EQ(Status().texts.Activity(u"Checking for new jobs"), u"frmMain.lblCheckingForJobs");
    EXPECT_EQ(Status().texts.Activity(u"Idle"), u"frmMain.lblIdle");
    EXPECT_EQ(Status().texts.Activity(u"Something else"), u"Something else");
    windows.messageLoop.onRunPending = {};
}

TEST_F(EveryTextTest, BoxesOfTheStatusFormAreInTheLanguage) {
    ASSERT_TRUE(StartTranslated());
    Status().mnuLogging.HandleClick();
    EXPECT_EQ(LastBox(), u"frmMain: frmMain.lblLoggingQuestion");
    Status().mnuAdvanced.HandleClick();
    EXPECT_EQ(LastBox(), u"frmMain: frmMain.lblAdvancedQuestion");
    Status().Unload(CloseReason::TaskManager);
    EXPECT_EQ(LastBox(), u"frmMain.lblCloseTitle: frmMain.lblCloseQuestion");
}

TEST_F(EveryTextTest, AccountDialogIsInTheLanguageAndWhatItSendsIsNot) {
    ASSERT_TRUE(StartTranslated());
    frmAccountNumber& dialog = *program->AccountDialog();
    for (const ctlAccountList* list : {&dialog.ctlAccountListAll, &dialog.ctlAccountListPreferred}) {
        EXPECT_EQ(list->flxAccounts.Text(0, 1), u"ctlAccountList.lblAccount");
    }
    EXPECT_EQ(dialog.tabView.Tabs()[2], u"frmAccountNumber.tabView.3");
    EXPECT_EQ(dialog.lblJobsQueued.Caption(), u"0");
    AnnounceJob(0, u"Letter.doc");
    Tick(2);
    dialog.tmrMonitor.HandleTick();
    EXPECT_EQ(dialog.lblDocument.Caption(), u"Letter.doc");
    dialog.ctlAccountListAll.SelectedID(1);
    dialog.cmdOK.HandleClick();
    const std::vector<std::u16string> sent = windows.files.FilesIn(u"\\\\SRV1\\TLXActN$");
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(windows.files.ReadUtf16(u"\\\\SRV1\\TLXActN$\\" + sent.front()).find(u"frm"), std::u16string::npos);
}

TEST_F(EveryTextTest, BoxesOfTheStartAreInTheLanguage) {
    windows.system.claimedInstances.insert(u"KorvantaCostbridgeClient");
    program = std::make_unique<basKorvanta>(windows.platform, &peers, catalogueTranslator);
    EXPECT_FALSE(program->Main());
    EXPECT_EQ(LastBox(), u"frmMessages.lblMessageBoxTitle: frmMessages.lblClientAlreadyRunning");

    windows.registry.Put(registryKey, u"TLXPrimaryServer", std::u16string());
    peers.onShowModal = [](Form& form) {
        EXPECT_EQ(form.Caption(), u"frmPrimaryServer");
        dynamic_cast<CommandButton*>(form.Find(u"OKButton"))->HandleClick();
    };
    EXPECT_FALSE(StartTranslated());
    ASSERT_GE(windows.messageBoxes.shown.size(), 3U);
    EXPECT_EQ(windows.messageBoxes.shown[1].title, u"frmMessages.lblApplicationTitle");
    EXPECT_EQ(windows.messageBoxes.shown[1].text, u"frmMessages.lblEnterPrimaryServer");
    EXPECT_EQ(LastBox(), u"frmMessages.lblMessageBoxTitle: frmMessages.lblPrimaryServerUnknown");
}

TEST_F(EveryTextTest, UnexpectedErrorIsToldInTheLanguageWithItsValues) {
    WriteCatalogue(u"[TLXActTrkClient key]\r\nfrmMessages.lblUnexpectedError = %5 %4 %3 %2\\n%1\r\n");
    windows.system.faults.FailFrom("UserName", 1, 5);
    EXPECT_FALSE(StartTranslated());
    EXPECT_TRUE(LastBox().starts_with(u"Korvanta Costbridge Client: Main:5 ")) << Narrow(LastBox());
    EXPECT_TRUE(LastBox().ends_with(u"\r\nsupport@korvanta.example"));
}

TEST_F(EveryTextTest, AnAccessKeyThatIsGivenTwiceIsToldInTheLogOnce) {
    windows.files.AddFolder(programFolder + u"\\Logs");
    WriteCatalogue(u"[TLXActTrkClient key]\r\nfrmAccountNumber.cmdOK = &Search now\r\n");
    ASSERT_TRUE(StartTranslated());
    EXPECT_EQ(program->AccountDialog()->lblSearch.Caption(), u"&Search:");
    EXPECT_EQ(program->AccountDialog()->cmdOK.Caption(), u"Search now");
    const std::u16string log = windows.files.ReadAnsi(programFolder + u"\\Logs\\event.log");
    const std::u16string told = u"Korvanta.tam: frmAccountNumber.cmdOK has the access key of an earlier text";
    ASSERT_NE(log.find(told), std::u16string::npos) << Narrow(log);
    EXPECT_EQ(log.find(told), log.rfind(told));
}

TEST_F(EveryTextTest, SupportAddressStandsWhereTheTranslationHasItsPlace) {
    WriteCatalogue(u"[TLXActTrkClient key]\r\nfrmMessages.lblInternalErrorServerName = %1: help!\r\n");
    catalogueTranslator.SetSections({section});
    catalogueTranslator.LoadCatalogue(programFolder + u"\\Korvanta.tam");
    catalogueTranslator.SetLanguage(u"key");
    catalogueTranslator.SelectSection(section);
    frmMessages messages(catalogueTranslator);
    EXPECT_EQ(messages.Text(u"lblInternalErrorServerName"), u"support@korvanta.example: help!");
}

TEST_F(EveryTextTest, LogsStayEnglish) {
    ASSERT_TRUE(StartTranslated());
    windows.messageBoxes.answers.push_back(MessageAnswer::OK);
    Status().mnuLogging.HandleClick();
    AnnounceJob(0, u"Letter.doc");
    Status().cmdRefresh.HandleClick();
    Tick(3);
    const std::u16string log = windows.files.ReadAnsi(programFolder + u"\\tlxlog.txt");
    EXPECT_NE(log.find(u"Loading client settings ..."), std::u16string::npos);
    EXPECT_EQ(log.find(u"frm"), std::u16string::npos);
}

}  // namespace
}  // namespace korvanta
