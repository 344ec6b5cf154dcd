#pragma once

#include <bitset>
#include <cstdint>

namespace korvanta {

// Keeps keys from a window that were meant for the one before it. It is for a window that comes up while the user is
// typing elsewhere.
//
// - A key counts when it is pressed in the window. A key that was already held down when the window came up does not
//   count, nor do its repetitions and its release.
// - After a window has come up by itself, no key counts until the keyboard has been quiet for `quietTime`: a user in
//   the middle of a word has not seen the window yet. After `longestWait` keys count in any case, since by then a user
//   who still types probably means this window.
// - A press of the mouse in the window ends the wait, since the user has turned to it.
//
// Times are milliseconds of the system's tick count, which wraps around. Keys are codes from 0 to 255.
class KeyGuard {
  public:
    static constexpr std::uint32_t quietTime = 500;
    static constexpr std::uint32_t longestWait = 5'000;

    // The window has got the keyboard. `byItself`: the program, not the user, has activated it.
    void Activated(std::uint32_t now, bool byItself);
    // The user has pressed a mouse button in the window.
    void MousePressed(std::uint32_t now);

    // Whether the press, release or character counts. `repeated`: the key was down already.
    bool TakesPress(int key, bool repeated, std::uint32_t time);
    bool TakesRelease(int key);
    // For a character whose key press did not pass here.
    bool TakesCharacter(std::uint32_t time);

  private:
    bool IsOpen(std::uint32_t time);

    std::bitset<256> held_;         // keys whose press counted and that are still down
    std::uint32_t countsFrom_ = 0;  // what was typed before does not count
    std::uint32_t lastPress_ = 0;
    bool activated_ = false;  // until then everything counts
    bool waitsForQuiet_ = false;
};

}  // namespace korvanta
