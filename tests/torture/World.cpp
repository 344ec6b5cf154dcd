#include "World.h"

#include <algorithm>

#include "common/Text.h"
#include "server/basJobNotificationFile.h"

namespace korvanta::torture {

namespace {

const char16_t* const notificationShare = u"\\\\SRV1\\TLXActN$";
constexpr std::size_t notificationLines = 13;

const char16_t* MethodOf(Detection detection) {
    switch (detection) {
        case Detection::File:
            return u"0";
        case Detection::Spooler:
        case Detection::Spooler9x:
            return u"1";
        case Detection::HTTP:
            return u"2";
    }
    return u"";
}

// Jobs match by user and machine; a refresh every 10 minutes, a poll every second. The line for the other family of
// Windows holds a different detection method.
std::u16string Settings(Detection detection) {
    const std::u16string method = MethodOf(detection);
    const std::u16string other = method == u"0" ? u"1" : u"0";
    const bool is9x = detection == Detection::Spooler9x;
    return u"0\r\n" + (is9x ? other : method) + u"\r\n" + (is9x ? method : other) +
           u"\r\n31\r\n10\r\n44\r\n30\r\n0\r\n0\r\n0\r\n\r\n";
}

bool EndsJob(const std::u16string& text) {
    for (const char16_t* start : {u"Korvanta was unable to notify the print server", u"Internal error - unable",
                                  u"The print job was successfully cancelled", u"The print job could not be"}) {
        if (text.starts_with(start)) {
            return true;
        }
    }
    return false;
}

}  // namespace

World::World(Detection detection) : detection_(detection) {
    windows.files.AddFolder(u"C:\\Program Files\\Korvanta\\Logs");
    for (const char16_t* share : {u"TLXData$\\jobs", u"TLXActN$", u"TLXPrefs$"}) {
        windows.files.AddFolder(u"\\\\SRV1\\" + std::u16string(share));
    }
    windows.internet.unknownUrlBody = "<html>File not found</html>";
    Publish(u"Servers.txt", u"");
    Publish(u"Printers.txt", u"laser\r\n");
    Publish(u"ClientSet.txt", Settings(detection));
    Publish(u"ChargeRates.txt", u"100\u0001Standard\r\n50\u0001Half\r\n");
    Publish(u"Accounts.txt",
            u"1\u00011\u0001Smith\u0001\u00011\u00011\u00010\u0001\r\n2\u00010\u0001Smith\u0001Audit\u00011\u00011"
            u"\u00010\u0001\r\n3\u00011\u0001Weber\u0001\u00011\u00011\u00010\u0001\r\n");
    if (detection == Detection::File || detection == Detection::HTTP) {
        Publish(u"jobs\\jsmith.tlu", NumberText(nextFile_));
    }
    const std::u16string preferences =
        u"lasttab\u00011\r\nhistory\u00013,1\r\npreferred\u00012,3\r\nother\u0001kept\r\n";
    windows.files.WriteUtf16(serverPreferences, preferences);
    windows.files.WriteUtf16(localPreferences, preferences);
    windows.registry.Put(u"SOFTWARE\\Korvanta", u"TLXPrimaryServer", std::u16string(u"SRV1"));
    windows.spooler.AddPrinter(printer);
    windows.sockets.AddHost(u"ws01", fakes::FakeSockets::Address(10, 0, 0, 1));
    if (detection == Detection::Spooler9x) {
        windows.system.platformId = 1;
    }
    windows.messageBoxes.whileOpen = [this](const fakes::FakeMessageBoxes::Box& box) {
        BoxShown(box.text, &JobRecord::told);
    };
}

World::~World() {
    program.reset();
}

void World::Publish(const std::u16string& name, const std::u16string& text) {
    windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\" + name, text);
    if (detection_ == Detection::HTTP) {
        windows.internet.PutUtf16(u"http://SRV1/TLXData/" + Replace(name, u"\\", u"/"), text);
    }
}

bool World::Start() {
    program = std::make_unique<basKorvanta>(windows.platform, &peers, translator_);
    const bool started = program->Main();
    shownBefore_ = program->AccountDialog() != nullptr ? peers.Of(*program->AccountDialog()).shown : 0;
    return started;
}

void World::End() {
    if (program && program->MainForm() != nullptr) {
        program->MainForm()->Unload(CloseReason::WindowsSession);
    }
    program.reset();
    windows.system.claimedInstances.clear();
}

void World::Tick(int seconds) {
    for (int i = 0; i < seconds; ++i) {
        windows.clock.AdvanceSeconds(1);
        program->MainForm()->tmrActivity.HandleTick();
        program->AccountDialog()->tmrMonitor.HandleTick();
        CountOffers();
        program->AccountDialog()->tmrFlash.HandleTick();
    }
}

void World::Print(const std::u16string& document) {
    const std::int32_t id = nextJob_++;
    jobs_[document].id = id;
    fakes::FakeJob job{id, u"\\\\WS01", u"JSmith", document};
    job.time[3] = static_cast<std::uint32_t>(id);
    windows.spooler.AddJob(printer, job);
    if (detection_ == Detection::File || detection_ == Detection::HTTP) {
        PublishJob(document, id);
    }
}

void World::PublishJob(const std::u16string& document, std::int32_t id) {
    Publish(u"jobs\\" + JobNotificationFileName(u"jsmith", nextFile_),
            NumberText(id) + u"\r\nlaser\r\nWS01\r\njsmith\r\n" + document + u"\r\n" + printer +
                u"\r\n77\r\n1\r\n2\r\n" + NumberText(id) + u"\r\n");
    ++nextFile_;
    Publish(u"jobs\\jsmith.tlu", NumberText(nextFile_));
}

bool World::DialogIsUp() {
    return program->AccountDialog()->Shown();
}

bool World::WaitForDialog(int seconds) {
    for (int i = 0; i < seconds && !DialogIsUp(); ++i) {
        Tick(1);
    }
    return DialogIsUp();
}

bool World::Accept(std::int32_t account) {
    frmAccountNumber& dialog = *program->AccountDialog();
    dialog.tabView.HandleSelected(AccountViews::tabAll);
    dialog.ctlAccountListAll.SelectedID(account);
    dialog.cmdOK.HandleClick();
    CountOffers();
    return !DialogIsUp();
}

bool World::Cancel() {
    program->AccountDialog()->cmdCancel.HandleClick();
    CountOffers();
    return !DialogIsUp();
}

void World::AnswerAll() {
    for (int i = 0; i < 10 && WaitForDialog(3); ++i) {
        if (!Accept(1)) {
            Cancel();
        }
    }
}

std::u16string World::DocumentOnDialog() const {
    return program != nullptr && program->AccountDialog() != nullptr ? program->AccountDialog()->lblDocument.Caption()
                                                                     : std::u16string();
}

void World::BoxShown(const std::u16string& text, int JobRecord::*count) {
    if (EndsJob(text)) {
        CountOffers();
        jobs_[DocumentOnDialog()].*count += 1;
    }
}

// The dialog's peer counts how often it was shown; the dialog's label says for which job.
void World::CountOffers() {
    const int shown = peers.Of(*program->AccountDialog()).shown;
    if (shown != shownBefore_) {
        jobs_[DocumentOnDialog()].offered += shown - shownBefore_;
        shownBefore_ = shown;
    }
}

void World::CountNotifications() {
    for (auto& [document, job] : jobs_) {
        job.notified = 0;
    }
    for (const std::u16string& name : windows.files.FilesIn(notificationShare)) {
        const std::string bytes = windows.files.ReadBytes(notificationShare + (u"\\" + name));
        if (bytes.size() % 2 != 0 || !bytes.starts_with("\xFF\xFE")) {
            continue;
        }
        const std::u16string text = windows.files.ReadUtf16(notificationShare + (u"\\" + name));
        const std::vector<std::u16string> lines = Split(text, u"\r\n");
        if (lines.size() == notificationLines + 1 && jobs_.contains(lines[4])) {
            ++jobs_[lines[4]].notified;
        }
    }
}

const std::map<std::u16string, JobRecord>& World::Jobs() {
    CountNotifications();
    const std::vector<fakes::FakeJob> queue = windows.spooler.Jobs(printer);
    for (auto& [document, job] : jobs_) {
        const std::int32_t id = job.id;
        job.cancelled = std::none_of(queue.begin(), queue.end(), [id](const fakes::FakeJob& j) { return j.id == id; });
    }
    return jobs_;
}

std::vector<std::int32_t> World::PreferredAfterRestart() {
    const clsTLXPrefs prefs(windows.files, windows.mutexes, u"SRV1", u"jsmith");
    std::vector<std::int32_t> ids;
    for (const Variant& id : prefs.Preferred()->Items()) {
        ids.push_back(id.Integer());
    }
    return ids;
}

}  // namespace korvanta::torture
