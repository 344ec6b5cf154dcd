#include "lanes/LaneInternet.h"

#include <utility>

#include "lanes/LaneFile.h"
#include "lanes/ServerName.h"

namespace korvanta {

namespace {

class LaneInternetFile : public InternetFile {
  public:
    LaneInternetFile(ServerLanes& lanes, Workers& workers, std::u16string server, std::uint32_t asked,
                     std::unique_ptr<InternetFile> direct)
        : file_(lanes, std::move(server), std::move(direct)), workers_(workers), asked_(asked) {}

    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
        got = 0;
        return workers_.Milliseconds() - asked_ > LaneInternet::longestResponse ? windowsError::badNetPath
                                                                                : file_.Read(buffer, size, got);
    }

  private:
    LaneFile<InternetFile> file_;
    Workers& workers_;
    const std::uint32_t asked_;  // milliseconds, as Workers count them
};

}  // namespace

std::uint32_t LaneInternet::OpenUrl(const std::u16string& agent, const std::u16string& url,
                                    std::unique_ptr<InternetFile>& file) {
    const std::u16string server = ServerOfUrl(url);
    const std::uint32_t asked = workers_.Milliseconds();
    std::unique_ptr<InternetFile> opened;
    const std::uint32_t error = OpenOnLane<InternetFile>(
        lanes_, server, Patience::Limited,
        [&direct = direct_, agent, url](std::unique_ptr<InternetFile>& answer) {
            return direct.OpenUrl(agent, url, answer);
        },
        opened);
    if (error == windowsError::none) {
        file = std::make_unique<LaneInternetFile>(lanes_, workers_, server, asked, std::move(opened));
    }
    return error;
}

}  // namespace korvanta
