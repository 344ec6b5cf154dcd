#include "SpoolerTest.h"

#include <algorithm>

#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

std::wstring ProgramFolder() {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring path = program;
    return path.substr(0, path.rfind(L'\\'));
}

}  // namespace

SpoolerTest::SpoolerTest(bool windows98)
    : folder_(Client().Folder() + L"\\spooler"), spooler_(driver::AnsiBytes(folder_)) {
    driver::PretendWindows98(windows98);
    driver::MakeFolders(folder_);
    Install(windows98 ? L"winspool95.drv" : L"winspool.drv");
    SetEnvironmentVariableW(L"KORVANTA_SPOOLER", folder_.c_str());
}

SpoolerTest::~SpoolerTest() {
    SetEnvironmentVariableW(L"KORVANTA_SPOOLER", nullptr);
}

void SpoolerTest::Install(const std::wstring& library) {
    driver::CopyOver(ProgramFolder() + L"\\" + library, Client().Folder() + L"\\winspool.drv");
}

std::string SpoolerTest::PrinterName(const std::wstring& printer) const {
    return driver::AnsiBytes(Server().Complete({.printer = printer}).fullPrinter);
}

int SpoolerTest::HandleOf(const std::wstring& printer) const {
    const std::string opened = "OpenPrinterA " + PrinterName(printer) + ",";
    const std::string given = ", handle 0x";
    int handle = 0;
    for (const std::string& call : spooler_.Calls()) {
        const std::size_t position = call.find(given);
        if (call.starts_with(opened) && position != std::string::npos) {
            handle = std::stoi(call.substr(position + given.size()), nullptr, 16);
        }
    }
    return handle;
}

std::vector<std::string> SpoolerTest::Calls(const std::string& name) const {
    std::vector<std::string> calls = spooler_.Calls();
    std::erase_if(calls, [&](const std::string& call) { return !call.starts_with(name + " "); });
    return calls;
}

driver::ClientSettings SpoolerTest::PrinterMonitoring() {
    return {.jobDetectionMethod = 1, .jobDetectionMethodWindows9x = 1};
}

driver::ClientSettings SpoolerTest::Hurried() {
    driver::ClientSettings settings = PrinterMonitoring();
    settings.serverHealthTestInterval = 2;
    settings.serverDownFullRefreshInterval = 2;
    return settings;
}

void SpoolerTest::PublishPrinters(const driver::ClientSettings& settings, const std::vector<std::wstring>& printers) {
    std::wstring list;
    std::vector<std::string> names;
    for (const std::wstring& printer : printers) {
        list += printer + L"\r\n";
        names.push_back(PrinterName(printer));
    }
    PublishAll(settings);
    // Named there as well, the primary server would have each printer in the list twice.
    Server().Publish(L"Servers.txt", L"");
    Server().Publish(L"Printers.txt", list);
    spooler_.SetPrinters(names);
}

void SpoolerTest::StartPrinterMonitoring(const driver::ClientSettings& settings,
                                         const std::vector<std::wstring>& printers) {
    PublishPrinters(settings, printers);
    ASSERT_NO_FATAL_FAILURE(StartMonitoring());
    ASSERT_EQ(Status(L"lblJobDetectionMethod").Text(), L"Printer monitoring");
}

spooler::Job SpoolerTest::OwnJob(int id, const std::wstring& document, const std::wstring& printer) const {
    return {PrinterName(printer), id, "\\\\" + driver::AnsiBytes(driver::CurrentMachine()) + " ",
            driver::AnsiBytes(driver::CurrentUser()), driver::AnsiBytes(document)};
}

driver::Job SpoolerTest::Seen(int id, const std::wstring& document, const std::wstring& printer) const {
    return Server().Complete({.id = id,
                              .printer = printer,
                              .user = driver::CurrentUserLowerCase(),
                              .document = document,
                              .printerHandle = HandleOf(printer)});
}

void SpoolerTest::Print(const std::vector<spooler::Job>& jobs) const {
    if (!Dialog().Visible()) {
        MarkComment();
    }
    spooler_.AddJobs(jobs);
}

void SpoolerTest::Charge(const driver::Job& job) const {
    ASSERT_TRUE(DialogOffers(job.document));
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    const driver::Notification expected = Expected(job, L"", 1, L"Smith");
    PressOk();
    ExpectNotification(expected);
}

void SpoolerTest::Cancel(const driver::Job& job) const {
    ASSERT_TRUE(DialogOffers(job.document));
    const std::size_t before = spooler_.Commands().size();
    PressCancel();
    ExpectMessage(L"The print job was successfully cancelled.");
    const std::vector<spooler::Command> commands = spooler_.Commands();
    ASSERT_EQ(commands.size(), before + 1);
    EXPECT_EQ(commands.back(), (spooler::Command{PrinterName(job.printer), job.id, 3}));
}

void SpoolerTest::ExpectOnlyNewJobsOffered(int id) const {
    const std::wstring document = L"Proof " + std::to_wstring(id) + L".doc";
    Print(id, document);
    EXPECT_TRUE(DialogOffers(document));
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"1") << "nothing else was queued";
}

bool SpoolerTest::ShowsPicture(const std::wstring& printer, int picture) const {
    const std::wstring name = Server().Complete({.printer = printer}).fullPrinter;
    return WaitFor([&] {
        const int row = Printers().FindRow(0, name);
        return row >= 0 && Printers().Picture(row) == picture;
    });
}
