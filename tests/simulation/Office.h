#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Oracle.h"
#include "Random.h"
#include "fakes/FakePeers.h"
#include "fakes/FakePlatform.h"

namespace korvanta::simulation {

enum class Detection { File, Spooler, Spooler9x, HTTP };

// An organisation with two print servers that come and go, and the users who print there. It tells the oracle what
// passes between the program and the platform.
class Office {
  public:
    Office(Random& random, Oracle& oracle, bool trace);
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    fakes::FakePlatform windows;
    fakes::FakePeers peers;

    Detection Method() const { return detection_; }
    int PollingTicks() const { return pollingTicks_; }

    // Time passes; the world's part of it happens.
    void Pass(std::int64_t milliseconds);
    // The program was given its second; how long each server could be reached is counted in these.
    void CountTick(bool programRuns);
    void SomethingHappens();
    void Print(bool mine);
    // From now on everything works, for as long as it takes to see that nothing was lost.
    void CalmDown();
    // The servers take the notifications that lie in their shares.
    void Collect();
    void Note(const std::string& text);

    // The account that the user presses OK for; what is notified meanwhile has to name it.
    std::int32_t Chosen() const { return chosen_; }
    void Choose(std::int32_t account) { chosen_ = account; }
    // The document whose notification was begun last, and the address that was asked for last: who lets anything run in
    // between puts them back.
    std::u16string notifying;
    std::u16string lastUrl;

    // Accounts that a file which the program has read did not have.
    bool WasMissing(std::int32_t account) const { return missing_.contains(account); }
    // Preferred accounts that a local copy lacked from which the program has started.
    bool WasNotInLocalCopy(std::int32_t account) const { return notInLocalCopy_.contains(account); }

  private:
    struct Server {
        std::u16string name;
        bool up = true;
        int counter = 0;         // number of the next job file
        std::int64_t ticks = 0;  // undisturbed ones of the program while it was up
        bool known = false;      // the program has had the time to read its printers list
        int jobs = 0;
        std::function<void()> unfinished;  // completes the job file that is half written
    };
    struct Deed {
        std::int64_t due;
        std::function<void()> what;
    };
    void SetUpPlatform();
    void Watch();
    std::u16string Settings() const;
    void Put(int server, const std::u16string& name, const std::u16string& text, std::size_t bytesLess = 0);
    void Remove(int server, const std::u16string& name);
    void PutCounter(int server, const std::u16string& text);
    void PutAccounts(std::size_t bytesLess);
    void Issue(const std::u16string& document);
    void FinishFile(int server);
    void Release(Job& job);
    void Expire(Job& job);
    void Switch(int server, bool up);
    // For up to two minutes.
    void Vanish(int server);
    void SpoilCounter(int server);
    void ChangeServerList();
    void Later(std::int64_t milliseconds, std::function<void()> what);
    void DoWhatIsDue();
    std::uint32_t Trouble(std::u16string_view about, std::uint32_t code);
    void NotificationBegins(const std::u16string& path);
    void WholeFileRead(const std::u16string& path, const std::string& bytes);
    void CollectFile(int server, const std::u16string& path);
    int ServerIn(const std::u16string& path) const;
    bool ByFile() const { return detection_ == Detection::File || detection_ == Detection::HTTP; }
    std::u16string Share(int server, const std::u16string& rest) const;

    Random& random_;
    Oracle& oracle_;
    const bool trace_;
    Detection detection_ = Detection::File;
    int refreshMinutes_ = 5;
    int pollingTicks_ = 1;
    int troubleOfTenThousand_ = 0;
    bool calm_ = false;
    bool listChanged_ = false;
    std::u16string fullDisk_;  // the file that cannot be written whole
    bool doing_ = false;
    std::vector<Server> servers_;
    std::vector<Deed> deeds_;
    std::map<std::int32_t, bool> missing_;
    std::map<std::int32_t, bool> notInLocalCopy_;
    std::int32_t chosen_ = -1;
    int accountsVersion_ = 0;
    int documents_ = 0;
};

}  // namespace korvanta::simulation
