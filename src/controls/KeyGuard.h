#pragma once

#include <bitset>
#include <cstdint>

namespace korvanta {

// Tells the keys that are meant for a window from those that were meant for the one before it, for a window that comes
// up while its user is typing elsewhere.
//
// - A key counts from the moment on at which it goes down in the window. One that was held down before, with its
//   repetitions and its release, does not count.
// - A window that came up by itself first waits until the keyboard has been quiet for a while: who is in the middle of
//   a word has not yet seen it. Whoever goes on and on gets through in the end, for he may have noticed.
// - A press of the mouse in the window ends the wait; the user has turned to it.
//
// Times are milliseconds of the system's tick count, which may run over. Keys are codes from 0 to 255.
class KeyGuard {
  public:
    static constexpr std::uint32_t quietTime = 500;
    static constexpr std::uint32_t longestWait = 5'000;

    // The window has become the one that the keyboard goes to; `byItself`: not by the user's doing.
    void Activated(std::uint32_t now, bool byItself);
    // The user has pressed a mouse button in the window.
    void TurnedTo(std::uint32_t now);

    // Whether the window may act upon it. `repeated`: the key was down already.
    bool TakesPress(int key, bool repeated, std::uint32_t time);
    bool TakesRelease(int key);
    // A character that comes without its key, or was on its way already.
    bool TakesCharacter(std::uint32_t time);

  private:
    bool IsOpen(std::uint32_t time);

    std::bitset<256> held_;  // keys that went down here and are down still
    std::uint32_t since_ = 0;
    std::uint32_t lastPress_ = 0;
    bool started_ = false;
    bool waiting_ = false;
};

}  // namespace korvanta
