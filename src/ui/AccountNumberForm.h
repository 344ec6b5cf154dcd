#pragma once

#include "controls/Form.h"
#include "platform/TextMeasure.h"
#include "translation/Translator.h"
#include "ui/HLine.h"
#include "ui/Measures.h"
#include "ui/ctlAccountList.h"
#include "ui/ctlBanner.h"

namespace korvanta {

// The controls of the account selection dialog and their layout; frmAccountNumber gives them their function. Controls
// are added in reading order, which is the tab order.
class AccountNumberForm : public Form {
  public:
    AccountNumberForm(TextMeasure& textMeasure, Translator& translator, const BannerServices& bannerServices);

    ctlBanner ctlBanner1;
    Label lblDocumentCaption{u"lblDocumentCaption"};
    Label lblDocument{u"lblDocument"};
    Label lblPrinterCaption{u"lblPrinterCaption"};
    Label lblPrinter{u"lblPrinter"};
    Label lblJobsQueuedCaption{u"lblJobsQueuedCaption"};
    Label lblJobsQueued{u"lblJobsQueued"};
    CheckBox chkSubmitAllDocuments{u"chkSubmitAllDocuments"};

    Label lblViews{u"lblViews"};  // what screen readers call the tabs
    TabStrip tabView{u"tabView"};
    Frame fraAllAccounts{u"fraAllAccounts"};
    Label lblSearch{u"lblSearch"};
    TextBox txtSearch{u"txtSearch"};
    CheckBox chkRememberSearch{u"chkRememberSearch"};
    ctlAccountList ctlAccountListAll;
    Label lblAddPreferred{u"lblAddPreferred"};
    ProgressBar prgSearch{u"prgSearch"};
    Frame fraPreferred{u"fraPreferred"};
    Label lblPreferredList{u"lblPreferredList"};
    ctlAccountList ctlAccountListPreferred;
    Label lblRemovePreferred{u"lblRemovePreferred"};
    Label lblMoveUp{u"lblMoveUp"};
    Label lblMoveDown{u"lblMoveDown"};
    Frame fraRecent{u"fraRecent"};
    ctlAccountList ctlAccountListRecent;

    Label lblComment{u"lblComment"};
    TextBox txtComment{u"txtComment"};
    CheckBox chkInvoice{u"chkInvoice"};
    Label lblChargeRate{u"lblChargeRate"};
    ComboBox cboChargeRate{u"cboChargeRate"};
    HLine hlnButtons{u"hlnButtons"};
    CommandButton cmdOK{u"cmdOK"};
    CommandButton cmdCancel{u"cmdCancel"};
    Label lblCommentMandatory{u"lblCommentMandatory"};

    Timer tmrMonitor{u"tmrMonitor"};
    Timer tmrFlash{u"tmrFlash"};
    Timer tmrSearch{u"tmrSearch"};

    // While one of these exists OK is disabled, since the dialog does not yet show all that OK would send.
    class HeldOK {
      public:
        explicit HeldOK(AccountNumberForm& form) : form_(form) {
            ++form_.heldOK_;
            form_.cmdOK.Enabled(false);
        }
        ~HeldOK() {
            --form_.heldOK_;
            form_.cmdOK.Enabled(form_.heldOK_ == 0);
        }
        HeldOK(const HeldOK&) = delete;
        HeldOK& operator=(const HeldOK&) = delete;

      private:
        AccountNumberForm& form_;
    };

  protected:
    // Lays everything out for the current size of the client area and the current captions.
    void OnResize() override;
    void OnFontsChanged() override;
    // Sets the size at which the form first appears, for the current captions.
    void ChooseFirstSize();

  private:
    void SetCaptions();
    void AddControls();
    int ArrangeJob(int top);
    int ArrangeCompletion();
    void ArrangeTabs(int top, int bottom);
    void ArrangeAllAccounts(const Place& page);
    void ArrangePreferred(const Place& page);
    void Measure();
    int CountWidth() const;
    int TextWidth(const Label& label) const;
    int CheckWidth(const CheckBox& checkBox) const;

    TextMeasure& textMeasure_;
    Measures measures_;
    int heldOK_ = 0;
    int line_ = 0;   // height of a line of text
    int field_ = 0;  // height of a text box, a combo box or a button
    // The smallest client area that shows everything.
    int smallestWidth_ = 0;
    int smallestHeight_ = 0;
};

}  // namespace korvanta
