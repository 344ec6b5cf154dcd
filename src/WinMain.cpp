#include <windows.h>

#include <cstdlib>

#include "app/basKorvanta.h"
#include "platform/win32/calls/LibrarySearch.h"
#include "platform/win32/peers/WindowsPeerFactory.h"
#include "platform/win32/services/WindowsPlatform.h"
#include "translation/CatalogueTranslator.h"

// Replaces the standard library's handler of uncaught exceptions. That one writes the exception's type to an error
// output that this program does not have, and its code would be a twentieth of the program.
namespace __gnu_cxx {
void __verbose_terminate_handler() {
    std::abort();
}
}  // namespace __gnu_cxx

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    korvanta::SearchLibrariesInSystemFolder();
    korvanta::WindowsPlatform windows;
    const std::unique_ptr<korvanta::PeerFactory> peers =
        korvanta::MakeWindowsPeerFactory(windows.Loop(), windows.Dialogs(), windows.DialogFonts(), windows.BoxGuard());
    korvanta::CatalogueTranslator translator(windows.Services().files);
    korvanta::basKorvanta program(windows.Services(), peers.get(), translator);
    if (program.Main()) {
        windows.Services().messageLoop.Run();
    }
    return 0;
}
