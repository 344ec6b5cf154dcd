#include "Faults.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace korvanta::torture {

namespace {

using fakes::FaultPlan;

constexpr std::uint32_t accessDenied = 5;
constexpr std::uint32_t invalidHandle = 6;
constexpr std::uint32_t sharingViolation = 32;
constexpr std::uint32_t badNetPath = 53;
constexpr std::uint32_t netNameDeleted = 64;
constexpr std::uint32_t diskFull = 112;
constexpr std::uint32_t unsupportedType = 1630;
constexpr std::uint32_t serverUnavailable = 1722;
constexpr std::uint32_t socketsNotReady = 10091;
constexpr std::uint32_t cannotConnect = 12029;
constexpr std::uint32_t connectionReset = 12031;
// For the clock: an hour back, and more than a day forward.
constexpr std::uint32_t clockBack = 1;
constexpr std::uint32_t clockOn = 2;
constexpr std::int64_t hour = 3'600'000;

}  // namespace

std::string ReachName(Reach reach) {
    switch (reach) {
        case Reach::Once:
            return "once";
        case Reach::SameCall:
            return "from";
        case Reach::Server:
            return "server";
        case Reach::Everything:
            return "everything";
    }
    return "";
}

std::string CodeName(std::uint32_t code) {
    return code == FaultPlan::halfDone ? "half" : std::to_string(code);
}

std::vector<std::uint32_t> CodesOf(std::string_view call) {
    static const std::map<std::string_view, std::vector<std::uint32_t>> codes = {
        {"Clock.Now", {clockBack, clockOn}},
        {"FileSystem.Close", {diskFull}},
        {"FileSystem.Copy", {sharingViolation, FaultPlan::halfDone}},
        {"FileSystem.OpenForReading", {accessDenied, badNetPath}},
        {"FileSystem.OpenForWriting", {accessDenied, diskFull}},
        {"FileSystem.Read", {netNameDeleted, FaultPlan::halfDone}},
        {"FileSystem.Write", {netNameDeleted, FaultPlan::halfDone}},
        {"Internet.OpenUrl", {cannotConnect}},
        {"Internet.Read", {connectionReset, FaultPlan::halfDone}},
        {"Registry.QueryNumber", {unsupportedType}},
        {"Registry.QueryText", {unsupportedType}},
        {"Spooler.EnumJobs", {invalidHandle, serverUnavailable}},
        {"Spooler.FindNextChange", {invalidHandle}},
        {"Spooler.OpenPrinter", {serverUnavailable}},
    };
    const auto found = codes.find(call);
    if (found != codes.end()) {
        return found->second;
    }
    return {call.starts_with("Sockets.") ? socketsNotReady : accessDenied};
}

std::string Shown(std::u16string_view text) {
    std::string shown;
    for (const char16_t unit : text) {
        shown += unit >= u' ' && unit < 127 ? static_cast<char>(unit) : '?';
    }
    return shown;
}

Faults::Faults(World& world) : world_(world) {
    fakes::FakePlatform& windows = world.windows;
    Hook(windows.files.faults, "FileSystem");
    Hook(windows.registry.faults, "Registry");
    Hook(windows.spooler.faults, "Spooler");
    Hook(windows.waitableHandles.faults, "WaitableHandles");
    Hook(windows.mutexes.faults, "Mutex");
    Hook(windows.internet.faults, "Internet");
    Hook(windows.sockets.faults, "Sockets");
    Hook(windows.shell.faults, "Shell");
    Hook(windows.system.faults, "System");
    Hook(windows.clock.faults, "Clock");
    Hook(windows.messageBoxes.faults, "MessageBoxes");
    Hook(windows.screen.faults, "Screen");
    Hook(world.peers.faults, "Peers");
}

void Faults::Hook(FaultPlan& plan, const std::string& interfaceName) {
    plan.onCheck = [this, interfaceName](std::string_view call, std::u16string_view detail) {
        // The program's only thread owns every mutex, so taking and returning one cannot fail.
        const bool cannotFail = call == "Wait" || call == "Release";
        return watching_ && !cannotFail ? Check(interfaceName + "." + std::string(call), detail) : 0;
    };
}

std::uint32_t Faults::Check(const std::string& call, std::u16string_view detail) {
    points_.push_back({call, std::u16string(detail)});
    const bool strikes = struck_ && Strikes(points_.back());
    if (trace) {
        std::printf("%6zu %s %s%s\n", points_.size() - 1, call.c_str(), Shown(detail).c_str(),
                    strikes ? "  <-- fails" : "");
    }
    if (!strikes) {
        return 0;
    }
    injected_.push_back(points_.back());
    if (call == "MessageBoxes.Show") {
        world_.BoxRefused(std::u16string(detail));
    }
    const std::vector<std::uint32_t> codes = CodesOf(call);
    const bool own = std::find(codes.begin(), codes.end(), fault_.code) != codes.end();
    const std::uint32_t code = own ? fault_.code : codes.front();
    if (call == "Clock.Now") {
        world_.windows.clock.jumpMilliseconds = code == clockBack ? -hour : 25 * hour;
    }
    return code;
}

bool Faults::Strikes(const Point& point) const {
    const std::size_t index = points_.size() - 1;
    const bool isClock = point.call == "Clock.Now";
    switch (fault_.reach) {
        case Reach::Once:
            return index == fault_.point;
        case Reach::SameCall:
            return index >= fault_.point && point.call == points_[fault_.point].call;
        case Reach::Server:
            return index >= fault_.point && !isClock && point.detail.find(u"SRV1") != std::u16string::npos;
        case Reach::Everything:
            return index >= fault_.point && !isClock;
    }
    return false;
}

int Faults::InjectedAbout(std::u16string_view part) const {
    return static_cast<int>(std::count_if(injected_.begin(), injected_.end(), [part](const Point& point) {
        return point.detail.find(part) != std::u16string::npos;
    }));
}

bool Faults::InjectedCall(std::string_view call) const {
    return std::any_of(injected_.begin(), injected_.end(), [call](const Point& point) { return point.call == call; });
}

}  // namespace korvanta::torture
