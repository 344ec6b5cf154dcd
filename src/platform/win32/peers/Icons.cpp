#include "platform/win32/peers/Icons.h"

namespace korvanta {

IconHandle LoadProgramIcon(int resource, int width, int height) {
    return IconHandle(static_cast<HICON>(
        ::LoadImageA(::GetModuleHandleA(nullptr), MAKEINTRESOURCEA(resource), IMAGE_ICON, width, height, 0)));
}

}  // namespace korvanta
