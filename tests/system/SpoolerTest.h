#pragma once

#include <string>
#include <vector>

#include "SystemTest.h"
#include "spooler/PlayedSpooler.h"

// A client that finds its jobs in a spooler, which the test plays.
class SpoolerTest : public SystemTest {
  protected:
    // The Windows 98 family polls, and its print library is one without change notifications.
    explicit SpoolerTest(bool windows98 = false);
    ~SpoolerTest() override;

    const spooler::Files& Spooler() const { return spooler_; }
    // Puts this print library beside the client.
    void Install(const std::wstring& library);
    // The full name of this test's printer.
    std::string PrinterName(const std::wstring& printer = L"Laser") const;
    // The handle under which the client opened the printer most recently; 0 when it never did.
    int HandleOf(const std::wstring& printer = L"Laser") const;
    // The calls of that name, in their order.
    std::vector<std::string> Calls(const std::string& name) const;

    // What an administrator sets for printer monitoring; the client looks at its printers at each beat.
    static driver::ClientSettings PrinterMonitoring();
    // The same, with health tests and early refreshes after two seconds.
    static driver::ClientSettings Hurried();
    // Publishes the printers in the spooler and on the server, and starts the client.
    void StartPrinterMonitoring(const driver::ClientSettings& settings = PrinterMonitoring(),
                                const std::vector<std::wstring>& printers = {L"Laser"});
    // Publishes them without starting the client.
    void PublishPrinters(const driver::ClientSettings& settings, const std::vector<std::wstring>& printers);

    // A job of this user on this machine as the spooler has it.
    spooler::Job OwnJob(int id, const std::wstring& document, const std::wstring& printer = L"Laser") const;
    // The same as the client should see it; the client must have opened the printer.
    driver::Job Seen(int id, const std::wstring& document, const std::wstring& printer = L"Laser") const;
    void Print(const std::vector<spooler::Job>& jobs) const;
    void Print(int id, const std::wstring& document, const std::wstring& printer = L"Laser") const {
        Print({OwnJob(id, document, printer)});
    }

    // Chooses "Smith" for the job that the dialog must offer now, and expects the notification.
    void Charge(const driver::Job& job) const;
    // Cancels the job that the dialog must offer now, and expects the spooler to have cancelled just this one.
    void Cancel(const driver::Job& job) const;
    // A new job comes through, and is the only one in the dialog's queue.
    void ExpectOnlyNewJobsOffered(int id) const;

    driver::ListWindow Printers() const { return driver::ListWindow(Status(L"lvwPrinters")); }
    bool IsWatched(const std::wstring& printer = L"Laser") const { return ShowsPicture(printer, 1); }
    bool HasFailed(const std::wstring& printer = L"Laser") const { return ShowsPicture(printer, 2); }

  private:
    bool ShowsPicture(const std::wstring& printer, int picture) const;

    std::wstring folder_;
    spooler::Files spooler_;
};
