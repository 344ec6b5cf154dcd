#pragma once

#include <windows.h>

namespace korvanta {

// A call that not every Windows has, looked up in a library that the program has loaded already; null where it lacks.
// `Function` is the call's pointer type.
template <class Function>
Function LateCall(const char* library, const char* name) {
    const HMODULE module = ::GetModuleHandleA(library);
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name))) : nullptr;
}

}  // namespace korvanta
