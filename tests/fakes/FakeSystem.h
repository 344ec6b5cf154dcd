#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "fakes/FakeClock.h"
#include "fakes/FaultPlan.h"
#include "platform/System.h"

namespace korvanta::fakes {

// A Windows NT machine WS01 with the user jsmith, as `GetComputerName` and `GetUserName` fill their buffers.
class FakeSystem : public System {
  public:
    explicit FakeSystem(FakeClock& clock) : clock_(clock) {}

    // "VersionPlatform", "ComputerName", "UserName", "ProgramFolder" (returns an empty text), "ClaimInstance" (refuses)
    FaultPlan faults;
    std::uint32_t platformId = 2;
    std::u16string computerName = Filled(u"WS01");
    std::u16string userName = Filled(u"jsmith");
    std::u16string commandLine;
    std::u16string programFolder = u"C:\\Program Files\\Korvanta";
    std::vector<std::uint32_t> sleeps;
    // Called by Sleep after it has advanced the clock.
    std::function<void()> onSleep;
    std::vector<std::u16string> eventLog;
    int controlsInitialized = 0;
    int hiddenFromTaskList = 0;
    // Names that this or another program has claimed.
    std::set<std::u16string> claimedInstances;

    // The text, a NUL, and blanks up to 256 characters.
    static std::u16string Filled(std::u16string text) {
        text += u'\0';
        text.resize(256, u' ');
        return text;
    }

    bool VersionPlatform(std::uint32_t& platform) override {
        if (faults.Check("VersionPlatform") != 0) {
            return false;
        }
        platform = platformId;
        return true;
    }
    std::uint32_t ComputerName(std::u16string& name) override { return Give("ComputerName", computerName, name); }
    std::uint32_t UserName(std::u16string& name) override { return Give("UserName", userName, name); }
    std::u16string CommandLine() override { return commandLine; }
    std::u16string ProgramFolder() override {
        return faults.Check("ProgramFolder") != 0 ? std::u16string() : programFolder;
    }
    // Advances the clock.
    void Sleep(std::uint32_t milliseconds) override {
        sleeps.push_back(milliseconds);
        clock_.AdvanceMilliseconds(milliseconds);
        if (onSleep) {
            onSleep();
        }
    }
    void WriteEventLog(const std::u16string& text) override { eventLog.push_back(text); }
    void InitializeControls() override { ++controlsInitialized; }
    void HideFromTaskList() override { ++hiddenFromTaskList; }
    bool ClaimInstance(const std::u16string& name) override {
        return faults.Check("ClaimInstance", name) == 0 && claimedInstances.insert(name).second;
    }

  private:
    std::uint32_t Give(std::string_view call, const std::u16string& text, std::u16string& result) {
        const std::uint32_t fault = faults.Check(call);
        if (fault == 0) {
            result = text;
        }
        return fault;
    }

    FakeClock& clock_;
};

}  // namespace korvanta::fakes
