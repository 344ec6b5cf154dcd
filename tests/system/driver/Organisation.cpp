#include "driver/Organisation.h"

#include <stdexcept>

#include "driver/Client.h"
#include "driver/Files.h"

namespace driver {
namespace {

std::wstring Joined(const std::vector<std::wstring>& lines) {
    std::wstring text;
    for (const std::wstring& line : lines) {
        text.append(line).append(L"\r\n");
    }
    return text;
}

std::wstring Number(int value) {
    return std::to_wstring(value);
}

}  // namespace

std::wstring ClientSettings::Text() const {
    return Joined({Number(jobMatchMethod), Number(jobDetectionMethod), Number(jobDetectionMethodWindows9x),
                   Number(serverHealthTestInterval), Number(fullRefreshInterval), Number(printerListRefreshInterval),
                   Number(serverDownFullRefreshInterval), Number(printerPollingInterval), Number(filePollingInterval),
                   popupOnTop ? L"-1" : L"0", usersDoNotRequireAccount, defaultComment, showOnInvoiceLabel});
}

std::wstring Account::Text() const {
    const std::wstring separator = L"\x01";
    const auto boolean = [](bool value) { return value ? L"1" : L"0"; };
    return Number(id) + separator + boolean(main) + separator + mainTitle + separator + subTitle + separator +
           boolean(active) + separator + boolean(allowNoninvoiceable) + separator + Number(requireComment) + separator +
           password;
}

std::wstring AccountsText(const std::vector<Account>& accounts) {
    std::vector<std::wstring> lines;
    for (const Account& account : accounts) {
        lines.push_back(account.Text());
    }
    return Joined(lines);
}

std::wstring Job::Text() const {
    return Joined({Number(id), printer, machine, user, document, fullPrinter, Number(printerHandle), Number(time1),
                   Number(time2), Number(time3)});
}

PrintServer::PrintServer(const std::wstring& shares, const std::wstring& name)
    : name_(name), folder_(shares + L"\\" + name), unpluggedFolder_(shares + L"\\unplugged-" + name) {
    MakeFolders(JobsFolder());
    MakeFolders(NotificationFolder());
    MakeFolders(PreferencesFolder());
}

void PrintServer::Publish(const std::wstring& file, const std::wstring& text) const {
    PublishBytes(file, Utf16Bytes(text));
}

void PrintServer::PublishBytes(const std::wstring& file, const std::string& bytes) const {
    WriteBytes(DataFolder() + L"\\" + file, bytes);
}

void PrintServer::PublishAll(const ClientSettings& settings, const std::vector<Account>& accounts) const {
    Publish(L"Servers.txt", name_ + L"\r\n");
    Publish(L"Printers.txt", L"Laser\r\n");
    Publish(L"ClientSet.txt", settings.Text());
    Publish(L"Accounts.txt", AccountsText(accounts));
    Publish(L"ChargeRates.txt", L"100\x01Standard\r\n0.5\x01Reduced\r\n");
}

Job PrintServer::Complete(Job job) const {
    if (job.machine.empty()) {
        job.machine = CurrentMachine();
    }
    if (job.user.empty()) {
        job.user = CurrentUser();
    }
    if (job.fullPrinter.empty()) {
        job.fullPrinter = L"\\\\" + name_ + L"\\" + job.printer;
    }
    return job;
}

std::wstring PrintServer::JobFilePath(const std::wstring& user, int number) const {
    return JobsFolder() + L"\\" + JobFileName(user, number);
}

void PrintServer::WriteJobFile(const std::wstring& user, int number, const Job& job) const {
    WriteJobFileBytes(user, number, Utf16Bytes(Complete(job).Text()));
}

void PrintServer::WriteJobFileBytes(const std::wstring& user, int number, const std::string& bytes) const {
    // Under another name first, so that a client never sees half a file.
    const std::wstring path = JobFilePath(user, number);
    WriteBytes(path + L".new", bytes);
    DeleteFileIfThere(path);
    Rename(path + L".new", path);
}

void PrintServer::WriteCounter(const std::wstring& user, int next) const {
    WriteBytes(JobsFolder() + L"\\" + user + L".tlu", Utf16Bytes(Number(next)));
}

void PrintServer::Announce(const std::wstring& user, int number, const Job& job) const {
    WriteJobFile(user, number, job);
    WriteCounter(user, (number + 1) % 1000);
}

std::vector<std::wstring> PrintServer::NotificationNames() const {
    return FileNames(NotificationFolder());
}

std::string PrintServer::NotificationBytes(const std::wstring& name) const {
    return ReadBytes(NotificationFolder() + L"\\" + name);
}

void PrintServer::Unplug() const {
    Rename(folder_, unpluggedFolder_);
}

void PrintServer::PlugIn() const {
    Rename(unpluggedFolder_, folder_);
}

void PrintServer::Remove() const {
    DeleteTree(folder_);
    DeleteTree(unpluggedFolder_);
}

std::wstring Notification::Text() const {
    return Joined({Number(jobId), machine, printer, user, document, Number(printerHandle), Number(accountId),
                   accountTitle, invoiceable ? L"1" : L"0", comment, jobEventFile, chargeRate, chargeRateValue});
}

std::wstring Notification::FileName() const {
    return machine + L"." + Number(printerHandle) + L"." + Number(jobId) + L".tlx";
}

Notification Notification::For(const Job& job, const std::wstring& jobEventFile) {
    Notification notification;
    notification.jobId = job.id;
    notification.machine = job.machine;
    notification.printer = job.printer;
    notification.user = job.user;
    notification.document = job.document;
    notification.printerHandle = job.printerHandle;
    notification.jobEventFile = jobEventFile;
    return notification;
}

Notification Notification::Decode(const std::string& bytes) {
    const std::wstring text = Utf16Text(bytes);
    const std::vector<std::wstring> lines = Lines(text);
    if (!bytes.starts_with("\xFF\xFE") || lines.size() != 13 || !text.ends_with(L"\r\n")) {
        throw std::runtime_error("not an account notification: " + Utf8Bytes(text));
    }
    Notification notification;
    notification.jobId = std::stoi(lines[0]);
    notification.machine = lines[1];
    notification.printer = lines[2];
    notification.user = lines[3];
    notification.document = lines[4];
    notification.printerHandle = std::stoi(lines[5]);
    notification.accountId = std::stoi(lines[6]);
    notification.accountTitle = lines[7];
    notification.invoiceable = lines[8] == L"1";
    notification.comment = lines[9];
    notification.jobEventFile = lines[10];
    notification.chargeRate = lines[11];
    notification.chargeRateValue = lines[12];
    return notification;
}

std::wstring JobFileName(const std::wstring& user, int number) {
    const std::wstring digits = Number(number);
    return user + L"." + std::wstring(digits.size() < 3 ? 3 - digits.size() : 0, L'0') + digits;
}

}  // namespace driver
