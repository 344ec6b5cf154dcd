#include "server/clsServerInterfaceFile.h"

#include "common/Error.h"
#include "common/Text.h"
#include "common/TextStream.h"
#include "server/ServerLog.h"
#include "server/Shares.h"
#include "server/basJobNotificationFile.h"

namespace korvanta {

clsServerInterfaceFile::clsServerInterfaceFile(FileSystem& files, TraceLog& log, std::u16string userName)
    : files_(files), log_(log), userName_(std::move(userName)) {}

std::u16string clsServerInterfaceFile::Read(const std::u16string& path) const {
    return TextInput::OpenUtf16(files_, path).ReadAll();
}

void clsServerInterfaceFile::IServerInterface_ServerName(const std::u16string& serverName) {
    serverName_ = serverName;
}

std::u16string clsServerInterfaceFile::IServerInterface_GetPrintersFile() {
    std::u16string path;
    try {
        path = Shares(serverName_).PrintersFile();
        std::u16string text = Read(path);
        log_.Log(serverLog::printersObtained);
        return text;
    } catch (...) {
        log_.Log(serverLog::PrintersFailed(Error::Current(), u"file", path));
        return {};
    }
}

std::u16string clsServerInterfaceFile::IServerInterface_GetServersFile() {
    try {
        return Read(Shares(serverName_).ServersFile());
    } catch (...) {
        const Error error = Error::Current();
        log_.Log(
            u"IServerInterface_GetServersFile: Error occured whilst obtaining list of Korvanta Costbridge servers: " +
            error.NumberAndDescription() + u" (" + error.Source() + u")");
        return {};
    }
}

std::u16string clsServerInterfaceFile::IServerInterface_GetClientSettingsFile() {
    try {
        return Read(Shares(serverName_).ClientSettingsFile());
    } catch (...) {
        // Not worth a line in the log: the caller falls back to its local copy.
        return {};
    }
}

bool clsServerInterfaceFile::IServerInterface_TestHealth() {
    return files_.FolderExists(Shares(serverName_).JobsFolder());
}

std::u16string clsServerInterfaceFile::IServerInterface_GetJobCounter() {
    return ReadJobFile(JobCounterFileName(userName_), serverLog::CounterFailed(serverName_));
}

std::u16string clsServerInterfaceFile::IServerInterface_GetJobNotificationFile(std::int32_t jobId) {
    return ReadJobFile(JobNotificationFileName(userName_, jobId), serverLog::JobFileFailed(serverName_));
}

bool clsServerInterfaceFile::IServerInterface_TestJobNotificationFile(std::int32_t jobId) {
    return files_.FileExists(Shares(serverName_).JobFile(JobNotificationFileName(userName_, jobId)));
}

std::u16string clsServerInterfaceFile::ReadJobFile(const std::u16string& name, const std::u16string& failure) {
    try {
        return Read(Shares(serverName_).JobFile(name));
    } catch (...) {
        // A user without jobs has no such files: not worth a line in the log every few seconds.
        if (Error::Current().Number() != errorNumber::fileNotFound) {
            log_.Log(failure);
        }
        return {};
    }
}

}  // namespace korvanta
