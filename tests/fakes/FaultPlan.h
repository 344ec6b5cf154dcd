#pragma once

#include <cstdint>
#include <functional>
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
    // Stands for an error code: a write or a copy gets half-way before the disk is full, a read gives half of what it
    // could and succeeds. Only calls that transfer bytes know it.
    static constexpr std::uint32_t halfDone = 0xFFFFFFF0;

    void FailOnce(std::string_view call, int nth, std::uint32_t errorCode) { Plan(call, nth, false, errorCode); }
    void FailFrom(std::string_view call, int nth, std::uint32_t errorCode) { Plan(call, nth, true, errorCode); }
    void Clear() { faults_.clear(); }
    // How often the call was made so far, failed ones included.
    int Calls(std::string_view call) const;

    // For the fakes, once at the start of every call: the error code it fails with, or 0. `detail` says what the call
    // is about (a path, a name).
    std::uint32_t Check(std::string_view call, std::u16string_view detail = {});

    // Asked at every call that no fault strikes; gives the error code it fails with, or 0.
    std::function<std::uint32_t(std::string_view call, std::u16string_view detail)> onCheck;

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
