#pragma once

namespace korvanta {

// From now on libraries that are asked for by name alone come from the system's own folder: not from the program's
// folder or the current one, where somebody else may have put one of that name. Older Windows can do less of this, or
// nothing. What the program links was loaded before.
void SearchLibrariesInSystemFolder();

}  // namespace korvanta
