#pragma once

#include <array>
#include <cstddef>

#include "app/StatusTexts.h"
#include "controls/Form.h"
#include "platform/TextMeasure.h"
#include "ui/HLine.h"
#include "ui/Measures.h"
#include "ui/ctlBanner.h"

namespace korvanta {

// The controls of the status form and their layout; frmMain decides what they show. The lower part (when each task last
// ran and is next due) is only visible in the advanced display, which makes the window higher.
class StatusForm : public Form {
  public:
    // Height of the whole window in the advanced display, in twips.
    static constexpr int advancedHeight = 8000;

    StatusForm(TextMeasure& textMeasure, const BannerServices& bannerServices);

    ctlBanner ctlBanner1;
    Label lblJobDetectionMethodCaption{u"lblJobDetectionMethodCaption"};
    Label lblJobDetectionMethod{u"lblJobDetectionMethod"};
    Label lblPrinters{u"lblPrinters"};
    ListView lvwPrinters{u"lvwPrinters"};
    Label lblActivity{u"lblActivity"};
    CommandButton cmdRefresh{u"cmdRefresh"};
    CommandButton cmdClose{u"cmdClose"};
    HLine HLine1{u"HLine1"};

    Label lblTask{u"lblTask"};
    Label lblPerformed{u"lblPerformed"};
    Label lblResult{u"lblResult"};
    Label lblDue{u"lblDue"};
    Label lblFullRefresh{u"lblFullRefresh"};
    Label lblFullRefreshPerformed{u"lblFullRefreshPerformed"};
    Label lblFullRefreshResult{u"lblFullRefreshResult"};
    Label lblFullRefreshDue{u"lblFullRefreshDue"};
    Label lblPrinterListScan{u"lblPrinterListScan"};
    Label lblPrinterListScanPerformed{u"lblPrinterListScanPerformed"};
    Label lblPrinterListScanResult{u"lblPrinterListScanResult"};
    Label lblPrinterListScanDue{u"lblPrinterListScanDue"};
    Label lblServerHealthTest{u"lblServerHealthTest"};
    Label lblServerHealthTestPerformed{u"lblServerHealthTestPerformed"};
    Label lblServerHealthTestResult{u"lblServerHealthTestResult"};
    Label lblServerHealthTestDue{u"lblServerHealthTestDue"};

    StatusTexts texts;

    PopupMenu mnuPopop{u"mnuPopop"};
    MenuEntry mnuLogging{u"mnuLogging"};
    MenuEntry mnuAdvanced{u"mnuAdvanced"};
    Timer tmrActivity{u"tmrActivity"};

  protected:
    void OnResize() override;
    void OnFontsChanged() override;
    // Fits the form to its current captions. Call it before the form has a window.
    void ChooseSize();

  private:
    void SetCaptions();
    void AddControls();
    static constexpr std::size_t columns = 4;
    std::array<int, columns> ColumnWidths() const;
    int NormalWidth() const;
    int NormalHeight() const;

    void MeasureRows();

    TextMeasure& textMeasure_;
    Measures measures_;
    int line_ = 0;
    int field_ = 0;
};

}  // namespace korvanta
