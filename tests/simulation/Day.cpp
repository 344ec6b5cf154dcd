#include "Day.h"

#include <algorithm>
#include <exception>

#include "Office.h"
#include "Words.h"
#include "app/basKorvanta.h"
#include "fakes/PlainTranslator.h"

namespace korvanta::simulation {

namespace {

constexpr std::int64_t second = 1'000;
constexpr std::int64_t minute = 60'000;
// Handlers that run while others let messages run, and what these let run again.
constexpr int deepestNesting = 3;

bool StartsWithAny(const std::u16string& text, std::initializer_list<const char16_t*> starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [&text](const char16_t* start) { return text.starts_with(start); });
}

// The program, and the user who sits in front of it.
class Day {
  public:
    Day(std::uint64_t seed, bool trace) : random_(seed), office_(random_, oracle_, trace) {
        office_.windows.messageBoxes.whileOpen = [this](const auto& box) { BoxIsOpen(box.text); };
        office_.windows.messageLoop.onRunPending = [this] { MessagesRun(); };
        office_.peers.onShow = [this](Form& form) { FormShown(form); };
        office_.peers.onForeground = [this](Form& form) { FormInForeground(form); };
    }

    DayResult Run() {
        try {
            Work();
            Finish();
            CheckPreferences();
        } catch (const std::exception& error) {
            result_.failures.push_back(std::string("the program raised ") + error.what());
        }
        for (std::string& failure : oracle_.Verdict(result_.lost)) {
            result_.failures.push_back(std::move(failure));
        }
        for (const Job& job : oracle_.Jobs()) {
            result_.jobs += job.mine ? 1 : 0;
            result_.notified += job.mine && job.notified != 0 && job.told == 0 ? 1 : 0;
            result_.told += job.mine && job.told != 0 ? 1 : 0;
        }
        return std::move(result_);
    }

  private:
    bool Running() const { return program_ != nullptr; }

    void Work() {
        if (random_.Chance(8'000)) {
            StartProgram();
        }
        const int moments = random_.Between(30, 120);
        for (int i = 0; i < moments; ++i) {
            office_.Pass(random_.Between(0, 3) == 0 ? random_.Between(1, 20) * minute : random_.Between(0, 3) * second);
            Moment();
            Seconds(random_.Between(1, 25));
        }
    }

    void Moment() {
        const int what = random_.Between(0, 99);
        if (!Running()) {
            if (what < 40) {
                StartProgram();
            }
        } else if (what < 3) {
            EndProgram(random_.Chance(7'000));
            return;
        } else if (what < 5) {
            program_->MainForm()->cmdRefresh.HandleClick();
        }
        if (what < 50) {
            for (int i = random_.Chance(2'000) ? random_.Between(2, 6) : 1; i > 0; --i) {
                office_.Print(true);
            }
        } else if (what < 75) {
            office_.SomethingHappens();
        }
        if (what % 2 == 0) {
            UserActs();
        }
        office_.Collect();
    }

    // The last hour: nothing fails any more, and the user answers all there is.
    void Finish() {
        office_.CalmDown();
        calm_ = true;
        if (!Running()) {
            StartProgram();
        }
        for (int round = 0; round < 3; ++round) {
            program_->MainForm()->cmdRefresh.HandleClick();
            Seconds(office_.PollingTicks() * 4 + 10);
            AnswerAll();
        }
        office_.Print(true);
        Seconds(office_.PollingTicks() * 4 + 10);
        AnswerAll();
        dayIsOver_ = true;
        EndProgram(true);
    }

    void StartProgram() {
        office_.Note("the client starts");
        oracle_.starting = true;
        caption_.clear();
        primaryPrinters_ = 0;
        program_ = std::make_unique<basKorvanta>(office_.windows.platform, &office_.peers, translator_);
        const bool started = program_->Main();
        oracle_.starting = false;
        if (!started) {
            result_.failures.push_back("the program did not start");
            EndProgram(false);
        } else {
            caption_ = program_->MainForm()->lblJobDetectionMethod.Caption();
        }
    }

    void EndProgram(bool properly) {
        office_.Note(properly ? "the user logs off" : "the client is killed");
        CheckQueue();
        ending_ = true;
        if (properly) {
            program_->MainForm()->Unload(CloseReason::WindowsSession);
        }
        program_.reset();
        ending_ = false;
        office_.windows.system.claimedInstances.clear();
        office_.Collect();
        if (!dayIsOver_) {
            oracle_.ProgramEnded();
        }
    }

    // What waits in a client that ends is lost by a rule, but it has to wait there. Jobs that are asked about again do
    // so too.
    void CheckQueue() {
        office_.Collect();
        const std::u16string queued = program_->AccountDialog() == nullptr ? u"0" : Dialog().lblJobsQueued.Caption();
        if (std::stoi(Ascii(queued)) < oracle_.Waiting()) {
            result_.failures.push_back("jobs wait for the user and are not in the queue");
        }
    }

    void Seconds(int count) {
        for (int i = 0; i < count; ++i) {
            office_.Pass(second);
            office_.CountTick(Running());
            TickMain();
            TickDialog();
        }
    }

    void TickMain() {
        if (!Running() || program_->MainForm() == nullptr) {
            return;
        }
        program_->MainForm()->tmrActivity.HandleTick();
        const std::u16string& caption = program_->MainForm()->lblJobDetectionMethod.Caption();
        if (!caption_.empty() && caption != caption_) {
            office_.Note("now by " + Ascii(caption));
            caption_ = caption;
            primaryPrinters_ = 0;
            oracle_.DetectorReplaced();
        }
        if (nesting_ == 0) {
            oracle_.TickEnds();
            CheckPrinters();
        }
    }

    // The primary server's printers stay in the list, whether it can be reached or not.
    void CheckPrinters() {
        // Of a list from a web server that breaks off, what came counts.
        if (office_.Method() == Detection::HTTP) {
            return;
        }
        int printers = 0;
        for (const ListView::Item& item : program_->MainForm()->lvwPrinters.Items()) {
            printers += item.text.starts_with(u"\\\\SRV1\\") ? 1 : 0;
        }
        if (printers < primaryPrinters_) {
            result_.failures.push_back("printers of the primary server left the list");
        }
        primaryPrinters_ = printers;
    }

    void TickDialog() {
        if (!Running() || program_->AccountDialog() == nullptr) {
            return;
        }
        program_->AccountDialog()->tmrMonitor.HandleTick();
        program_->AccountDialog()->tmrFlash.HandleTick();
        for (int i = 0; i < 10; ++i) {
            program_->AccountDialog()->tmrSearch.HandleTick();
        }
    }

    // Whatever the user or a timer may do while the program lets messages run.
    void MessagesRun() {
        if (ending_ || oracle_.starting || calm_ || nesting_ == deepestNesting || !Running() || !random_.Chance(60)) {
            return;
        }
        ++nesting_;
        const std::u16string answering = answering_;
        const std::u16string notifying = office_.notifying;
        const std::u16string url = office_.lastUrl;
        switch (random_.Between(0, 3)) {
            case 0:
                TickMain();
                break;
            case 1:
                TickDialog();
                break;
            case 2:
                UserActs();
                break;
            default:
                office_.Print(true);
        }
        answering_ = answering;
        office_.notifying = notifying;
        office_.lastUrl = url;
        --nesting_;
    }

    void BoxIsOpen(const std::u16string& text) {
        if (StartsWithAny(text, {u"Korvanta was unable to notify", u"Internal error - unable",
                                 u"The print job was successfully cancelled", u"The print job could not be"})) {
            const bool failed = text.starts_with(u"Korvanta was unable to notify");
            Job* const job = oracle_.Find(failed ? office_.notifying : answering_);
            if (job == nullptr) {
                result_.failures.push_back("a message ended a job that nobody had answered");
            } else {
                Oracle::Told(*job, failed);
                if (text.starts_with(u"The print job was successfully cancelled") && job->cancelled == 0) {
                    job->failure = "was said to be cancelled and is not";
                }
                office_.Note("told of " + Ascii(job->document) + ": " + Ascii(text.substr(0, 50)));
            }
        }
        if (!ending_ && !calm_ && nesting_ < deepestNesting && random_.Chance(1'000)) {
            ++nesting_;
            const std::u16string answering = answering_;
            const std::u16string url = office_.lastUrl;
            Seconds(random_.Between(1, 5));
            answering_ = answering;
            office_.lastUrl = url;
            --nesting_;
        }
    }

    frmAccountNumber& Dialog() { return *program_->AccountDialog(); }

    void FormShown(Form& form) {
        if (!Running() || program_->AccountDialog() != &form) {
            return;
        }
        const std::u16string document = Dialog().lblDocument.Caption();
        office_.Note("offered " + Ascii(document));
        Job* const job = oracle_.Find(document);
        if (job == nullptr) {
            result_.failures.push_back("a job was offered that nobody had printed");
            return;
        }
        Oracle::Offered(*job);
        typed_.clear();
        justShown_ = true;
        // Without accounts the dialog cancels the job by itself.
        answering_ = document;
    }

    // A dialog that is up already takes the foreground from nobody.
    void FormInForeground(Form& form) {
        if (Running() && program_->AccountDialog() == &form) {
            if (!justShown_) {
                result_.failures.push_back("the dialog was shown once more for a job that it was open for");
            }
            justShown_ = false;
        }
    }

    void UserActs() {
        if (!Running() || program_->AccountDialog() == nullptr || !Dialog().Shown()) {
            return;
        }
        if (!typed_.empty() && Dialog().txtComment.Text() != typed_) {
            result_.failures.push_back("what the user had typed was lost while the dialog was open");
        }
        const int what = random_.Between(0, 99);
        if (what < 55) {
            Accept(random_.Between(1, 9), random_.Chance(1'000));
        } else if (what < 70) {
            Cancel();
        } else if (what < 80) {
            Dialog().Unload(CloseReason::ControlMenu);
        } else if (what < 85) {
            Dialog().txtSearch.HandleChange(random_.Chance(5'000) ? u"" : u"client 2");
        } else if (what < 95) {
            ChangePreferred();
        } else {
            Type(u"typed " + Words(what));
        }
    }

    void Accept(int account, bool all) {
        frmAccountNumber& dialog = Dialog();
        dialog.tabView.HandleSelected(AccountViews::tabAll);
        dialog.ctlAccountListAll.SelectedID(account);
        Type(u"for the file");
        dialog.chkSubmitAllDocuments.HandleClick(all);
        office_.Note("OK, account " + std::to_string(dialog.ctlAccountListAll.SelectedID()));
        answering_ = dialog.lblDocument.Caption();
        const std::int32_t before = office_.Chosen();
        office_.Choose(dialog.ctlAccountListAll.SelectedID());
        dialog.cmdOK.HandleClick();
        office_.Choose(before);
        dialog.chkSubmitAllDocuments.HandleClick(false);
    }

    // A dialog that is still coming up begins with an empty comment.
    void Type(const std::u16string& comment) {
        Dialog().txtComment.HandleChange(comment);
        typed_ = nesting_ == 0 ? comment : u"";
    }

    void Cancel() {
        office_.Note("Cancel");
        answering_ = Dialog().lblDocument.Caption();
        Dialog().cmdCancel.HandleClick();
    }

    void ChangePreferred() {
        frmAccountNumber& dialog = Dialog();
        if (random_.Chance(7'000)) {
            dialog.ctlAccountListAll.SelectedID(random_.Between(1, 9));
            dialog.lblAddPreferred.HandleClick();
        } else {
            dialog.ctlAccountListPreferred.SelectedID(random_.Between(2, 5));
            removed_[dialog.ctlAccountListPreferred.SelectedID()] = true;
            dialog.lblRemovePreferred.HandleClick();
        }
    }

    void AnswerAll() {
        for (int i = 0; i < 1'000; ++i) {
            Seconds(2);
            if (!Dialog().Shown()) {
                return;
            }
            Accept(random_.Between(1, 3), random_.Chance(5'000));
            office_.Collect();
            if (Dialog().Shown()) {
                Cancel();
            }
        }
        result_.failures.push_back("the dialog comes up for ever");
    }

    // Nobody but the user, or an account that is gone, takes an account from the preferred ones.
    void CheckPreferences() {
        const clsTLXPrefs prefs(office_.windows.files, office_.windows.mutexes, u"SRV1", u"jsmith");
        for (const std::int32_t id : {2, 3}) {
            if (prefs.Preferred()->Contains(id) || removed_.contains(id)) {
                continue;
            }
            if (office_.WasMissing(id)) {
                ++result_.lost[rule::accountMissing];
            } else if (office_.WasNotInLocalCopy(id)) {
                ++result_.lost[rule::localPreferences];
            } else {
                result_.failures.push_back("account " + std::to_string(id) + " is no longer preferred");
            }
        }
    }

    Random random_;
    Oracle oracle_;
    Office office_;
    fakes::PlainTranslator translator_;
    std::unique_ptr<basKorvanta> program_;
    DayResult result_;
    std::u16string caption_;
    std::u16string answering_;  // the job that the user's last press was for
    std::u16string typed_;      // as a comment, since the dialog came up
    bool justShown_ = false;
    std::map<std::int32_t, bool> removed_;
    int nesting_ = 0;
    bool ending_ = false;
    int primaryPrinters_ = 0;  // in the list
    bool calm_ = false;
    bool dayIsOver_ = false;
};

}  // namespace

DayResult Simulate(std::uint64_t seed, bool trace) {
    return Day(seed, trace).Run();
}

}  // namespace korvanta::simulation
