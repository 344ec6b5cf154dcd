// The program with the keyboard alone. Keys go in as from the hand: to whatever window is in the foreground.

#include <algorithm>
#include <map>

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/Keyboard.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::Keyboard;
using driver::WaitFor;

namespace {

// A window of the test's own, in which somebody writes.
class Editor {
  public:
    Editor()
        : window_(CreateWindowExW(0, L"EDIT", L"Editor", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                  nullptr, nullptr, nullptr)) {}
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;
    ~Editor() { DestroyWindow(window_); }

    driver::Window Window() const { return driver::Window(window_); }
    // Takes what comes, for the time between two keys of a fast writer.
    static void TakeMessages() {
        constexpr DWORD betweenKeys = 30;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, betweenKeys, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

  private:
    HWND window_;
};

class KeyboardTest : public SystemTest {
  protected:
    void Offer() {
        ASSERT_NO_FATAL_FAILURE(OfferToTheKeyboard());
        Dialog().TurnTo();
    }
    // Offers a job to a user who touches no mouse: he rests his hands until the dialog heeds them.
    void OfferToTheKeyboard() {
        PublishAll();
        StartMonitoring();
        job_ = Announce(L"Keys.doc");
        ASSERT_TRUE(DialogOffers(L"Keys.doc"));
        ASSERT_TRUE(Keyboard::BringToForeground(Dialog()));
        ASSERT_TRUE(WaitFor([&] { return Keyboard::Focus(Dialog()).Exists(); })) << "something has the focus";
        RestHands();
    }
    // For so long that a window which has come up by itself takes the next key for its own.
    static void RestHands() {
        const DWORD start = GetTickCount();
        WaitFor([&] { return GetTickCount() - start > 600; });
    }
    std::wstring FocusName() const { return Keyboard::Focus(Dialog()).Name(); }
    // Presses Tab and waits until the focus has moved on.
    std::wstring Tab() const {
        const HWND before = Keyboard::Focus(Dialog()).Handle();
        Keyboard::Press(VK_TAB);
        EXPECT_TRUE(WaitFor([&] {
            const HWND now = Keyboard::Focus(Dialog()).Handle();
            return now != nullptr && now != before;
        })) << "Tab does not leave "
            << driver::Utf8Bytes(FocusName());
        return FocusName();
    }
    bool FocusIs(const wchar_t* name) const {
        return WaitFor([&] { return FocusName() == name; });
    }
    bool SelectedRowIs(const std::wstring& view, int row) const {
        return WaitFor([&] { return View(view).SelectedRow() == row; });
    }
    // Types a search and lets it begin.
    void SearchFor(const std::wstring& text) const {
        Keyboard::PressWithAlt('S');
        ASSERT_TRUE(FocusIs(L"txtSearch"));
        Keyboard::Press(VK_DELETE);
        Keyboard::Type(text);
        Keyboard::Press(VK_RETURN);
    }
    bool TabTo(const std::wstring& name) const {
        for (int presses = 0; presses < 30 && FocusName() != name; ++presses) {
            Tab();
        }
        return FocusName() == name;
    }

    driver::Job job_;
};

TEST_F(KeyboardTest, TabReachesEveryControlInReadingOrderAndComesRound) {
    ASSERT_NO_FATAL_FAILURE(Offer());
    const std::wstring first = FocusName();
    std::vector<std::wstring> order{first};
    for (std::wstring name = Tab(); name != first && order.size() < 30; name = Tab()) {
        order.push_back(name);
    }
    ASSERT_LT(order.size(), 30U) << "Tab comes back to where it began";
    for (const wchar_t* name : {L"tabView", L"txtSearch", L"flxAccounts", L"cmdOK", L"cmdCancel", L"chkInvoice",
                                L"cboChargeRate", L"chkSubmitAllDocuments", L"chkRememberSearch", L"lblAddPreferred"}) {
        EXPECT_NE(std::find(order.begin(), order.end(), name), order.end()) << driver::Utf8Bytes(name);
    }
    // From the top downwards: begun with the highest control, no step goes up by more than a row.
    std::vector<LONG> tops;
    for (const std::wstring& name : order) {
        tops.push_back(DialogControl(name).Rectangle().top);
    }
    std::rotate(tops.begin(), std::min_element(tops.begin(), tops.end()), tops.end());
    for (std::size_t i = 1; i < tops.size(); ++i) {
        EXPECT_GE(tops[i] + 12, tops[i - 1]) << "step " << i;
    }
}

TEST_F(KeyboardTest, ArrowsChooseAnAccountAndEnterOnOkChargesIt) {
    ASSERT_NO_FATAL_FAILURE(Offer());
    ASSERT_TRUE(TabTo(L"flxAccounts"));
    Keyboard::Press(VK_HOME);
    Keyboard::Press(VK_DOWN);
    Keyboard::Press(VK_DOWN);
    ASSERT_TRUE(WaitFor([&] { return View(L"All").SelectedRow() == 2; }));
    ASSERT_TRUE(TabTo(L"cmdOK"));
    const driver::Notification expected = Expected(job_, LastJobFile(), 3, L"Smith / Tax");
    Keyboard::Press(VK_RETURN);
    ExpectNotification(expected);
}

TEST_F(KeyboardTest, SearchIsTypedAndEnterInItChargesNothing) {
    ASSERT_NO_FATAL_FAILURE(Offer());
    ASSERT_TRUE(TabTo(L"txtSearch"));
    Keyboard::Type(L"North");
    Keyboard::Press(VK_RETURN);
    EXPECT_TRUE(ViewShows(L"All", {L"Jones", L"North"}));
    EXPECT_EQ(DialogControl(L"txtSearch").Text(), L"North");
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(KeyboardTest, SpaceTicksABoxAndPressesALink) {
    ASSERT_NO_FATAL_FAILURE(Offer());
    ASSERT_TRUE(TabTo(L"chkSubmitAllDocuments"));
    Keyboard::Press(VK_SPACE);
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"chkSubmitAllDocuments").Checked(); }));
    ASSERT_TRUE(TabTo(L"lblAddPreferred"));
    Keyboard::Press(VK_SPACE);
    EXPECT_TRUE(WaitFor([&] { return View(L"Preferred").RowCount() == 1; }));
}

TEST_F(KeyboardTest, ArrowsOnTheTabsShowTheOtherViews) {
    ASSERT_NO_FATAL_FAILURE(Offer());
    ASSERT_TRUE(TabTo(L"tabView"));
    Keyboard::Press(VK_RIGHT);
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"fraPreferred").Visible(); }));
    EXPECT_FALSE(DialogControl(L"fraAllAccounts").Visible());
    Keyboard::Press(VK_RIGHT);
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"fraRecent").Visible(); }));
}

TEST_F(KeyboardTest, AccessKeysOfTheDialogWorkAndNoneIsGivenTwice) {
    ASSERT_NO_FATAL_FAILURE(Offer());
    std::map<wchar_t, std::wstring> owners;
    for (const driver::Window& window : Dialog().Descendants()) {
        const std::wstring text = window.Text();
        const std::wstring kind = window.ClassName();
        const std::size_t mark = text.find(L'&');
        const bool literal = kind == L"Static" && (GetWindowLongW(window.Handle(), GWL_STYLE) & SS_NOPREFIX) != 0;
        const bool marked = mark != std::wstring::npos && mark + 1 < text.size();
        if (!window.Visible() || literal || !marked || (kind != L"Button" && kind != L"Static")) {
            continue;
        }
        wchar_t key = text[mark + 1];
        CharUpperBuffW(&key, 1);
        EXPECT_TRUE(owners.emplace(key, window.Name()).second)
            << static_cast<char>(key) << " of " << driver::Utf8Bytes(window.Name()) << " and "
            << driver::Utf8Bytes(owners[key]);
    }
    const auto box = std::find_if(owners.begin(), owners.end(),
                                  [](const auto& owner) { return owner.second == L"chkSubmitAllDocuments"; });
    ASSERT_NE(box, owners.end()) << "the box has an access key";
    Keyboard::PressWithAlt(static_cast<WORD>(box->first));
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"chkSubmitAllDocuments").Checked(); }));
}

TEST_F(KeyboardTest, TheWholeRoadToOkIsWalkedWithKeysAlone) {
    ASSERT_NO_FATAL_FAILURE(OfferToTheKeyboard());
    ASSERT_TRUE(FocusIs(L"txtSearch"));
    Keyboard::Type(L"Smith");
    Keyboard::Press(VK_RETURN);
    ASSERT_TRUE(ViewShows(L"All", {L"Smith", L"Audit", L"Tax"}));

    // The list is walked from the search box.
    Keyboard::Press(VK_DOWN);
    ASSERT_TRUE(SelectedRowIs(L"All", 1));
    Keyboard::PressWithControl(VK_END);
    ASSERT_TRUE(SelectedRowIs(L"All", 2));
    Keyboard::Press(VK_PRIOR);
    ASSERT_TRUE(SelectedRowIs(L"All", 0));
    Keyboard::Press(VK_NEXT);
    ASSERT_TRUE(SelectedRowIs(L"All", 2));
    Keyboard::PressWithControl(VK_HOME);
    ASSERT_TRUE(SelectedRowIs(L"All", 0));
    EXPECT_EQ(FocusName(), L"txtSearch");

    // Two preferred accounts, moved up and down.
    Keyboard::Press(VK_DOWN);
    ASSERT_TRUE(SelectedRowIs(L"All", 1));
    ASSERT_TRUE(TabTo(L"lblAddPreferred"));
    Keyboard::Press(VK_SPACE);
    ASSERT_TRUE(ViewShows(L"Preferred", {L"Audit"}));
    Keyboard::PressWithAlt('S');
    Keyboard::Press(VK_DOWN);
    ASSERT_TRUE(SelectedRowIs(L"All", 2));
    ASSERT_TRUE(TabTo(L"lblAddPreferred"));
    Keyboard::Press(VK_RETURN);
    ASSERT_TRUE(ViewShows(L"Preferred", {L"Audit", L"Tax"}));
    Keyboard::PressWithControl(VK_TAB);
    ASSERT_TRUE(FocusIs(L"flxAccounts"));
    ASSERT_TRUE(DialogControl(L"fraPreferred").Visible());
    Keyboard::Press(VK_END);
    ASSERT_TRUE(SelectedRowIs(L"Preferred", 1));
    Keyboard::PressWithAlt('U');
    EXPECT_TRUE(ViewShows(L"Preferred", {L"Tax", L"Audit"}));
    Keyboard::PressWithAlt('D');
    EXPECT_TRUE(ViewShows(L"Preferred", {L"Audit", L"Tax"}));

    // The other tabs, and back.
    Keyboard::PressWithControl(VK_NEXT);
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"fraRecent").Visible(); }));
    Keyboard::PressWithAlt('P');
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"fraPreferred").Visible(); }));
    Keyboard::PressWithAlt('A');
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"fraAllAccounts").Visible(); }));
    EXPECT_TRUE(FocusIs(L"txtSearch"));

    // An account with a comment, a rate, not on the invoice, and OK with Enter.
    ASSERT_NO_FATAL_FAILURE(SearchFor(L"welcome"));
    ASSERT_TRUE(ViewShows(L"All", {L"Comment welcome"}));
    ASSERT_TRUE(WaitFor([&] { return DialogControl(L"txtComment").Enabled(); }));
    Keyboard::PressWithAlt('C');
    ASSERT_TRUE(FocusIs(L"txtComment"));
    Keyboard::Type(L"by keys");
    Keyboard::PressWithAlt('I');
    ASSERT_TRUE(WaitFor([&] { return !DialogControl(L"chkInvoice").Checked(); }));
    Keyboard::PressWithAlt('T');
    ASSERT_TRUE(FocusIs(L"cboChargeRate"));
    Keyboard::Press(VK_DOWN);
    ASSERT_TRUE(WaitFor([&] { return driver::ComboWindow(DialogControl(L"cboChargeRate")).Selected() == 0; }));
    driver::Notification expected = Expected(job_, LastJobFile(), 31, L"Comment welcome");
    expected.comment = L"by keys";
    expected.invoiceable = false;
    Keyboard::Press(VK_RETURN);
    ExpectNotification(expected);
    EXPECT_TRUE(Client().WaitForHidden(L"frmAccountNumber"));
}

TEST_F(KeyboardTest, TheLinkOfTheBannerIsOpenedWithAKey) {
    driver::SetMachineSetting(L"ResellerURL", L"http://localhost/help");
    ASSERT_NO_FATAL_FAILURE(Offer());
    ASSERT_TRUE(TabTo(L"lblLink"));
    EXPECT_EQ(DialogControl(L"lblLink").Text(), L"http://localhost/help");
    Keyboard::Press(VK_RETURN);
    std::wstring page;
    ASSERT_TRUE(WaitFor([&] {
        for (const std::wstring& name : driver::FileNames(Client().TemporaryFolder())) {
            page = name.starts_with(L"TL") && name.ends_with(L".htm") ? name : page;
        }
        return !page.empty();
    }));
    EXPECT_EQ(driver::ReadBytes(Client().TemporaryFolder() + L"\\" + page),
              "<HTML><META HTTP-EQUIV=\"Refresh\" CONTENT=\"1; URL=http://localhost/help\">\r\n"
              "<BODY bgcolor=\"white\"><FONT FACE=\"Verdana,Arial,Helvetica\">Please wait, loading "
              "<A HREF=http://localhost/help\">http://localhost/help</A> ....</FONT></BODY></HTML>\r\n");
    EXPECT_TRUE(Dialog().Visible()) << "Enter on the link presses no button";
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(KeyboardTest, CancelAndTheMessageAfterItAreAnsweredWithKeysAlone) {
    ASSERT_NO_FATAL_FAILURE(OfferToTheKeyboard());
    ASSERT_TRUE(TabTo(L"cmdCancel"));
    Keyboard::Press(VK_SPACE);
    const std::optional<driver::MessageWindow> message = Client().WaitForMessage();
    ASSERT_TRUE(message);
    EXPECT_FALSE(Dialog().Visible());
    ASSERT_TRUE(WaitFor([&] { return message->HasKeyboard(); }));
    // On a busy machine the message may come so late that it counts as unasked.
    RestHands();
    Keyboard::Press(VK_RETURN);
    EXPECT_TRUE(WaitFor([&] { return driver::MessageWindowsOf(Client().ProcessId()).empty(); }));
    EXPECT_TRUE(Server().NotificationNames().empty());
    EXPECT_TRUE(DialogStaysHidden());
}

// Whoever writes elsewhere when the dialog comes up does nothing to it, though it takes the focus in the middle of it.
TEST_F(KeyboardTest, KeysMeantForAnotherWindowNeitherAnswerNorSearch) {
    PublishAll();
    StartMonitoring();
    const Editor editor;
    ASSERT_TRUE(Keyboard::BringToForeground(editor.Window()));
    const driver::Job job = Announce(L"Meanwhile.doc");
    int pressedInDialog = 0;
    const DWORD start = GetTickCount();
    while (pressedInDialog < 50 && GetTickCount() - start < 20'000) {
        for (const WORD key : {WORD{'X'}, WORD{VK_SPACE}, WORD{VK_TAB}, WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
            Keyboard::Press(key);
            Editor::TakeMessages();
            pressedInDialog += GetForegroundWindow() == Dialog().Handle() ? 1 : 0;
        }
    }
    ASSERT_GE(pressedInDialog, 50) << "the dialog came to the front";
    ASSERT_TRUE(DialogOffers(L"Meanwhile.doc"));
    EXPECT_EQ(DialogControl(L"txtSearch").Text(), L"");
    EXPECT_EQ(FocusName(), L"txtSearch");
    EXPECT_NE(editor.Window().Text(), L"");
    EXPECT_TRUE(driver::MessageWindowsOf(Client().ProcessId()).empty());
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(KeyboardTest, PrimaryServerIsEnteredWithTheKeyboardAlone) {
    PublishAll();
    Client().Start();
    ASSERT_TRUE(Client().WaitForVisible(L"frmPrimaryServer"));
    const driver::Window form = Client().Form(L"frmPrimaryServer");
    ASSERT_TRUE(Keyboard::BringToForeground(form));
    EXPECT_TRUE(WaitFor([&] { return Keyboard::Focus(form).Name() == L"txtServer"; }))
        << "the name is asked for first, not " << driver::Utf8Bytes(Keyboard::Focus(form).Name());
    Keyboard::Type(ServerName());
    ASSERT_TRUE(WaitFor([&] { return form.Control(L"txtServer").Text() == ServerName(); }));
    Keyboard::Press(VK_RETURN);
    ASSERT_TRUE(Client().WaitForMonitoring());
}

}  // namespace
