// The product's code and its windows under Windows or Wine, against what Windows itself offers. Writes a line for each
// row, its fields separated by tabs: name, count, nanoseconds of ours and of the bare way (or "-").

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <set>

#include "Cases.h"
#include "ScreenCases.h"
#include "StartCase.h"
#include "platform/win32/services/WindowsPlatform.h"

namespace {

using namespace korvanta::bench;

// The system's files, without the copy that the product keeps for times when the server is down: what is compared is
// reading them.
class ReadFiles : public korvanta::FileSystem {
  public:
    explicit ReadFiles(FileSystem& files) : files_(files) {}

    std::uint32_t OpenForReading(const std::u16string& path, std::unique_ptr<korvanta::InputFile>& file) override {
        return files_.OpenForReading(path, file);
    }
    std::uint32_t OpenForWriting(const std::u16string& path, korvanta::OutputMode mode,
                                 std::unique_ptr<korvanta::OutputFile>& file) override {
        return files_.OpenForWriting(path, mode, file);
    }
    bool FileExists(const std::u16string& path) override { return files_.FileExists(path); }
    bool FolderExists(const std::u16string& path) override { return files_.FolderExists(path); }
    std::uint32_t LastModified(const std::u16string& path, std::uint64_t& time) override {
        return files_.LastModified(path, time);
    }
    std::uint32_t Copy(const std::u16string& /*from*/, const std::u16string& /*to*/) override { return 0; }
    std::uint32_t Delete(const std::u16string& path) override { return files_.Delete(path); }
    std::u16string TemporaryFolder() override { return files_.TemporaryFolder(); }
    std::u16string TemporaryName() override { return files_.TemporaryName(); }

  private:
    FileSystem& files_;
};

using Clock = std::chrono::steady_clock;

// Nanoseconds for one run; of a short action the mean of many.
double Time(const Case& row, const std::function<void()>& action) {
    row.between();
    const auto start = Clock::now();
    int runs = 0;
    do {
        action();
        ++runs;
    } while (row.repeats && Clock::now() - start < std::chrono::milliseconds(5));
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / runs;
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// Medians can be compared; by itself a time says most about the product where the machine did least beside it.
double Typical(const std::vector<double>& times, bool compared) {
    return compared ? Median(times) : *std::min_element(times.begin(), times.end());
}

// Both in turn, so that what else the machine does meets both.
void Run(const Case& row) {
    std::vector<double> ours;
    std::vector<double> bare;
    for (int round = 0; round < row.rounds; ++round) {
        ours.push_back(Time(row, row.ours));
        if (row.bare && round < row.bareRounds) {
            bare.push_back(Time(row, row.bare));
        }
    }
    row.between();
    std::printf("%s\t%d\t%.0f\t", row.name.c_str(), row.count, Typical(ours, row.bare != nullptr));
    std::printf(row.bare ? "%.0f\n" : "-\n", row.bare ? Median(bare) : 0);
    std::fflush(stdout);
}

void RunAll(const std::vector<Case>& rows, bool quick) {
    for (Case row : rows) {
        if (quick) {
            row.rounds = row.bareRounds = 1;
            row.repeats = false;
        }
        Run(row);
    }
}

int Fail(const char* what) {
    std::fprintf(stderr, "windows_bench: %s\n", what);
    return 2;
}

}  // namespace

// Arguments: "list-operations N"; "start CLIENT EMPTY ROUNDS"; or COUNT and any of load, search, list, grid, keystroke,
// --quick, with \\BENCH\TLXData$\Accounts.txt holding so many accounts.
int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    korvanta::WindowsPlatform windows;
    korvanta::Platform& platform = windows.Services();
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "list-operations" && argc == 3) {
        UseList(platform.mutexes, std::atoi(argv[2]));
        return 0;
    }
    if (command == "start" && argc == 5) {
        Run(StartCase(argv[2], argv[3], std::atoi(argv[4])));
        return 0;
    }
    const int count = std::atoi(command.c_str());
    if (count < 1) {
        return Fail("the first argument is no number of accounts and no command.");
    }
    const std::set<std::string> names(argv + 2, argv + argc);
    const auto wanted = [&names](const std::string& name) { return names.contains(name); };
    ReadFiles files(platform.files);
    const Surroundings surroundings{files, platform.mutexes, "\\\\BENCH\\TLXData$\\Accounts.txt"};
    const bool quick = names.contains("--quick");
    RunAll(AccountCases(surroundings, count, wanted), quick);
    if (wanted("list")) {
        RunAll(ListCases(platform.mutexes, count), quick);
    }
    if (wanted("grid")) {
        RunAll(GridCases(windows, count), quick);
    }
    if (wanted("keystroke")) {
        RunAll(KeystrokeCases(windows, count), quick);
    }
    return 0;
}
