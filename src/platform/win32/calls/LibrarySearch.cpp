#include "platform/win32/calls/LibrarySearch.h"

#include "platform/win32/calls/LateCall.h"

namespace korvanta {

void SearchLibrariesInSystemFolder() {
    constexpr const char* kernel = "kernel32.dll";
    // From Windows 8 on, and on older ones down to Vista with an update.
    constexpr DWORD systemFolder = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
    if (const auto setFolders = LateCall<BOOL(WINAPI*)(DWORD)>(kernel, "SetDefaultDllDirectories")) {
        setFolders(systemFolder);
    }
    // From XP on: at least not in the current folder.
    if (const auto setFolder = LateCall<BOOL(WINAPI*)(const char*)>(kernel, "SetDllDirectoryA")) {
        setFolder("");
    }
    constexpr DWORD currentFolderLastForGood = 0x8001;  // BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE and _PERMANENT
    if (const auto setMode = LateCall<BOOL(WINAPI*)(DWORD)>(kernel, "SetSearchPathMode")) {
        setMode(currentFolderLastForGood);
    }
}

}  // namespace korvanta
