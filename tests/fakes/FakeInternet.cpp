#include "fakes/FakeInternet.h"

#include <algorithm>
#include <cstring>

#include "common/Text.h"

namespace korvanta::fakes {

class FakeInternet::File : public InternetFile {
  public:
    File(FakeInternet& internet, std::u16string url, Page page)
        : internet_(internet), url_(std::move(url)), page_(std::move(page)) {
        ++internet_.openFiles;
    }
    ~File() override { --internet_.openFiles; }

    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
        got = 0;
        if (internet_.onRead) {
            internet_.onRead(url_);
        }
        const std::uint32_t fault = internet_.faults.Check("Read", url_);
        if (fault != 0 && fault != FaultPlan::halfDone) {
            return fault;
        }
        got =
            static_cast<std::size_t>(std::min<std::uint64_t>({page_.length - position_, size, internet_.largestRead}));
        if (fault == FaultPlan::halfDone) {
            got = (got + 1) / 2;
        }
        if (page_.generator) {
            page_.generator(position_, static_cast<char*>(buffer), got);
        } else if (got != 0) {
            std::memcpy(buffer, page_.body.data() + position_, got);
        }
        position_ += got;
        return 0;
    }

  private:
    FakeInternet& internet_;
    std::u16string url_;
    Page page_;
    std::uint64_t position_ = 0;
};

void FakeInternet::Put(const std::u16string& url, std::string_view body) {
    pages_[url] = {std::string(body), nullptr, body.size()};
}

void FakeInternet::PutUtf16(const std::u16string& url, std::u16string_view text) {
    std::string body = "\xFF\xFE";
    for (const char16_t unit : text) {
        body += static_cast<char>(unit & 0xFFU);
        body += static_cast<char>(unit >> 8U);
    }
    Put(url, body);
}

void FakeInternet::PutGenerated(const std::u16string& url, std::uint64_t length, Generator generator) {
    pages_[url] = {"", std::move(generator), length};
}

std::uint32_t FakeInternet::OpenUrl(const std::u16string& agent, const std::u16string& url,
                                    std::unique_ptr<InternetFile>& file) {
    requests.push_back({agent, url});
    if (const std::uint32_t fault = faults.Check("OpenUrl", url)) {
        return fault;
    }
    const std::size_t hostStart = url.find(u"://") == std::u16string::npos ? 0 : url.find(u"://") + 3;
    const std::u16string host = url.substr(hostStart, url.find(u'/', hostStart) - hostStart);
    const bool down = std::any_of(downHosts_.begin(), downHosts_.end(),
                                  [&host](const std::u16string& other) { return EqualNoCase(host, other); });
    if (down) {
        return nameNotResolved;
    }
    const auto page = pages_.find(url);
    if (page == pages_.end()) {
        if (unknownUrlError != 0) {
            return unknownUrlError;
        }
        file = std::make_unique<File>(*this, url, Page{unknownUrlBody, nullptr, unknownUrlBody.size()});
        return 0;
    }
    file = std::make_unique<File>(*this, url, page->second);
    return 0;
}

}  // namespace korvanta::fakes
