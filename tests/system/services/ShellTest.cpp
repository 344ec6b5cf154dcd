#include "platform/win32/services/WindowsShell.h"

#include "TestWindow.h"

namespace korvanta {
namespace {

TEST(ShellTests, AMissingDocumentIsAFailure) {
    WindowsShell shell;
    EXPECT_FALSE(shell.OpenDocument(u"C:\\no such folder\\no such file.htm"));
}

TEST(ShellTests, AnIconIsAddedOnceAndDeletedOnce) {
    const TestWindow window;
    WindowsShell shell;
    const TrayIcon icon{reinterpret_cast<WindowId>(window.Get()), 1, 7, WM_MOUSEMOVE,
                        u"Größe " + std::u16string(100, u'x')};
    EXPECT_TRUE(shell.AddTrayIcon(icon));
    EXPECT_TRUE(shell.DeleteTrayIcon(icon));
    EXPECT_FALSE(shell.DeleteTrayIcon(icon));
}

}  // namespace
}  // namespace korvanta
