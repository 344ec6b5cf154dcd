#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "fakes/FaultPlan.h"
#include "platform/Shell.h"

namespace korvanta::fakes {

// Records which documents were opened, and holds the icons of the notification area.
class FakeShell : public Shell {
  public:
    FaultPlan faults;  // "OpenDocument", "AddTrayIcon", "DeleteTrayIcon"
    std::vector<std::u16string> opened;
    std::vector<TrayIcon> trayIcons;
    // Every icon that was added or deleted, including failed calls.
    std::vector<TrayIcon> added;
    std::vector<TrayIcon> deleted;
    bool hasNotificationArea = true;
    std::function<void(const std::u16string& path)> onOpenDocument;

    bool OpenDocument(const std::u16string& path) override {
        opened.push_back(path);
        if (onOpenDocument) {
            onOpenDocument(path);
        }
        return faults.Check("OpenDocument", path) == 0;
    }
    bool AddTrayIcon(const TrayIcon& icon) override {
        added.push_back(icon);
        if (faults.Check("AddTrayIcon") != 0 || !hasNotificationArea || Find(icon) != trayIcons.end()) {
            return false;
        }
        trayIcons.push_back(icon);
        return true;
    }
    bool DeleteTrayIcon(const TrayIcon& icon) override {
        deleted.push_back(icon);
        const auto found = Find(icon);
        if (faults.Check("DeleteTrayIcon") != 0 || found == trayIcons.end()) {
            return false;
        }
        trayIcons.erase(found);
        return true;
    }

  private:
    std::vector<TrayIcon>::iterator Find(const TrayIcon& icon) {
        return std::find_if(trayIcons.begin(), trayIcons.end(), [&icon](const TrayIcon& other) {
            return other.window == icon.window && other.identifier == icon.identifier;
        });
    }
};

}  // namespace korvanta::fakes
