#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta::fakes {

// Decides which calls of a fake fail. A call is named after its function ("OpenForReading", "Write"); `anyCall` matches
// every call. The first call after a fault was set is number 1.
class FaultPlan {
  public:
    static constexpr std::string_view anyCall = "*";
    // Used in place of an error code: a write or copy is done by half before the disk is full, and a read succeeds with
    // half of its bytes. Only calls that transfer bytes support it.
    static constexpr std::uint32_t halfDone = 0xFFFFFFF0;

    void FailOnce(std::string_view call, int nth, std::uint32_t errorCode) { Plan(call, nth, false, errorCode); }
    void FailFrom(std::string_view call, int nth, std::uint32_t errorCode) { Plan(call, nth, true, errorCode); }
    void Clear() { faults_.clear(); }
    // How often the call was made so far, including failures.
    int Calls(std::string_view call) const;

    // For the fakes, which call it once at the start of every call: returns the error code to fail with, or 0. `detail`
    // says what the call is about (a path, a name).
    std::uint32_t Check(std::string_view call, std::u16string_view detail = {});

    // Called for every call without a fault; returns the error code to fail with, or 0.
    std::function<std::uint32_t(std::string_view call, std::u16string_view detail)> onCheck;

  private:
    struct Fault {
        std::string call;
        int callsLeft;  // before the one that fails
        bool forGood;
        std::uint32_t errorCode;
    };
    void Plan(std::string_view call, int nth, bool forGood, std::uint32_t errorCode);

    std::vector<Fault> faults_;
    std::map<std::string, int, std::less<>> calls_;
};

}  // namespace korvanta::fakes
