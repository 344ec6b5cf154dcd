// Drives the client program that runs in this session, from the command line.

#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "driver/Client.h"
#include "driver/Files.h"
#include "driver/Wait.h"

namespace {

using Arguments = std::vector<std::wstring>;

constexpr const char* usage =
    "Usage: clientdriver COMMAND [ARGUMENT...] [--seconds N]\n"
    "\n"
    "Drives the client program that runs in this session. Forms and controls go by their names (frmMain,\n"
    "frmAccountNumber, cmdOK, ...). The exit code is 0 when the command succeeded, and 1 when it did not.\n"
    "\n"
    "  wait-monitoring               until the client has started and monitors\n"
    "  wait-visible FORM             until the form is on the screen\n"
    "  wait-hidden FORM              until it is not\n"
    "  wait-text FORM CONTROL TEXT   until the control shows the text\n"
    "  wait-rows FORM LIST N         until the list has so many rows\n"
    "  wait-end                      until the client has ended\n"
    "  wait-message                  until a message box is on the screen; prints its title and text\n"
    "  screenshot-ready              until every window has answered, and so has painted what it was asked to\n"
    "  show-status, hide-status      the status form, as a double click on the icon does\n"
    "  choose-entry N                an entry of the status form's menu, counted from 0\n"
    "  enable-logging                chooses it in the menu and confirms\n"
    "  text FORM CONTROL             prints what the control shows\n"
    "  rows FORM LIST                prints a line for each row, the cells separated by tabs\n"
    "  click FORM CONTROL            presses, ticks or clicks it\n"
    "  type FORM CONTROL TEXT        replaces the text of a box\n"
    "  choose FORM LIST TITLE        clicks the row that has the title\n"
    "  choose-tab FORM TABS N        shows a tab, counted from 1\n"
    "  answer BUTTON                 presses ok, cancel, yes or no in the message box\n"
    "  end-session                   tells every window that the session ends\n"
    "  ask-to-close                  closes the client as the Task Manager does; it then asks\n"
    "  close                         closes the client as the Task Manager does, and confirms\n"
    "\n"
    "  --seconds N                   how long a command waits for its condition (default 15)\n";

class Commands {
  public:
    explicit Commands(std::chrono::milliseconds limit) : limit_(limit) {}

    // 0 done, 1 failed, 2 no such command or the wrong number of arguments.
    int Run(const Arguments& arguments) {
        const auto found = arguments.empty() ? commands_.end() : commands_.find(arguments.front());
        if (found == commands_.end() || arguments.size() - 1 != found->second.arguments) {
            std::fputs(usage, stderr);
            return 2;
        }
        if (arguments.front() == L"wait-end") {
            return driver::WaitFor([&] { return !client_.Find(); }, limit_) ? 0 : 1;
        }
        if (!driver::WaitFor([&] { return client_.Find(); }, limit_)) {
            std::fputs("clientdriver: no client program runs in this session.\n", stderr);
            return 1;
        }
        return found->second.run(Arguments(arguments.begin() + 1, arguments.end())) ? 0 : 1;
    }

  private:
    struct Command {
        std::size_t arguments;
        std::function<bool(const Arguments&)> run;
    };

    static void Print(const std::wstring& text) { std::printf("%s\n", driver::Utf8Bytes(text).c_str()); }

    driver::Window Existing(const std::wstring& form, const std::wstring& control) const {
        const driver::Window window = client_.Control(form, control);
        if (!window.Exists()) {
            std::fprintf(stderr, "clientdriver: there is no %s on %s.\n", driver::Utf8Bytes(control).c_str(),
                         driver::Utf8Bytes(form).c_str());
        }
        return window;
    }

    // The list itself, or the one inside the control of that name.
    driver::ListWindow List(const std::wstring& form, const std::wstring& list) const {
        const driver::Window window = Existing(form, list);
        const driver::Window inner = window.Control(L"flxAccounts");
        return driver::ListWindow(inner.Exists() ? inner : window);
    }

    bool SetStatusShown(bool shown) const {
        if (client_.Form(L"frmMain").Visible() != shown) {
            client_.DoubleClickIcon();
        }
        return shown ? client_.WaitForVisible(L"frmMain", limit_) : client_.WaitForHidden(L"frmMain", limit_);
    }

    bool PrintRows(const driver::ListWindow& list) const {
        const int columns = list.ColumnCount();
        for (int row = 0; row < list.RowCount(); ++row) {
            std::wstring line;
            for (int column = 0; column < (columns > 0 ? columns : 1); ++column) {
                line += (column == 0 ? L"" : L"\t") + list.CellText(row, column);
            }
            Print(line);
        }
        return list.Exists();
    }

    bool Choose(const driver::ListWindow& list, const std::wstring& title) const {
        const int titleColumn = list.ColumnCount() > 1 ? 1 : 0;
        int row = -1;
        if (!driver::WaitFor([&] { return (row = list.FindRow(titleColumn, title)) >= 0; }, limit_)) {
            return false;
        }
        list.ClickRow(row);
        return driver::WaitFor([&] { return list.SelectedRow() == row; }, limit_);
    }

    bool Answer(const std::wstring& button) const {
        static const std::map<std::wstring, int> buttons{{L"ok", driver::MessageWindow::ok},
                                                         {L"cancel", driver::MessageWindow::cancel},
                                                         {L"yes", driver::MessageWindow::yes},
                                                         {L"no", driver::MessageWindow::no}};
        const auto found = buttons.find(button);
        const auto box = client_.WaitForMessage(limit_);
        return found != buttons.end() && box && box->Press(found->second);
    }

    bool PrintMessage() const {
        const auto box = client_.WaitForMessage(limit_);
        if (box) {
            Print(box->Title());
            Print(box->Text());
        }
        return box.has_value();
    }

    bool Close() const {
        client_.Form(L"frmMain").Post(WM_CLOSE);
        return Answer(L"yes") && client_.WaitForEnd(limit_);
    }

    driver::RunningClient client_;
    std::chrono::milliseconds limit_;
    const std::map<std::wstring, Command> commands_{
        {L"wait-monitoring", {0, [this](const Arguments&) { return client_.WaitForMonitoring(limit_); }}},
        {L"wait-visible", {1, [this](const Arguments& a) { return client_.WaitForVisible(a[0], limit_); }}},
        {L"wait-hidden", {1, [this](const Arguments& a) { return client_.WaitForHidden(a[0], limit_); }}},
        {L"wait-text",
         {3,
          [this](const Arguments& a) {
              return driver::WaitFor([&] { return client_.Control(a[0], a[1]).Text() == a[2]; }, limit_);
          }}},
        {L"wait-rows",
         {3,
          [this](const Arguments& a) {
              return driver::WaitFor([&] { return List(a[0], a[1]).RowCount() == _wtoi(a[2].c_str()); }, limit_);
          }}},
        {L"wait-end", {0, {}}},  // there need be no client any more
        {L"wait-message", {0, [this](const Arguments&) { return PrintMessage(); }}},
        {L"screenshot-ready",
         {0, [this](const Arguments&) { return driver::WaitFor([&] { return client_.Answers(); }, limit_); }}},
        {L"show-status", {0, [this](const Arguments&) { return SetStatusShown(true); }}},
        {L"hide-status", {0, [this](const Arguments&) { return SetStatusShown(false); }}},
        {L"choose-entry",
         {1,
          [this](const Arguments& a) {
              client_.ChooseMenuEntry(_wtoi(a[0].c_str()));
              return true;
          }}},
        {L"enable-logging",
         {0,
          [this](const Arguments&) {
              client_.ChooseMenuEntry(0);
              return Answer(L"ok");
          }}},
        {L"text",
         {2,
          [this](const Arguments& a) {
              const driver::Window window = Existing(a[0], a[1]);
              Print(window.Text());
              return window.Exists();
          }}},
        {L"rows", {2, [this](const Arguments& a) { return PrintRows(List(a[0], a[1])); }}},
        {L"click",
         {2,
          [this](const Arguments& a) {
              const driver::Window window = Existing(a[0], a[1]);
              window.Click();
              return window.Exists();
          }}},
        {L"type",
         {3,
          [this](const Arguments& a) {
              const driver::Window window = Existing(a[0], a[1]);
              window.SetText(a[2]);
              return window.Text() == a[2];
          }}},
        {L"choose", {3, [this](const Arguments& a) { return Choose(List(a[0], a[1]), a[2]); }}},
        {L"choose-tab",
         {3,
          [this](const Arguments& a) {
              const driver::TabWindow tabs(Existing(a[0], a[1]));
              const int tab = _wtoi(a[2].c_str());
              tabs.Select(tab);
              return driver::WaitFor([&] { return tabs.Selected() == tab; }, limit_);
          }}},
        {L"answer", {1, [this](const Arguments& a) { return Answer(a[0]); }}},
        {L"end-session", {0, [this](const Arguments&) { return client_.EndSession() && client_.WaitForEnd(limit_); }}},
        {L"ask-to-close",
         {0,
          [this](const Arguments&) {
              client_.Form(L"frmMain").Post(WM_CLOSE);
              return true;
          }}},
        {L"close", {0, [this](const Arguments&) { return Close(); }}},
    };
};

}  // namespace

int main() {
    int count = 0;
    wchar_t** texts = CommandLineToArgvW(GetCommandLineW(), &count);
    Arguments arguments;
    std::chrono::milliseconds limit = driver::usualLimit;
    for (int i = 1; i < count; ++i) {
        if (std::wstring(texts[i]) == L"--seconds" && i + 1 < count) {
            limit = std::chrono::seconds(_wtoi(texts[++i]));
        } else {
            arguments.emplace_back(texts[i]);
        }
    }
    LocalFree(texts);
    return Commands(limit).Run(arguments);
}
