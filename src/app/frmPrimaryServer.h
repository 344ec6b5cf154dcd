#pragma once

#include <string>

#include "common/Services.h"
#include "controls/Form.h"
#include "platform/Platform.h"
#include "translation/MessageTexts.h"
#include "translation/Translator.h"
#include "ui/HLine.h"
#include "ui/Measures.h"
#include "ui/ctlBanner.h"

namespace korvanta {

// Asks for the name of the primary server. It accepts a server only if its data share exists and a file can be created
// in its notification share.
class frmPrimaryServer : public Form {
  public:
    frmPrimaryServer(Platform& platform, TraceLog& log, Translator& translator, clsRegSettings& registrySettings,
                     MessageTexts& messages, SystemInformation& systemInformation);

    // Whether the last button pressed was OK, with a server that was accepted.
    bool Accepted() const { return accepted_; }

    ctlBanner ctlBanner1;
    Label lblExplanation{u"lblExplanation"};
    Label lblServer{u"lblServer"};
    TextBox txtServer{u"txtServer"};
    HLine HLine1{u"HLine1"};
    CommandButton OKButton{u"OKButton"};
    CommandButton CancelButton{u"CancelButton"};

  protected:
    void OnTranslate() override;
    void OnLoad() override;
    void OnResize() override;
    void OnFontsChanged() override;
    // The close box works like Cancel.
    bool OnQueryUnload(CloseReason reason) override;

  private:
    void ChooseSize();
    int ExplanationHeight(int clientWidth) const;
    void PlaceControls();
    void OK();
    void Cancel();
    bool CanCreateNotifications(const std::u16string& server);
    void ShowMessage(const char16_t* label);

    Platform& platform_;
    Measures measures_;
    TraceLog& log_;
    Translator& translator_;
    MessageTexts& messages_;
    SystemInformation& systemInformation_;
    bool accepted_ = false;
};

}  // namespace korvanta
