#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "common/List.h"
#include "common/TextStream.h"
#include "platform/Clock.h"
#include "platform/Mutex.h"

namespace korvanta {

// The charge rates that the user may pick from: values and descriptions, two lists of the same length. A new object
// holds one rate, "Default" with value 100; so does one whose LoadFile found none.
class clsChargeRates {
  public:
    // Raises what creating a List raises.
    clsChargeRates(MutexFactory& mutexes, Clock& clock);

    // Numbers. LoadFile replaces both lists by new ones.
    std::shared_ptr<List> ChargeRates() const { return rates_; }
    // Texts, one for each number.
    std::shared_ptr<List> Descriptions() const { return descriptions_; }
    // The number of rates, 32,767 when there are more.
    std::int16_t Length() const;

    void Add(const std::u16string& description, double value);
    // Both do nothing for an index outside 0 to Length() - 1.
    void Delete(std::int16_t index);
    void Swap(std::int16_t first, std::int16_t second);

    // Replaces the rates by the file's lines: value, fieldSeparator, description. False when reading fails or a line
    // has no separator; the lines before it are then loaded. Never raises.
    bool LoadFile(TextInput& stream);
    // Writes and flushes all rates, the values in the format of the user's regional settings. False when writing fails.
    // Never raises.
    bool SaveFile(TextOutput& stream) const;

  private:
    void AddLine(std::u16string_view line);
    void AddDefault();
    bool IsIndex(std::int16_t index) const { return index >= 0 && index < Length(); }

    MutexFactory& mutexes_;
    Clock& clock_;
    std::shared_ptr<List> rates_;
    std::shared_ptr<List> descriptions_;
};

}  // namespace korvanta
