#pragma once

#include "platform/win32/calls/Handles.h"

namespace korvanta {

// An icon of the program's resources (Resources.h). The size is in pixels. Null on failure.
IconHandle LoadProgramIcon(int resource, int width, int height);

}  // namespace korvanta
