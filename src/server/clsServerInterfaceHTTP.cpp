#include "server/clsServerInterfaceHTTP.h"

#include <algorithm>
#include <string_view>

#include "common/Error.h"
#include "common/Text.h"
#include "common/TextStream.h"
#include "server/ServerLog.h"
#include "server/Shares.h"
#include "server/basJobNotificationFile.h"

namespace korvanta {

namespace {

constexpr int mostAttempts = 4;

bool IsUtf16(std::string_view body) {
    return body.size() > 2 && body[0] == '\xFF' && body[1] == '\xFE';
}

// Only these words say that a file is missing; the status of the response says nothing, since servers send error pages
// with any.
bool SaysFileNotFound(std::string_view body) {
    constexpr std::string_view words = "file not found";
    const auto sameLetter = [](char bodyLetter, char lowerLetter) {
        return bodyLetter == lowerLetter ||
               (bodyLetter >= 'A' && bodyLetter <= 'Z' && bodyLetter - 'A' + 'a' == lowerLetter);
    };
    return std::search(body.begin(), body.end(), words.begin(), words.end(), sameLetter) != body.end();
}

std::u16string FailureText(const std::u16string& procedure, const std::u16string& url, const Error& error) {
    return procedure + u" error for URL " + url + u" - " + NumberText(error.Number()) + u" / " + error.Description();
}

}  // namespace

clsServerInterfaceHTTP::clsServerInterfaceHTTP(FileSystem& files, Internet& internet, MessageLoop& messages,
                                               MessageBoxes& boxes, MessageTexts& texts, TraceLog& log,
                                               std::u16string userName)
    : files_(files),
      log_(log),
      userName_(std::move(userName)),
      inet_(files, internet, messages, boxes, texts),
      temporaryFile_(files.TemporaryFolder() + u"\\" + files.TemporaryName()) {}

clsServerInterfaceHTTP::~clsServerInterfaceHTTP() {
    if (temporaryFileUsed_) {
        try {
            files_.Delete(temporaryFile_);
        } catch (const std::exception&) {
            // The file stays, as it does when another program has it open.
            return;
        }
    }
}

std::u16string clsServerInterfaceHTTP::DataUrl(std::u16string_view name) const {
    return (u"http://" + serverName_ + u"/TLXData/").append(name);
}

std::u16string clsServerInterfaceHTTP::JobUrl(const std::u16string& name) const {
    return DataUrl(u"jobs/" + name);
}

std::u16string clsServerInterfaceHTTP::GetURL(const std::u16string& url) {
    for (int attempt = 1;; ++attempt) {
        try {
            temporaryFileUsed_ = true;
            // The body is released before the text is read: both may be large.
            const bool isFile = IsUtf16(inet_.GetURLSource(url, temporaryFile_));
            return isFile ? ReadTemporaryFile() : std::u16string();
        } catch (...) {
            if (attempt == mostAttempts) {
                log_.Log(FailureText(u"GetURL", url, Error::Current()));
                return {};
            }
        }
    }
}

std::u16string clsServerInterfaceHTTP::ReadTemporaryFile() {
    std::u16string text;
    {
        TextInput stream = TextInput::OpenUtf16(files_, temporaryFile_);
        if (!stream.AtEnd()) {
            text = stream.ReadAll();
        }
    }
    CheckFile(files_.Delete(temporaryFile_));
    return text;
}

bool clsServerInterfaceHTTP::TestURL(const std::u16string& url) {
    for (int attempt = 1;; ++attempt) {
        try {
            return !SaysFileNotFound(inet_.GetURLSource(url, u""));
        } catch (...) {
            if (attempt == mostAttempts) {
                log_.Log(FailureText(u"TestURL", url, Error::Current()));
                return false;
            }
        }
    }
}

void clsServerInterfaceHTTP::IServerInterface_ServerName(const std::u16string& serverName) {
    serverName_ = serverName;
}

std::u16string clsServerInterfaceHTTP::IServerInterface_GetPrintersFile() {
    std::u16string url;
    try {
        url = DataUrl(dataFile::printers);
        std::u16string text = GetURL(url);
        log_.Log(serverLog::printersObtained);
        return text;
    } catch (...) {
        log_.Log(serverLog::PrintersFailed(Error::Current(), u"URL", url));
        return {};
    }
}

std::u16string clsServerInterfaceHTTP::IServerInterface_GetServersFile() {
    return GetURL(DataUrl(dataFile::servers));
}

std::u16string clsServerInterfaceHTTP::IServerInterface_GetClientSettingsFile() {
    return GetURL(DataUrl(dataFile::clientSettings));
}

bool clsServerInterfaceHTTP::IServerInterface_TestHealth() {
    return TestURL(DataUrl(dataFile::clientSettings));
}

std::u16string clsServerInterfaceHTTP::IServerInterface_GetJobCounter() {
    try {
        return GetURL(JobUrl(JobCounterFileName(userName_)));
    } catch (...) {
        log_.Log(serverLog::CounterFailed(serverName_));
        return {};
    }
}

std::u16string clsServerInterfaceHTTP::IServerInterface_GetJobNotificationFile(std::int32_t jobId) {
    try {
        return GetURL(JobUrl(JobNotificationFileName(userName_, jobId)));
    } catch (...) {
        log_.Log(serverLog::JobFileFailed(serverName_));
        return {};
    }
}

bool clsServerInterfaceHTTP::IServerInterface_TestJobNotificationFile(std::int32_t jobId) {
    return TestURL(JobUrl(JobNotificationFileName(userName_, jobId)));
}

}  // namespace korvanta
