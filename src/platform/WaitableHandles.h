#pragma once

#include <cstdint>
#include <vector>

#include "platform/Spooler.h"

namespace korvanta {

class WaitableHandles {
  public:
    virtual ~WaitableHandles() = default;
    // WaitForMultipleObjects for any of the handles, with a time-out of 0. The result is the call's own: the index of a
    // signalled handle, 258 when none is signalled, 0xFFFFFFFF on failure (an empty list is one).
    virtual std::uint32_t PollAny(const std::vector<ChangeHandle>& handles) = 0;
};

}  // namespace korvanta
