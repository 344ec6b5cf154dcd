#include "PlayedSpooler.h"

#include <windows.h>

#include <algorithm>
#include <stdexcept>

namespace spooler {
namespace {

constexpr char printersFile[] = "printers.txt";
constexpr char jobsFile[] = "jobs.txt";
constexpr char commandsFile[] = "commands.txt";
constexpr char fieldEnd = '\t';
constexpr char recordEnd = '\n';

std::string ReadAll(const std::string& path) {
    std::string text;
    const HANDLE file =
        ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                      OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return text;
    }
    char buffer[4096];
    DWORD got = 0;
    while (::ReadFile(file, buffer, sizeof(buffer), &got, nullptr) && got > 0) {
        text.append(buffer, got);
    }
    ::CloseHandle(file);
    return text;
}

// Readers see the old text or the new one, never a half.
void ReplaceAll(const std::string& path, const std::string& text) {
    const std::string fresh = path + ".new";
    const HANDLE file = ::CreateFileA(fresh.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    const bool done = file != INVALID_HANDLE_VALUE &&
                      ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
                      written == text.size();
    ::CloseHandle(file);
    if (!done || !::MoveFileExA(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        throw std::runtime_error("cannot write " + path);
    }
}

int Number(const std::string& text) {
    return text.empty() ? 0 : std::stoi(text);
}

}  // namespace

Files::Records Files::Read(const char* name) const {
    Records records;
    std::vector<std::string> fields(1);
    for (const char character : ReadAll(folder_ + "\\" + name)) {
        if (character == recordEnd) {
            records.push_back(std::move(fields));
            fields = std::vector<std::string>(1);
        } else if (character == fieldEnd) {
            fields.emplace_back();
        } else {
            fields.back() += character;
        }
    }
    return records;
}

void Files::Write(const char* name, const Records& records) const {
    std::string text;
    for (const std::vector<std::string>& fields : records) {
        for (const std::string& field : fields) {
            text += field + fieldEnd;
        }
        text.back() = recordEnd;
    }
    ReplaceAll(folder_ + "\\" + name, text);
}

void Files::SetPrinters(const std::vector<Printer>& printers) const {
    Records records;
    for (const Printer& printer : printers) {
        records.push_back({printer.name, printer.canNotify ? "1" : "0"});
    }
    Write(printersFile, records);
}

std::vector<Printer> Files::Printers() const {
    std::vector<Printer> printers;
    for (const std::vector<std::string>& fields : Read(printersFile)) {
        printers.push_back({fields.at(0), fields.at(1) == "1"});
    }
    return printers;
}

void Files::SetJobs(const std::vector<Job>& jobs) const {
    Records records;
    for (const Job& job : jobs) {
        records.push_back(
            {job.printer, std::to_string(job.id), job.machine, job.user, job.document, std::to_string(job.minute)});
    }
    Write(jobsFile, records);
}

std::vector<Job> Files::Jobs() const {
    std::vector<Job> jobs;
    for (const std::vector<std::string>& fields : Read(jobsFile)) {
        jobs.push_back(
            {fields.at(0), Number(fields.at(1)), fields.at(2), fields.at(3), fields.at(4), Number(fields.at(5))});
    }
    return jobs;
}

void Files::Add(const Command& command) const {
    Records records = Read(commandsFile);
    records.push_back({command.printer, std::to_string(command.job), std::to_string(command.command)});
    Write(commandsFile, records);
}

std::vector<Command> Files::Commands() const {
    std::vector<Command> commands;
    for (const std::vector<std::string>& fields : Read(commandsFile)) {
        commands.push_back({fields.at(0), Number(fields.at(1)), Number(fields.at(2))});
    }
    return commands;
}

void Files::Announce(const std::string& printer) {
    const HANDLE event = ::OpenEventA(EVENT_MODIFY_STATE, FALSE, EventName(printer).c_str());
    if (event) {
        ::SetEvent(event);
        ::CloseHandle(event);
    }
}

std::string Files::EventName(const std::string& printer) {
    std::string name = "KorvantaPlayedSpooler " + printer;
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

}  // namespace spooler
