#pragma once

#include <windows.h>

#include <cstdint>

namespace korvanta {

// The error number of the Windows call that has just failed; never 0, also where a call fails without naming a reason.
inline std::uint32_t FailureCode() {
    const DWORD code = ::GetLastError();
    return code == ERROR_SUCCESS ? ERROR_GEN_FAILURE : code;
}

}  // namespace korvanta
