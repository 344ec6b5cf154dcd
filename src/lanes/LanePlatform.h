#pragma once

#include "lanes/LaneFileSystem.h"
#include "lanes/LaneInternet.h"
#include "lanes/LaneSockets.h"
#include "lanes/LaneSpooler.h"
#include "lanes/ServerLanes.h"
#include "platform/Platform.h"

namespace korvanta {

// A platform whose calls to servers run on their lanes; everything else is the direct platform's. What is given here
// outlives it, and what is stuck in Windows when it ends goes on with the direct platform.
class LanePlatform {
  public:
    LanePlatform(const Platform& direct, Workers& workers);
    LanePlatform(const LanePlatform&) = delete;
    LanePlatform& operator=(const LanePlatform&) = delete;

    Platform& Services() { return services_; }

  private:
    ServerLanes lanes_;
    LaneFileSystem files_;
    LaneInternet internet_;
    LaneSockets sockets_;
    LaneSpooler spooler_;
    Platform services_;
};

}  // namespace korvanta
