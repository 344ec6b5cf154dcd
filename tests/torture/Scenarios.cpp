#include "Scenarios.h"

#include "common/Text.h"

namespace korvanta::torture {

namespace {

constexpr int patience = 5;  // seconds within which a job's dialog is up when nothing fails

void Nothing(World&) {}

void StartAndSettle(World& world) {
    world.Start();
    world.Tick(4);
}

void Start(World& world) {
    if (world.Start()) {
        world.Tick(4);
    }
}

// All tasks that are due each time the machine wakes up, with a job in between.
void Refreshes(World& world) {
    for (const int hours : {3, 5}) {
        world.windows.clock.AdvanceMinutes(hours * 60);
        world.Tick(5);
        world.Print(u"after " + NumberText(hours) + u" hours");
        world.Tick(2);
    }
}

void PrintAndWait(World& world) {
    StartAndSettle(world);
    world.Print(u"report");
}

void Accept(World& world) {
    if (world.WaitForDialog(patience)) {
        world.Accept(2);
    }
    world.Tick(2);
}

void Cancel(World& world) {
    if (world.WaitForDialog(patience)) {
        world.Cancel();
    }
    world.Tick(2);
}

void PrintAndShow(World& world) {
    PrintAndWait(world);
    world.WaitForDialog(patience);
}

// Account 1 is added to the preferred accounts 2 and 3 and moved up by one, and the search is remembered.
void SavePreferences(World& world) {
    frmAccountNumber& dialog = *world.program->AccountDialog();
    dialog.ctlAccountListAll.SelectedID(1);
    dialog.lblAddPreferred.HandleClick();
    dialog.tabView.HandleSelected(AccountViews::tabPreferred);
    dialog.ctlAccountListPreferred.SelectedID(1);
    dialog.lblMoveUp.HandleClick();
    dialog.chkRememberSearch.HandleClick(true);
    dialog.txtSearch.HandleChange(u"smi");
    world.Accept(1);
    world.Tick(2);
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
    static const std::vector<Scenario> scenarios = {
        {"start", "the program starts", Nothing, Start, {{2, 3}}},
        {"refresh", "a day's refreshes, with jobs in between", StartAndSettle, Refreshes, {{2, 3}}},
        {"accept", "a job is accepted", PrintAndWait, Accept, {{2, 3}}},
        {"cancel", "a job is cancelled", PrintAndWait, Cancel, {{2, 3}}},
        {"preferences", "the user's preferences are saved", PrintAndShow, SavePreferences, {{2, 3}, {2, 1, 3}}},
    };
    return scenarios;
}

}  // namespace korvanta::torture
