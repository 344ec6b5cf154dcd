#pragma once

// Numbers shared with resources.rc.
#define KORVANTA_PROGRAM_ICON 1
