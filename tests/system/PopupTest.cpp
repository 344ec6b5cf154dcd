// How the account dialog comes up: where, in front of what, and what it does when the screen or the session changes.

#include "SystemTest.h"
#include "driver/Keyboard.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

RECT WorkArea() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

bool IsInside(const RECT& inner, const RECT& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

class PopupTest : public SystemTest {
  protected:
    void Offer(const std::wstring& document) {
        Announce(document);
        ASSERT_TRUE(DialogOffers(document));
    }
    void OfferFirst() {
        PublishAll();
        StartMonitoring();
        ASSERT_NO_FATAL_FAILURE(Offer(L"first"));
    }
    void CancelAndOfferAgain() {
        PressCancel();
        const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
        ASSERT_TRUE(box && box->Press(driver::MessageWindow::ok));
        ASSERT_TRUE(Client().WaitForHidden(L"frmAccountNumber"));
        ASSERT_NO_FATAL_FAILURE(Offer(L"second"));
    }
    // As the user's mouse does.
    void MoveDialog(int left, int top, int width, int height) const {
        // Again and again, for a window manager that has yet to say where the window came up wins over the first move.
        ASSERT_TRUE(WaitFor([&] {
            SetWindowPos(Dialog().Handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
            const RECT now = Dialog().Rectangle();
            return now.left == left && now.top == top && now.right - now.left == width &&
                   now.bottom - now.top == height;
        }));
    }
};

TEST_F(PopupTest, ComesUpInFrontInTheMiddleOfTheScreen) {
    ASSERT_NO_FATAL_FAILURE(OfferFirst());
    EXPECT_TRUE(WaitFor([&] { return GetForegroundWindow() == Dialog().Handle(); }));
    const RECT area = WorkArea();
    const RECT place = Dialog().Rectangle();
    EXPECT_TRUE(IsInside(place, area));
    EXPECT_NEAR(static_cast<double>(place.left - area.left), static_cast<double>(area.right - place.right), 2.0);
    EXPECT_NEAR(static_cast<double>(place.top - area.top), static_cast<double>(area.bottom - place.bottom), 2.0);
}

TEST_F(PopupTest, StaysWhereAndAsLargeAsItsUserLeftIt) {
    ASSERT_NO_FATAL_FAILURE(OfferFirst());
    const RECT first = Dialog().Rectangle();
    ASSERT_NO_FATAL_FAILURE(MoveDialog(31, 47, first.right - first.left + 40, first.bottom - first.top + 30));
    ASSERT_NO_FATAL_FAILURE(CancelAndOfferAgain());
    const RECT second = Dialog().Rectangle();
    EXPECT_EQ(second.left, 31);
    EXPECT_EQ(second.top, 47);
    EXPECT_EQ(second.right - second.left, first.right - first.left + 40);
    EXPECT_EQ(second.bottom - second.top, first.bottom - first.top + 30);
}

TEST_F(PopupTest, ComesBackIntoViewFromOutsideOfTheScreen) {
    ASSERT_NO_FATAL_FAILURE(OfferFirst());
    const RECT first = Dialog().Rectangle();
    const RECT area = WorkArea();
    ASSERT_NO_FATAL_FAILURE(
        MoveDialog(area.right - 50, area.bottom - 50, first.right - first.left, first.bottom - first.top));
    ASSERT_NO_FATAL_FAILURE(CancelAndOfferAgain());
    EXPECT_TRUE(IsInside(Dialog().Rectangle(), area));
}

TEST_F(PopupTest, MovesIntoViewWhenTheScreenChangesWhileItWaits) {
    ASSERT_NO_FATAL_FAILURE(OfferFirst());
    const RECT first = Dialog().Rectangle();
    const RECT area = WorkArea();
    ASSERT_NO_FATAL_FAILURE(
        MoveDialog(area.right - 50, area.bottom - 50, first.right - first.left, first.bottom - first.top));
    constexpr LPARAM pixels = 0x04000500;
    Dialog().Post(WM_DISPLAYCHANGE, 32, pixels);
    EXPECT_TRUE(WaitFor([&] { return IsInside(Dialog().Rectangle(), area); }));
}

TEST_F(PopupTest, KeysThatCloseWindowsLeaveTheJobAsItIs) {
    ASSERT_NO_FATAL_FAILURE(OfferFirst());
    ASSERT_TRUE(driver::Keyboard::BringToForeground(Dialog()));
    Dialog().TurnTo();
    driver::Keyboard::Press(VK_ESCAPE);
    driver::Keyboard::PressWithAlt(VK_F4);
    // A key behind them shows that they have been dealt with.
    driver::Keyboard::PressWithAlt('Q');
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"chkSubmitAllDocuments").Checked(); }));
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"1");
    EXPECT_TRUE(driver::MessageWindowsOf(Client().ProcessId()).empty());
}

TEST_F(PopupTest, SessionEndWithASearchUnderWayEndsTheProgramAtOnce) {
    std::vector<driver::Account> accounts;
    for (int id = 1; id <= 60'000; ++id) {
        accounts.push_back({.id = id, .mainTitle = L"Matter " + std::to_wstring(id)});
    }
    Server().PublishAll({}, accounts);
    Server().WriteCounter(driver::CurrentUserLowerCase(), 0);
    StartMonitoring();
    ASSERT_NO_FATAL_FAILURE(Offer(L"long"));
    DialogControl(L"txtSearch").SetText(L"9");
    EXPECT_TRUE(Client().EndSession());
    EXPECT_TRUE(Client().WaitForEnd(std::chrono::seconds(4)));
    EXPECT_EQ(Client().ExitCode(), 0U);
}

TEST_F(PopupTest, TheIconComesBackWhenTheTaskbarIsMadeAgain) {
    PublishAll();
    StartMonitoring();
    ASSERT_TRUE(WaitFor([] { return driver::NotificationAreaHasIcon(); }));
    ASSERT_TRUE(Client().RemoveIcon());
    ASSERT_TRUE(WaitFor([] { return !driver::NotificationAreaHasIcon(); }));
    PostMessageW(HWND_BROADCAST, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    EXPECT_TRUE(WaitFor([] { return driver::NotificationAreaHasIcon(); }));
}

}  // namespace
