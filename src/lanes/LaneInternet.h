#pragma once

#include "lanes/ServerLanes.h"
#include "platform/Internet.h"

namespace korvanta {

// Web pages, each fetched on the lane of its server. An address that is not opened in time, a body that stops coming,
// and one that is not complete a minute after it was asked for give windowsError::badNetPath.
class LaneInternet : public Internet {
  public:
    static constexpr std::uint32_t longestResponse = 60'000;  // milliseconds

    // `direct` is called by several threads.
    LaneInternet(Internet& direct, ServerLanes& lanes, Workers& workers)
        : direct_(direct), lanes_(lanes), workers_(workers) {}

    std::uint32_t OpenUrl(const std::u16string& agent, const std::u16string& url,
                          std::unique_ptr<InternetFile>& file) override;

  private:
    Internet& direct_;
    ServerLanes& lanes_;
    Workers& workers_;
};

}  // namespace korvanta
