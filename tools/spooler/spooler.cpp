// Plays with the print spooler that winspool.drv of this folder shows to programs, from the command line.

#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "spooler/PlayedSpooler.h"

namespace {

using Arguments = std::vector<std::string>;

constexpr const char* usage =
    "Usage: spooler COMMAND [ARGUMENT...] [OPTION...]\n"
    "\n"
    "Plays the print spooler for every program that has the library winspool.drv beside it. The exit code is 0 when "
    "the\n"
    "command succeeded, 1 when it did not, and 2 when it was not understood.\n"
    "\n"
    "  printers NAME...    makes these the spooler's printers, such as \\\\SERVER\\Laser; without a name, lists them\n"
    "  add PRINTER         queues a job, and signals it to the programs that watch the printer\n"
    "      --id N          its number (default: the next one)\n"
    "      --user U        who prints it (default: the user of this session)\n"
    "      --machine M     where it was printed (default: this machine, as \\\\MACHINE)\n"
    "      --document D    its name (default: Document)\n"
    "      --count N       so many jobs, a millisecond apart, each with its number behind the document's name\n"
    "      --null FIELD    a null pointer for user, machine or document; may be given for each of them\n"
    "  remove PRINTER ID   takes a job from its queue\n"
    "  jobs                lists the queues: printer, number, machine, user, document\n"
    "  commands            lists what programs asked for: printer, number of the job, command (3 is cancel)\n"
    "  calls               lists every call of every program with its arguments and its result\n"
    "  stop, start         lets the spooler die, which makes every handle invalid for good, and return\n"
    "  restart             lets it die and return at once; the change handles of before stay signalled for good\n"
    "  fail FAULT          lets something go wrong from now on:\n"
    "      open            OpenPrinterA is refused\n"
    "      close           ClosePrinter is refused\n"
    "      enumerate       EnumJobsA is refused\n"
    "      set-job         SetJobA is refused\n"
    "      watch           FindFirstPrinterChangeNotification gives the invalid handle\n"
    "      watch-null      FindFirstPrinterChangeNotification gives no handle\n"
    "      rearm           FindNextPrinterChangeNotification is refused\n"
    "      handle          every handle of the printer is invalid\n"
    "      wait            the change handle that is given cannot be waited on\n"
    "      grow            asked for the size, EnumJobsA does not know the newest job yet\n"
    "      overclaim       EnumJobsA claims more jobs than it returns\n"
    "      --printer P     only on this printer\n"
    "      --number N      the Windows error code (default 5, access denied); for overclaim: how many more jobs\n"
    "      --times N       only so often (default: until healed)\n"
    "  heal [FAULT]        ends that fault, or all of them\n"
    "  clear               forgets everything\n"
    "\n"
    "  --folder F          the folder of the spooler's files (default: the one that the variable KORVANTA_SPOOLER\n"
    "                      names, else \"spooler\" beside this program)\n"
    "  --help              shows this text\n";

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string Bytes(const wchar_t* text) {
    const int size = ::WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
}

// For the terminal, which takes UTF-8.
std::string Shown(const std::string& bytes) {
    std::wstring wide(bytes.size(), L'\0');
    const int length = ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), wide.data(),
                                             static_cast<int>(wide.size()));
    std::string text(bytes.size() * 3, '\0');
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), static_cast<int>(text.size()),
                                           nullptr, nullptr);
    text.resize(static_cast<std::size_t>(size));
    return text;
}

void Print(const std::string& line) {
    std::printf("%s\n", Shown(line).c_str());
}

std::string FieldText(const std::optional<std::string>& text) {
    return text.value_or("(null)");
}

int Number(const std::string& text) {
    std::size_t end = 0;
    int number = 0;
    try {
        number = std::stoi(text, &end);
    } catch (const std::logic_error&) {
        end = 0;
    }
    if (end == 0 || end != text.size()) {
        throw UsageError("\"" + text + "\" is not a number");
    }
    return number;
}

// The words of a command line, and behind "--name" the values of its options.
class CommandLine {
  public:
    explicit CommandLine(const Arguments& words) {
        for (std::size_t i = 0; i < words.size(); ++i) {
            if (words[i].compare(0, 2, "--") != 0) {
                arguments_.push_back(words[i]);
            } else if (++i < words.size()) {
                options_.emplace(words[i - 1], words[i]);
            } else {
                throw UsageError(words[i - 1] + " needs a value");
            }
        }
    }

    const Arguments& All() const { return arguments_; }
    const std::string& Argument(std::size_t index) const {
        if (index >= arguments_.size()) {
            throw UsageError("an argument is missing");
        }
        return arguments_[index];
    }
    // The last value given.
    std::string Option(const std::string& name, const std::string& usual) const {
        const auto range = options_.equal_range(name);
        return range.first == range.second ? usual : std::prev(range.second)->second;
    }
    bool Has(const std::string& name, const std::string& value) const {
        const auto range = options_.equal_range(name);
        return std::any_of(range.first, range.second, [&](const auto& option) { return option.second == value; });
    }
    void ExpectOptions(const Arguments& known) const {
        for (const auto& [name, value] : options_) {
            if (name != "--folder" && std::find(known.begin(), known.end(), name) == known.end()) {
                throw UsageError("unknown option " + name);
            }
        }
    }

  private:
    Arguments arguments_;
    std::multimap<std::string, std::string> options_;
};

std::string ThisUser() {
    char name[256];
    DWORD size = sizeof name;
    return ::GetUserNameA(name, &size) ? name : "";
}

std::string ThisMachine() {
    char name[256];
    DWORD size = sizeof name;
    return ::GetComputerNameA(name, &size) ? name : "";
}

void AddMilliseconds(SYSTEMTIME& moment, int milliseconds) {
    FILETIME ticks;
    ::SystemTimeToFileTime(&moment, &ticks);
    ULARGE_INTEGER sum{{ticks.dwLowDateTime, ticks.dwHighDateTime}};
    sum.QuadPart += 10000ULL * static_cast<unsigned>(milliseconds);
    ticks = {sum.LowPart, sum.HighPart};
    ::FileTimeToSystemTime(&ticks, &moment);
}

int AfterAll(const std::vector<spooler::Job>& jobs) {
    int highest = 0;
    for (const spooler::Job& job : jobs) {
        highest = std::max(highest, job.id);
    }
    return highest + 1;
}

void Printers(const spooler::Files& files, const CommandLine& line) {
    if (!line.All().empty()) {
        files.SetPrinters(line.All());
    }
    for (const std::string& name : files.Printers()) {
        Print(name);
    }
}

void AddJobs(const spooler::Files& files, const CommandLine& line) {
    line.ExpectOptions({"--id", "--user", "--machine", "--document", "--count", "--null"});
    const std::string printer = line.Argument(0);
    const std::vector<std::string> printers = files.Printers();
    if (std::find(printers.begin(), printers.end(), printer) == printers.end()) {
        throw std::runtime_error("there is no printer " + printer);
    }
    const auto field = [&line](const std::string& name, const std::string& usual) {
        return line.Has("--null", name) ? std::nullopt : std::optional(line.Option("--" + name, usual));
    };
    const spooler::Turn turn;
    spooler::Job job{printer, Number(line.Option("--id", std::to_string(AfterAll(files.Jobs())))),
                     field("machine", "\\\\" + ThisMachine()), field("user", ThisUser()),
                     field("document", "Document")};
    ::GetSystemTime(&job.submitted);
    const std::optional<std::string> document = job.document;
    const int count = Number(line.Option("--count", "1"));
    std::vector<spooler::Job> jobs;
    for (int i = 1; i <= count; ++i, ++job.id, AddMilliseconds(job.submitted, 1)) {
        if (document && count > 1) {
            job.document = *document + " " + std::to_string(i);
        }
        jobs.push_back(job);
    }
    files.AddJobs(jobs);
}

void RemoveJob(const spooler::Files& files, const CommandLine& line) {
    if (!files.RemoveJob(line.Argument(0), Number(line.Argument(1)))) {
        throw std::runtime_error("there is no job " + line.Argument(1) + " on " + line.Argument(0));
    }
}

void ListJobs(const spooler::Files& files, const CommandLine&) {
    for (const spooler::Job& job : files.Jobs()) {
        Print(job.printer + "\t" + std::to_string(job.id) + "\t" + FieldText(job.machine) + "\t" + FieldText(job.user) +
              "\t" + FieldText(job.document));
    }
}

void ListCommands(const spooler::Files& files, const CommandLine&) {
    for (const spooler::Command& command : files.Commands()) {
        Print(command.printer + "\t" + std::to_string(command.job) + "\t" + std::to_string(command.command));
    }
}

void ListCalls(const spooler::Files& files, const CommandLine&) {
    for (const std::string& call : files.Calls()) {
        Print(call);
    }
}

void AddFault(const spooler::Files& files, const CommandLine& line) {
    line.ExpectOptions({"--printer", "--number", "--times"});
    const Arguments known(std::begin(spooler::fault::all), std::end(spooler::fault::all));
    if (std::find(known.begin(), known.end(), line.Argument(0)) == known.end()) {
        throw UsageError("there is no fault \"" + line.Argument(0) + "\"");
    }
    files.Inject(spooler::Fault{line.Argument(0), line.Option("--printer", ""),
                                static_cast<DWORD>(Number(line.Option("--number", "5"))),
                                Number(line.Option("--times", "0"))});
}

void Heal(const spooler::Files& files, const CommandLine& line) {
    files.Heal(line.All().empty() ? std::string() : line.Argument(0));
}

using Step = void (spooler::Files::*)() const;

template <Step step>
void Simply(const spooler::Files& files, const CommandLine&) {
    (files.*step)();
}

void Run(const Arguments& words) {
    static const std::map<std::string, void (*)(const spooler::Files&, const CommandLine&)> commands{
        {"printers", Printers},
        {"add", AddJobs},
        {"remove", RemoveJob},
        {"jobs", ListJobs},
        {"commands", ListCommands},
        {"calls", ListCalls},
        {"stop", Simply<&spooler::Files::Stop>},
        {"start", Simply<&spooler::Files::Start>},
        {"restart", Simply<&spooler::Files::Restart>},
        {"fail", AddFault},
        {"heal", Heal},
        {"clear", Simply<&spooler::Files::Clear>},
    };
    const auto found = words.empty() ? commands.end() : commands.find(words.front());
    if (found == commands.end()) {
        throw UsageError(words.empty() ? "a command is missing" : "there is no command \"" + words.front() + "\"");
    }
    const CommandLine line(Arguments(words.begin() + 1, words.end()));
    const spooler::Files files(line.Option("--folder", spooler::Files::UsualFolder(nullptr)));
    // Its parent must be there.
    ::CreateDirectoryA(files.Folder().c_str(), nullptr);
    found->second(files, line);
}

}  // namespace

int main() {
    int count = 0;
    wchar_t** texts = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    Arguments words;
    for (int i = 1; i < count; ++i) {
        words.push_back(Bytes(texts[i]));
    }
    ::LocalFree(texts);
    if (words == Arguments{"--help"} || words == Arguments{"-h"}) {
        std::fputs(usage, stdout);
        return 0;
    }
    try {
        Run(words);
        return 0;
    } catch (const UsageError& error) {
        std::fprintf(stderr, "spooler: %s\n\n%s", Shown(std::string(error.what())).c_str(), usage);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "spooler: %s\n", Shown(std::string(error.what())).c_str());
        return 1;
    }
}
