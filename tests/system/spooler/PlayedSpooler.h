#pragma once

#include <string>
#include <vector>

// A print spooler played by files, for machines that have none: the library winspool.drv of this folder reads them in
// the place of the real one, in whatever process loads it. All texts are single-byte.
namespace spooler {

// The folder of the files, for the library and for those who play with it.
inline constexpr char folderVariable[] = "KORVANTA_SPOOLER";

struct Printer {
    std::string name;
    bool canNotify = true;  // false: asking for change notifications fails

    bool operator==(const Printer&) const = default;
};

struct Job {
    std::string printer;
    int id = 0;
    std::string machine;
    std::string user;
    std::string document;
    int minute = 0;  // of the hour in which the job was submitted

    bool operator==(const Job&) const = default;
};

// What a program asked the spooler to do with a job.
struct Command {
    std::string printer;
    int job = 0;
    int command = 0;

    bool operator==(const Command&) const = default;
};

// The files of one folder. What is missing is empty.
class Files {
  public:
    // `folder` has no trailing backslash.
    explicit Files(std::string folder) : folder_(std::move(folder)) {}

    // Replaces the list; printers keep their handles as long as they keep their place.
    void SetPrinters(const std::vector<Printer>& printers) const;
    std::vector<Printer> Printers() const;
    void SetJobs(const std::vector<Job>& jobs) const;
    std::vector<Job> Jobs() const;
    void Add(const Command& command) const;
    std::vector<Command> Commands() const;
    // Tells all who asked for changes of the printer that there is one.
    static void Announce(const std::string& printer);
    // The name of the event that is signalled then.
    static std::string EventName(const std::string& printer);

  private:
    using Records = std::vector<std::vector<std::string>>;
    Records Read(const char* name) const;
    void Write(const char* name, const Records& records) const;

    std::string folder_;
};

}  // namespace spooler
