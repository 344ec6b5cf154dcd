#include "ui/AccountNumberForm.h"

#include <algorithm>

namespace korvanta {

namespace {

constexpr int margin = 180;
constexpr int gap = 105;
constexpr int smallGap = 60;
constexpr int slack = 60;  // beyond a caption's own width, for rounding and focus rectangles
constexpr int checkBoxRoom = 330;
constexpr int buttonWidth = 1260;
constexpr int rateWidth = 2400;
constexpr int progressWidth = 1800;
constexpr int smallestField = 1800;
constexpr int smallestList = 1800;
constexpr int firstWidth = 8700;
constexpr int firstHeight = 7800;

}  // namespace

AccountNumberForm::AccountNumberForm(TextMeasure& textMeasure, Translator& translator,
                                     const BannerServices& bannerServices)
    : Form(u"frmAccountNumber"),
      ctlBanner1(u"ctlBanner1", bannerServices),
      ctlAccountListAll(u"ctlAccountListAll", translator),
      ctlAccountListPreferred(u"ctlAccountListPreferred", translator),
      ctlAccountListRecent(u"ctlAccountListRecent", translator),
      textMeasure_(textMeasure) {
    SetCaptions();
    AddControls();
    for (Label* label : {&lblDocument, &lblPrinter}) {
        label->Bold(true);
        label->AccessKey(false);
    }
    lblJobsQueued.Bold(true);
    for (Label* label : {&lblAddPreferred, &lblRemovePreferred, &lblMoveUp, &lblMoveDown}) {
        label->Clickable(true);
        label->ForeColor(systemColor::hotLight);
    }
    lblPreferredList.Bold(true);
    lblCommentMandatory.Visible(false);
    prgSearch.Visible(false);
    fraPreferred.Visible(false);
    fraRecent.Visible(false);
    cmdOK.Default(true);
    tmrMonitor.Interval(1000);
    tmrFlash.Interval(1000);
    tmrSearch.Interval(100);
    ClientSize(firstWidth, firstHeight);
}

void AccountNumberForm::SetCaptions() {
    Caption(u"Korvanta - Account Selection");
    ctlBanner1.Title(u"Account selection");
    ctlBanner1.Description(u"Choose the account to charge this document to.");
    lblDocumentCaption.Caption(u"Document:");
    lblPrinterCaption.Caption(u"Printer:");
    lblJobsQueuedCaption.Caption(u"Jobs queued:");
    lblJobsQueued.Caption(u"0");
    chkSubmitAllDocuments.Caption(u"Charge all &queued documents to the selected account");
    tabView.Tabs({u"All accounts", u"Preferred", u"Recent"});
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
    for (Control* control : std::initializer_list<Control*>{&ctlBanner1,
                                                            &lblDocumentCaption,
                                                            &lblDocument,
                                                            &lblPrinterCaption,
                                                            &lblPrinter,
                                                            &lblJobsQueuedCaption,
                                                            &lblJobsQueued,
                                                            &chkSubmitAllDocuments,
                                                            &tabView,
                                                            &fraAllAccounts,
                                                            &fraPreferred,
                                                            &fraRecent,
                                                            &lblComment,
                                                            &txtComment,
                                                            &chkInvoice,
                                                            &lblChargeRate,
                                                            &cboChargeRate,
                                                            &hlnButtons,
                                                            &cmdOK,
                                                            &cmdCancel,
                                                            &lblCommentMandatory,
                                                            &tmrMonitor,
                                                            &tmrFlash,
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
    line_ = textMeasure_.LineHeight(false) + 30;
    field_ = line_ + 105;
    ComputeMinimumSize();
    ctlBanner1.Move({0, 0, ClientWidth(), ctlBanner1.Position().height});
    const int top = ArrangeJob(ctlBanner1.Position().Bottom() + gap);
    const int bottom = ArrangeCompletion();
    ArrangeTabs(top, bottom);
}

// The document, its printer and the queue; returns where the next block may begin.
int AccountNumberForm::ArrangeJob(int top) {
    const int right = ClientWidth() - margin;
    const int captionWidth = std::max(TextWidth(lblDocumentCaption), TextWidth(lblPrinterCaption));
    const int valueLeft = margin + captionWidth + gap;
    lblDocumentCaption.Move({margin, top, captionWidth, line_});
    lblDocument.Move({valueLeft, top, right - valueLeft, line_});

    top += line_ + smallGap;
    const int countWidth = textMeasure_.Width(u"00000", true);
    const int queuedWidth = TextWidth(lblJobsQueuedCaption);
    lblJobsQueued.Move({right - countWidth, top, countWidth, line_});
    lblJobsQueuedCaption.Move({right - countWidth - smallGap - queuedWidth, top, queuedWidth, line_});
    lblPrinterCaption.Move({margin, top, captionWidth, line_});
    lblPrinter.Move({valueLeft, top, lblJobsQueuedCaption.Position().left - gap - valueLeft, line_});

    top += line_ + smallGap;
    chkSubmitAllDocuments.Move({margin, top, CheckWidth(chkSubmitAllDocuments), line_ + 30});
    return chkSubmitAllDocuments.Position().Bottom() + gap;
}

// Comment, invoice, rate and the buttons, from the bottom up; returns where they begin.
int AccountNumberForm::ArrangeCompletion() {
    const int right = ClientWidth() - margin;
    int top = ClientHeight() - margin - field_;
    cmdCancel.Move({right - buttonWidth, top, buttonWidth, field_});
    cmdOK.Move({right - 2 * buttonWidth - gap, top, buttonWidth, field_});
    lblCommentMandatory.Move({margin, top, 0, line_});

    top -= gap + hlnButtons.Position().height;
    hlnButtons.Move({margin, top, right - margin, hlnButtons.Position().height});

    top -= gap + field_;
    const int rateLeft = right - rateWidth;
    const int rateCaptionWidth = TextWidth(lblChargeRate);
    const int textTop = top + (field_ - line_) / 2;
    cboChargeRate.Move({rateLeft, top, rateWidth, field_});
    lblChargeRate.Move({rateLeft - gap - rateCaptionWidth, textTop, rateCaptionWidth, line_});
    const int invoiceRoom = lblChargeRate.Position().left - gap - margin;
    chkInvoice.Move({margin, textTop - 15, std::min(CheckWidth(chkInvoice), invoiceRoom), line_ + 30});

    top -= gap + field_;
    const int commentWidth = TextWidth(lblComment);
    lblComment.Move({margin, top + (field_ - line_) / 2, commentWidth, line_});
    const int commentLeft = margin + commentWidth + gap;
    txtComment.Move({commentLeft, top, right - commentLeft, field_});
    return top - gap;
}

void AccountNumberForm::ArrangeTabs(int top, int bottom) {
    const int width = ClientWidth() - 2 * margin;
    tabView.Move({margin, top, width, std::max(bottom - top, 0)});
    const int header = tabView.HeaderHeight();
    const Place page{margin + gap, top + header + gap, width - 2 * gap, std::max(bottom - top - header - 2 * gap, 0)};
    fraAllAccounts.Move(page);
    fraPreferred.Move(page);
    fraRecent.Move(page);
    ArrangeAllAccounts(page);
    ArrangePreferred(page);
    ctlAccountListRecent.Move({0, 0, page.width, page.height});
}

void AccountNumberForm::ArrangeAllAccounts(const Place& page) {
    const int searchWidth = TextWidth(lblSearch);
    const int rememberWidth = CheckWidth(chkRememberSearch);
    const int textTop = (field_ - line_) / 2;
    lblSearch.Move({0, textTop, searchWidth, line_});
    const int boxLeft = searchWidth + gap;
    txtSearch.Move({boxLeft, 0, page.width - boxLeft - gap - rememberWidth, field_});
    chkRememberSearch.Move({page.width - rememberWidth, textTop - 15, rememberWidth, line_ + 30});

    const int linkTop = page.height - line_ - 30;
    const int listTop = field_ + gap;
    ctlAccountListAll.Move({0, listTop, page.width, std::max(linkTop - smallGap - listTop, 0)});
    lblAddPreferred.Move({0, linkTop, TextWidth(lblAddPreferred), line_ + 30});
    prgSearch.Move({page.width - progressWidth, linkTop, progressWidth, line_ + 30});
}

void AccountNumberForm::ArrangePreferred(const Place& page) {
    const int linkTop = page.height - line_ - 30;
    lblPreferredList.Move({0, 0, page.width, line_});
    const int listTop = line_ + smallGap;
    ctlAccountListPreferred.Move({0, listTop, page.width, std::max(linkTop - smallGap - listTop, 0)});
    lblRemovePreferred.Move({0, linkTop, TextWidth(lblRemovePreferred), line_ + 30});
    const int downWidth = TextWidth(lblMoveDown);
    const int upWidth = TextWidth(lblMoveUp);
    lblMoveDown.Move({page.width - downWidth, linkTop, downWidth, line_ + 30});
    lblMoveUp.Move({page.width - downWidth - 2 * gap - upWidth, linkTop, upWidth, line_ + 30});
}

void AccountNumberForm::ComputeMinimumSize() {
    const int allRow = TextWidth(lblSearch) + gap + smallestField + gap + CheckWidth(chkRememberSearch);
    const int addRow = TextWidth(lblAddPreferred) + gap + progressWidth;
    const int moveRow = TextWidth(lblRemovePreferred) + gap + TextWidth(lblMoveUp) + 2 * gap + TextWidth(lblMoveDown);
    const int rateRow = CheckWidth(chkInvoice) + gap + TextWidth(lblChargeRate) + gap + rateWidth;
    const int page = std::max({allRow, addRow, moveRow}) + 2 * gap;
    const int width = std::max({page, rateRow, CheckWidth(chkSubmitAllDocuments)}) + 2 * margin;
    const int height = ctlBanner1.Position().height + 3 * line_ + 4 * field_ + smallestList + tabView.HeaderHeight() +
                       12 * gap + margin;
    // The frame around the client area comes on top.
    constexpr int frame = 600;
    MinimumSize(width + frame / 2, height + frame);
}

int AccountNumberForm::TextWidth(const Control& control) const {
    const auto* label = dynamic_cast<const Label*>(&control);
    return textMeasure_.Width(control.Caption(), label != nullptr && label->Bold()) + slack;
}

int AccountNumberForm::CheckWidth(const CheckBox& checkBox) const {
    return textMeasure_.Width(checkBox.Caption(), false) + checkBoxRoom;
}

}  // namespace korvanta
