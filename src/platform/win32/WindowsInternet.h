#pragma once

#include "platform/Internet.h"

namespace korvanta {

class WindowsInternet : public Internet {
  public:
    std::uint32_t OpenUrl(const std::u16string& agent, const std::u16string& url,
                          std::unique_ptr<InternetFile>& file) override;
};

}  // namespace korvanta
