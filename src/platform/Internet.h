#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace korvanta {

// The body of a web response. Destroying it closes the body and its session.
class InternetFile {
  public:
    virtual ~InternetFile() = default;
    // Reads at most `size` bytes; `got` is 0 at the end of the body. Returns a Windows error code, 0 on success.
    virtual std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) = 0;
};

class Internet {
  public:
    virtual ~Internet() = default;
    // Opens a session under the agent name with the system's proxy settings, and in it the URL, past every cache.
    // Returns a Windows error code; `file` is set only when it is 0.
    virtual std::uint32_t OpenUrl(const std::u16string& agent, const std::u16string& url,
                                  std::unique_ptr<InternetFile>& file) = 0;
};

}  // namespace korvanta
