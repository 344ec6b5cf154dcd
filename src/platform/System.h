#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

// The machine, the user's session, and the program's own process.
class System {
  public:
    virtual ~System() = default;
    // The platform identifier of GetVersionEx: 2 for the Windows NT family, 1 for Windows 95/98/Me. False on failure.
    virtual bool VersionPlatform(std::uint32_t& platformId) = 0;
    // The whole 256-character buffer as GetComputerName or GetUserName leaves it: neither trimmed nor cut at its NUL.
    // Returns a Windows error code, 0 on success.
    virtual std::uint32_t ComputerName(std::u16string& name) = 0;
    virtual std::uint32_t UserName(std::u16string& name) = 0;
    // The command line without the program's own name.
    virtual std::u16string CommandLine() = 0;
    // The folder of the program's file, without a trailing backslash.
    virtual std::u16string ProgramFolder() = 0;
    // Blocks the thread; no messages run.
    virtual void Sleep(std::uint32_t milliseconds) = 0;
    // Adds an error to the Windows application event log. A failure is ignored, since nobody is left to be told.
    virtual void WriteEventLog(const std::u16string& text) = 0;
    // Makes the system's common controls ready. Call it once, before the first window.
    virtual void InitializeControls() = 0;
    // Takes the program off the task list (Ctrl+Alt+Del) of Windows 95, 98 and Me. Does nothing elsewhere.
    virtual void HideFromTaskList() = 0;
    // True when no running program of this session has claimed the name. The claim lasts until the program ends.
    virtual bool ClaimInstance(const std::u16string& name) = 0;
};

}  // namespace korvanta
