// Job notification files: which are jobs, that each is reported once with what it says, and that none is skipped.
// Aims at: detection/clsJobInfo.cpp detection/clsJobDetectionFile.cpp detection/clsJobHistory.cpp
#include "detection/clsJobDetectionFile.h"
#include "fuzz/Fuzzing.h"
#include "unit/detection/Support.h"

namespace korvanta {
namespace {

// Over the end of the numbers.
constexpr int firstFile = 998;
constexpr int fileNumbers = 1000;
constexpr std::size_t mostFiles = 20;
constexpr int mostEmptyFiles = 5;

bool Same(const clsJobInfo& a, const clsJobInfo& b) {
    return a.JobID == b.JobID && a.PrinterName == b.PrinterName && a.MachineName == b.MachineName &&
           a.UserName == b.UserName && a.Document == b.Document && a.FullPrinterName == b.FullPrinterName &&
           a.PrinterHandle == b.PrinterHandle && a.Time1 == b.Time1 && a.Time2 == b.Time2 && a.Time3 == b.Time3 &&
           a.JobEventFilename == b.JobEventFilename;
}

bool SameSubmission(const clsJobInfo& a, const clsJobInfo& b) {
    return a.UserName == b.UserName && a.FullPrinterName == b.FullPrinterName && a.Document == b.Document &&
           a.Time1 == b.Time1 && a.Time2 == b.Time2 && a.Time3 == b.Time3;
}

// Fills the record as far as the lines are those of one.
bool Take(const std::vector<std::u16string>& lines, clsJobInfo& job) {
    std::size_t next = 0;
    const auto text = [&](std::u16string& field) {
        if (next == lines.size()) {
            return false;
        }
        field = lines[next++];
        return true;
    };
    const auto number = [&](std::int32_t& field) {
        std::u16string line;
        const std::optional<std::int32_t> value = text(line) ? fuzz::Number32(line) : std::nullopt;
        field = value.value_or(field);
        return value.has_value();
    };
    return number(job.JobID) && text(job.PrinterName) && text(job.MachineName) && text(job.UserName) &&
           text(job.Document) && text(job.FullPrinterName) && number(job.PrinterHandle) && number(job.Time1) &&
           number(job.Time2) && number(job.Time3);
}

void ReadAlone(fakes::FakeFileSystem& files, const std::u16string& path) {
    const std::u16string text = fuzz::Utf16Text(files.ReadBytes(path));
    clsJobInfo job;
    clsJobInfo expected;
    REQUIRE(job.ReadFromString(text) == Take(fuzz::Pieces(text, u"\r\n"), expected));
    REQUIRE(Same(job, expected));

    clsJobInfo fromStream;
    clsJobInfo expectedFromStream;
    TextInput stream = TextInput::OpenUtf16(files, path);
    REQUIRE(fromStream.ReadFromTextStream(stream) == Take(fuzz::LinesOf(text), expectedFromStream));
    REQUIRE(Same(fromStream, expectedFromStream));
}

// The jobs of the files in their order, without those that were there before. So many empty files in a row end it, and
// are left for the next time.
std::vector<clsJobInfo> JobsIn(const std::vector<std::string>& files) {
    std::vector<clsJobInfo> jobs;
    int emptyFiles = 0;
    for (std::size_t i = 0; i < files.size() && emptyFiles < mostEmptyFiles; ++i) {
        const std::u16string text = fuzz::Utf16Text(files[i]);
        emptyFiles = text.empty() ? emptyFiles + 1 : 0;
        clsJobInfo job;
        if (!Take(fuzz::Pieces(text, u"\r\n"), job)) {
            continue;
        }
        job.JobEventFilename = u"JSmith." + PaddedNumberText((firstFile + static_cast<int>(i)) % fileNumbers, 3);
        if (std::none_of(jobs.begin(), jobs.end(),
                         [&job](const clsJobInfo& known) { return SameSubmission(known, job); })) {
            jobs.push_back(job);
        }
    }
    return jobs;
}

void Poll(fuzz::Input& input) {
    tests::Organisation organisation;
    fakes::FakeFileSystem& files = organisation.platform.files;
    files.largestRead = fuzz::ReadSize(input);
    organisation.PublishPrinters(u"srv", {u"laser"});
    organisation.SetCounter(u"srv", NumberText(firstFile));
    organisation.printersMonitored.RefreshPrinterLists();
    clsJobDetectionFile detector(organisation.serverInterfaces, organisation.printersMonitored, organisation.settings,
                                 organisation.platform.mutexes, organisation.platform.clock,
                                 organisation.platform.system, organisation.platform.spooler, organisation.log,
                                 u"JSmith");
    tests::RecordingSink sink;
    static_cast<IJobDetectionObject&>(detector).Start(sink);

    std::vector<std::string> contents;
    do {
        contents.push_back(fuzz::Utf16File(input));
        const int number = (firstFile + static_cast<int>(contents.size()) - 1) % fileNumbers;
        const std::u16string path = tests::Organisation::JobFilePath(u"srv", number);
        files.WriteBytes(path, contents.back());
        ReadAlone(files, path);
    } while (!input.AtEnd() && contents.size() < mostFiles);

    const std::vector<clsJobInfo> expected = JobsIn(contents);
    for (int poll = 0; poll < 2; ++poll) {
        detector.PollServers();
        REQUIRE(sink.jobs.size() == expected.size());
    }
    for (std::size_t i = 0; i < expected.size(); ++i) {
        REQUIRE(Same(*sink.jobs[i], expected[i]));
    }
    REQUIRE(files.OpenFiles() == 0);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::Poll(input);
    return 0;
}
