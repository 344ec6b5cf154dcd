#include "Trial.h"

#include <algorithm>
#include <cstdio>
#include <exception>

#include "common/Error.h"

namespace korvanta::torture {

namespace {

const char16_t* const laterJob = u"afterwards";

class Trial {
  public:
    Trial(const Scenario& scenario, Detection detection, bool trace) : scenario_(scenario), world_(detection) {
        faults_.trace = trace;
        if (trace) {
            world_.windows.messageBoxes.whileOpen = [show = world_.windows.messageBoxes.whileOpen](const auto& box) {
                std::printf("       message: %s\n", Shown(box.text).c_str());
                show(box);
            };
        }
    }

    Outcome Run(const std::optional<Fault>& fault) {
        Try("the scenario", [&] { Act(fault); });
        outcome_.points = faults_.Points();
        outcome_.injected = faults_.Injected().size();
        Try("what came afterwards", [this] { Recover(); });
        if (outcome_.failures.empty()) {
            CheckJobs();
        }
        Try("the end", [this] { world_.End(); });
        CheckHandles();
        CheckPreferences("at the end");
        return std::move(outcome_);
    }

  private:
    template <class Action>
    void Try(const char* when, Action action) {
        try {
            action();
        } catch (const std::exception& error) {
            Fail(std::string(error.what()) + " was raised during " + when);
        }
    }
    void Fail(const std::string& what) { outcome_.failures.push_back(what); }

    void Act(const std::optional<Fault>& fault) {
        scenario_.prepare(world_);
        if (world_.program) {
            captionBefore_ = world_.MethodCaption();
        }
        if (fault) {
            faults_.Watch(*fault);
        } else {
            faults_.Watch();
        }
        scenario_.act(world_);
        faults_.Stop();
        CheckPreferences("right after the fault");
    }

    // A program that cannot start says why and ends; the user then starts it again.
    void Recover() {
        if (world_.program->MainForm() == nullptr || !world_.program->MainForm()->tmrActivity.Enabled()) {
            const fakes::FakeMessageBoxes& boxes = world_.windows.messageBoxes;
            if (boxes.shown.empty() && boxes.refused.empty()) {
                Fail("the program did not start and did not tell why");
            }
            ++outcome_.ends["did not start"];
            world_.End();
            if (!world_.Start()) {
                Fail("the program does not start again");
                return;
            }
        }
        detectorReplaced_ = !captionBefore_.empty() && captionBefore_ != world_.MethodCaption();
        world_.AnswerAll();
        world_.program->MainForm()->cmdRefresh.HandleClick();
        world_.AnswerAll();
        world_.Print(laterJob);
        world_.AnswerAll();
    }

    void CheckJobs() {
        for (const auto& [document, job] : world_.Jobs()) {
            if (job.id == 0) {
                Fail("a message ended a job that nobody had printed");
                continue;
            }
            const std::string name = Shown(document);
            if (job.offered == 0) {
                CheckLoss(document);
                continue;
            }
            if (job.offered > 1 && document != laterJob && detectorReplaced_) {
                ++outcome_.ends["again: detector replaced"];
                continue;
            }
            CheckEnd(name, job);
            const bool told = job.told + job.refused != 0;
            ++outcome_.ends[!told           ? "notified"
                            : job.refused   ? "message refused"
                            : job.cancelled ? "cancelled"
                                            : "told"];
        }
    }

    void CheckEnd(const std::string& name, const JobRecord& job) {
        const int told = job.told + job.refused;
        if (job.offered != 1) {
            Fail("job " + name + " was offered " + std::to_string(job.offered) + " times");
        }
        if (told > 1 || job.notified > 1 || told + job.notified == 0) {
            Fail("job " + name + " ended with " + std::to_string(told) + " messages and " +
                 std::to_string(job.notified) + " notifications");
        }
        if (told != 0 && job.notified != 0 && faults_.InjectedAbout(u".tlx") == 0) {
            Fail("job " + name + " was notified, and the user was told that it was not");
        }
        if (job.cancelled && job.notified != 0) {
            Fail("job " + name + " was cancelled and notified");
        }
    }

    // A job may stay unseen for the reasons that docs/administration/outages.md gives, and for no other.
    void CheckLoss(const std::u16string& document) {
        const bool byFile = world_.DetectionMethod() == Detection::File || world_.DetectionMethod() == Detection::HTTP;
        if (document != laterJob && detectorReplaced_) {
            ++outcome_.ends["lost: detector replaced"];
        } else if (document != laterJob && byFile &&
                   (faults_.InjectedAbout(u"jsmith.0") + faults_.InjectedAbout(u"\\rad") > 1 ||
                    faults_.InjectedCall("FileSystem.TemporaryName") ||
                    faults_.InjectedCall("FileSystem.TemporaryFolder"))) {
            ++outcome_.ends["lost: file unreadable twice"];
        } else {
            Fail("job " + Shown(document) + " was lost");
        }
    }

    void CheckHandles() {
        fakes::FakePlatform& windows = world_.windows;
        const auto expectNone = [this](const char* what, std::size_t count) {
            if (count != 0) {
                Fail(std::to_string(count) + " " + what + " left open");
            }
        };
        expectNone("files", static_cast<std::size_t>(windows.files.OpenFiles()));
        expectNone("registry keys", static_cast<std::size_t>(windows.registry.openKeys));
        expectNone("web responses", static_cast<std::size_t>(windows.internet.openFiles));
        expectNone("mutexes", static_cast<std::size_t>(windows.mutexes.state.alive));
        expectNone("uses of sockets", static_cast<std::size_t>(windows.sockets.started));
        expectNone("windows", static_cast<std::size_t>(world_.peers.PeersAlive()));
        if (!faults_.InjectedCall("Shell.DeleteTrayIcon")) {
            expectNone("notification icons", windows.shell.trayIcons.size());
        }
        if (!faults_.InjectedCall("Spooler.ClosePrinter")) {
            expectNone("printers", windows.spooler.OpenHandles());
        }
        if (!faults_.InjectedCall("Spooler.FindCloseChange")) {
            expectNone("change handles", windows.spooler.OpenChangeHandles());
        }
    }

    void CheckPreferences(const char* when) {
        const std::vector<std::int32_t> preferred = world_.PreferredAfterRestart();
        const auto& allowed = scenario_.preferred;
        if (std::find(allowed.begin(), allowed.end(), preferred) == allowed.end()) {
            std::string list;
            for (const std::int32_t id : preferred) {
                list += " " + std::to_string(id);
            }
            Fail(std::string("the preferred accounts of a restart ") + when + " are" + (list.empty() ? " none" : list));
        }
    }

    const Scenario& scenario_;
    World world_;
    Faults faults_{world_};
    Outcome outcome_;
    std::u16string captionBefore_;
    bool detectorReplaced_ = false;
};

}  // namespace

std::string DetectionName(Detection detection) {
    switch (detection) {
        case Detection::File:
            return "file";
        case Detection::Spooler:
            return "spooler";
        case Detection::Spooler9x:
            return "spooler9x";
        case Detection::HTTP:
            return "http";
    }
    return "";
}

Outcome Try(const Scenario& scenario, Detection detection, const std::optional<Fault>& fault, bool trace) {
    return Trial(scenario, detection, trace).Run(fault);
}

}  // namespace korvanta::torture
