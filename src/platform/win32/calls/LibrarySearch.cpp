#include "platform/win32/calls/LibrarySearch.h"

#include "platform/win32/calls/LateCall.h"

namespace korvanta {

void SearchLibrariesInSystemFolder() {
    constexpr const char* kernel = "kernel32.dll";
    // Windows 8 and later; with an update, Vista and 7 too.
    constexpr DWORD systemFolder = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
    if (const auto setFolders = LateCall<BOOL(WINAPI*)(DWORD)>(kernel, "SetDefaultDllDirectories")) {
        setFolders(systemFolder);
    }
    // XP and later: at least leaves the current folder out.
    if (const auto setFolder = LateCall<BOOL(WINAPI*)(const char*)>(kernel, "SetDllDirectoryA")) {
        setFolder("");
    }
    constexpr DWORD currentFolderLastForGood = 0x8001;  // BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE and _PERMANENT
    if (const auto setMode = LateCall<BOOL(WINAPI*)(DWORD)>(kernel, "SetSearchPathMode")) {
        setMode(currentFolderLastForGood);
    }
}

}  // namespace korvanta
