#include "controls/KeyGuard.h"

namespace korvanta {

namespace {

// Tick counts run over, so that "before" needs a limit; no key waits so long to be looked at.
constexpr std::uint32_t longestQueued = 600'000;

std::size_t Code(int key) {
    return static_cast<std::size_t>(key) & 0xFFU;
}

}  // namespace

void KeyGuard::Activated(std::uint32_t now, bool byItself) {
    held_.reset();
    since_ = now;
    lastPress_ = now;
    started_ = true;
    waiting_ = byItself;
}

void KeyGuard::TurnedTo(std::uint32_t now) {
    if (waiting_) {
        waiting_ = false;
        since_ = now;
    }
}

bool KeyGuard::IsOpen(std::uint32_t time) {
    if (!started_) {
        return true;
    }
    const bool before = since_ != time && since_ - time < longestQueued;
    if (before) {
        return false;
    }
    if (waiting_ && (time - lastPress_ >= quietTime || time - since_ >= longestWait)) {
        waiting_ = false;
    }
    return !waiting_;
}

bool KeyGuard::TakesPress(int key, bool repeated, std::uint32_t time) {
    if (repeated && held_[Code(key)]) {
        return true;
    }
    const bool taken = IsOpen(time) && !repeated;
    held_[Code(key)] = taken;
    if (waiting_) {
        lastPress_ = time;
    }
    return taken;
}

bool KeyGuard::TakesRelease(int key) {
    const bool taken = held_[Code(key)] || !started_;
    held_[Code(key)] = false;
    return taken;
}

bool KeyGuard::TakesCharacter(std::uint32_t time) {
    return IsOpen(time);
}

}  // namespace korvanta
