#pragma once

namespace korvanta {

// From now on Windows searches libraries without a path only in the system's own folder. In the program's folder and in
// the current one somebody else may have put a library of the same name. Older versions of Windows offer less of this,
// or nothing. The libraries that the program links are loaded before this can be called.
void SearchLibrariesInSystemFolder();

}  // namespace korvanta
