#pragma once

#include "platform/Internet.h"

namespace korvanta {

class WindowsMessageLoop;

// While the network keeps a call waiting, what Windows and other programs send to our windows is still answered: the
// end of the session above all. Posted messages (input, timers) wait as they do in any call. Once `messages` is
// quitting every call fails at once, the one that waits too.
class WindowsInternet : public Internet {
  public:
    explicit WindowsInternet(const WindowsMessageLoop& messages) : messages_(messages) {}

    std::uint32_t OpenUrl(const std::u16string& agent, const std::u16string& url,
                          std::unique_ptr<InternetFile>& file) override;

  private:
    const WindowsMessageLoop& messages_;
};

}  // namespace korvanta
