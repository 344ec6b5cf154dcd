#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "lanes/Lane.h"

namespace korvanta {

// A lane for each server, so that one that hangs keeps nobody waiting but those who ask it. Called by the program's
// thread alone; every call lets messages run while it waits.
class ServerLanes {
  public:
    // So many calls may be stuck in all; beyond that those with limited patience are given up unasked.
    static constexpr std::size_t mostStuck = 64;

    explicit ServerLanes(Workers& workers) : workers_(workers) {}

    // Asks a question on the lane of the server; false when it was given up. Then the answer may still come: `undo`, if
    // there is one, is called on the lane when it does. What the two hold must not depend on the caller, and ends with
    // the answer. Without a server name the caller's thread asks. Raises std::bad_alloc when the question raised.
    bool Ask(const std::u16string& server, Patience patience, std::function<void()> question,
             std::function<void()> undo = {});

    // Has the work done on the server's lane and waits for nothing. The work must not raise.
    void Leave(const std::u16string& server, std::function<void()> work);

    // Whether asking the server is useless now, since a call to it is stuck.
    bool Stuck(const std::u16string& server);

  private:
    std::shared_ptr<Lane> LaneOf(const std::u16string& server);
    bool Run(const std::u16string& server, std::function<void()> work, Patience patience);

    Workers& workers_;
    std::map<std::u16string, std::shared_ptr<Lane>> lanes_;  // that have something to remember
};

}  // namespace korvanta
