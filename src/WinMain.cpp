#include <windows.h>

#include <cstdlib>

#include "app/basKorvanta.h"
#include "platform/win32/calls/LibrarySearch.h"
#include "platform/win32/peers/WindowsPeerFactory.h"
#include "platform/win32/services/WindowsPlatform.h"
#include "translation/CatalogueTranslator.h"

// The library's own handler spells out the exception's type, with code that is a twentieth of the program, to an error
// output that a program with windows does not have.
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
