#include "server/clsChargeRates.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "common/Conversion.h"
#include "common/FieldReader.h"

namespace korvanta {

namespace {

void SwapItems(List& list, std::int32_t first, std::int32_t second) {
    const Variant kept = list.Item(first);
    list.Item(first, list.Item(second));
    list.Item(second, kept);
}

}  // namespace

clsChargeRates::clsChargeRates(MutexFactory& mutexes, Clock& clock)
    : mutexes_(mutexes),
      clock_(clock),
      rates_(std::make_shared<List>(mutexes)),
      descriptions_(std::make_shared<List>(mutexes)) {
    AddDefault();
}

std::int16_t clsChargeRates::Length() const {
    return static_cast<std::int16_t>(
        std::min<std::int32_t>(descriptions_->Length(), std::numeric_limits<std::int16_t>::max()));
}

void clsChargeRates::Add(const std::u16string& description, double value) {
    rates_->Append(value);
    try {
        descriptions_->Append(description);
    } catch (...) {
        rates_->Pop();
        throw;
    }
}

void clsChargeRates::Delete(std::int16_t index) {
    if (IsIndex(index)) {
        rates_->Delete(index);
        descriptions_->Delete(index);
    }
}

void clsChargeRates::Swap(std::int16_t first, std::int16_t second) {
    if (IsIndex(first) && IsIndex(second)) {
        SwapItems(*rates_, first, second);
        SwapItems(*descriptions_, first, second);
    }
}

void clsChargeRates::AddDefault() {
    if (descriptions_->Length() == 0) {
        Add(u"Default", 100);
    }
}

void clsChargeRates::AddLine(std::u16string_view line) {
    FieldReader fields(line);
    const double value = LeadingNumber(fields.Next());
    Add(std::u16string(fields.Next()), value);
}

bool clsChargeRates::LoadFile(TextInput& stream) {
    bool loaded = false;
    try {
        auto rates = std::make_shared<List>(mutexes_);
        auto descriptions = std::make_shared<List>(mutexes_);
        rates_ = std::move(rates);
        descriptions_ = std::move(descriptions);
        while (!stream.AtEnd()) {
            AddLine(stream.ReadLineView());
        }
        loaded = true;
    } catch (...) {
        // The caller is told; the rates that were read before the failure stay.
        loaded = false;
    }
    try {
        AddDefault();
    } catch (...) {
        loaded = false;
    }
    return loaded;
}

bool clsChargeRates::SaveFile(TextOutput& stream) const {
    try {
        const std::vector<Variant> rates = rates_->Items();
        const std::vector<Variant> descriptions = descriptions_->Items();
        for (std::size_t index = 0; index < std::min(rates.size(), descriptions.size()); ++index) {
            stream.WriteLine(LocaleNumberText(rates[index].Number(), clock_) + fieldSeparator +
                             descriptions[index].Text());
        }
        stream.Flush();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace korvanta
