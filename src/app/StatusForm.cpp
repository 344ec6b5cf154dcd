#include "app/StatusForm.h"

#include <algorithm>
#include <numeric>

namespace korvanta {

namespace {
constexpr int margin = Measures::margin;
constexpr int gap = Measures::gap;
constexpr int smallGap = Measures::smallGap;
// In letters.
constexpr std::size_t longestText = 50;
constexpr std::size_t longestHeading = 32;  // above dates
constexpr std::size_t longestTask = 36;
const char16_t* const longDate = u"00.00.0000 00:00:00 AM";
constexpr int smallestWidth = 8400;
constexpr int listHeight = 1500;
}  // namespace

StatusForm::StatusForm(TextMeasure& textMeasure, const BannerServices& bannerServices)
    : Form(u"frmMain"), ctlBanner1(u"ctlBanner1", bannerServices), textMeasure_(textMeasure), measures_(textMeasure) {
    MeasureRows();
    Border(korvanta::BorderStyle::FixedDialog);
    ShowInTaskbar(false);
    SetCaptions();
    AddControls();
    tmrActivity.Interval(1000);
    ChooseSize();
}

void StatusForm::MeasureRows() {
    line_ = measures_.LineHeight();
    field_ = measures_.FieldHeight();
}

void StatusForm::OnFontsChanged() {
    ctlBanner1.Measure();
    MeasureRows();
    OnResize();
}

void StatusForm::ChooseSize() {
    ClientSize(NormalWidth(), NormalHeight());
}

void StatusForm::SetCaptions() {
    Caption(u"Korvanta Costbridge Client");
    ctlBanner1.ReadProperties({{u"Title", u"Korvanta Costbridge Client"},
                               {u"Description", u"Watches the monitored printers for documents that you print."}});
    lblJobDetectionMethodCaption.Caption(u"Job detection method:");
    lblPrinters.Caption(u"Monitored &printers:");
    cmdRefresh.Caption(u"&Refresh");
    cmdClose.Caption(u"&Close");
    cmdClose.Default(true);
    lblTask.Caption(u"Task");
    lblPerformed.Caption(u"Last performed");
    lblResult.Caption(u"Result");
    lblDue.Caption(u"Next due");
    lblFullRefresh.Caption(u"Full refresh");
    lblPrinterListScan.Caption(u"Printer list scan");
    lblServerHealthTest.Caption(u"Server health test");
    mnuPopop.Caption(u"Popup Menu");
    mnuLogging.Caption(u"Turn on logging");
    mnuAdvanced.Caption(u"Advanced status");
    for (Label* label : {&lblTask, &lblPerformed, &lblResult, &lblDue}) {
        label->Bold(true);
    }
    lblActivity.AccessKey(false);
}

void StatusForm::AddControls() {
    for (Control* control : std::initializer_list<Control*>{&ctlBanner1,
                                                            &lblJobDetectionMethodCaption,
                                                            &lblJobDetectionMethod,
                                                            &lblPrinters,
                                                            &lvwPrinters,
                                                            &lblActivity,
                                                            &cmdRefresh,
                                                            &cmdClose,
                                                            &HLine1,
                                                            &lblTask,
                                                            &lblPerformed,
                                                            &lblResult,
                                                            &lblDue,
                                                            &lblFullRefresh,
                                                            &lblFullRefreshPerformed,
                                                            &lblFullRefreshResult,
                                                            &lblFullRefreshDue,
                                                            &lblPrinterListScan,
                                                            &lblPrinterListScanPerformed,
                                                            &lblPrinterListScanResult,
                                                            &lblPrinterListScanDue,
                                                            &lblServerHealthTest,
                                                            &lblServerHealthTestPerformed,
                                                            &lblServerHealthTestResult,
                                                            &lblServerHealthTestDue,
                                                            &texts,
                                                            &mnuPopop,
                                                            &tmrActivity}) {
        Add(*control);
    }
    mnuPopop.Add(mnuLogging);
    mnuPopop.Add(mnuAdvanced);
}

// Columns of the advanced display, each wide enough for its captions and for every text that it may show.
std::array<int, StatusForm::columns> StatusForm::ColumnWidths() const {
    const auto room = [this](std::initializer_list<const Label*> labels, std::size_t longest = longestText) {
        int width = 0;
        for (const Label* label : labels) {
            width = std::max(width, measures_.CaptionWidth(*label, longest));
        }
        return width + gap;
    };
    const int dates = textMeasure_.Width(longDate, false) + Measures::slack + gap;
    return {room({&lblTask, &lblFullRefresh, &lblPrinterListScan, &lblServerHealthTest}, longestTask),
            std::max(room({&lblPerformed}, longestHeading), dates),
            room({&lblResult, &texts.lblRefreshExecuting, &texts.lblRefreshCompleted, &texts.lblExecuting,
                  &texts.lblPrinterListChanged, &texts.lblPrinterListUnchanged, &texts.lblServersValid,
                  &texts.lblServersInvalid}),
            std::max(room({&lblDue}, longestHeading), dates)};
}

int StatusForm::NormalWidth() const {
    const std::array<int, columns> widths = ColumnWidths();
    const int table = std::accumulate(widths.begin(), widths.end(), 0);
    return std::max({smallestWidth, ctlBanner1.SmallestWidth(), table + 2 * margin});
}

int StatusForm::NormalHeight() const {
    return ctlBanner1.Position().height + gap + line_ + gap + line_ + smallGap + listHeight + gap + line_ + gap +
           field_ + gap;
}

void StatusForm::OnResize() {
    const int width = ClientWidth();
    const int right = width - margin;
    ctlBanner1.Move({0, 0, width, ctlBanner1.Position().height});
    int top = ctlBanner1.Position().Bottom() + gap;
    const int methodWidth = measures_.CaptionWidth(lblJobDetectionMethodCaption, longestText);
    lblJobDetectionMethodCaption.Move({margin, top, methodWidth, line_});
    lblJobDetectionMethod.Move({margin + methodWidth + gap, top, right - margin - methodWidth - gap, line_});
    top += line_ + gap;
    lblPrinters.Move({margin, top, right - margin, line_});
    top += line_ + smallGap;
    lvwPrinters.Move({margin, top, right - margin, listHeight});
    top += listHeight + gap;
    lblActivity.Move({margin, top, right - margin, line_});
    top += line_ + gap;
    measures_.PlaceButtons(cmdRefresh, cmdClose, right, top);
    top += field_ + gap;

    HLine1.Move({margin, top, right - margin, HLine1.Position().height});
    top = HLine1.Position().Bottom() + gap;
    const std::array<std::array<Label*, columns>, 4> rows{{
        {&lblTask, &lblPerformed, &lblResult, &lblDue},
        {&lblFullRefresh, &lblFullRefreshPerformed, &lblFullRefreshResult, &lblFullRefreshDue},
        {&lblPrinterListScan, &lblPrinterListScanPerformed, &lblPrinterListScanResult, &lblPrinterListScanDue},
        {&lblServerHealthTest, &lblServerHealthTestPerformed, &lblServerHealthTestResult, &lblServerHealthTestDue},
    }};
    const std::array<int, columns> widths = ColumnWidths();
    for (const auto& row : rows) {
        int left = margin;
        for (std::size_t column = 0; column < columns; ++column) {
            row[column]->Move({left, top, widths[column] - gap, line_});
            left += widths[column];
        }
        top += line_ + smallGap;
    }
}

}  // namespace korvanta
