#pragma once

#include "platform/win32/calls/Handles.h"

namespace korvanta {

// An icon of the program's resources (Resources.h), in pixels; none on failure.
IconHandle LoadProgramIcon(int resource, int width, int height);

}  // namespace korvanta
