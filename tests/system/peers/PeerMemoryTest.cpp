// Peers whose memory runs out: what they were about is left undone, and the next change is shown as ever.

#include "PeersTest.h"

#include <commctrl.h>

#include <new>

#include "unit/app/FailingMemory.h"

namespace korvanta {
namespace {

class PeerMemory : public PeersTest {
  protected:
    // Runs the action with its first allocation failing, then with its second, and so on to its end, and looks each
    // time.
    static void FailEachAllocation(const std::function<void()>& action, const std::function<void()>& look) {
        bool failed = true;
        for (int nth = 1; failed; ++nth) {
            SCOPED_TRACE(nth);
            {
                const fakes::FailingMemory memory(nth);
                try {
                    action();
                } catch (const std::bad_alloc&) {
                }
                failed = fakes::FailingMemory::Failed();
            }
            look();
        }
    }
};

TEST_F(PeerMemory, ATextBoxStillTellsWhatIsTyped) {
    auto& box = Make<TextBox>(u"txtOne");
    Place(box);
    Load();
    const std::u16string longText(300, u'x');
    FailEachAllocation([&] { box.Text(longText); },
                       [&] {
                           int changes = 0;
                           box.Change.Connect([&] { ++changes; });
                           Send(Find("txtOne"), WM_CHAR, 'a');
                           EXPECT_EQ(changes, 1);
                           box.Change.Connect({});
                       });
}

TEST_F(PeerMemory, AListStillTakesOverItsRows) {
    auto& grid = Make<Grid>(u"flxAccounts");
    grid.Columns(2);
    grid.ColWidth(0, 1500);
    grid.ColWidth(1, 1500);
    grid.Text(0, 1, std::u16string(300, u'x'));
    Place(grid, 150, 150, 4500, 3000);
    Load();
    const HWND list = Find("flxAccounts");
    int rows = 1;
    FailEachAllocation(
        [&] {
            grid.Rows(++rows);
            Send(list, LVM_GETTOPINDEX);
        },
        [&] {
            grid.Rows(++rows);
            EXPECT_EQ(Send(list, LVM_GETITEMCOUNT), rows - 1);
        });
}

}  // namespace
}  // namespace korvanta
