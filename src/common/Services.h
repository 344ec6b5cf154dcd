#pragma once

#include <string>

namespace korvanta {

// Services of the application for the rooms below it, which get them through their constructors.

// The trace log: one line per call while logging is on. Never fails.
class TraceLog {
  public:
    virtual ~TraceLog() = default;
    virtual void Log(const std::u16string& text) = 0;
};

// The event log, for errors that somebody should read later. Never fails.
class ErrorReports {
  public:
    virtual ~ErrorReports() = default;
    virtual void Message(const std::u16string& message) = 0;
};

// The Windows version, the machine's and the user's name. An answer is kept after the first success. Raises Error 23210
// (version), 23220 (machine name) or 23221 (user name), relative to userErrorBase.
class SystemInformation {
  public:
    virtual ~SystemInformation() = default;
    virtual bool IsWindowsNT() = 0;
    virtual bool IsWindows9x() = 0;
    // Trimmed, without NULs, in the letter case in which Windows keeps it.
    virtual std::u16string ComputerName() = 0;
    virtual std::u16string UserName() = 0;
};

// The installation's set-up file, read again at every call. Never raises: a missing value is empty, for ShowLink and
// ShowOnStartup true.
class SetupFile {
  public:
    virtual ~SetupFile() = default;
    virtual std::u16string UserDBPath() = 0;
    virtual bool ShowOnStartup() = 0;
    virtual bool ShowLink() = 0;
    virtual std::u16string LinkName() = 0;
    virtual std::u16string LinkPath() = 0;
    virtual std::u16string TLXPrimaryServer() = 0;
};

}  // namespace korvanta
