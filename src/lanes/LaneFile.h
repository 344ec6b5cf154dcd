#pragma once

#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "lanes/ServerLanes.h"
#include "platform/FileSystem.h"

namespace korvanta {

// What a server was asked to open. It is closed on the lane, since closing may take as long as any other call.
template <class File>
class LaneFile {
  public:
    LaneFile(ServerLanes& lanes, std::u16string server, std::unique_ptr<File> direct)
        : lanes_(lanes), server_(std::move(server)), direct_(std::move(direct)) {}
    LaneFile(const LaneFile&) = delete;
    LaneFile& operator=(const LaneFile&) = delete;
    ~LaneFile() {
        try {
            lanes_.Leave(server_, [file = std::move(direct_)]() mutable { file.reset(); });
        } catch (const std::bad_alloc&) {
            // Then this thread has closed it.
            return;
        }
    }

    // A piece of at most `size` bytes, as the file's own Read gives it.
    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) {
        struct Piece {
            std::uint32_t error = windowsError::none;
            std::vector<char> bytes;
        };
        got = 0;
        if (givenUp_) {
            return windowsError::badNetPath;
        }
        const auto piece = std::make_shared<Piece>();
        const bool answered = lanes_.Ask(server_, Patience::Limited, [file = direct_, size, piece] {
            piece->bytes.resize(size);
            std::size_t count = 0;
            piece->error = file->Read(piece->bytes.data(), size, count);
            piece->bytes.resize(count);
        });
        if (!answered) {
            // The stuck call moves on in the file: nobody knows what a further one would read.
            givenUp_ = true;
            return windowsError::badNetPath;
        }
        got = piece->bytes.size();
        std::memcpy(buffer, piece->bytes.data(), got);
        return piece->error;
    }
    // Asks the file something that gives a Windows error code, and waits for it to the end of the program.
    std::uint32_t AskToTheEnd(std::function<std::uint32_t(File&)> question) {
        const auto error = std::make_shared<std::uint32_t>(windowsError::none);
        const bool answered =
            lanes_.Ask(server_, Patience::Endless,
                       [file = direct_, question = std::move(question), error] { *error = question(*file); });
        return answered ? *error : windowsError::badNetPath;
    }

  private:
    ServerLanes& lanes_;
    const std::u16string server_;
    std::shared_ptr<File> direct_;
    bool givenUp_ = false;
};

// Has `open(file)`, which gives a Windows error code, called on the server's lane; `file` is set only when 0 is
// returned.
template <class File>
std::uint32_t OpenOnLane(ServerLanes& lanes, const std::u16string& server, Patience patience,
                         std::function<std::uint32_t(std::unique_ptr<File>&)> open, std::unique_ptr<File>& file) {
    struct Opened {
        std::uint32_t error = windowsError::none;
        std::unique_ptr<File> file;
    };
    const auto opened = std::make_shared<Opened>();
    if (!lanes.Ask(server, patience, [open = std::move(open), opened] { opened->error = open(opened->file); })) {
        return windowsError::badNetPath;
    }
    file = std::move(opened->file);
    return opened->error;
}

}  // namespace korvanta
