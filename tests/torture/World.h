#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/basKorvanta.h"
#include "fakes/FakePeers.h"
#include "fakes/FakePlatform.h"
#include "fakes/PlainTranslator.h"

namespace korvanta::torture {

enum class Detection { File, Spooler, Spooler9x, HTTP };

// What happened to one print job, as seen from outside the program.
struct JobRecord {
    std::int32_t id = 0;
    int offered = 0;         // how often the dialog was shown for it
    int notified = 0;        // whole notification files
    int told = 0;            // messages that end a job: not notified, cancelled, could not be cancelled
    int refused = 0;         // such messages that could not be shown
    bool cancelled = false;  // deleted from the spooler's queue by the client
};

// The whole program over the fakes, in an organisation with one server and one printer, and the program's user.
class World {
  public:
    explicit World(Detection detection);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    fakes::FakePlatform windows;
    fakes::FakePeers peers;
    std::unique_ptr<basKorvanta> program;

    bool Start();
    // Ends the program as a logoff does. Handles that it leaves open stay counted as open.
    void End();

    // Lets the program's timers tick for so many seconds. Whatever a handler raises passes through.
    void Tick(int seconds);
    // The user prints: the server gets a job file and a new counter, or the spooler a job in its queue.
    void Print(const std::u16string& document);
    // Ticks until the dialog is up, at most so many seconds.
    bool WaitForDialog(int seconds);
    bool DialogIsUp();
    // The user chooses the account and presses OK, or presses Cancel. Returns false if the dialog is still shown.
    bool Accept(std::int32_t account);
    bool Cancel();
    // Answers the dialog until no job is left. Where OK has no effect it presses Cancel.
    void AnswerAll();

    // For the code that makes message boxes fail: this one could not be shown.
    void BoxRefused(const std::u16string& text) { BoxShown(text, &JobRecord::refused); }

    const std::map<std::u16string, JobRecord>& Jobs();
    const std::u16string& MethodCaption() const { return program->MainForm()->lblJobDetectionMethod.Caption(); }
    Detection DetectionMethod() const { return detection_; }

    // The preferred accounts that the program would show after a restart without faults.
    std::vector<std::int32_t> PreferredAfterRestart();

    static constexpr const char16_t* printer = u"\\\\SRV1\\laser";
    static constexpr const char16_t* serverPreferences = u"\\\\SRV1\\TLXPrefs$\\jsmith.txt";
    static constexpr const char16_t* localPreferences = u"C:\\Temp\\tlxpref.txt";

  private:
    void Publish(const std::u16string& name, const std::u16string& text);
    void PublishJob(const std::u16string& document, std::int32_t id);
    void BoxShown(const std::u16string& text, int JobRecord::*count);
    void CountOffers();
    void CountNotifications();
    std::u16string DocumentOnDialog() const;

    const Detection detection_;
    fakes::PlainTranslator translator_;
    std::map<std::u16string, JobRecord> jobs_;
    int nextFile_ = 57;
    int nextJob_ = 1;
    int shownBefore_ = 0;
};

}  // namespace korvanta::torture
