#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

// What the machine and the session are.
class System {
  public:
    virtual ~System() = default;
    // The platform identifier of GetVersionEx: 2 for the Windows NT family, 1 for Windows 95/98/Me. False on failure.
    virtual bool VersionPlatform(std::uint32_t& platformId) = 0;
    // As GetComputerName and GetUserName fill a 256-character buffer: neither trimmed nor cut at a NUL. Windows error
    // code, 0 on success.
    virtual std::uint32_t ComputerName(std::u16string& name) = 0;
    virtual std::uint32_t UserName(std::u16string& name) = 0;
    // The text behind the program's own name on the command line.
    virtual std::u16string CommandLine() = 0;
    // The folder of the program's file, without a trailing backslash.
    virtual std::u16string ProgramFolder() = 0;
    // Blocks the thread; no messages run.
    virtual void Sleep(std::uint32_t milliseconds) = 0;
    // An entry in the Windows application event log; failures are lost.
    virtual void WriteEventLog(const std::u16string& text) = 0;
    // Makes the system's common controls ready, once before any window.
    virtual void InitializeControls() = 0;
    // Keeps the program off the system's task list where the system needs to be asked.
    virtual void HideFromTaskList() = 0;
    // True for the first program of this session that claims the name, until it ends.
    virtual bool ClaimInstance(const std::u16string& name) = 0;
};

}  // namespace korvanta
