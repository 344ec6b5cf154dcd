#pragma once

// Numbers shared with resources.rc.
#define KORVANTA_PROGRAM_ICON 1
#define KORVANTA_MAIN_ACCOUNT_ICON 2
#define KORVANTA_PRINTER_WATCHED_ICON 3
#define KORVANTA_PRINTER_FAILED_ICON 4
