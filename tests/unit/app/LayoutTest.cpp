#include <memory>
#include <tuple>

#include "app/StatusForm.h"
#include "app/frmMessages.h"
#include "app/frmPrimaryServer.h"
#include "common/Deployment.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSetupFile.h"
#include "fakes/FakeSystemInformation.h"
#include "fakes/FakeTraceLog.h"
#include "fakes/PlainTranslator.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "translation/CatalogueTranslator.h"
#include "unit/app/ProgramFixture.h"
#include "unit/layout/Languages.h"
#include "unit/layout/LayoutCheck.h"

namespace korvanta {

namespace {

using testing::IsEmpty;

// The least that Windows takes of a window's height for its caption and frame.
constexpr int leastFrameHeight = 375;
// The most that it takes.
constexpr int frameWidth = 300;
constexpr int frameHeight = 600;

class FormLayoutTest : public testing::TestWithParam<double> {
  protected:
    FormLayoutTest() {
        // The parameter is how large letters are.
        for (int* size : {&platform.textMeasure.characterWidth, &platform.textMeasure.boldCharacterWidth,
                          &platform.textMeasure.lineHeight, &platform.textMeasure.boldLineHeight}) {
            *size = static_cast<int>(*size * GetParam());
        }
        platform.registry.Put(registrySubKey, u"LinkName", u"http://product.example");
    }
    BannerServices Banner() {
        return {platform.files, platform.codePage, platform.shell, platform.textMeasure, registrySettings};
    }

    fakes::FakePlatform platform;
    fakes::FakeSetupFile setupFile;
    fakes::FakeErrorReports reports;
    fakes::FakeTraceLog log;
    fakes::FakeSystemInformation information;
    clsRegSettings registrySettings{platform.registry, setupFile, reports};
    fakes::PlainTranslator translator;
    frmMessages messages{translator};
    layout::LayoutCheck check{platform.textMeasure};
};

class StatusLayoutTest : public FormLayoutTest {
  protected:
    StatusLayoutTest() : form(platform.textMeasure, Banner()) {
        form.ctlBanner1.Shown();
        form.Load(nullptr);
        for (Label* label :
             {&form.lblFullRefreshPerformed, &form.lblFullRefreshDue, &form.lblPrinterListScanPerformed,
              &form.lblPrinterListScanDue, &form.lblServerHealthTestPerformed, &form.lblServerHealthTestDue}) {
            label->Caption(u"2026-11-20 14:03");
        }
    }

    // Hides what lies below the window's edge, where the form is not to be seen until it is made higher.
    void HideWhatIsCutOff() {
        for (Control* child : form.Children()) {
            if (child->Position().top >= form.ClientHeight()) {
                child->Visible(false);
            }
        }
    }

    StatusForm form;
};

class PrimaryServerLayoutTest : public FormLayoutTest {
  protected:
    frmPrimaryServer form{platform.platform, log, translator, registrySettings, messages, information};
};

// Every form in every language that is shipped, and in a made-up one with long words, at the usual resolutions.
class LanguageLayoutTest : public fakes::ProgramFixture,
                           public testing::WithParamInterface<std::tuple<const char16_t*, int>> {
  protected:
    LanguageLayoutTest() {
        language = std::get<0>(GetParam());
        windows.textMeasure.dotsPerInch = std::get<1>(GetParam());
        windows.files.WriteUtf16(programFolder + u"\\" + languages::catalogueFile, languages::WithPseudo());
        windows.registry.Put(registryKey, u"Language", language);
        check.anyLength = {u"lblDocument", u"lblPrinter"};
    }
    ~LanguageLayoutTest() override { program.reset(); }

    void StartTranslated() {
        program = std::make_unique<basKorvanta>(windows.platform, &peers, catalogue);
        program->Main();
        EXPECT_TRUE(catalogue.Problems().empty());
        Form title(u"frmPrimaryServer");
        title.Caption(u"Korvanta - Primary Server");
        catalogue.Translate(title);
        EXPECT_EQ(title.Caption() == u"Korvanta - Primary Server", language == u"eng");
    }
    frmMain& Status() { return *program->MainForm(); }
    frmAccountNumber& Dialog() { return *program->AccountDialog(); }
    // Shows the form as with a window that takes so much of it for its caption and frame.
    void ShowAdvancedStatus() {
        Status().HandlePlace({}, Status().ClientWidth(), StatusForm::advancedHeight - leastFrameHeight);
    }
    void ExpectGood(const Form& form, const char* how) { EXPECT_THAT(check.Problems(form), IsEmpty()) << how; }

    std::u16string language;
    CatalogueTranslator catalogue{windows.files};
    layout::LayoutCheck check{windows.textMeasure};
};

}  // namespace

TEST_P(StatusLayoutTest, IsGoodAtItsFirstSize) {
    HideWhatIsCutOff();
    EXPECT_THAT(check.Problems(form), IsEmpty());
    EXPECT_TRUE(form.cmdClose.Visible());
    EXPECT_FALSE(form.lblFullRefresh.Visible());
}

TEST_P(StatusLayoutTest, IsGoodWithTheAdvancedDisplay) {
    form.HandlePlace({}, form.ClientWidth(), StatusForm::advancedHeight - leastFrameHeight);
    EXPECT_THAT(check.Problems(form), IsEmpty());
}

TEST_P(PrimaryServerLayoutTest, IsGood) {
    form.Load(nullptr);
    EXPECT_THAT(check.Problems(form), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Letters, StatusLayoutTest, testing::Values(0.7, 1.0));
INSTANTIATE_TEST_SUITE_P(Letters, PrimaryServerLayoutTest, testing::Values(0.7, 1.0, 1.3));

TEST_P(LanguageLayoutTest, StatusFormHasRoomForWhateverItMayShow) {
    StartTranslated();
    for (Control* child : Status().Children()) {
        if (child->Position().top >= Status().ClientHeight()) {
            child->Visible(false);
        }
    }
    const StatusTexts& texts = Status().texts;
    Status().ctlBanner1.Shown();
    for (const Label* activity : {&texts.lblFullRefreshActivity, &texts.lblPrinterListScanActivity,
                                  &texts.lblServerHealthTestActivity, &texts.lblIdleActivity, &texts.lblPollingServers,
                                  &texts.lblPollingPrinters, &texts.lblCheckingForJobs, &texts.lblIdle}) {
        Status().lblActivity.Caption(u"00.00.0000 00:00:00 AM " + activity->Caption());
        ExpectGood(Status(), "at its first size");
    }
    for (const Label* method : {&texts.lblFileMonitoring, &texts.lblPrinterMonitoring, &texts.lblHTTPMonitoring}) {
        Status().lblJobDetectionMethod.Caption(method->Caption());
        ExpectGood(Status(), "with each detection method");
    }
}

TEST_P(LanguageLayoutTest, AdvancedStatusHasRoomForWhateverItMayShow) {
    StartTranslated();
    ShowAdvancedStatus();
    Status().ctlBanner1.Shown();
    const StatusTexts& texts = Status().texts;
    for (const Label* result :
         {&texts.lblRefreshExecuting, &texts.lblRefreshCompleted, &texts.lblExecuting, &texts.lblPrinterListChanged,
          &texts.lblPrinterListUnchanged, &texts.lblServersValid, &texts.lblServersInvalid}) {
        for (Label* shown : {&Status().lblFullRefreshResult, &Status().lblPrinterListScanResult,
                             &Status().lblServerHealthTestResult}) {
            shown->Caption(result->Caption());
        }
        for (Label* date : {&Status().lblFullRefreshPerformed, &Status().lblFullRefreshDue,
                            &Status().lblPrinterListScanPerformed, &Status().lblPrinterListScanDue,
                            &Status().lblServerHealthTestPerformed, &Status().lblServerHealthTestDue}) {
            date->Caption(u"12/31/2026 10:00:00 PM");
        }
        ExpectGood(Status(), "with each result");
    }
}

TEST_P(LanguageLayoutTest, PrimaryServerDialogIsGood) {
    windows.registry.Put(registryKey, u"TLXPrimaryServer", std::u16string());
    int shown = 0;
    peers.onShowModal = [&](Form& form) {
        ++shown;
        ExpectGood(form, "as it comes up");
    };
    StartTranslated();
    EXPECT_EQ(shown, 1);
}

TEST_P(LanguageLayoutTest, AccountDialogIsGoodOnEachTabAndAtItsLeastSize) {
    StartTranslated();
    AnnounceJob(0, u"Letter.doc");
    Tick(2);
    Dialog().tmrMonitor.HandleTick();
    ASSERT_TRUE(Dialog().Shown());
    Dialog().prgSearch.Visible(true);
    for (const int tab : {1, 2, 3}) {
        Dialog().tabView.HandleSelected(tab);
        ExpectGood(Dialog(), "at its first size");
    }
    Dialog().HandlePlace({}, Dialog().MinimumWidth() - frameWidth, Dialog().MinimumHeight() - frameHeight);
    for (const int tab : {1, 2, 3}) {
        Dialog().tabView.HandleSelected(tab);
        ExpectGood(Dialog(), "at its least size");
    }
}

// Texts that nobody would write are cut off; everything is still there and can be used.
class EndlessTextsTest : public LanguageLayoutTest {
  protected:
    void ExpectUsable(const Form& form) {
        std::vector<std::string> problems = check.Problems(form);
        std::erase_if(problems, [](const std::string& problem) {
            return problem.find("is too small for its text") != std::string::npos;
        });
        EXPECT_THAT(problems, IsEmpty());
        // 1024 pixels at 96 DPI.
        EXPECT_LE(form.ClientWidth() + frameWidth, 15'360);
    }
};

TEST_P(EndlessTextsTest, LeaveRoomForFieldsAndButtons) {
    int shown = 0;
    windows.registry.Put(registryKey, u"TLXPrimaryServer", std::u16string());
    peers.onShowModal = [&](Form& form) {
        ++shown;
        ExpectUsable(form);
        dynamic_cast<TextBox*>(form.Find(u"txtServer"))->HandleChange(u"SRV1");
        dynamic_cast<CommandButton*>(form.Find(u"OKButton"))->HandleClick();
    };
    StartTranslated();
    EXPECT_EQ(shown, 1);
    Status().ctlBanner1.Shown();
    ShowAdvancedStatus();
    ExpectUsable(Status());
    AnnounceJob(0, u"Letter.doc");
    Tick(2);
    Dialog().tmrMonitor.HandleTick();
    ASSERT_TRUE(Dialog().Shown());
    for (const int tab : {1, 2, 3}) {
        Dialog().tabView.HandleSelected(tab);
        ExpectUsable(Dialog());
    }
    EXPECT_GE(Dialog().txtSearch.Position().width, 1'500);
    EXPECT_GE(Dialog().txtComment.Position().width, 1'500);
}

// 800 by 600 pixels at 96 DPI, as small as screens are that show anything else in peace.
using ShippedLanguageLayoutTest = LanguageLayoutTest;

TEST_P(ShippedLanguageLayoutTest, FitsOnASmallScreen) {
    StartTranslated();
    EXPECT_LE(Status().ClientWidth() + frameWidth, 12'000);
    EXPECT_LE(Dialog().MinimumWidth(), 12'000);
    EXPECT_LE(Dialog().MinimumHeight(), 9'000);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageLayoutTest,
                         testing::Combine(testing::Values(u"eng", u"deu", languages::pseudo),
                                          testing::Values(96, 120, 144, 192)));
INSTANTIATE_TEST_SUITE_P(Languages, EndlessTextsTest,
                         testing::Combine(testing::Values(languages::endless), testing::Values(96, 120, 144, 192)));
INSTANTIATE_TEST_SUITE_P(Languages, ShippedLanguageLayoutTest,
                         testing::Combine(testing::Values(u"eng", u"deu"), testing::Values(96, 120, 144, 192)));

}  // namespace korvanta
