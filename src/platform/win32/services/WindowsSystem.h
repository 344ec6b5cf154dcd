#pragma once

#include <memory>

#include "platform/System.h"

namespace korvanta {

class WindowsSystem : public System {
  public:
    WindowsSystem();
    ~WindowsSystem() override;

    bool VersionPlatform(std::uint32_t& platformId) override;
    std::uint32_t ComputerName(std::u16string& name) override;
    std::uint32_t UserName(std::u16string& name) override;
    std::u16string CommandLine() override;
    std::u16string ProgramFolder() override;
    void Sleep(std::uint32_t milliseconds) override;
    void WriteEventLog(const std::u16string& text) override;
    void InitializeControls() override;
    void HideFromTaskList() override;
    bool ClaimInstance(const std::u16string& name) override;

  private:
    struct Claims;
    std::unique_ptr<Claims> claims_;
};

}  // namespace korvanta
