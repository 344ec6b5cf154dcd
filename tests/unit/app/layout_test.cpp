#include <memory>

#include "app/PlainTranslator.h"
#include "app/StatusForm.h"
#include "app/frmMessages.h"
#include "app/frmPrimaryServer.h"
#include "common/Deployment.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSetupFile.h"
#include "fakes/FakeSystemInformation.h"
#include "fakes/FakeTraceLog.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "unit/layout/LayoutCheck.h"

namespace korvanta {

namespace {

using testing::IsEmpty;

// The least that Windows takes of a window's height for its caption and frame.
constexpr int leastFrameHeight = 375;

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
    PlainTranslator translator;
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
    frmPrimaryServer form{platform.platform, log, translator, registrySettings, messages, information, u"Korvanta"};
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

}  // namespace korvanta
