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

// The charge rates that the user may pick from: values and descriptions, two lists of the same length. A new object,
// and one after any LoadFile, holds at least one rate: "Default" with value 100 when there is no other.
class clsChargeRates {
  public:
    // Raises what creating a List raises.
    clsChargeRates(MutexFactory& mutexes, Clock& clock);

    // Numbers. LoadFile puts new lists in place of these.
    std::shared_ptr<List> ChargeRates() const { return rates_; }
    // Texts, one for each number.
    std::shared_ptr<List> Descriptions() const { return descriptions_; }
    // The number of rates, 32,767 when there are more.
    std::int16_t Length() const;

    void Add(const std::u16string& description, double value);
    // Indexes outside 0 to Length() - 1 change nothing.
    void Delete(std::int16_t index);
    void Swap(std::int16_t first, std::int16_t second);

    // Replaces the set with the file's lines: value, fieldSeparator, description. False when reading fails or a line
    // has no separator: the lines before it stay. Never raises.
    bool LoadFile(TextInput& stream);
    // Writes all rates through to the file, the values as the user's regional settings write numbers. False when
    // writing fails.
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
