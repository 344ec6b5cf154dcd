#pragma once

#include "platform/WaitableHandles.h"

namespace korvanta {

class WindowsWaitableHandles : public WaitableHandles {
  public:
    std::uint32_t PollAny(const std::vector<ChangeHandle>& handles) override;
};

}  // namespace korvanta
