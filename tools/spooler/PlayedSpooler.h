#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

// A print spooler played by files, for machines that have none: the library winspool.drv of this folder reads them in
// the place of the real one, in whatever process loads it. All texts are single-byte, in the machine's code page.
namespace spooler {

// The folder of the files, for the library and for those who play with it. Without it, both take the folder "spooler"
// beside themselves.
inline constexpr char folderVariable[] = "KORVANTA_SPOOLER";

struct Job {
    std::string printer;
    int id = 0;
    // None: the job's block has a null pointer there.
    std::optional<std::string> machine{};
    std::optional<std::string> user{};
    std::optional<std::string> document{};
    SYSTEMTIME submitted{2004, 2, 0, 29, 23, 0, 5, 678};
};

// What a program asked the spooler to do with a job.
struct Command {
    std::string printer;
    int job = 0;
    int command = 0;

    bool operator==(const Command&) const = default;
};

// The things that can go wrong.
namespace fault {
inline constexpr char open[] = "open";             // OpenPrinterA is refused
inline constexpr char close[] = "close";           // ClosePrinter is refused
inline constexpr char enumerate[] = "enumerate";   // EnumJobsA is refused, whatever the buffer
inline constexpr char setJob[] = "set-job";        // SetJobA is refused
inline constexpr char watch[] = "watch";           // FindFirstPrinterChangeNotification gives the invalid handle
inline constexpr char watchNull[] = "watch-null";  // the same call gives no handle at all
inline constexpr char rearm[] = "rearm";           // FindNextPrinterChangeNotification is refused
inline constexpr char handle[] = "handle";         // the printer's handle is invalid in every call
inline constexpr char wait[] = "wait";             // the change handle that is given cannot be waited on
inline constexpr char grow[] = "grow";             // asked for the size, EnumJobsA does not know the newest job yet
inline constexpr char overclaim[] = "overclaim";   // EnumJobsA claims `number` more jobs than it returns
inline constexpr const char* all[] = {open,  close,  enumerate, setJob, watch,    watchNull,
                                      rearm, handle, wait,      grow,   overclaim};
}  // namespace fault

struct Fault {
    std::string name;
    std::string printer{};  // empty: every printer
    // The Windows error code of the refused call.
    DWORD number = ERROR_ACCESS_DENIED;
    int times = 0;  // how often it still happens; 0: until it is healed
};

// The files of one folder. What is missing is empty. Every function is one step for all processes; what cannot be
// written raises std::runtime_error.
class Files {
  public:
    // `folder` has no trailing backslash and must be there.
    explicit Files(std::string folder) : folder_(std::move(folder)) {}
    // The folder that the variable names, or the one beside the program or library `module`.
    static std::string UsualFolder(HMODULE module);

    const std::string& Folder() const { return folder_; }
    // As if nothing had happened here yet.
    void Clear() const;

    void SetPrinters(const std::vector<std::string>& names) const;
    std::vector<std::string> Printers() const;

    // Tells every program that asked for the changes of their printers.
    void AddJobs(const std::vector<Job>& jobs) const;
    // Tells nobody.
    void SetJobs(const std::vector<Job>& jobs) const;
    std::vector<Job> Jobs() const;
    // False when there is no such job.
    bool RemoveJob(const std::string& printer, int id) const;

    void Add(const Command& command) const;
    std::vector<Command> Commands() const;

    void Inject(const Fault& fault) const;
    // Every fault of that name; all faults for an empty one.
    void Heal(const std::string& name) const;
    // Whether this goes wrong now, which counts as having happened.
    std::optional<Fault> Take(const std::string& name, const std::string& printer) const;

    // A spooler that dies takes every handle with it; they stay invalid when it returns.
    void Stop() const;
    void Start() const;
    // Dies and returns at once, as real spoolers do: the change handles of before stay signalled for good, and arming
    // them again fails.
    void Restart() const;
    bool Running() const { return State().running; }
    // How often it has died.
    int Life() const { return State().life; }

    // The event is signalled from now on when the printer gets a job.
    void AddWatcher(const std::string& eventName, const std::string& printer) const;

    void Log(const std::string& call) const;
    // The calls of all programs, oldest first, as README.md shows them.
    std::vector<std::string> Calls() const;

  private:
    using Record = std::vector<std::optional<std::string>>;
    using Records = std::vector<Record>;
    struct Condition {
        bool running = true;
        int life = 0;
    };
    std::string Path(const char* name) const { return folder_ + "\\" + name; }
    Records Read(const char* name) const;
    void Write(const char* name, const Records& records) const;
    Condition State() const;
    void State(const Condition& state) const;
    void Announce(const std::string& printer) const;

    std::string folder_;
};

// Holds all other processes off the files; may be nested.
class Turn {
  public:
    Turn();
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    HANDLE mutex_;
};

}  // namespace spooler
