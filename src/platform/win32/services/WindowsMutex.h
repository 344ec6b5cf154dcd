#pragma once

#include "platform/Mutex.h"

namespace korvanta {

class WindowsMutexFactory : public MutexFactory {
  public:
    std::unique_ptr<Mutex> CreateOwned(std::uint32_t& errorCode) override;
};

}  // namespace korvanta
