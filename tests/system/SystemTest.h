#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "driver/Client.h"
#include "driver/Organisation.h"

// A client in a folder of its own, and a print server of its own, for one test.
class SystemTest : public ::testing::Test {
  protected:
    SystemTest();
    ~SystemTest() override;
    // The client has not crashed: it still runs, or has ended as it should.
    void TearDown() override;

    const driver::PrintServer& Server() const { return server_; }
    driver::Client& Client() { return *client_; }
    // Where the client's program lies.
    static std::wstring Program();
    // The folder in which the system looks for servers.
    static std::wstring SharesFolder();
    // A name for a server that only this test has.
    std::wstring ServerName(const std::wstring& suffix = L"") const;

    // The accounts that PublishAll puts on the server.
    static std::vector<driver::Account> Accounts();
    // All lists of the server with these settings, and a counter that stands at 0.
    void PublishAll(const driver::ClientSettings& settings = {}) const;
    // Names the server to the client, starts it and waits until it monitors.
    void StartMonitoring(const std::wstring& arguments = L"");
    // Lets the server announce a job; its completed form comes back.
    driver::Job Announce(const std::wstring& document, int jobId = 1);
    driver::Job AnnounceJob(const driver::Job& job);
    // The name of the file that announced the job most recently.
    std::wstring LastJobFile() const { return driver::JobFileName(driver::CurrentUser(), lastJobNumber_); }
    void NextJobNumber(int number) { nextJobNumber_ = number; }

    driver::Window Dialog() const { return client_->Form(L"frmAccountNumber"); }
    driver::Window DialogControl(const std::wstring& name) const { return Dialog().Control(name); }
    driver::Window Status(const std::wstring& control) const { return client_->Control(L"frmMain", control); }
    // Leaves a text in the comment box, where the chosen account lets none be sent. The dialog empties the box before
    // it waits for the user, and so a test sees that it is ready for another job. Announcing a job and pressing a
    // button of the dialog do it.
    void MarkComment() const;
    // Waits until the dialog is on the screen for the document, and ready.
    bool DialogOffers(const std::wstring& document) const;
    // Whether the dialog is on the screen and waits for the user.
    bool DialogIsReady() const;
    bool DialogStaysHidden() const;
    // The rows of the view: All, Preferred or Recent.
    driver::ListWindow View(const std::wstring& view) const;
    std::vector<std::wstring> Titles(const std::wstring& view) const { return View(view).Column(1); }
    // Waits until the view shows these titles.
    bool ViewShows(const std::wstring& view, const std::vector<std::wstring>& titles) const;
    // Clicks the account's row and waits until it is selected.
    bool ChooseAccount(const std::wstring& title, const std::wstring& view = L"All") const;
    bool ShowTab(int tab) const;
    // Waits until OK can be pressed and presses it.
    void PressOk() const;
    void PressCancel() const;
    // Waits for the message, compares its text, and answers it.
    void ExpectMessage(const std::wstring& text, int answer = driver::MessageWindow::ok) const;

    // What OK sends for the job and the account with the dialog's own choices: ticked, no comment, the chosen rate.
    driver::Notification Expected(const driver::Job& job, const std::wstring& jobFile, int accountId,
                                  const std::wstring& accountTitle) const;
    // Waits for the notification on the server and compares every byte.
    void ExpectNotification(const driver::Notification& expected) const;
    void ExpectNotification(const driver::Notification& expected, const driver::PrintServer& server) const;

    // Presses "Refresh" and waits until the full refresh is done.
    void RefreshEverything() const;
    // Confirms that the client shall end and waits until it has.
    void CloseFromTaskManager() const;

  private:
    std::wstring folder_;
    driver::PrintServer server_;
    std::unique_ptr<driver::Client> client_;
    int nextJobNumber_ = 0;
    int lastJobNumber_ = -1;
};

// The texts of the client's messages.
namespace message {
extern const std::wstring title;
extern const std::wstring alreadyRunning;
extern const std::wstring accountNotActive;
extern const std::wstring notificationError;
extern const std::wstring selectAccount;
extern const std::wstring accountListError;
extern const std::wstring notificationCreationError;
extern const std::wstring jobCancelError;
extern const std::wstring primaryServerError;
extern const std::wstring primaryServerUnknown;
extern const std::wstring enterPrimaryServer;
}  // namespace message
