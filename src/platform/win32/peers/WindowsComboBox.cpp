#include "platform/win32/peers/WindowsComboBox.h"

#include <algorithm>

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr WPARAM closedField = static_cast<WPARAM>(-1);
constexpr int mostDroppedLines = 12;

}  // namespace

WindowsComboBox::WindowsComboBox(ComboBox& comboBox, HostWindow& host)
    : ControlWindow(comboBox, host), comboBox_(comboBox) {
    Create(L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP);
    ShowItems();
}

void WindowsComboBox::Changed(Aspect aspect) {
    if (aspect == Aspect::Content) {
        ShowItems();
    } else if (aspect == Aspect::Selection) {
        ShowListIndex();
    } else {
        ControlWindow::Changed(aspect);
    }
}

void WindowsComboBox::Commanded(int code) {
    if (code == CBN_SELCHANGE) {
        comboBox_.HandleChange(static_cast<int>(Send(CB_GETCURSEL)));
    }
}

void WindowsComboBox::ShowItems() {
    Send(CB_RESETCONTENT);
    for (const std::u16string& item : comboBox_.Items()) {
        textCalls::SendText(Window(), CB_ADDSTRING, 0, item);
    }
    ShowListIndex();
    ShowPlace();
    FitDroppedWidth();
}

void WindowsComboBox::FontsChanged() {
    ControlWindow::FontsChanged();
    FitDroppedWidth();
}

void WindowsComboBox::ShowListIndex() const {
    Send(CB_SETCURSEL, static_cast<WPARAM>(comboBox_.ListIndex()));
}

// The control's place is the place of the closed box. The height of the window, however, includes the dropped list, and
// the height of the closed box follows from the height of its line.
void WindowsComboBox::ShowPlace() {
    const RECT place = PixelPlace(UsedFonts(), comboBox_.Position());
    const int height = place.bottom - place.top;
    const int lines = std::clamp(static_cast<int>(comboBox_.Items().size()), 1, mostDroppedLines);
    const int dropped = lines * static_cast<int>(Send(CB_GETITEMHEIGHT, 0)) + 2 * ::GetSystemMetrics(SM_CYBORDER);
    ::SetWindowPos(Window(), nullptr, place.left, place.top, place.right - place.left, height + dropped,
                   SWP_NOZORDER | SWP_NOACTIVATE);
    // The frame around the line differs between versions of Windows, so the height is set, measured and corrected.
    int line = static_cast<int>(Send(CB_GETITEMHEIGHT, closedField));
    for (int attempt = 0; attempt < 2; ++attempt) {
        RECT window{};
        ::GetWindowRect(Window(), &window);
        const int missing = height - (window.bottom - window.top);
        if (missing == 0 || line + missing <= 0) {
            break;
        }
        line += missing;
        Send(CB_SETITEMHEIGHT, closedField, line);
    }
}

// Makes the dropped list as wide as its longest item.
void WindowsComboBox::FitDroppedWidth() const {
    const ScreenContext screen(::GetDC(nullptr));
    const Selection font(screen.Get(), UsedFonts().Normal());
    int widest = 0;
    for (const std::u16string& item : comboBox_.Items()) {
        widest = std::max(widest, static_cast<int>(textCalls::TextExtent(screen.Get(), item).cx));
    }
    const int frame = ::GetSystemMetrics(SM_CXVSCROLL) + 4 * ::GetSystemMetrics(SM_CXEDGE);
    Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest + frame));
}

}  // namespace korvanta
