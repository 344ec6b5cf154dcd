// A program with a window that is told of each second and does nothing else: what an idle client is measured against.

#include <windows.h>

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    const HWND window = CreateWindowA("STATIC", "idle", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, instance, nullptr);
    SetTimer(window, 1, 1000, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
    return 0;
}
