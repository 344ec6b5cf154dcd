#pragma once

#include <windows.h>

#include <chrono>
#include <optional>
#include <string>

#include "driver/MessageWindow.h"
#include "driver/Wait.h"
#include "driver/Window.h"

namespace driver {

// A client program that runs, whoever started it.
class RunningClient {
  public:
    RunningClient() = default;
    ~RunningClient() { Forget(); }
    RunningClient(const RunningClient&) = delete;
    RunningClient& operator=(const RunningClient&) = delete;

    // Takes the client that has windows now. False when there is none.
    bool Find();

    bool Running() const;
    bool WaitForEnd(std::chrono::milliseconds limit = usualLimit) const;
    // Of a process that has ended.
    DWORD ExitCode() const;
    // 0 when no process is known.
    DWORD ProcessId() const { return processId_; }

    // The form's window, hidden or not; none while there is none.
    Window Form(const std::wstring& name) const;
    Window Control(const std::wstring& form, const std::wstring& control) const;
    bool WaitForVisible(const std::wstring& form, std::chrono::milliseconds limit = usualLimit) const;
    bool WaitForHidden(const std::wstring& form, std::chrono::milliseconds limit = usualLimit) const;
    // Waits for a message box.
    std::optional<MessageWindow> WaitForMessage(std::chrono::milliseconds limit = usualLimit) const;
    // Whether the client has got through its start and beats.
    bool WaitForMonitoring(std::chrono::milliseconds limit = usualLimit) const;
    // How many handles of the kernel it has open; -1 when the system does not tell.
    int HandleCount() const;
    // Whether every form answers a message within two seconds.
    bool Answers() const;

    // What the notification area sends for a double click on the icon.
    void DoubleClickIcon() const;
    // Takes the icon away, as it goes with a taskbar that ends.
    bool RemoveIcon() const;
    // Chooses an entry of the popup menu, counted from 0.
    void ChooseMenuEntry(int position) const;
    // What Windows sends every window when the session ends. False when a window objected.
    bool EndSession() const;

  protected:
    // Takes ownership of the handle.
    void Watch(HANDLE process, DWORD processId);
    void Forget();
    HANDLE Process() const { return process_; }

  private:
    HANDLE process_ = nullptr;
    DWORD processId_ = 0;
};

// One copy of the client program, in a folder of its own with a temporary folder of its own, so that nothing of an
// earlier run is found. The process ends with the object.
class Client : public RunningClient {
  public:
    // Makes `folder` and copies the program into it, unless it is there already.
    Client(const std::wstring& program, const std::wstring& folder);
    ~Client();

    const std::wstring& Folder() const { return folder_; }
    const std::wstring& TemporaryFolder() const { return temporaryFolder_; }

    void Start(const std::wstring& arguments = L"");
    // Ends the process at once, as a power cut does.
    void Kill();

  private:
    std::wstring folder_;
    std::wstring temporaryFolder_;
};

// The class of a form's window.
std::wstring FormClass(const std::wstring& form);
// The session's user as Windows names it, the same in lower case (which is how servers name the user's files), and
// the machine's name.
std::wstring CurrentUser();
std::wstring CurrentUserLowerCase();
std::wstring CurrentMachine();
// Whether the notification area shows an icon of any program. Wine's own area is on the screen only while it does.
bool NotificationAreaHasIcon();

}  // namespace driver
