#include "spooler/PlayedSpooler.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace spooler {
namespace {

constexpr char printersFile[] = "printers.txt";
constexpr char jobsFile[] = "jobs.txt";
constexpr char commandsFile[] = "commands.txt";
constexpr char faultsFile[] = "faults.txt";
constexpr char stateFile[] = "state.txt";
constexpr char watchersFile[] = "watchers.txt";
constexpr char callsFile[] = "calls.log";
constexpr char fieldEnd = '\t';
constexpr char recordEnd = '\n';
// No escape sequence, which has two digits.
constexpr char noText[] = "%0";

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

void WriteTo(const std::string& path, DWORD access, DWORD disposition, const std::string& text) {
    const HANDLE file = ::CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, disposition, 0, nullptr);
    DWORD written = 0;
    const bool done = file != INVALID_HANDLE_VALUE &&
                      ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
                      written == text.size();
    ::CloseHandle(file);
    if (!done) {
        throw std::runtime_error("cannot write " + path);
    }
}

// Readers see the old text or the new one, never a half.
void ReplaceAll(const std::string& path, const std::string& text) {
    const std::string fresh = path + ".new";
    WriteTo(fresh, GENERIC_WRITE, CREATE_ALWAYS, text);
    if (!::MoveFileExA(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        throw std::runtime_error("cannot write " + path);
    }
}

std::string Escaped(const std::optional<std::string>& text) {
    if (!text) {
        return noText;
    }
    std::string escaped;
    for (const char character : *text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < ' ' || character == '%') {
            std::array<char, 4> sequence{};
            std::snprintf(sequence.data(), sequence.size(), "%%%02X", code);
            escaped += sequence.data();
        } else {
            escaped += character;
        }
    }
    return escaped;
}

std::optional<std::string> Unescaped(const std::string& escaped) {
    if (escaped == noText) {
        return std::nullopt;
    }
    std::string text;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] == '%') {
            text += static_cast<char>(std::stoi(escaped.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            text += escaped[i];
        }
    }
    return text;
}

std::string Text(const std::optional<std::string>& field) {
    return field.value_or(std::string());
}

int Number(const std::optional<std::string>& field) {
    return std::stoi(field.value());
}

std::string MomentText(const SYSTEMTIME& moment) {
    std::ostringstream text;
    text << moment.wYear << ' ' << moment.wMonth << ' ' << moment.wDayOfWeek << ' ' << moment.wDay << ' '
         << moment.wHour << ' ' << moment.wMinute << ' ' << moment.wSecond << ' ' << moment.wMilliseconds;
    return text.str();
}

SYSTEMTIME Moment(const std::string& text) {
    std::istringstream words(text);
    SYSTEMTIME moment{};
    words >> moment.wYear >> moment.wMonth >> moment.wDayOfWeek >> moment.wDay >> moment.wHour >> moment.wMinute >>
        moment.wSecond >> moment.wMilliseconds;
    return moment;
}

std::string Now() {
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%02u:%02u:%02u.%03u", now.wHour, now.wMinute, now.wSecond,
                  now.wMilliseconds);
    return text.data();
}

}  // namespace

Turn::Turn() : mutex_(::CreateMutexA(nullptr, FALSE, "KorvantaPlayedSpooler")) {
    ::WaitForSingleObject(mutex_, INFINITE);
}

Turn::~Turn() {
    ::ReleaseMutex(mutex_);
    ::CloseHandle(mutex_);
}

std::string Files::UsualFolder(HMODULE module) {
    std::array<char, MAX_PATH> path{};
    if (::GetEnvironmentVariableA(folderVariable, path.data(), MAX_PATH) == 0) {
        ::GetModuleFileNameA(module, path.data(), MAX_PATH);
        const std::string file = path.data();
        return file.substr(0, file.rfind('\\') + 1) + "spooler";
    }
    return path.data();
}

void Files::Clear() const {
    const Turn turn;
    for (const char* name : {printersFile, jobsFile, commandsFile, faultsFile, stateFile, watchersFile, callsFile}) {
        ::DeleteFileA(Path(name).c_str());
    }
}

Files::Records Files::Read(const char* name) const {
    Records records;
    Record record;
    std::string field;
    for (const char character : ReadAll(Path(name))) {
        if (character == recordEnd || character == fieldEnd) {
            record.push_back(Unescaped(field));
            field.clear();
        } else {
            field += character;
        }
        if (character == recordEnd) {
            records.push_back(std::move(record));
            record.clear();
        }
    }
    return records;
}

void Files::Write(const char* name, const Records& records) const {
    std::string text;
    for (const Record& record : records) {
        for (const std::optional<std::string>& field : record) {
            text += Escaped(field) + fieldEnd;
        }
        text.back() = recordEnd;
    }
    ReplaceAll(Path(name), text);
}

void Files::SetPrinters(const std::vector<std::string>& names) const {
    const Turn turn;
    Records records;
    for (const std::string& name : names) {
        records.push_back({name});
    }
    Write(printersFile, records);
}

std::vector<std::string> Files::Printers() const {
    const Turn turn;
    std::vector<std::string> names;
    for (const Record& record : Read(printersFile)) {
        names.push_back(Text(record.at(0)));
    }
    return names;
}

void Files::AddJobs(const std::vector<Job>& jobs) const {
    const Turn turn;
    std::vector<Job> all = Jobs();
    all.insert(all.end(), jobs.begin(), jobs.end());
    SetJobs(all);
    for (const std::string& printer : Printers()) {
        if (std::any_of(jobs.begin(), jobs.end(), [&](const Job& job) { return job.printer == printer; })) {
            Announce(printer);
        }
    }
}

void Files::SetJobs(const std::vector<Job>& jobs) const {
    const Turn turn;
    Records records;
    for (const Job& job : jobs) {
        records.push_back(
            {job.printer, std::to_string(job.id), job.machine, job.user, job.document, MomentText(job.submitted)});
    }
    Write(jobsFile, records);
}

std::vector<Job> Files::Jobs() const {
    const Turn turn;
    std::vector<Job> jobs;
    for (const Record& record : Read(jobsFile)) {
        jobs.push_back({Text(record.at(0)), Number(record.at(1)), record.at(2), record.at(3), record.at(4),
                        Moment(Text(record.at(5)))});
    }
    return jobs;
}

bool Files::RemoveJob(const std::string& printer, int id) const {
    const Turn turn;
    std::vector<Job> jobs = Jobs();
    const bool removed =
        std::erase_if(jobs, [&](const Job& job) { return job.printer == printer && job.id == id; }) > 0;
    if (removed) {
        SetJobs(jobs);
    }
    return removed;
}

void Files::Add(const Command& command) const {
    const Turn turn;
    Records records = Read(commandsFile);
    records.push_back({command.printer, std::to_string(command.job), std::to_string(command.command)});
    Write(commandsFile, records);
}

std::vector<Command> Files::Commands() const {
    const Turn turn;
    std::vector<Command> commands;
    for (const Record& record : Read(commandsFile)) {
        commands.push_back({Text(record.at(0)), Number(record.at(1)), Number(record.at(2))});
    }
    return commands;
}

void Files::Inject(const Fault& fault) const {
    const Turn turn;
    Records records = Read(faultsFile);
    records.push_back({fault.name, fault.printer, std::to_string(fault.number), std::to_string(fault.times)});
    Write(faultsFile, records);
}

void Files::Heal(const std::string& name) const {
    const Turn turn;
    Records records = Read(faultsFile);
    std::erase_if(records, [&](const Record& record) { return name.empty() || record.at(0) == name; });
    Write(faultsFile, records);
}

std::optional<Fault> Files::Take(const std::string& name, const std::string& printer) const {
    const Turn turn;
    Records records = Read(faultsFile);
    const auto found = std::find_if(records.begin(), records.end(), [&](const Record& record) {
        return record.at(0) == name && (Text(record.at(1)).empty() || record.at(1) == printer);
    });
    if (found == records.end()) {
        return std::nullopt;
    }
    const Fault fault{name, Text(found->at(1)), std::stoul(Text(found->at(2))), Number(found->at(3))};
    if (fault.times == 1) {
        records.erase(found);
        Write(faultsFile, records);
    } else if (fault.times > 1) {
        found->at(3) = std::to_string(fault.times - 1);
        Write(faultsFile, records);
    }
    return fault;
}

void Files::Stop() const {
    const Turn turn;
    State({false, State().life + 1});
    Write(watchersFile, {});
}

void Files::Start() const {
    const Turn turn;
    State({true, State().life});
}

void Files::Restart() const {
    const Turn turn;
    for (const std::string& printer : Printers()) {
        Announce(printer);
    }
    Stop();
    Start();
}

Files::Condition Files::State() const {
    const Turn turn;
    const Records records = Read(stateFile);
    return records.empty() ? Condition{} : Condition{Number(records[0].at(0)) != 0, Number(records[0].at(1))};
}

void Files::State(const Condition& state) const {
    Write(stateFile, {{std::to_string(state.running ? 1 : 0), std::to_string(state.life)}});
}

void Files::AddWatcher(const std::string& eventName, const std::string& printer) const {
    const Turn turn;
    Records records = Read(watchersFile);
    records.push_back({eventName, printer});
    Write(watchersFile, records);
}

// Those whose program has ended are forgotten.
void Files::Announce(const std::string& printer) const {
    Records records = Read(watchersFile);
    const std::size_t gone = std::erase_if(records, [&](const Record& record) {
        if (record.at(1) != printer) {
            return false;
        }
        const HANDLE event = ::OpenEventA(EVENT_MODIFY_STATE, FALSE, Text(record.at(0)).c_str());
        if (!event) {
            return true;
        }
        ::SetEvent(event);
        ::CloseHandle(event);
        return false;
    });
    if (gone > 0) {
        Write(watchersFile, records);
    }
}

void Files::Log(const std::string& call) const {
    const Turn turn;
    WriteTo(Path(callsFile), FILE_APPEND_DATA, OPEN_ALWAYS,
            Now() + fieldEnd + std::to_string(::GetCurrentProcessId()) + fieldEnd + Escaped(call) + recordEnd);
}

std::vector<std::string> Files::Calls() const {
    const Turn turn;
    std::vector<std::string> calls;
    for (const Record& record : Read(callsFile)) {
        calls.push_back(Text(record.at(2)));
    }
    return calls;
}

}  // namespace spooler
