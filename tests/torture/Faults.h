#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "World.h"

namespace korvanta::torture {

// A call that the program made to one of the platform's interfaces.
struct Point {
    std::string call;       // "FileSystem.OpenForReading"
    std::u16string detail;  // what it was about
};

enum class Reach {
    Once,        // this one call
    SameCall,    // this and all later calls of that name
    Server,      // from here on every call that names the server
    Everything,  // from here on every call of every interface
};

struct Fault {
    std::size_t point = 0;  // index of the call, 0 the first one
    Reach reach = Reach::Once;
    std::uint32_t code = 0;
};

std::string ReachName(Reach reach);
std::string CodeName(std::uint32_t code);
// The error codes with which a call of that name is made to fail.
std::vector<std::uint32_t> CodesOf(std::string_view call);

// Hooks into every fake of a world's platform: records the calls that are made while it watches, and makes those fail
// that the fault names.
class Faults {
  public:
    explicit Faults(World& world);

    void Watch() { watching_ = true; }
    void Watch(const Fault& fault) {
        fault_ = fault;
        struck_ = true;
        watching_ = true;
    }
    void Stop() { watching_ = false; }

    const std::vector<Point>& Points() const { return points_; }
    // The calls that failed.
    const std::vector<Point>& Injected() const { return injected_; }
    // How many of the failed calls have the part in their detail.
    int InjectedAbout(std::u16string_view part) const;
    bool InjectedCall(std::string_view call) const;

    // Print every call.
    bool trace = false;

  private:
    void Hook(fakes::FaultPlan& plan, const std::string& interfaceName);
    std::uint32_t Check(const std::string& call, std::u16string_view detail);
    bool Strikes(const Point& point) const;

    World& world_;
    std::vector<Point> points_;
    std::vector<Point> injected_;
    Fault fault_;
    bool struck_ = false;
    bool watching_ = false;
};

// For the terminal: every character that is not ASCII becomes "?".
std::string Shown(std::u16string_view text);

}  // namespace korvanta::torture
