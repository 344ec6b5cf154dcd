#include "ui/AccountNumberForm.h"

#include <algorithm>

namespace korvanta {

namespace {

constexpr int margin = Measures::margin;
constexpr int gap = Measures::gap;
constexpr int smallGap = Measures::smallGap;
constexpr int checkBoxRoom = 330;
constexpr int tabRoom = 240;
// Captions that are longer than so many letters on average are cut off.
constexpr std::size_t longestLabel = 50;
constexpr std::size_t longestLink = 75;
constexpr std::size_t longestCheckBox = 100;
constexpr std::size_t longestShortText = 35;  // of captions that share their row with two others
constexpr std::size_t longestTabs = 130;      // Windows adds arrows that scroll to the others
constexpr int longestInvoiceLabel = 6000;
constexpr int rateWidth = 2400;
constexpr int progressWidth = 1800;
constexpr int smallestField = 1800;
constexpr int smallestList = 1800;
constexpr int firstWidth = 8700;
constexpr int firstHeight = 7800;
// The most that the window's frame and caption add to the client area.
constexpr int frameWidth = 300;
constexpr int frameHeight = 600;

void Put(Control& control, const Place& place) {
    control.Move({place.left, place.top, std::max(place.width, 0), std::max(place.height, 0)});
}

}  // namespace

AccountNumberForm::AccountNumberForm(TextMeasure& textMeasure, Translator& translator,
                                     const BannerServices& bannerServices)
    : Form(u"frmAccountNumber"),
      ctlBanner1(u"ctlBanner1", bannerServices),
      ctlAccountListAll(u"ctlAccountListAll", translator),
      ctlAccountListPreferred(u"ctlAccountListPreferred", translator),
      ctlAccountListRecent(u"ctlAccountListRecent", translator),
      textMeasure_(textMeasure),
      measures_(textMeasure) {
    GuardsKeys(true);
    SetCaptions();
    AddControls();
    for (Label* label : {&lblDocument, &lblPrinter}) {
        label->Bold(true);
        label->AccessKey(false);
    }
    lblJobsQueued.Bold(true);
    lblJobsQueued.Align(Alignment::Right);
    lblJobsQueued.ShowsData(true);
    for (Label* label : {&lblAddPreferred, &lblRemovePreferred, &lblMoveUp, &lblMoveDown}) {
        label->Clickable(true);
        label->ForeColor(systemColor::hotLight);
    }
    lblPreferredList.Bold(true);
    lblViews.Visible(false);
    lblCommentMandatory.Visible(false);
    prgSearch.Visible(false);
    fraPreferred.Visible(false);
    fraRecent.Visible(false);
    cmdOK.Default(true);
    tmrMonitor.Interval(1000);
    tmrFlash.Interval(1000);
    tmrSearch.Interval(100);
    ChooseFirstSize();
}

void AccountNumberForm::ChooseFirstSize() {
    Measure();
    ClientSize(std::max(firstWidth, smallestWidth_), std::max(firstHeight, smallestHeight_));
}

void AccountNumberForm::SetCaptions() {
    Caption(u"Korvanta - Account Selection");
    ctlBanner1.ReadProperties(
        {{u"Title", u"Account selection"}, {u"Description", u"Choose the account to charge this document to."}});
    lblDocumentCaption.Caption(u"Document:");
    lblPrinterCaption.Caption(u"Printer:");
    lblJobsQueuedCaption.Caption(u"Jobs queued:");
    lblJobsQueued.Caption(u"0");
    chkSubmitAllDocuments.Caption(u"Charge all &queued documents to the selected account");
    lblViews.Caption(u"Lists of accounts");
    tabView.Tabs({u"&All accounts", u"&Preferred", u"&Recent"});
    lblSearch.Caption(u"&Search:");
    chkRememberSearch.Caption(u"Re&member search");
    lblAddPreferred.Caption(u"Add selected account to preferred list");
    lblPreferredList.Caption(u"Preferred list");
    lblRemovePreferred.Caption(u"Remove selected account from preferred list");
    lblMoveUp.Caption(u"Move &up");
    lblMoveDown.Caption(u"Move &down");
    lblComment.Caption(u"&Comment:");
    chkInvoice.Caption(u"Show on &invoice");
    lblChargeRate.Caption(u"Charge ra&te:");
    cmdOK.Caption(u"OK");
    cmdCancel.Caption(u"Cancel");
    lblCommentMandatory.Caption(u"The selected account requires a comment. Please enter a comment.");
}

void AccountNumberForm::AddControls() {
    for (Control* control : std::initializer_list<Control*>{&ctlBanner1,     &lblDocumentCaption,
                                                            &lblDocument,    &lblPrinterCaption,
                                                            &lblPrinter,     &lblJobsQueuedCaption,
                                                            &lblJobsQueued,  &chkSubmitAllDocuments,
                                                            &lblViews,       &tabView,
                                                            &fraAllAccounts, &fraPreferred,
                                                            &fraRecent,      &lblComment,
                                                            &txtComment,     &chkInvoice,
                                                            &lblChargeRate,  &cboChargeRate,
                                                            &hlnButtons,     &cmdOK,
                                                            &cmdCancel,      &lblCommentMandatory,
                                                            &tmrMonitor,     &tmrFlash,
                                                            &tmrSearch}) {
        Add(*control);
    }
    for (Control* control : std::initializer_list<Control*>{&lblSearch, &txtSearch, &chkRememberSearch,
                                                            &ctlAccountListAll, &lblAddPreferred, &prgSearch}) {
        fraAllAccounts.Add(*control);
    }
    for (Control* control : std::initializer_list<Control*>{&lblPreferredList, &ctlAccountListPreferred,
                                                            &lblRemovePreferred, &lblMoveUp, &lblMoveDown}) {
        fraPreferred.Add(*control);
    }
    fraRecent.Add(ctlAccountListRecent);
}

void AccountNumberForm::OnResize() {
    Measure();
    Put(ctlBanner1, {0, 0, ClientWidth(), ctlBanner1.Position().height});
    const int top = ArrangeJob(ctlBanner1.Position().Bottom() + gap);
    const int bottom = ArrangeCompletion();
    ArrangeTabs(top, bottom);
}

void AccountNumberForm::OnFontsChanged() {
    ctlBanner1.Measure();
    OnResize();
}

// The document, its printer and the queue; returns where the next block may begin.
int AccountNumberForm::ArrangeJob(int top) {
    const int right = ClientWidth() - margin;
    const int captionWidth = std::max(TextWidth(lblDocumentCaption), TextWidth(lblPrinterCaption));
    const int valueLeft = margin + captionWidth + gap;
    Put(lblDocumentCaption, {margin, top, captionWidth, line_});
    Put(lblDocument, {valueLeft, top, right - valueLeft, line_});

    top += line_ + smallGap;
    const int countWidth = CountWidth();
    const int queuedWidth = TextWidth(lblJobsQueuedCaption);
    Put(lblJobsQueued, {right - countWidth, top, countWidth, line_});
    Put(lblJobsQueuedCaption, {right - countWidth - smallGap - queuedWidth, top, queuedWidth, line_});
    Put(lblPrinterCaption, {margin, top, captionWidth, line_});
    Put(lblPrinter, {valueLeft, top, lblJobsQueuedCaption.Position().left - gap - valueLeft, line_});

    top += line_ + smallGap;
    Put(chkSubmitAllDocuments, {margin, top, CheckWidth(chkSubmitAllDocuments), line_ + 30});
    return chkSubmitAllDocuments.Position().Bottom() + gap;
}

// Comment, invoice, rate and the buttons, from the bottom up; returns where they begin.
int AccountNumberForm::ArrangeCompletion() {
    const int right = ClientWidth() - margin;
    int top = ClientHeight() - margin - field_;
    measures_.PlaceButtons(cmdOK, cmdCancel, right, top);
    Put(lblCommentMandatory, {margin, top, 0, line_});

    top -= gap + hlnButtons.Position().height;
    Put(hlnButtons, {margin, top, right - margin, hlnButtons.Position().height});

    top -= gap + field_;
    const int rateLeft = right - rateWidth;
    const int rateCaptionWidth = TextWidth(lblChargeRate);
    const int textTop = top + (field_ - line_) / 2;
    Put(cboChargeRate, {rateLeft, top, rateWidth, field_});
    Put(lblChargeRate, {rateLeft - gap - rateCaptionWidth, textTop, rateCaptionWidth, line_});
    const int invoiceRoom = lblChargeRate.Position().left - gap - margin;
    Put(chkInvoice, {margin, textTop - 15, std::min(CheckWidth(chkInvoice), invoiceRoom), line_ + 30});

    top -= gap + field_;
    const int commentWidth = TextWidth(lblComment);
    Put(lblComment, {margin, top + (field_ - line_) / 2, commentWidth, line_});
    const int commentLeft = margin + commentWidth + gap;
    Put(txtComment, {commentLeft, top, right - commentLeft, field_});
    return top - gap;
}

void AccountNumberForm::ArrangeTabs(int top, int bottom) {
    const int width = ClientWidth() - 2 * margin;
    Put(tabView, {margin, top, width, bottom - top});
    const int header = tabView.HeaderHeight();
    const Place page{margin + gap, top + header + gap, width - 2 * gap, bottom - top - header - 2 * gap};
    Put(fraAllAccounts, page);
    Put(fraPreferred, page);
    Put(fraRecent, page);
    ArrangeAllAccounts(page);
    ArrangePreferred(page);
    Put(ctlAccountListRecent, {0, 0, page.width, page.height});
}

void AccountNumberForm::ArrangeAllAccounts(const Place& page) {
    const int searchWidth = TextWidth(lblSearch);
    const int rememberWidth = CheckWidth(chkRememberSearch);
    const int textTop = (field_ - line_) / 2;
    Put(lblSearch, {0, textTop, searchWidth, line_});
    const int boxLeft = searchWidth + gap;
    Put(txtSearch, {boxLeft, 0, page.width - boxLeft - gap - rememberWidth, field_});
    Put(chkRememberSearch, {page.width - rememberWidth, textTop - 15, rememberWidth, line_ + 30});

    const int linkTop = page.height - line_ - 30;
    const int listTop = field_ + gap;
    Put(ctlAccountListAll, {0, listTop, page.width, linkTop - smallGap - listTop});
    Put(lblAddPreferred, {0, linkTop, TextWidth(lblAddPreferred), line_ + 30});
    Put(prgSearch, {page.width - progressWidth, linkTop, progressWidth, line_ + 30});
}

void AccountNumberForm::ArrangePreferred(const Place& page) {
    const int linkTop = page.height - line_ - 30;
    Put(lblPreferredList, {0, 0, page.width, line_});
    const int listTop = line_ + smallGap;
    Put(ctlAccountListPreferred, {0, listTop, page.width, linkTop - smallGap - listTop});
    Put(lblRemovePreferred, {0, linkTop, TextWidth(lblRemovePreferred), line_ + 30});
    const int downWidth = TextWidth(lblMoveDown);
    const int upWidth = TextWidth(lblMoveUp);
    Put(lblMoveDown, {page.width - downWidth, linkTop, downWidth, line_ + 30});
    Put(lblMoveUp, {page.width - downWidth - 2 * gap - upWidth, linkTop, upWidth, line_ + 30});
}

// Computes the heights of rows and the least size that shows everything, for the current font and captions.
void AccountNumberForm::Measure() {
    line_ = measures_.LineHeight();
    field_ = measures_.FieldHeight();

    int tabs = 0;
    for (const std::u16string& caption : tabView.Tabs()) {
        tabs += textMeasure_.Width(caption, false) + tabRoom;
    }
    const int searchRow = TextWidth(lblSearch) + gap + smallestField + gap + CheckWidth(chkRememberSearch);
    const int addRow = TextWidth(lblAddPreferred) + gap + progressWidth;
    const int moveRow = TextWidth(lblRemovePreferred) + gap + TextWidth(lblMoveUp) + 2 * gap + TextWidth(lblMoveDown);
    const int page = std::max({searchRow, addRow, moveRow, TextWidth(lblPreferredList)}) + 2 * gap;
    tabs = std::min(tabs, textMeasure_.LettersWidth(longestTabs));

    const int printerRow = std::max(TextWidth(lblDocumentCaption), TextWidth(lblPrinterCaption)) + gap + smallestField +
                           gap + TextWidth(lblJobsQueuedCaption) + smallGap + CountWidth();
    const int commentRow = TextWidth(lblComment) + gap + smallestField;
    const int rateRow = CheckWidth(chkInvoice) + gap + TextWidth(lblChargeRate) + gap + rateWidth;
    const int buttonRow = 2 * measures_.ButtonWidth(cmdOK, cmdCancel) + gap;
    const int rows =
        std::max({tabs, page, printerRow, CheckWidth(chkSubmitAllDocuments), commentRow, rateRow, buttonRow});
    smallestWidth_ = std::max(rows + 2 * margin, ctlBanner1.SmallestWidth());

    const int job = gap + 2 * (line_ + smallGap) + line_ + 30 + gap;
    const int tab = tabView.HeaderHeight() + 2 * gap + field_ + gap + smallestList + smallGap + line_ + 30;
    const int completion = gap + 2 * (field_ + gap) + hlnButtons.Position().height + gap + field_ + margin;
    smallestHeight_ = ctlBanner1.Position().height + job + tab + completion;
    MinimumSize(smallestWidth_ + frameWidth, smallestHeight_ + frameHeight);
}

int AccountNumberForm::CountWidth() const {
    return textMeasure_.Width(u"00000", true) + Measures::slack;
}

int AccountNumberForm::TextWidth(const Label& label) const {
    const bool isShort = &label == &lblMoveUp || &label == &lblMoveDown;
    const std::size_t longest = isShort ? longestShortText : label.Clickable() ? longestLink : longestLabel;
    return measures_.CaptionWidth(label, longest);
}

int AccountNumberForm::CheckWidth(const CheckBox& checkBox) const {
    const int width = textMeasure_.Width(checkBox.Caption(), false) + checkBoxRoom;
    if (&checkBox == &chkInvoice) {
        return std::min(width, longestInvoiceLabel);
    }
    return std::min(width,
                    textMeasure_.LettersWidth(&checkBox == &chkRememberSearch ? longestShortText : longestCheckBox));
}

}  // namespace korvanta
