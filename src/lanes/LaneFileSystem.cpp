#include "lanes/LaneFileSystem.h"

#include <utility>
#include <vector>

#include "lanes/LaneFile.h"
#include "lanes/ServerName.h"

namespace korvanta {

namespace {

constexpr std::size_t copiedPiece = std::size_t{1} << 16U;  // bytes

class LaneInputFile : public InputFile {
  public:
    LaneInputFile(ServerLanes& lanes, std::u16string server, std::unique_ptr<InputFile> direct)
        : file_(lanes, std::move(server), std::move(direct)) {}

    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
        return file_.Read(buffer, size, got);
    }

  private:
    LaneFile<InputFile> file_;
};

class LaneOutputFile : public OutputFile {
  public:
    LaneOutputFile(ServerLanes& lanes, std::u16string server, std::unique_ptr<OutputFile> direct)
        : file_(lanes, std::move(server), std::move(direct)) {}

    std::uint32_t Write(const void* bytes, std::size_t size) override {
        const auto* first = static_cast<const char*>(bytes);
        return file_.AskToTheEnd([piece = std::vector<char>(first, first + size)](OutputFile& file) {
            return file.Write(piece.data(), piece.size());
        });
    }
    std::uint32_t Length(std::uint64_t& length) override {
        const auto asked = std::make_shared<std::uint64_t>(0);
        const std::uint32_t error = file_.AskToTheEnd([asked](OutputFile& file) { return file.Length(*asked); });
        if (error == windowsError::none) {
            length = *asked;
        }
        return error;
    }
    std::uint32_t Close() override {
        return file_.AskToTheEnd([](OutputFile& file) { return file.Close(); });
    }

  private:
    LaneFile<OutputFile> file_;
};

}  // namespace

std::uint32_t LaneFileSystem::OpenForReading(const std::u16string& path, std::unique_ptr<InputFile>& file) {
    const std::u16string server = ServerOfPath(path);
    if (server.empty()) {
        return direct_.OpenForReading(path, file);
    }
    std::unique_ptr<InputFile> opened;
    const std::uint32_t error = OpenOnLane<InputFile>(
        lanes_, server, Patience::Limited,
        [&direct = direct_, path](std::unique_ptr<InputFile>& asked) { return direct.OpenForReading(path, asked); },
        opened);
    if (error == windowsError::none) {
        file = std::make_unique<LaneInputFile>(lanes_, server, std::move(opened));
    }
    return error;
}

std::uint32_t LaneFileSystem::OpenForWriting(const std::u16string& path, OutputMode mode,
                                             std::unique_ptr<OutputFile>& file) {
    const std::u16string server = ServerOfPath(path);
    if (server.empty()) {
        return direct_.OpenForWriting(path, mode, file);
    }
    std::unique_ptr<OutputFile> opened;
    const std::uint32_t error = OpenOnLane<OutputFile>(
        lanes_, server, Patience::Endless,
        [&direct = direct_, path, mode](std::unique_ptr<OutputFile>& asked) {
            return direct.OpenForWriting(path, mode, asked);
        },
        opened);
    if (error == windowsError::none) {
        file = std::make_unique<LaneOutputFile>(lanes_, server, std::move(opened));
    }
    return error;
}

std::uint32_t LaneFileSystem::Code(const std::u16string& path, Patience patience,
                                   std::function<std::uint32_t()> question) {
    const auto error = std::make_shared<std::uint32_t>(windowsError::none);
    const bool answered =
        lanes_.Ask(ServerOfPath(path), patience, [question = std::move(question), error] { *error = question(); });
    return answered ? *error : windowsError::badNetPath;
}

bool LaneFileSystem::FileExists(const std::u16string& path) {
    return Code(path, Patience::Limited, [&direct = direct_, path] {
               return direct.FileExists(path) ? windowsError::none : windowsError::fileNotFound;
           }) == windowsError::none;
}

bool LaneFileSystem::FolderExists(const std::u16string& path) {
    return Code(path, Patience::Limited, [&direct = direct_, path] {
               return direct.FolderExists(path) ? windowsError::none : windowsError::pathNotFound;
           }) == windowsError::none;
}

bool LaneFileSystem::IsAnswering(const std::u16string& path) {
    return !lanes_.Stuck(ServerOfPath(path));
}

std::uint32_t LaneFileSystem::LastModified(const std::u16string& path, std::uint64_t& time) {
    const auto asked = std::make_shared<std::uint64_t>(0);
    const std::uint32_t error =
        Code(path, Patience::Limited, [&direct = direct_, path, asked] { return direct.LastModified(path, *asked); });
    if (error == windowsError::none) {
        time = *asked;
    }
    return error;
}

std::uint32_t LaneFileSystem::Copy(const std::u16string& from, const std::u16string& to) {
    if (ServerOfPath(from).empty() && ServerOfPath(to).empty()) {
        return direct_.Copy(from, to);
    }
    std::unique_ptr<InputFile> source;
    std::unique_ptr<OutputFile> target;
    std::uint32_t error = OpenForReading(from, source);
    if (error == windowsError::none) {
        error = OpenForWriting(to, OutputMode::Truncate, target);
    }
    if (error != windowsError::none) {
        return error;
    }
    std::vector<char> piece(copiedPiece);
    for (;;) {
        std::size_t got = 0;
        error = source->Read(piece.data(), piece.size(), got);
        if (error != windowsError::none || got == 0) {
            break;
        }
        error = target->Write(piece.data(), got);
        if (error != windowsError::none) {
            break;
        }
    }
    const std::uint32_t closed = target->Close();
    return error != windowsError::none ? error : closed;
}

std::uint32_t LaneFileSystem::Delete(const std::u16string& path) {
    return Code(path, Patience::Endless, [&direct = direct_, path] { return direct.Delete(path); });
}

}  // namespace korvanta
