#pragma once

#include "platform/Shell.h"

namespace korvanta {

class WindowsShell : public Shell {
  public:
    bool OpenDocument(const std::u16string& path) override;
    bool AddTrayIcon(const TrayIcon& icon) override;
    bool DeleteTrayIcon(const TrayIcon& icon) override;
};

}  // namespace korvanta
