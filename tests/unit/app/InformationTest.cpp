#include <gtest/gtest.h>

#include "app/ProgramInformation.h"
#include "app/basGUIAPI.h"
#include "app/frmMessages.h"
#include "common/Deployment.h"
#include "common/List.h"
#include "fakes/FakePlatform.h"
#include "fakes/PlainTranslator.h"

namespace korvanta {
namespace {

class InformationTest : public testing::Test {
  protected:
    template <class Call>
    std::int32_t ErrorOf(Call call) {
        try {
            call();
        } catch (const Error& error) {
            description = error.Description();
            return error.Number() - userErrorBase;
        }
        return 0;
    }

    fakes::FakePlatform windows;
    ProgramInformation information{windows.system};
    std::u16string description;
};

TEST_F(InformationTest, PlatformTwoIsWindowsNtAndPlatformOneIsWindows9x) {
    EXPECT_TRUE(information.IsWindowsNT());
    EXPECT_FALSE(information.IsWindows9x());
    fakes::FakePlatform old;
    old.system.platformId = 1;
    ProgramInformation other(old.system);
    EXPECT_FALSE(other.IsWindowsNT());
    EXPECT_TRUE(other.IsWindows9x());
}

TEST_F(InformationTest, FailedVersionCallRaisesItsErrorAndIsAskedAgain) {
    windows.system.faults.FailOnce("VersionPlatform", 1, 1);
    EXPECT_EQ(ErrorOf([this] { information.IsWindowsNT(); }), 23210);
    EXPECT_EQ(description, u"Unable to determine Windows version. GetVersionEx function call failed.");
    EXPECT_TRUE(information.IsWindowsNT());
}

TEST_F(InformationTest, NamesAreTrimmedWithoutNulsAndAskedOnce) {
    windows.system.computerName = std::u16string(u"  WS17\0\0  ", 10);
    EXPECT_EQ(information.ComputerName(), u"WS17");
    windows.system.computerName = fakes::FakeSystem::Filled(u"OTHER");
    EXPECT_EQ(information.ComputerName(), u"WS17");
    EXPECT_EQ(information.UserName(), u"jsmith");
}

TEST_F(InformationTest, FailedNameCallsRaiseTheirErrorsWithTheSystemsNumber) {
    windows.system.faults.FailOnce("ComputerName", 1, 111);
    windows.system.faults.FailOnce("UserName", 1, 1317);
    EXPECT_EQ(ErrorOf([this] { information.ComputerName(); }), 23220);
    EXPECT_EQ(description, u"Unable to get computer name: 111");
    EXPECT_EQ(ErrorOf([this] { information.UserName(); }), 23221);
    EXPECT_EQ(description, u"Unable to get user name: 1317");
}

TEST_F(InformationTest, CenterFormPutsTheFormInTheMiddleOfTheScreen) {
    fakes::PlainTranslator translator;
    frmMessages form(translator);
    form.Move({0, 0, 3000, 2000});
    CenterForm(form, windows.screen);
    const Place whole = windows.screen.WholeScreen();
    EXPECT_EQ(form.Position(), (Place{(whole.width - 3000) / 2, (whole.height - 2000) / 2, 3000, 2000}));
    SetFormTopMost(form, true);
    EXPECT_TRUE(form.TopMost());
    SetFormTopMost(form, false);
    EXPECT_FALSE(form.TopMost());
}

// Writes every caption anew, as a catalogue would.
class ReplacingTranslator : public fakes::PlainTranslator {
  public:
    void Translate(Container& form) override {
        for (Control* control : form.Children()) {
            control->Caption(u"translated " + control->Name());
        }
    }
};

TEST(MessagesTest, TextIsTheCaptionOfTheLabelOfThatName) {
    fakes::PlainTranslator translator;
    frmMessages messages(translator);
    EXPECT_EQ(messages.Form::Caption(), u"Messages for translation purposes");
    EXPECT_EQ(messages.Text(u"lblSelectAccount"), u"Please select an account from the list.");
    EXPECT_EQ(messages.Text(u"lblMessageBoxTitle"), u"Korvanta Client - Account Tracking");
    EXPECT_EQ(messages.Text(u"lblNoSuchLabel"), u"");
    EXPECT_EQ(messages.Text(u"lblInternalErrorServerName"),
              std::u16string(u"Internal error - unable to determine server name for printer. Report this to ") +
                  supportAddress);
    EXPECT_EQ(messages.Children().size(), 16U);
}

TEST(MessagesTest, AskingForATextBeforeTheFormIsLoadedLoadsAndTranslatesIt) {
    ReplacingTranslator translator;
    frmMessages messages(translator);
    EXPECT_FALSE(messages.Loaded());
    EXPECT_EQ(messages.Text(u"lblClientAlreadyRunning"), u"translated lblClientAlreadyRunning");
    EXPECT_TRUE(messages.Loaded());
    EXPECT_FALSE(messages.Shown());
}

}  // namespace
}  // namespace korvanta
