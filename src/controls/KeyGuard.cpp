#include "controls/KeyGuard.h"

namespace korvanta {

namespace {

// Tick counts wrap around, so a time counts as "before" another only up to this distance. No key waits that long in a
// queue.
constexpr std::uint32_t longestQueued = 600'000;

std::size_t Code(int key) {
    return static_cast<std::size_t>(key) & 0xFFU;
}

}  // namespace

void KeyGuard::Activated(std::uint32_t now, bool byItself) {
    held_.reset();
    countsFrom_ = now;
    lastPress_ = now;
    activated_ = true;
    waitsForQuiet_ = byItself;
}

void KeyGuard::MousePressed(std::uint32_t now) {
    if (waitsForQuiet_) {
        waitsForQuiet_ = false;
        countsFrom_ = now;
    }
}

bool KeyGuard::IsOpen(std::uint32_t time) {
    if (!activated_) {
        return true;
    }
    const bool before = countsFrom_ != time && countsFrom_ - time < longestQueued;
    if (before) {
        return false;
    }
    if (waitsForQuiet_ && (time - lastPress_ >= quietTime || time - countsFrom_ >= longestWait)) {
        waitsForQuiet_ = false;
    }
    return !waitsForQuiet_;
}

bool KeyGuard::TakesPress(int key, bool repeated, std::uint32_t time) {
    if (repeated && held_[Code(key)]) {
        return true;
    }
    const bool taken = IsOpen(time) && !repeated;
    held_[Code(key)] = taken;
    if (waitsForQuiet_) {
        lastPress_ = time;
    }
    return taken;
}

bool KeyGuard::TakesRelease(int key) {
    const bool taken = held_[Code(key)] || !activated_;
    held_[Code(key)] = false;
    return taken;
}

bool KeyGuard::TakesCharacter(std::uint32_t time) {
    return IsOpen(time);
}

}  // namespace korvanta
