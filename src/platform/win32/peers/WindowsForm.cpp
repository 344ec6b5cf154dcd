#include "platform/win32/peers/WindowsForm.h"

#include <algorithm>

#include "platform/win32/calls/LateCall.h"
#include "platform/win32/calls/PlainWindows.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"
#include "platform/win32/peers/ControlWindow.h"
#include "platform/win32/peers/FormSupport.h"
#include "platform/win32/peers/Icons.h"
#include "platform/win32/resources/Resources.h"
#include "platform/win32/services/DialogWindows.h"
#include "platform/win32/services/Fonts.h"
#include "platform/win32/services/WindowsMessageLoop.h"
#include "platform/win32/services/WindowsScreen.h"

namespace korvanta {

namespace {

constexpr int noEntry = -1;

DWORD Style(const Form& form) {
    constexpr DWORD fixedDialog = WS_CAPTION | WS_SYSMENU;
    return (form.Border() == BorderStyle::Sizable ? static_cast<DWORD>(WS_OVERLAPPEDWINDOW) : fixedDialog) |
           WS_CLIPCHILDREN;
}

DWORD ExtendedStyle(const Form& form) {
    return WS_EX_CONTROLPARENT |
           (form.Border() == BorderStyle::FixedDialog ? static_cast<DWORD>(WS_EX_DLGMODALFRAME) : 0U);
}

BOOL CALLBACK RenewFonts(HWND window, LPARAM /*parameter*/) {
    if (ControlWindow* control = ControlWindow::Of(window)) {
        control->FontsChanged();
    }
    return TRUE;
}

}  // namespace

WindowsForm::WindowsForm(Form& form, std::shared_ptr<ProgramWindows> program)
    : form_(form),
      windows_(std::make_shared<FormWindows>(std::move(program))),
      taskbarCreated_(textCalls::RegisterMessage(L"TaskbarCreated")) {
    CreateFormWindow();
    ReportPlace();
}

void WindowsForm::CreateFormWindow() {
    ProgramWindows& program = *windows_->program;
    const std::u16string className = u"Korvanta." + form_.Name();
    RegisterPlainClass(className, &WindowsForm::EveryMessage);
    const DWORD style = Style(form_);
    const DWORD extendedStyle = ExtendedStyle(form_);
    RECT window{0, 0, program.fonts.Pixels(form_.ClientWidth()), program.fonts.Pixels(form_.ClientHeight())};
    ::AdjustWindowRectEx(&window, style, FALSE, extendedStyle);
    const Place& place = form_.Position();
    const bool sized = place.width > 0 && place.height > 0;
    const int width = sized ? program.fonts.Pixels(place.width) : static_cast<int>(window.right - window.left);
    const int height = sized ? program.fonts.Pixels(place.height) : static_cast<int>(window.bottom - window.top);
    const HWND owner = form_.ShowInTaskbar() ? nullptr : OwnerOfFormsWithoutButton(program);
    windows_->window = textCalls::MakeWindow(extendedStyle, textCalls::Wide(className), form_.Caption(), style,
                                             program.fonts.Pixels(place.left), program.fonts.Pixels(place.top), width,
                                             height, owner, nullptr, nullptr);
    const HWND handle = windows_->window;
    if (!handle) {
        return;
    }
    textCalls::SetWindowData(handle, GWL_USERDATA, reinterpret_cast<LONG>(this));
    NameWindow(handle, form_.Name());
    ShowIcons();
    ::EnableWindow(handle, form_.Enabled());
    program.forms.push_back(handle);
    program.dialogs.Add(handle, [this](const MSG& input) { return KeepsOut(input) || SwitchesTab(input); });
    WindowsForm::Changed(Aspect::TopMost);
    FollowScreen();
}

void WindowsForm::ShowIcons() {
    const Fonts& fonts = windows_->program->fonts;
    IconHandle big = LoadProgramIcon(KORVANTA_PROGRAM_ICON, fonts.Metric(SM_CXICON), fonts.Metric(SM_CYICON));
    IconHandle small = LoadProgramIcon(KORVANTA_PROGRAM_ICON, fonts.Metric(SM_CXSMICON), fonts.Metric(SM_CYSMICON));
    textCalls::Send(windows_->window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(big.Get()));
    textCalls::Send(windows_->window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
    bigIcon_ = std::move(big);
    smallIcon_ = std::move(small);
}

void WindowsForm::FollowScreen() {
    using DpiCall = UINT(WINAPI*)(HWND);
    const auto dpiForWindow = LateCall<DpiCall>("user32.dll", "GetDpiForWindow");
    const UINT dotsPerInch = dpiForWindow ? dpiForWindow(windows_->window) : 0;
    if (dotsPerInch != 0) {
        ChangeResolution(static_cast<int>(dotsPerInch));
    }
}

// All windows of the program have one resolution: that of the screen to which a window has moved last, since that is
// the window that the user looks at.
void WindowsForm::ChangeResolution(int dotsPerInch) {
    ProgramWindows& program = *windows_->program;
    if (program.fonts.DotsPerInch() == dotsPerInch) {
        return;
    }
    program.fonts.ChangeResolution(dotsPerInch);
    const std::vector<HWND> forms = program.forms;
    for (const HWND window : forms) {
        if (auto* form = reinterpret_cast<WindowsForm*>(textCalls::WindowData(window, GWL_USERDATA))) {
            form->FontsChanged();
        }
    }
}

// Keeps the form's size in inches, so that it shows as much as before.
void WindowsForm::FontsChanged() {
    const Place before = form_.Position();
    const HWND handle = windows_->window;
    ShowIcons();
    ::EnumChildWindows(handle, &RenewFonts, 0);
    const Fonts& fonts = windows_->program->fonts;
    if (!::IsIconic(handle) && !::IsZoomed(handle)) {
        const ReentryFlag::Scope placing(placing_);
        ::SetWindowPos(handle, nullptr, 0, 0, fonts.Pixels(before.width), fonts.Pixels(before.height),
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ReportPlace();
    form_.HandleFontsChanged();
    Repaint();
}

WindowsForm::~WindowsForm() {
    if (modal_) {
        modal_->End();
    }
    const HWND handle = windows_->window;
    if (!handle) {
        return;
    }
    windows_->program->dialogs.Remove(handle);
    std::erase(windows_->program->forms, handle);
    UnnameWindow(handle, form_.Name());
    textCalls::SetWindowData(handle, GWL_USERDATA, 0);
    windows_->window = nullptr;
    // The window can live a little longer than this object, which destroys the icons.
    textCalls::Send(handle, WM_SETICON, ICON_BIG, 0);
    textCalls::Send(handle, WM_SETICON, ICON_SMALL, 0);
    EndWindow(handle, *windows_);
}

void WindowsForm::Changed(Aspect aspect) {
    switch (aspect) {
        case Aspect::Caption:
            textCalls::SetText(windows_->window, form_.Caption());
            break;
        case Aspect::Enabled:
            ::EnableWindow(windows_->window, form_.Enabled());
            break;
        case Aspect::Place:
            ShowPlace();
            break;
        case Aspect::Colors:
            Repaint();
            break;
        case Aspect::Pointer:
            ShowPointer();
            break;
        case Aspect::TopMost:
            ::SetWindowPos(windows_->window, form_.TopMost() ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            break;
        default:
            break;
    }
}

void WindowsForm::TakeFocus() {
    ::SetFocus(windows_->window);
}

void WindowsForm::Repaint() {
    if (windows_->window) {
        ::RedrawWindow(windows_->window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
}

void WindowsForm::Show() {
    const HWND handle = windows_->window;
    FollowScreen();
    if (!wasShown_) {
        wasShown_ = true;
        // As dialogs do: underlines access keys from the start when the user has last used the keyboard.
        textCalls::Send(handle, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0));
    }
    ::ShowWindow(handle, ::IsIconic(handle) ? SW_RESTORE : SW_SHOW);
    if (!::IsWindowVisible(handle) || ::IsIconic(handle)) {
        // Windows replaces the first ShowWindow of a program by what its starter asked for: hidden or minimized.
        ::ShowWindow(handle, SW_SHOWNORMAL);
    }
}

void WindowsForm::Modal::End() {
    if (!over) {
        over = true;
        for (const HWND window : disabled) {
            ::EnableWindow(window, TRUE);
        }
    }
}

void WindowsForm::ShowModal() {
    const auto modal = std::make_shared<Modal>();
    for (const HWND other : windows_->program->forms) {
        if (other != windows_->window && ::IsWindowVisible(other) && ::IsWindowEnabled(other)) {
            modal->disabled.push_back(other);
        }
    }
    for (const HWND other : modal->disabled) {
        ::EnableWindow(other, FALSE);
    }
    modal_ = modal;
    const std::shared_ptr<ProgramWindows> program = windows_->program;
    Show();
    program->messageLoop.RunWhile([&modal] { return !modal->over; });
    modal->End();
}

void WindowsForm::Hide() {
    if (modal_) {
        // Enable the other windows first: if none of them could be activated, Windows would activate another program.
        modal_->End();
        modal_.reset();
    }
    ::ShowWindow(windows_->window, SW_HIDE);
}

void WindowsForm::BringToForeground() {
    ::SetForegroundWindow(windows_->window);
}

void WindowsForm::Flash() {
    ::FlashWindow(windows_->window, TRUE);
}

void WindowsForm::ShowPopup(PopupMenu& menu) {
    const MenuHandle handle(::CreatePopupMenu());
    FillMenu(handle.Get(), menu);
    POINT pointer{};
    ::GetCursorPos(&pointer);
    menu_ = &menu;
    chosenEntry_ = noEntry;
    const std::shared_ptr<FormWindows> windows = windows_;
    int identifier = 0;
    {
        const ReentryFlag::Scope menuIsUp(menuIsUp_);
        identifier = ::TrackPopupMenu(handle.Get(), TPM_RIGHTBUTTON | TPM_RETURNCMD | TPM_NONOTIFY, pointer.x,
                                      pointer.y, 0, windows_->window, nullptr);
    }
    if (!windows->window) {
        return;  // the form has gone meanwhile
    }
    ChooseEntry(identifier != 0 ? identifier - firstMenuIdentifier : chosenEntry_);
}

void WindowsForm::ChooseEntry(int position) {
    const PopupMenu* menu = menu_ ? menu_ : MenuOfForm();
    if (menu && position >= 0 && position < static_cast<int>(menu->Children().size())) {
        auto* entry = dynamic_cast<MenuEntry*>(menu->Children()[static_cast<std::size_t>(position)]);
        if (entry && entry->Enabled()) {
            entry->HandleClick();
        }
    }
}

PopupMenu* WindowsForm::MenuOfForm() const {
    for (Control* child : form_.Children()) {
        if (auto* menu = dynamic_cast<PopupMenu*>(child)) {
            return menu;
        }
    }
    return nullptr;
}

void WindowsForm::PaintBackground(HDC context) const {
    RECT area{};
    ::GetClientRect(windows_->window, &area);
    BrushHandle keeper;
    ::FillRect(context, &area, ColorBrush(form_.BackColor(), keeper));
}

void WindowsForm::ReportPlace() {
    const HWND handle = windows_->window;
    if (!handle || ::IsIconic(handle)) {
        return;
    }
    RECT window{};
    RECT client{};
    ::GetWindowRect(handle, &window);
    ::GetClientRect(handle, &client);
    if (::IsZoomed(handle)) {
        // The frame of a maximized window lies outside the screen.
        const RECT area = MonitorWorkArea(window);
        ::IntersectRect(&window, &window, &area);
    }
    const Fonts& fonts = windows_->program->fonts;
    form_.HandlePlace({fonts.Twips(window.left), fonts.Twips(window.top), fonts.Twips(window.right - window.left),
                       fonts.Twips(window.bottom - window.top)},
                      fonts.Twips(client.right), fonts.Twips(client.bottom));
}

void WindowsForm::ShowPlace() {
    const HWND handle = windows_->window;
    const Fonts& fonts = windows_->program->fonts;
    const Place& place = form_.Position();
    if (::IsIconic(handle) || ::IsZoomed(handle)) {
        ::ShowWindow(handle, ::IsWindowVisible(handle) ? SW_RESTORE : SW_HIDE);
    }
    const ReentryFlag::Scope placing(placing_);
    ::SetWindowPos(handle, nullptr, fonts.Pixels(place.left), fonts.Pixels(place.top), fonts.Pixels(place.width),
                   fonts.Pixels(place.height), SWP_NOZORDER | SWP_NOACTIVATE);
}

// Windows asks for the pointer only when the mouse moves, so this asks in its place.
void WindowsForm::ShowPointer() const {
    windows_->hourglass = form_.Pointer() == MousePointer::Hourglass;
    POINT pointer{};
    ::GetCursorPos(&pointer);
    const HWND below = ::WindowFromPoint(pointer);
    if (below && (below == windows_->window || ::IsChild(windows_->window, below))) {
        textCalls::Send(below, WM_SETCURSOR, reinterpret_cast<WPARAM>(below), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    }
}

void WindowsForm::SaveFocus() {
    const HWND focus = ::GetFocus();
    if (focus && ::IsChild(windows_->window, focus)) {
        focus_ = focus;
    }
}

void WindowsForm::RestoreFocus() {
    const HWND handle = windows_->window;
    const bool usable = focus_ && ::IsChild(handle, focus_) && ::IsWindowVisible(focus_) && ::IsWindowEnabled(focus_);
    const HWND target = usable ? focus_ : ::GetNextDlgTabItem(handle, nullptr, FALSE);
    if (!target) {
        return;
    }
    ::SetFocus(target);
    if (!usable) {
        SelectWholeText(target);
    }
}

void WindowsForm::MoveFocus(HWND control) {
    if (!control) {
        return;
    }
    SelectWholeText(control);
    if (::GetActiveWindow() == windows_->window) {
        ::SetFocus(control);
    } else {
        focus_ = control;
    }
}

}  // namespace korvanta
