#pragma once

#include <windows.h>

namespace korvanta {

// A function that not every Windows has, looked up in a library that is loaded already. Null on a Windows without it.
// `Function` is its pointer type.
template <class Function>
Function LateCall(const char* library, const char* name) {
    const HMODULE module = ::GetModuleHandleA(library);
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name))) : nullptr;
}

}  // namespace korvanta
