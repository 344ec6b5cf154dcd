#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace korvanta {

// The body of a web response. Closed, with its session, when destroyed.
class InternetFile {
  public:
    virtual ~InternetFile() = default;
    // Reads at most `size` bytes; `got` is 0 at the end of the body. Returns a Windows error code, 0 on success.
    virtual std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) = 0;
};

class Internet {
  public:
    virtual ~Internet() = default;
    // Opens a session with the system's pre-configured proxy settings under the agent name, and the URL in it,
    // bypassing every cache. `file` is set only when 0 is returned.
    virtual std::uint32_t OpenUrl(const std::u16string& agent, const std::u16string& url,
                                  std::unique_ptr<InternetFile>& file) = 0;
};

}  // namespace korvanta
