// Thousands of jobs, answered by the program itself in its test mode, and by a user who uses all ways there are.

#include "driver/Files.h"
#include "soak/SoakTest.h"

using soak::Await;

namespace {

class TestModeSoak : public SoakTest {
  protected:
    TestModeSoak() : SoakTest("The dialog answers by itself (/test)") {}

    void Answer(const std::vector<int>& jobs) {
        LetCharge(jobs);
        Result().Count("job answered by the test mode", static_cast<int>(jobs.size()));
    }
    // The notification of one job cannot be written.
    void LoseNotification() {
        TakeNotifications();
        const int job = AnnounceNext();
        std::vector<driver::MessageWindow> boxes;
        Await("the message that the server was not notified", [&] {
            Tick(L"frmMain");
            Tick(L"frmAccountNumber");
            boxes = driver::MessageWindowsOf(Client().ProcessId());
            return !boxes.empty();
        });
        EXPECT_EQ(boxes.front().Text(), message::notificationError);
        EXPECT_TRUE(boxes.front().Press(driver::MessageWindow::ok));
        ExpectNone(job);
        ReturnNotifications();
        Result().Count("job whose server could not be notified, with the message");
    }
    void Happen() {
        LetSomethingHappen([this](const std::vector<int>& jobs) { Answer(jobs); });
    }
    void Round(int most) {
        constexpr int mostAtOnce = 8;
        constexpr int between = 4;  // rounds from one event to the next
        if (most < mostAtOnce) {
            Answer(AnnounceNext(most));
            return;
        }
        Answer(AnnounceNext(Any(1, mostAtOnce - 3)));
        if (++rounds_ % between == 0) {
            Happen();
        }
        if (rounds_ % (10 * between) == 1) {
            LoseNotification();
        }
    }

  private:
    int rounds_ = 0;
};

TEST_F(TestModeSoak, NothingGrowsAndNoJobIsLostOrChargedTwice) {
    ASSERT_NO_FATAL_FAILURE(StartWithLog(L"/test"));
    GoThrough([this](int most) { Round(most); }, [this] { Happen(); });
    Conclude();
}

class ByHandSoak : public SoakTest {
  protected:
    ByHandSoak() : SoakTest("The dialog is answered by hand") {}

    // Waits until the dialog is ready for the job at the head of the queue.
    void Offer(int job) {
        MarkComment();
        Await("the dialog offers the next job", [&] {
            if (!Dialog().Visible()) {
                Tick(L"frmAccountNumber");
            }
            return Dialog().Visible() && DialogControl(L"lblDocument").Text() == Document(job) &&
                   DialogControl(L"txtComment").Text().empty() && DialogControl(L"cmdOK").Enabled();
        });
    }
    void Offer(const std::vector<int>& jobs) {
        LetFind(jobs.size());
        Offer(jobs.front());
    }
    void Tab(int tab) const {
        Await("the tab is shown", [&] { return ShowTab(tab); });
    }
    void Choose(const std::wstring& title, const std::wstring& view) const {
        Await("the account is chosen", [&] { return ChooseAccount(title, view); });
    }
    // Of the accounts that every list has and that take no comment.
    std::wstring AnyTitle() {
        static const wchar_t* const titles[] = {L"Smith", L"Audit", L"Tax", L"Jones", L"North", L"Always invoiced"};
        return titles[Any(0, 5)];
    }
    void Search(const std::wstring& text) const {
        const driver::Window search = DialogControl(L"txtSearch");
        search.SetText(text);
        search.PressKey(VK_RETURN);
        const driver::ListWindow list = View(L"All");
        Await("the search has found", [&] { return list.RowCount() <= 3 && list.FindRow(1, text) >= 0; });
    }
    void Accept(const std::vector<int>& jobs, const std::string& way) {
        PressOk();
        LetCharge(jobs);
        Result().Count(way, static_cast<int>(jobs.size()));
    }

    void BySearch() {
        const std::vector<int> job = AnnounceNext(1);
        Offer(job);
        Tab(1);
        const std::wstring title = AnyTitle();
        Search(title);
        Choose(title, L"All");
        Accept(job, "job answered by search and pick");
    }
    void ByPreferred() {
        const std::vector<int> job = AnnounceNext(1);
        Offer(job);
        Tab(1);
        Choose(L"Jones", L"All");
        DialogControl(L"lblAddPreferred").Click();
        Tab(2);
        Choose(L"Jones", L"Preferred");
        Accept(job, "job answered from the preferred accounts");
    }
    void ByRecent() {
        const std::vector<int> job = AnnounceNext(1);
        Offer(job);
        Tab(3);
        Choose(View(L"Recent").CellText(0, 1), L"Recent");
        Accept(job, "job answered from the recent accounts");
    }
    void Cancelled() {
        const std::vector<int> job = AnnounceNext(1);
        Offer(job);
        PressCancel();
        ExpectMessage(message::jobCancelError);
        ExpectNone(job.front());
        Result().Count("job cancelled");
    }
    void Escaped() {
        const std::vector<int> job = AnnounceNext(1);
        Offer(job);
        Tab(1);
        Choose(L"Audit", L"All");
        View(L"All").PressKey(VK_ESCAPE);
        Dialog().Post(WM_SYSCOMMAND, SC_CLOSE);
        // A later click in the dialog's queue shows that both have been dealt with.
        SubmitAll(true);
        SubmitAll(false);
        EXPECT_TRUE(Dialog().Visible());
        Accept(job, "job escaped from, and answered later");
    }
    void AllAtOnce(int count) {
        const std::vector<int> jobs = AnnounceNext(count);
        Offer(jobs);
        Tab(1);
        SubmitAll(true);
        Choose(AnyTitle(), L"All");
        PressOk();
        LetCharge(jobs);
        Offer(AnnounceNext(1));
        Tab(1);
        SubmitAll(false);
        Choose(AnyTitle(), L"All");
        Accept({Announced() - 1}, "job picked from all accounts");
        Result().Count("job charged with others at once", count);
    }
    void OneByOne(const std::vector<int>& jobs) {
        LetFind(jobs.size());
        for (const int job : jobs) {
            Offer(job);
            Tab(1);
            Choose(AnyTitle(), L"All");
            Accept({job}, "job picked from all accounts");
        }
    }
    void Round(int most) {
        constexpr int ways = 10;
        constexpr int mostAtOnce = 4;  // and one to end with
        switch (rounds_++ % ways) {
            case 0:
                return ByPreferred();
            case 1:
                return ByRecent();
            case 2:
                return Cancelled();
            case 3:
                return Escaped();
            case 4:
                return most > mostAtOnce ? AllAtOnce(Any(2, mostAtOnce)) : BySearch();
            case ways - 1:
                return most > 1 ? Happen() : BySearch();
            default:
                return BySearch();
        }
    }
    void Happen() {
        LetSomethingHappen([this](const std::vector<int>& jobs) { OneByOne(jobs); });
    }

  private:
    void SubmitAll(bool all) const {
        const driver::Window box = DialogControl(L"chkSubmitAllDocuments");
        box.Click();
        Await("the box is ticked or not", [&] { return box.Checked() == all; });
    }

    int rounds_ = 0;
};

TEST_F(ByHandSoak, NothingGrowsAndNoJobIsLostOrChargedTwice) {
    ASSERT_NO_FATAL_FAILURE(StartWithLog());
    GoThrough([this](int most) { Round(most); }, [this] { Happen(); });
    Conclude();
}

}  // namespace
