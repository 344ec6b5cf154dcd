#pragma once

#include <windows.h>

#include <cstdint>

namespace korvanta {

// The error number of the Windows call that has just failed. Never 0, even when the call has set no error.
inline std::uint32_t FailureCode() {
    const DWORD code = ::GetLastError();
    return code == ERROR_SUCCESS ? ERROR_GEN_FAILURE : code;
}

}  // namespace korvanta
