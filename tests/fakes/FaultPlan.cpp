#include "fakes/FaultPlan.h"

#include <algorithm>

namespace korvanta::fakes {

void FaultPlan::Plan(std::string_view call, int nth, bool forGood, std::uint32_t errorCode) {
    faults_.push_back({std::string(call), std::max(nth, 1), forGood, errorCode});
}

int FaultPlan::Calls(std::string_view call) const {
    if (call == anyCall) {
        int all = 0;
        for (const auto& entry : calls_) {
            all += entry.second;
        }
        return all;
    }
    const auto found = calls_.find(call);
    return found == calls_.end() ? 0 : found->second;
}

std::uint32_t FaultPlan::Check(std::string_view call, std::u16string_view detail) {
    const auto counted = calls_.find(call);
    if (counted == calls_.end()) {
        calls_.emplace(call, 1);
    } else {
        ++counted->second;
    }
    std::uint32_t errorCode = 0;
    for (Fault& fault : faults_) {
        if (fault.call != call && fault.call != anyCall) {
            continue;
        }
        if (fault.callsLeft > 0) {
            --fault.callsLeft;
        }
        if (fault.callsLeft == 0 && errorCode == 0) {
            errorCode = fault.errorCode;
            fault.callsLeft = fault.forGood ? 0 : -1;  // -1: used up
        }
    }
    return errorCode == 0 && onCheck ? onCheck(call, detail) : errorCode;
}

}  // namespace korvanta::fakes
