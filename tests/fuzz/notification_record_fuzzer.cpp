// The notification record: what a file makes of it, and that writing and reading gives the same.
// Aims at: server/clsAccountNotification.cpp
#include <cmath>

#include "common/Text.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakePlatform.h"
#include "fuzz/Fuzzing.h"
#include "server/clsAccountNotification.h"

namespace korvanta {
namespace {

const std::u16string path = u"C:\\Temp\\a.tlx";
constexpr std::size_t requiredLines = 8;

using Lines = std::vector<std::u16string>;

// The record's fields as lines; the last one, the rate's value, aside.
Lines FieldsOf(const clsAccountNotification& record) {
    return {NumberText(record.JobID),
            record.MachineName,
            record.PrinterName,
            record.UserName,
            record.Document,
            NumberText(record.PrinterHandle),
            NumberText(record.AccountID),
            record.AccountTitle,
            BooleanDigit(record.Invoiceable),
            record.Comment,
            record.JobEventFilename,
            record.ChargeRateDescription};
}

std::u16string Trimmed(std::u16string text) {
    text.erase(0, text.find_first_not_of(u' '));
    text.erase(text.find_last_not_of(u' ') + 1);
    return text;
}

// What the lines make of the fields, and whether they are a notification.
bool Take(const Lines& lines, Lines& fields, double& value) {
    for (std::size_t i = 0; i < requiredLines; ++i) {
        if (i == lines.size()) {
            return false;
        }
        const bool isNumber = i == 0 || i == 5 || i == 6;
        const std::optional<std::int32_t> number = fuzz::Number32(lines[i]);
        if (isNumber && !number) {
            return false;
        }
        fields[i] = isNumber ? NumberText(*number) : lines[i];
    }
    for (std::size_t i = requiredLines; i < fields.size() && i < lines.size(); ++i) {
        fields[i] = lines[i];
    }
    if (lines.size() > requiredLines) {
        fields[requiredLines] = Trimmed(lines[requiredLines]) == u"0" ? u"0" : u"1";
    }
    if (lines.size() > fields.size()) {
        value = fuzz::NumberAtStart(lines[fields.size()]);
    }
    return true;
}

void ReadAndWrite(fuzz::Input& input) {
    fakes::FakePlatform platform;
    fakes::FakeErrorReports reports;
    const std::string bytes = fuzz::Utf16File(input);
    platform.files.WriteBytes(path, bytes);
    platform.files.largestRead = fuzz::ReadSize(input);
    clsAccountNotification record(platform.clock, reports);
    Lines fields = FieldsOf(record);
    double value = 0;
    const bool isNotification = Take(fuzz::LinesOf(fuzz::Utf16Text(bytes)), fields, value);
    {
        TextInput stream = TextInput::OpenUtf16(platform.files, path);
        REQUIRE(record.ReadFile(stream) == isNotification);
    }
    REQUIRE(FieldsOf(record) == fields);
    REQUIRE(record.ChargeRateValue == value);
    REQUIRE(reports.messages.size() == (isNotification ? 0 : 1));

    TextOutput output = TextOutput::OpenUtf16(platform.files, path);
    REQUIRE(record.WriteFile(output));
    output.Close();
    clsAccountNotification again(platform.clock, reports);
    TextInput stream = TextInput::OpenUtf16(platform.files, path);
    REQUIRE(again.ReadFile(stream));
    REQUIRE(FieldsOf(again) == fields);
    REQUIRE(std::abs(again.ChargeRateValue - value) <= 1e-14 * std::abs(value) ||
            std::abs(value) > 1.79769313486231e308);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::ReadAndWrite(input);
    return 0;
}
