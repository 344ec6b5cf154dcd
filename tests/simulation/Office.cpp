#include "Office.h"

#include <algorithm>
#include <cstdio>

#include "Words.h"

namespace korvanta::simulation {

namespace {

constexpr std::uint32_t netNameDeleted = 64;
constexpr std::uint32_t serverUnavailable = 1722;
constexpr std::int64_t minute = 60'000;
// Undisturbed seconds of the program within which it sees whatever there is to see.
constexpr std::int64_t enoughTicks = 60;
constexpr std::size_t notificationLines = 14;  // thirteen, and what is behind the last line end

}  // namespace

Office::Office(Random& random, Oracle& oracle, bool trace) : random_(random), oracle_(oracle), trace_(trace) {
    detection_ = static_cast<Detection>(random_.Between(0, 3));
    refreshMinutes_ = random_.Between(1, 60);
    pollingTicks_ = random_.Between(0, 5);
    troubleOfTenThousand_ = random_.Chance(3'000) ? random_.Between(1, 150) : 0;
    SetUpPlatform();
    Watch();
}

void Office::SetUpPlatform() {
    windows.files.keepsLog = false;
    windows.files.AddFolder(u"C:\\Program Files\\Korvanta\\Logs");
    windows.registry.Put(u"SOFTWARE\\Korvanta", u"TLXPrimaryServer", std::u16string(u"SRV1"));
    windows.internet.unknownUrlBody = "<html>File not found</html>";
    windows.sockets.AddHost(u"ws01", fakes::FakeSockets::Address(10, 0, 0, 1));
    windows.system.platformId = detection_ == Detection::Spooler9x ? 1 : 2;
    servers_.resize(2);
    for (int i = 0; i < 2; ++i) {
        Server& server = servers_[static_cast<std::size_t>(i)];
        server.name = i == 0 ? u"SRV1" : u"SRV2";
        server.counter = random_.Chance(3'000) ? random_.Between(985, 999) : random_.Between(0, 60);
        for (const char16_t* share : {u"TLXData$\\jobs", u"TLXActN$", u"TLXPrefs$"}) {
            windows.files.AddFolder(Share(i, share));
        }
        for (const char16_t* printer : {u"laser", u"colour"}) {
            windows.spooler.AddPrinter(u"\\\\" + server.name + u"\\" + printer);
        }
        Put(i, u"Printers.txt", u"laser\r\ncolour\r\n");
        // By HTTP a server is well when it has this one.
        Put(i, u"ClientSet.txt", Settings());
        if (ByFile() && !random_.Chance(2'000)) {
            PutCounter(i, Words(server.counter));
        }
        oracle_.TrueCounter(i, server.counter);
    }
    Put(0, u"Servers.txt", u"SRV2\r\n");
    Put(0, u"ChargeRates.txt", u"100\u0001Standard\r\n50\u0001Half\r\n");
    PutAccounts(0);
    windows.files.WriteUtf16(u"\\\\SRV1\\TLXPrefs$\\jsmith.txt", u"history\u00013,1\r\npreferred\u00012,3\r\n");
    if (random_.Chance(5'000)) {
        windows.files.WriteUtf16(u"C:\\Temp\\tlxpref.txt", u"history\u00013,1\r\npreferred\u00012,3\r\n");
        windows.files.WriteUtf16(u"C:\\Temp\\ClientSet.txt", Settings());
    }
    if (random_.Chance(2'000)) {
        windows.files.largestRead = static_cast<std::size_t>(random_.Between(1, 200));
        windows.internet.largestRead = windows.files.largestRead;
    }
}

std::u16string Office::Settings() const {
    const std::u16string method = detection_ == Detection::File ? u"0" : detection_ == Detection::HTTP ? u"2" : u"1";
    const std::u16string other = method == u"0" ? u"1" : u"0";
    const bool is9x = detection_ == Detection::Spooler9x;
    return u"0\r\n" + (is9x ? other : method) + u"\r\n" + (is9x ? method : other) + u"\r\n31\r\n" +
           Words(refreshMinutes_) + u"\r\n44\r\n30\r\n" + Words(pollingTicks_) + u"\r\n" + Words(pollingTicks_) +
           u"\r\n0\r\n\r\n";
}

std::u16string Office::Share(int server, const std::u16string& rest) const {
    return u"\\\\" + servers_[static_cast<std::size_t>(server)].name + u"\\" + rest;
}

void Office::Put(int server, const std::u16string& name, const std::u16string& text, std::size_t bytesLess) {
    std::string bytes = Utf16Bytes(text);
    bytes.resize(bytes.size() - std::min(bytesLess, bytes.size()));
    windows.files.WriteBytes(Share(server, u"TLXData$\\" + name), bytes);
    if (detection_ == Detection::HTTP) {
        std::u16string url = u"http://" + servers_[static_cast<std::size_t>(server)].name + u"/TLXData/" + name;
        std::replace(url.begin(), url.end(), u'\\', u'/');
        windows.internet.Put(url, bytes);
    }
}

void Office::Remove(int server, const std::u16string& name) {
    windows.files.RemoveFile(Share(server, u"TLXData$\\" + name));
    std::u16string url = u"http://" + servers_[static_cast<std::size_t>(server)].name + u"/TLXData/" + name;
    std::replace(url.begin(), url.end(), u'\\', u'/');
    windows.internet.Remove(url);
}

void Office::PutCounter(int server, const std::u16string& text) {
    Put(server, u"jobs\\jsmith.tlu", text);
}

// Accounts 1 to 5 are always there, 6 to 9 come and go.
void Office::PutAccounts(std::size_t bytesLess) {
    std::u16string text;
    for (int id = 1; id <= 9; ++id) {
        if (id <= 5 || (accountsVersion_ >> (id - 6) & 1) == 0) {
            text += Words(id) + u"\u00011\u0001Client " + Words(id) + u"\u0001\u0001" + (id == 5 ? u"0" : u"1") +
                    u"\u00011\u0001" + (id == 4 ? u"2" : u"1") + u"\u0001\r\n";
        }
    }
    Put(0, u"Accounts.txt", text, bytesLess);
}

void Office::Note(const std::string& text) {
    if (trace_) {
        std::printf("%10.3f %s\n", static_cast<double>(oracle_.now) / 1000.0, text.c_str());
    }
}

void Office::Later(std::int64_t milliseconds, std::function<void()> what) {
    deeds_.push_back({oracle_.now + milliseconds, std::move(what)});
}

void Office::DoWhatIsDue() {
    if (doing_) {
        return;
    }
    doing_ = true;
    for (std::size_t i = 0; i < deeds_.size();) {
        if (deeds_[i].due <= oracle_.now) {
            const std::function<void()> what = std::move(deeds_[i].what);
            deeds_.erase(deeds_.begin() + static_cast<std::ptrdiff_t>(i));
            what();
        } else {
            ++i;
        }
    }
    doing_ = false;
}

void Office::Pass(std::int64_t milliseconds) {
    windows.clock.AdvanceMilliseconds(milliseconds);
    oracle_.now += milliseconds;
    DoWhatIsDue();
}

void Office::CountTick(bool programRuns) {
    windows.waitableHandles.polls.clear();
    windows.spooler.log.clear();
    windows.internet.requests.clear();
    const Server& primary = servers_.front();
    for (Server& server : servers_) {
        // The program keeps the lists while the primary server is away. By HTTP half a list can take their place.
        server.known = programRuns && !listChanged_ && detection_ != Detection::HTTP &&
                       (server.known || (primary.up && server.ticks > enoughTicks));
        if (!programRuns || !server.up || listChanged_ || (!primary.up && !server.known)) {
            server.ticks = 0;
        } else {
            ++server.ticks;
        }
    }
}

void Office::Print(bool mine) {
    const int at = random_.Between(0, 1);
    Server& server = servers_[static_cast<std::size_t>(at)];
    if (!server.up) {
        return;
    }
    const bool otherUser = !mine && random_.Chance(5'000);
    Job job;
    job.id = ++server.jobs;
    job.document = u"doc " + Words(++documents_);
    job.server = at;
    job.lastLine = Words(documents_);
    job.ticksBefore = server.ticks;
    job.printer = random_.Chance(5'000) ? u"laser" : u"colour";
    job.user = otherUser ? u"jdoe" : u"jsmith";
    job.machine = mine ? u"WS01" : u"WS02";
    // Windows 98 takes the user's word for the machine.
    job.mine = mine || (!otherUser && detection_ == Detection::Spooler9x);
    const bool announced = ByFile() && !otherUser;
    if (announced) {
        job.number = server.counter;
        server.counter = (server.counter + 1) % 1000;
    }
    Note("print " + Ascii(job.document) + " at " + Ascii(server.name) + (job.mine ? "" : ", not mine") +
         (announced ? ", file " + std::to_string(job.number) : ""));
    oracle_.Add(job);
    fakes::FakeJob queued{job.id, u"\\\\" + job.machine, job.user == u"jsmith" ? u"JSmith" : job.user, job.document};
    queued.time[2] = static_cast<std::uint32_t>(documents_);
    windows.spooler.AddJob(u"\\\\" + server.name + u"\\" + job.printer, queued);
    if (!calm_ && random_.Chance(500)) {
        Note("  its event is lost");
        windows.waitableHandles.signalled.clear();
        for (Job& other : oracle_.Jobs()) {
            other.eventLost = other.eventLost || !other.seen;
        }
    }
    if (announced) {
        Issue(job.document);
    }
    if (!calm_ && random_.Chance(1'500)) {
        Later(random_.Between(1, 180) * minute, [this, document = job.document] { Expire(*oracle_.Find(document)); });
    }
}

// The server writes the job's file, perhaps in two goes, and then the counter.
void Office::Issue(const std::u16string& document) {
    const Job& job = *oracle_.Find(document);
    const int at = job.server;
    FinishFile(at);
    const std::u16string name = JobFileName(job.number);
    const std::u16string following = JobFileName((job.number + 1) % 1000);
    const std::u16string text = Words(job.id) + u"\r\n" + job.printer + u"\r\n" + job.machine + u"\r\n" + job.user +
                                u"\r\n" + job.document + u"\r\n\\\\" + servers_[static_cast<std::size_t>(at)].name +
                                u"\\" + job.printer + u"\r\n77\r\n1\r\n2\r\n" + job.lastLine + u"\r\n";
    const auto finish = [this, document, at, name, following, text] {
        Job& printed = *oracle_.Find(document);
        if (!printed.gone) {
            Put(at, name, text);
        }
        Remove(at, following);
        printed.issued = true;
        const int counter = (printed.number + 1) % 1000;
        PutCounter(at, Words(counter));
        oracle_.TrueCounter(at, counter);
    };
    if (!calm_ && random_.Chance(2'000)) {
        Put(at, name, text, static_cast<std::size_t>(random_.Between(1, static_cast<int>(text.size()))));
        Note("  its file is half written");
        servers_[static_cast<std::size_t>(at)].unfinished = finish;
        Later(random_.Between(1, 3'000), [this, at] { FinishFile(at); });
    } else {
        finish();
    }
}

void Office::FinishFile(int at) {
    const std::function<void()> finish = std::move(servers_[static_cast<std::size_t>(at)].unfinished);
    servers_[static_cast<std::size_t>(at)].unfinished = nullptr;
    if (finish) {
        finish();
    }
}

void Office::Release(Job& job) {
    windows.spooler.RemoveJob(Share(job.server, job.printer), job.id);
    if (job.number >= 0) {
        Remove(job.server, JobFileName(job.number));
    }
    job.gone = true;
}

// The server gives up a job that nobody has accounted for.
void Office::Expire(Job& job) {
    const Server& server = servers_[static_cast<std::size_t>(job.server)];
    if (job.gone || !server.up) {
        return;
    }
    const bool reachable = server.ticks - job.ticksBefore > enoughTicks && server.ticks > enoughTicks &&
                           troubleOfTenThousand_ == 0 && !job.eventLost;
    Note("the server drops " + Ascii(job.document));
    Release(job);
    Oracle::LeftQueue(job, reachable);
}

void Office::Switch(int at, bool up) {
    Server& server = servers_[static_cast<std::size_t>(at)];
    server.up = up;
    server.ticks = 0;
    Note(Ascii(server.name) + (up ? " comes back" : " vanishes"));
    if (up) {
        windows.files.Up(server.name);
        windows.internet.Up(server.name);
    } else {
        windows.files.Down(server.name);
        windows.internet.Down(server.name);
    }
}

void Office::Vanish(int at) {
    if (!servers_[static_cast<std::size_t>(at)].up) {
        return;
    }
    Switch(at, false);
    Later(random_.Between(1, 120) * 1'000, [this, at] { Switch(at, true); });
}

void Office::SpoilCounter(int at) {
    if (!ByFile() || servers_[static_cast<std::size_t>(at)].counter == 0) {
        return;
    }
    const std::u16string whole = Words(servers_[static_cast<std::size_t>(at)].counter);
    const std::u16string texts[] = {
        u"", u"abc", u"99999", u"-5", whole.substr(0, whole.size() - 1), Words(random_.Between(0, 1000))};
    const std::u16string text = texts[random_.Between(0, 5)];
    Note("the counter of " + std::to_string(at + 1) + " becomes \"" + Ascii(text) + "\"");
    PutCounter(at, text);
    Later(random_.Between(1, 20'000),
          [this, at] { PutCounter(at, Words(servers_[static_cast<std::size_t>(at)].counter)); });
}

void Office::ChangeServerList() {
    const bool without = random_.Chance(5'000);
    listChanged_ = true;
    Note(without ? "SRV2 leaves the server list" : "a printer leaves the list of SRV2");
    Put(0, u"Servers.txt", without ? u"" : u"SRV2\r\n");
    Put(1, u"Printers.txt", without ? u"laser\r\ncolour\r\n" : u"laser\r\n");
    Later(random_.Between(1, 40) * minute, [this] {
        listChanged_ = false;
        Put(0, u"Servers.txt", u"SRV2\r\n");
        Put(1, u"Printers.txt", u"laser\r\ncolour\r\n");
    });
}

void Office::SomethingHappens() {
    const int at = random_.Between(0, 1);
    switch (random_.Between(0, 9)) {
        case 0:
        case 1:
            Switch(at, !servers_[static_cast<std::size_t>(at)].up);
            break;
        case 2:
            Vanish(at);
            break;
        case 3:
            SpoilCounter(at);
            break;
        case 4:
            ++accountsVersion_;
            Note("the accounts are replaced");
            PutAccounts(random_.Chance(2'000) ? static_cast<std::size_t>(random_.Between(1, 300)) : 0);
            Later(random_.Between(1, 5'000), [this] { PutAccounts(0); });
            break;
        case 5: {
            const int hours = random_.Chance(5'000) ? 1 : -1;
            Note("the clock jumps by an hour");
            windows.clock.AdvanceMinutes(hours * 60);
            oracle_.ClockSet();
            break;
        }
        case 6: {
            const bool gone = random_.Chance(5'000);
            const char16_t* const disks[] = {u"", u"", u"jsmith.txt", u"tlxpref.txt"};
            fullDisk_ = disks[random_.Between(0, 3)];
            Note("the disk is full for: " + Ascii(fullDisk_));
            Note(gone ? "the preferences share is gone" : "the preferences share is there");
            windows.files.FailPath(u"\\\\SRV1\\TLXPrefs$\\jsmith.txt", gone ? netNameDeleted : 0);
            break;
        }
        case 7:
            ChangeServerList();
            break;
        default:
            Print(false);
    }
}

void Office::CalmDown() {
    Note("calm");
    calm_ = true;
    windows.files.FailPath(u"\\\\SRV1\\TLXPrefs$\\jsmith.txt", 0);
    Pass(4 * 60 * minute);
    for (int i = 0; i < 2; ++i) {
        Switch(i, true);
    }
}

std::uint32_t Office::Trouble(std::u16string_view about, std::uint32_t code) {
    DoWhatIsDue();
    if (calm_ || troubleOfTenThousand_ == 0 || about.find(u"SRV") == std::u16string_view::npos ||
        !random_.Chance(troubleOfTenThousand_)) {
        return 0;
    }
    Note("  trouble with " + Ascii(std::u16string(about)));
    return code;
}

int Office::ServerIn(const std::u16string& path) const {
    return path.find(u"SRV1") != std::u16string::npos ? 0 : path.find(u"SRV2") != std::u16string::npos ? 1 : -1;
}

void Office::Watch() {
    windows.files.faults.onCheck = [this](std::string_view call, std::u16string_view detail) {
        if (!calm_ && call == "Write" && !fullDisk_.empty() && detail.find(fullDisk_) != detail.npos) {
            windows.files.donePercent = static_cast<std::size_t>(random_.Between(0, 99));
            return fakes::FaultPlan::halfDone;
        }
        if (call == "OpenForReading" && NumberOfJobFile(std::u16string(detail)) >= 0 && !calm_ && random_.Chance(200)) {
            Vanish(ServerIn(std::u16string(detail)));
        }
        return Trouble(detail, netNameDeleted);
    };
    windows.internet.faults.onCheck = [this](std::string_view call, std::u16string_view detail) {
        if (call == "OpenUrl") {
            lastUrl = detail;
            Note("    GET " + Ascii(lastUrl));
            const int number = NumberOfJobFile(lastUrl);
            if (number >= 0) {
                oracle_.AskedFor(ServerIn(lastUrl), number, true);
            }
        }
        return Trouble(detail, netNameDeleted);
    };
    windows.spooler.faults.onCheck = [this](std::string_view, std::u16string_view) {
        return Trouble(u"SRV spooler", serverUnavailable);
    };
    windows.system.onSleep = [this] {
        oracle_.now += windows.system.sleeps.back();
        DoWhatIsDue();
    };
    windows.files.onCall = [this](const std::u16string& call, const std::u16string& path) {
        if (trace_ && path.find(u"SRV") != std::u16string::npos) {
            Note("    " + Ascii(call) + " " + Ascii(path));
        }
        const int number = path.find(u"\\jobs\\") == std::u16string::npos ? -1 : NumberOfJobFile(path);
        if (number >= 0) {
            oracle_.AskedFor(ServerIn(path), number, call == u"OpenForReading");
        }
        if (call == u"OpenForWriting" && path.ends_with(u".tlx")) {
            NotificationBegins(path);
        }
    };
    windows.files.onWhole = [this](const std::u16string& path, const std::string& bytes) {
        WholeFileRead(path, bytes);
    };
    windows.spooler.onEnumerated = [this](std::uint32_t jobCount, std::uint32_t bufferBytes,
                                          const std::vector<fakes::FakeJob>* jobs) {
        // One job is asked for to see whether the printer can be reached.
        if (jobCount == 1) {
            return;
        }
        oracle_.AskedForJobs(bufferBytes, jobs != nullptr);
        for (std::size_t i = 0; jobs != nullptr && i < jobs->size(); ++i) {
            oracle_.Enumerated((*jobs)[i].document);
        }
    };
    windows.spooler.onEnumJobs = [this] {
        if (!calm_ && random_.Chance(20)) {
            Print(true);
        }
    };
    windows.spooler.onCancelled = [this](const std::u16string&, const fakes::FakeJob& job) {
        Job& cancelled = *oracle_.Find(job.document);
        ++cancelled.cancelled;
        Release(cancelled);
    };
}

// "\\SRV1\TLXActN$\WS01.77.5.tlx"
void Office::NotificationBegins(const std::u16string& path) {
    const std::size_t end = path.size() - 4;
    const std::size_t start = path.rfind(u'.', end - 1) + 1;
    const std::u16string id = path.substr(start, end - start);
    for (Job& job : oracle_.Jobs()) {
        if (job.server == ServerIn(path) && Words(job.id) == id) {
            job.account = chosen_;
            notifying = job.document;
            Oracle::NotificationBegun(job);
        }
    }
}

void Office::WholeFileRead(const std::u16string& path, const std::string& bytes) {
    const bool temporary = path.find(u"\\rad") != std::u16string::npos;
    const std::u16string& source = temporary ? lastUrl : path;
    const std::u16string text = TextOfBytes(bytes);
    if (source.ends_with(u".tlu")) {
        Note("  counter read: " + Ascii(text));
        oracle_.GotCounter(ServerIn(source), text);
    } else if (const int number = NumberOfJobFile(source); number >= 0) {
        oracle_.GotJobFile(ServerIn(source), number, text);
    } else if (source.ends_with(u"tlxpref.txt") && oracle_.starting) {
        const std::size_t start = text.find(u"preferred\u0001") + 10;
        const std::u16string preferred = u"," + text.substr(start, text.find(u'\r', start) - start) + u",";
        for (const int id : {2, 3}) {
            if (preferred.find(u"," + Words(id) + u",") == std::u16string::npos) {
                notInLocalCopy_[id] = true;
            }
        }
        Note("  preferences from the local copy: " + Ascii(text));
    } else if (source.ends_with(u"Accounts.txt") || source.ends_with(u"tlxact.txt")) {
        for (int id = 1; id <= 9; ++id) {
            if (text.find(u"\u0001Client " + Words(id) + u"\u0001") == std::u16string::npos) {
                missing_[id] = true;
            }
        }
    }
}

void Office::Collect() {
    for (int at = 0; at < 2; ++at) {
        const std::u16string share = Share(at, u"TLXActN$");
        for (const std::u16string& name : windows.files.FilesIn(share)) {
            if (name.ends_with(u".tlx")) {
                CollectFile(at, share + u"\\" + name);
            }
        }
    }
}

void Office::CollectFile(int at, const std::u16string& path) {
    const std::vector<std::u16string> lines = LinesOf(TextOfBytes(windows.files.ReadBytes(path)));
    Job* const job = lines.size() == notificationLines ? oracle_.Find(lines[4]) : nullptr;
    if (job != nullptr) {
        const std::u16string file = job->number < 0 ? u"" : JobFileName(job->number).substr(5);
        const bool right = job->server == at && lines[0] == Words(job->id) && lines[1] == job->machine &&
                           lines[2] == job->printer && lines[6] == Words(job->account) && lines[10] == file;
        Oracle::Notified(*job, right);
        Note("notified " + Ascii(job->document) + (right ? "" : ", wrongly"));
        Release(*job);
    }
    windows.files.RemoveFile(path);
}

}  // namespace korvanta::simulation
