#pragma once

#include <windows.h>

#include <chrono>

namespace driver {

// Long enough for a busy machine; a condition that holds ends the wait at once.
inline constexpr std::chrono::milliseconds usualLimit{15000};

// Asks again and again whether the condition holds. False when it did not within the limit.
template <typename Condition>
bool WaitFor(Condition condition, std::chrono::milliseconds limit = usualLimit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return condition();
        }
        Sleep(15);
    }
    return true;
}

}  // namespace driver
