#include "platform/win32/peers/WindowsPictures.h"

#include <algorithm>

#include "platform/win32/peers/Colors.h"
#include "platform/win32/peers/Icons.h"
#include "platform/win32/resources/Resources.h"

namespace korvanta {

namespace {

constexpr DWORD leastPause = 50;  // milliseconds between two paintings of a bar that moves

}  // namespace

WindowsImage::WindowsImage(Image& image, HostWindow& host) : ControlWindow(image, host), image_(image) {
    Create(L"STATIC", SS_ICON | SS_CENTERIMAGE);
    ShowPicture();
}

void WindowsImage::ShowPlace() {
    ControlWindow::ShowPlace();
    ShowPicture();
}

void WindowsImage::ShowPicture() {
    const RECT place = PixelPlace(UsedFonts(), image_.Position());
    const int size = std::min(place.right - place.left, place.bottom - place.top);
    if (size <= 0) {
        return;
    }
    const int resource = image_.Shows() == Picture::Program ? KORVANTA_PROGRAM_ICON : KORVANTA_MAIN_ACCOUNT_ICON;
    IconHandle icon = LoadProgramIcon(resource, size, size);
    Send(STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()));
    icon_ = std::move(icon);
}

WindowsLine::WindowsLine(Line& line, HostWindow& host) : ControlWindow(line, host), line_(line) {
    Create(L"STATIC", SS_LEFT);
    WindowsLine::ShowPlace();
}

HBRUSH WindowsLine::Colors(HDC /*context*/) {
    return ColorBrush(line_.ForeColor(), color_);
}

void WindowsLine::ShowPlace() {
    const RECT place = PixelPlace(UsedFonts(), line_.Position());
    ::SetWindowPos(Window(), nullptr, place.left, place.top, place.right - place.left, 1,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

WindowsProgressBar::WindowsProgressBar(ProgressBar& progressBar, HostWindow& host)
    : ControlWindow(progressBar, host), progressBar_(progressBar) {
    Create(PROGRESS_CLASSW, 0);
}

void WindowsProgressBar::Changed(Aspect aspect) {
    if (aspect == Aspect::Content || aspect == Aspect::Selection) {
        stale_ = true;
        if (::GetTickCount() - lastShown_ >= leastPause) {
            Invalidate();
        }
    } else {
        ControlWindow::Changed(aspect);
    }
}

LRESULT WindowsProgressBar::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool shows = message == WM_PAINT || message == WM_PRINT;
    if (stale_ && (shows || message == PBM_GETPOS || message == PBM_GETRANGE)) {
        stale_ = false;
        lastShown_ = ::GetTickCount();
        Send(PBM_SETRANGE32, 0, progressBar_.Maximum());
        Send(PBM_SETPOS, static_cast<WPARAM>(progressBar_.Value()));
    }
    return ControlWindow::Procedure(message, wParam, lParam);
}

}  // namespace korvanta
