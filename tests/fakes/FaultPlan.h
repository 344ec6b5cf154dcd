#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta::fakes {

// When the calls of a fake fail. Calls go by their function's name ("OpenForReading", "Write"); `anyCall` means
// whichever comes. The first call after the fault was set is number 1.
class FaultPlan {
  public:
    static constexpr std::string_view anyCall = "*";

    void FailOnce(std::string_view call, int nth, std::uint32_t errorCode) { Plan(call, nth, false, errorCode); }
    void FailFrom(std::string_view call, int nth, std::uint32_t errorCode) { Plan(call, nth, true, errorCode); }
    void Clear() { faults_.clear(); }
    // How often the call was made so far, failed ones included.
    int Calls(std::string_view call) const;

    // For the fakes, once at the start of every call: the error code it fails with, or 0.
    std::uint32_t Check(std::string_view call);

  private:
    struct Fault {
        std::string call;
        int callsLeft;  // until the failing one
        bool forGood;
        std::uint32_t errorCode;
    };
    void Plan(std::string_view call, int nth, bool forGood, std::uint32_t errorCode);

    std::vector<Fault> faults_;
    std::map<std::string, int, std::less<>> calls_;
};

}  // namespace korvanta::fakes
