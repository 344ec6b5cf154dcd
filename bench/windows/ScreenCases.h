#pragma once

#include <vector>

#include "Cases.h"
#include "platform/win32/services/WindowsPlatform.h"

namespace korvanta::bench {

// Filling the list of accounts on the screen and paging through it, against a plain list view filled row by row.
std::vector<Case> GridCases(WindowsPlatform& windows, int count);

// From the last tick after a keystroke to the painted list, in the account dialog with the accounts in
// \\BENCH\TLXData$\Accounts.txt.
std::vector<Case> KeystrokeCases(WindowsPlatform& windows, int count);

}  // namespace korvanta::bench
