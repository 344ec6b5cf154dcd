#pragma once

#include <windows.h>

#include <cstdint>

namespace korvanta {

// The system's handles are significant in their lower 32 bits, sign-extended, on every Windows; so they are numbers
// above the seam.
inline std::int32_t FromSystemHandle(HANDLE handle) {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(handle));
}

inline HANDLE ToSystemHandle(std::int32_t number) {
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(number));
}

}  // namespace korvanta
