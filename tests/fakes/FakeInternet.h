#pragma once

#include <functional>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/FaultPlan.h"
#include "platform/Internet.h"

namespace korvanta::fakes {

// Web pages in memory. An unknown URL returns the server's page for that (`unknownUrlBody`), as web servers do, or
// fails with `unknownUrlError` if that is set. A host that is down fails with 12007.
class FakeInternet : public Internet {
  public:
    using Generator = std::function<void(std::uint64_t offset, char* buffer, std::size_t size)>;
    static constexpr std::uint32_t nameNotResolved = 12007;
    static constexpr std::uint64_t endless = std::numeric_limits<std::uint64_t>::max();

    struct Request {
        std::u16string agent;
        std::u16string url;
    };

    void Put(const std::u16string& url, std::string_view body);
    // UTF-16 little-endian with a byte-order mark.
    void PutUtf16(const std::u16string& url, std::u16string_view text);
    void PutGenerated(const std::u16string& url, std::uint64_t length, Generator generator);
    void Remove(const std::u16string& url) { pages_.erase(url); }
    void Down(const std::u16string& host) { downHosts_.insert(host); }
    void Up(const std::u16string& host) { downHosts_.erase(host); }

    FaultPlan faults;  // "OpenUrl", "Read"
    std::vector<Request> requests;
    // Called before each read of a body, with its URL.
    std::function<void(const std::u16string& url)> onRead;
    std::size_t largestRead = std::numeric_limits<std::size_t>::max();
    std::uint32_t unknownUrlError = 0;
    std::string unknownUrlBody = "<html><body><h1>404 Not Found</h1></body></html>";
    int openFiles = 0;

    std::uint32_t OpenUrl(const std::u16string& agent, const std::u16string& url,
                          std::unique_ptr<InternetFile>& file) override;

  private:
    struct Page {
        std::string body;
        Generator generator;
        std::uint64_t length = 0;
    };
    class File;
    friend class File;

    std::map<std::u16string, Page> pages_;
    std::set<std::u16string> downHosts_;
};

}  // namespace korvanta::fakes
