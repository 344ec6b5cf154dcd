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

// What became of one print job, as far as anybody outside the program can see.
struct JobRecord {
    std::int32_t id = 0;
    int offered = 0;         // how often the dialog was shown for it
    int notified = 0;        // whole notification files
    int told = 0;            // messages that end a job: it could not be notified, or was (or was not) cancelled
    int refused = 0;         // such messages that could not be shown
    bool cancelled = false;  // taken out of the spooler's queue by the client
};

// The whole program over the fakes, in an organisation of one server with one printer, and the user in front of it.
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
    // Ends the program as a logoff does. What is left open then stays counted.
    void End();

    // Seconds of the program's timers; whatever they raise comes out here.
    void Tick(int seconds);
    // The user prints: a job file and the counter on the server, or a job in the spooler's queue.
    void Print(const std::u16string& document);
    // Ticks until the dialog is up, at most so many seconds.
    bool WaitForDialog(int seconds);
    bool DialogIsUp();
    // The user chooses the account and presses OK, or presses Cancel. False: the dialog is still there.
    bool Accept(std::int32_t account);
    bool Cancel();
    // Answers the dialog until no job is left, with Cancel where OK does nothing.
    void AnswerAll();

    // A message box that could not be shown, told by whoever let it fail.
    void BoxRefused(const std::u16string& text) { BoxShown(text, &JobRecord::refused); }

    const std::map<std::u16string, JobRecord>& Jobs();
    const std::u16string& MethodCaption() const { return program->MainForm()->lblJobDetectionMethod.Caption(); }
    Detection DetectionMethod() const { return detection_; }

    // The preferred accounts that a new start of the program would show, faults aside.
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
