#pragma once

#include "platform/Internet.h"

namespace korvanta {

class WindowsMessageLoop;

// While the network keeps a call waiting, messages that Windows and other programs send to our windows are still
// answered, above all the end of the session. Posted messages (input, timers) wait until the call returns. Once the
// message loop is quitting, every call fails at once, also one that is waiting.
class WindowsInternet : public Internet {
  public:
    explicit WindowsInternet(const WindowsMessageLoop& messages) : messages_(messages) {}

    std::uint32_t OpenUrl(const std::u16string& agent, const std::u16string& url,
                          std::unique_ptr<InternetFile>& file) override;

  private:
    const WindowsMessageLoop& messages_;
};

}  // namespace korvanta
