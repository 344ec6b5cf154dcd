#include "server/clsInet.h"

#include <optional>

#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::size_t bufferSize = 2048;
const char16_t* const agentName = u"Korvanta Costbridge Client";

// 0 at the end of the body, also when it was never opened or the connection breaks.
std::size_t ReadPiece(InternetFile* file, char (&buffer)[bufferSize]) {
    std::size_t got = 0;
    if (file == nullptr || file->Read(buffer, bufferSize, got) != windowsError::none) {
        return 0;
    }
    return got;
}

}  // namespace

clsInet::clsInet(FileSystem& files, Internet& internet, MessageLoop& messages, MessageBoxes& boxes, MessageTexts& texts)
    : files_(files), internet_(internet), messages_(messages), boxes_(boxes), texts_(texts) {}

std::string clsInet::GetURLSource(const std::u16string& url, const std::u16string& path) {
    std::optional<Error> failure;
    try {
        std::string body = Receive(url);
        if (!path.empty()) {
            Store(body, path);
        }
        return body;
    } catch (...) {
        failure = Error::Current();
    }
    if (failure->Number() != errorNumber::badFileName) {
        boxes_.Show(FillIn(texts_.Text(u"lblDownloadError"), {NumberText(failure->Number()), failure->Description()}),
                    texts_.Text(u"lblMessageBoxTitle"), MessageButtons::OK, MessageIcon::None);
    }
    return {};
}

std::string clsInet::Receive(const std::u16string& url) {
    std::unique_ptr<InternetFile> file;
    if (internet_.OpenUrl(agentName, url, file) != windowsError::none) {
        file.reset();
    }
    std::string body;
    char buffer[bufferSize];
    std::size_t got = 0;
    do {
        got = ReadPiece(file.get(), buffer);
        messages_.RunPending();
        if (got > longestResponse - body.size()) {
            throw StandardError(errorNumber::outOfStringSpace, u"clsInet");
        }
        body.append(buffer, got);
        BufferRead.Raise(static_cast<std::int32_t>(bufferSize), static_cast<std::int32_t>(body.size()));
        messages_.RunPending();
    } while (got != 0);
    return body;
}

void clsInet::Store(const std::string& body, const std::u16string& path) {
    std::unique_ptr<OutputFile> file;
    CheckFile(files_.OpenForWriting(path, OutputMode::Overwrite, file));
    CheckFile(file->Write(body.data(), body.size()));
    CheckFile(file->Close());
}

}  // namespace korvanta
