#pragma once

#include <string>
#include <vector>

namespace driver {

// What an administrator sets for every client; the values here make a client poll at each beat.
struct ClientSettings {
    int jobMatchMethod = 0;
    int jobDetectionMethod = 0;
    int jobDetectionMethodWindows9x = 0;
    int serverHealthTestInterval = 3600;
    int fullRefreshInterval = 60;
    int printerListRefreshInterval = 3600;
    int serverDownFullRefreshInterval = 3600;
    int printerPollingInterval = 0;
    int filePollingInterval = 0;
    bool popupOnTop = false;
    std::wstring usersDoNotRequireAccount{};
    std::wstring defaultComment{};
    std::wstring showOnInvoiceLabel{};

    std::wstring Text() const;
};

struct Account {
    int id = 0;
    bool main = true;
    std::wstring mainTitle{};
    std::wstring subTitle{};
    bool active = true;
    bool allowNoninvoiceable = true;
    int requireComment = 0;
    std::wstring password{};

    // One line of the accounts list, without its end.
    std::wstring Text() const;
};

std::wstring AccountsText(const std::vector<Account>& accounts);

// A print job as the server announces it. Empty names are filled in by the server that announces it.
struct Job {
    int id = 1;
    std::wstring printer = L"Laser";
    std::wstring machine{};
    std::wstring user{};
    std::wstring document = L"Letter.doc";
    std::wstring fullPrinter{};
    int printerHandle = 0;
    int time1 = 1310725;
    int time2 = 1966089;
    int time3 = 0;

    std::wstring Text() const;
};

// The shares of one print server.
class PrintServer {
  public:
    // `shares` is the folder in which the system looks for servers.
    PrintServer(const std::wstring& shares, const std::wstring& name);

    const std::wstring& Name() const { return name_; }
    std::wstring DataFolder() const { return folder_ + L"\\TLXData$"; }
    std::wstring JobsFolder() const { return DataFolder() + L"\\jobs"; }
    std::wstring NotificationFolder() const { return folder_ + L"\\TLXActN$"; }
    std::wstring PreferencesFolder() const { return folder_ + L"\\TLXPrefs$"; }

    // A file of the data share, as UTF-16 text.
    void Publish(const std::wstring& file, const std::wstring& text) const;
    // The same file with these very bytes.
    void PublishBytes(const std::wstring& file, const std::string& bytes) const;
    // All lists of a small organisation: this printer server, its printer "Laser", these settings and accounts.
    void PublishAll(const ClientSettings& settings, const std::vector<Account>& accounts) const;

    // The job as it stands in the file that announces it.
    Job Complete(Job job) const;
    void WriteJobFile(const std::wstring& user, int number, const Job& job) const;
    void WriteJobFileBytes(const std::wstring& user, int number, const std::string& bytes) const;
    std::wstring JobFilePath(const std::wstring& user, int number) const;
    // The number that the next job file will have.
    void WriteCounter(const std::wstring& user, int next) const;
    // The job file, then the counter.
    void Announce(const std::wstring& user, int number, const Job& job) const;

    std::vector<std::wstring> NotificationNames() const;
    std::string NotificationBytes(const std::wstring& name) const;

    // Takes the server off the network, and back.
    void Unplug() const;
    void PlugIn() const;
    void Remove() const;

  private:
    std::wstring name_;
    std::wstring folder_;
    std::wstring unpluggedFolder_;
};

// The content of an account notification file.
struct Notification {
    int jobId = 0;
    std::wstring machine{};
    std::wstring printer{};
    std::wstring user{};
    std::wstring document{};
    int printerHandle = 0;
    int accountId = 0;
    std::wstring accountTitle{};
    bool invoiceable = false;
    std::wstring comment{};
    std::wstring jobEventFile{};
    std::wstring chargeRate{};
    std::wstring chargeRateValue{};

    std::wstring Text() const;
    std::wstring FileName() const;
    // What the client owes the server for this job, before the user's choices.
    static Notification For(const Job& job, const std::wstring& jobEventFile);
    // Raises std::runtime_error when the bytes are no notification.
    static Notification Decode(const std::string& bytes);
};

// Numbers of a job file's name: at least three digits.
std::wstring JobFileName(const std::wstring& user, int number);

}  // namespace driver
