#pragma once

#include <windows.h>

#include <cstdint>

namespace korvanta {

// A handle of Windows fits into 32 bits, sign-extended, also on 64-bit Windows. So above the seam handles are numbers.
inline std::int32_t FromSystemHandle(HANDLE handle) {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(handle));
}

inline HANDLE ToSystemHandle(std::int32_t number) {
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(number));
}

}  // namespace korvanta
