#include <windows.h>

#include "app/PlainTranslator.h"
#include "app/basKorvanta.h"
#include "platform/win32/WindowsPeerFactory.h"
#include "platform/win32/WindowsPlatform.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    korvanta::WindowsPlatform windows;
    korvanta::WindowsPeerFactory peers(windows.Loop(), windows.Dialogs(), windows.DialogFonts());
    korvanta::PlainTranslator translator;
    korvanta::basKorvanta program(windows.Services(), &peers, translator);
    if (program.Main()) {
        windows.Loop().Run();
    }
    return 0;
}
