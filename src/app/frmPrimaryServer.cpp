#include "app/frmPrimaryServer.h"

#include <algorithm>

#include "common/LogErrors.h"
#include "common/Text.h"
#include "common/TextStream.h"
#include "server/Shares.h"

namespace korvanta {

namespace {
constexpr int margin = Measures::margin;
constexpr int gap = Measures::gap;
constexpr int wrapSlack = 90;
constexpr int smallestWidth = 7200;
constexpr int smallestField = 2400;
constexpr std::size_t longestCaption = 60;  // in letters
}  // namespace

frmPrimaryServer::frmPrimaryServer(Platform& platform, TraceLog& log, Translator& translator,
                                   clsRegSettings& registrySettings, MessageTexts& messages,
                                   SystemInformation& systemInformation)
    : Form(u"frmPrimaryServer"),
      ctlBanner1(u"ctlBanner1",
                 {platform.files, platform.codePage, platform.shell, platform.textMeasure, registrySettings}),
      platform_(platform),
      measures_(platform.textMeasure),
      log_(log),
      translator_(translator),
      messages_(messages),
      systemInformation_(systemInformation) {
    Border(BorderStyle::FixedDialog);
    Caption(u"Korvanta - Primary Server");
    ctlBanner1.ReadProperties({{u"Title", u"Primary server"},
                               {u"Description", u"The server that tells this computer what to charge, and where."}});
    lblExplanation.Caption(
        u"In order for Account Number tracking to function, Korvanta needs to know the name of the Primary Korvanta "
        u"Server. Please enter this below. If in doubt, contact your system administrator.");
    lblExplanation.Wrap(true);
    lblServer.Caption(u"Primary Korvanta Server:");
    OKButton.Caption(u"OK");
    OKButton.Default(true);
    CancelButton.Caption(u"Cancel");
    for (Control* control : std::initializer_list<Control*>{&ctlBanner1, &lblExplanation, &lblServer, &txtServer,
                                                            &HLine1, &OKButton, &CancelButton}) {
        Add(*control);
    }
    OKButton.Click.Connect(ErrorLoggingHandler(log_, u"frmPrimaryServer:OKButton", *this, &frmPrimaryServer::OK));
    CancelButton.Click.Connect(
        ErrorLoggingHandler(log_, u"frmPrimaryServer:CancelButton", *this, &frmPrimaryServer::Cancel));
    ChooseSize();
}

// Fits the form to its current captions.
void frmPrimaryServer::ChooseSize() {
    const int width = std::max({smallestWidth, ctlBanner1.SmallestWidth(),
                                measures_.CaptionWidth(lblServer, longestCaption) + gap + smallestField + 2 * margin});
    ClientSize(width, ctlBanner1.Position().height + ExplanationHeight(width) + 2 * measures_.FieldHeight() +
                          HLine1.Position().height + 4 * gap + margin);
}

// The height of the whole text, with lines broken between words.
int frmPrimaryServer::ExplanationHeight(int clientWidth) const {
    TextMeasure& measure = platform_.textMeasure;
    // Windows rounds differently and may break a line earlier, so count on slightly less width.
    const int room = clientWidth - 2 * margin - wrapSlack;
    const std::u16string& text = lblExplanation.Caption();
    int lines = 1;
    std::size_t lineStart = 0;
    for (std::size_t end = text.find(u' '); lineStart < text.size(); end = text.find(u' ', end + 1)) {
        const std::size_t wordEnd = std::min(end, text.size());
        const std::size_t wordStart = text.rfind(u' ', wordEnd - 1) + 1;
        if (wordStart > lineStart && measure.Width(text.substr(lineStart, wordEnd - lineStart), false) > room) {
            ++lines;
            lineStart = wordStart;
        }
        if (end == std::u16string::npos) {
            break;
        }
    }
    return lines * measure.LineHeight(false) + gap;
}

void frmPrimaryServer::OnTranslate() {
    translator_.Translate(*this);
    ChooseSize();
}

void frmPrimaryServer::OnLoad() {
    ctlBanner1.Shown();
    txtServer.TakeFocus();
}

void frmPrimaryServer::OnResize() {
    LogErrors(log_, u"frmPrimaryServer:Resize", [this] { PlaceControls(); });
}

void frmPrimaryServer::OnFontsChanged() {
    ctlBanner1.Measure();
    OnResize();
}

void frmPrimaryServer::PlaceControls() {
    const int line = measures_.LineHeight();
    const int field = measures_.FieldHeight();
    const int right = ClientWidth() - margin;
    ctlBanner1.Move({0, 0, ClientWidth(), ctlBanner1.Position().height});
    int top = ctlBanner1.Position().Bottom() + gap;
    lblExplanation.Move({margin, top, right - margin, ExplanationHeight(ClientWidth())});
    top = lblExplanation.Position().Bottom() + gap;
    const int captionWidth = measures_.CaptionWidth(lblServer, longestCaption);
    lblServer.Move({margin, top + (field - line) / 2, captionWidth, line});
    const int boxLeft = margin + captionWidth + gap;
    txtServer.Move({boxLeft, top, right - boxLeft, field});

    const int buttonTop = ClientHeight() - margin - field;
    measures_.PlaceButtons(OKButton, CancelButton, right, buttonTop);
    HLine1.Move({margin, buttonTop - gap - HLine1.Position().height, right - margin, HLine1.Position().height});
}

bool frmPrimaryServer::OnQueryUnload(CloseReason reason) {
    if (reason == CloseReason::Code) {
        return true;
    }
    Cancel();
    if (reason != CloseReason::WindowsSession) {
        return false;
    }
    // The session is ending: end without the message that the server is unknown.
    platform_.messageLoop.Quit();
    return true;
}

void frmPrimaryServer::OK() {
    const std::u16string server = txtServer.Text();
    if (Trim(server).empty()) {
        platform_.messageBoxes.Show(messages_.Text(u"lblEnterPrimaryServer"), messages_.Text(u"lblApplicationTitle"),
                                    MessageButtons::OK, MessageIcon::None);
        return;
    }
    if (!platform_.files.FolderExists(Shares(server).DataFolder())) {
        ShowMessage(u"lblPrimaryServerError");
        return;
    }
    if (!CanCreateNotifications(server)) {
        ShowMessage(u"lblNotificationCreationError");
        return;
    }
    accepted_ = true;
    Hide();
}

void frmPrimaryServer::Cancel() {
    accepted_ = false;
    Hide();
}

// The probe file stays: the share only has to let users create files, not delete them.
bool frmPrimaryServer::CanCreateNotifications(const std::u16string& server) {
    try {
        const std::u16string path = Shares(server).AccountNotificationFile(systemInformation_.ComputerName() + u".tmp");
        TextOutput::OpenAnsi(platform_.files, platform_.codePage, path).Close();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void frmPrimaryServer::ShowMessage(const char16_t* label) {
    platform_.messageBoxes.Show(messages_.Text(label), messages_.Text(u"lblMessageBoxTitle"), MessageButtons::OK,
                                MessageIcon::None);
}

}  // namespace korvanta
