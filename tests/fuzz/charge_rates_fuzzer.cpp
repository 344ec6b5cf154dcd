// ChargeRates.txt: the rates of the file in its order, never none, and the same again after saving them.
// Aims at: server/clsChargeRates.cpp common/Conversion.cpp
#include <cmath>

#include "fakes/FakePlatform.h"
#include "fuzz/Fuzzing.h"
#include "server/clsChargeRates.h"

namespace korvanta {
namespace {

const std::u16string serverFile = u"\\\\SRV\\TLXData$\\ChargeRates.txt";
const std::u16string copy = u"C:\\Temp\\out.txt";

struct Rate {
    std::u16string description;
    double value;

    bool operator==(const Rate&) const = default;
};

std::vector<Rate> RatesOf(const clsChargeRates& rates) {
    const std::vector<Variant> values = rates.ChargeRates()->Items();
    const std::vector<Variant> descriptions = rates.Descriptions()->Items();
    REQUIRE(values.size() == descriptions.size());
    std::vector<Rate> result;
    for (std::size_t i = 0; i < values.size(); ++i) {
        result.push_back({descriptions[i].Text(), values[i].Number()});
    }
    return result;
}

// The rates of a text, and whether every line is one.
bool Take(const std::u16string& text, std::vector<Rate>& rates) {
    bool whole = true;
    for (const std::u16string& line : fuzz::LinesOf(text)) {
        const std::vector<std::u16string> fields = fuzz::Pieces(line, u"\u0001");
        whole = fields.size() > 1;
        if (!whole) {
            break;
        }
        rates.push_back({fields[1], fuzz::NumberAtStart(fields[0])});
    }
    if (rates.empty()) {
        rates.push_back({u"Default", 100});
    }
    return whole;
}

bool Load(fakes::FakeFileSystem& files, const std::u16string& path, clsChargeRates& rates) {
    TextInput stream = TextInput::OpenUtf16(files, path);
    return rates.LoadFile(stream);
}

std::string Save(fakes::FakeFileSystem& files, const clsChargeRates& rates) {
    TextOutput stream = TextOutput::OpenUtf16(files, copy);
    REQUIRE(rates.SaveFile(stream));
    stream.Close();
    return files.ReadBytes(copy);
}

// Saving keeps 15 digits of a value, so the rates saved are almost the same and from then on exactly.
void SaveAndReload(fakes::FakePlatform& platform, const clsChargeRates& rates) {
    const std::string saved = Save(platform.files, rates);
    clsChargeRates reloaded(platform.mutexes, platform.clock);
    REQUIRE(Load(platform.files, copy, reloaded));
    const std::vector<Rate> before = RatesOf(rates);
    const std::vector<Rate> after = RatesOf(reloaded);
    REQUIRE(before.size() == after.size());
    bool hasLargest = false;
    for (std::size_t i = 0; i < before.size(); ++i) {
        REQUIRE(before[i].description == after[i].description);
        // The largest numbers there are become too large when their 15 digits are rounded up.
        const bool largest = std::abs(before[i].value) > 1.79769313486231e308;
        hasLargest = hasLargest || largest;
        REQUIRE(largest || std::abs(before[i].value - after[i].value) <= 1e-14 * std::abs(before[i].value));
    }
    REQUIRE(hasLargest || Save(platform.files, reloaded) == saved);
}

void Change(clsChargeRates& rates, fuzz::Input& input) {
    std::vector<Rate> expected = RatesOf(rates);
    const auto first = static_cast<std::int16_t>(static_cast<int>(input.Choose(8)) - 2);
    const auto second = static_cast<std::int16_t>(static_cast<int>(input.Choose(8)) - 2);
    const auto isIndex = [&expected](std::int16_t index) {
        return index >= 0 && static_cast<std::size_t>(index) < expected.size();
    };
    rates.Swap(first, second);
    if (isIndex(first) && isIndex(second)) {
        std::swap(expected[static_cast<std::size_t>(first)], expected[static_cast<std::size_t>(second)]);
    }
    REQUIRE(RatesOf(rates) == expected);
    rates.Delete(first);
    if (isIndex(first)) {
        expected.erase(expected.begin() + first);
    }
    REQUIRE(RatesOf(rates) == expected);
    REQUIRE(static_cast<std::size_t>(rates.Length()) == expected.size());
}

void LoadAndSave(const std::string& bytes, fuzz::Input& input) {
    fakes::FakePlatform platform;
    platform.files.WriteBytes(serverFile, bytes);
    platform.files.largestRead = fuzz::ReadSize(input);
    clsChargeRates rates(platform.mutexes, platform.clock);
    std::vector<Rate> expected;
    const bool whole = Take(fuzz::Utf16Text(bytes), expected);
    REQUIRE(Load(platform.files, serverFile, rates) == whole);
    REQUIRE(RatesOf(rates) == expected);
    SaveAndReload(platform, rates);
    Change(rates, input);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    const std::string file = korvanta::fuzz::Utf16File(input);
    korvanta::LoadAndSave(file, input);
    return 0;
}
