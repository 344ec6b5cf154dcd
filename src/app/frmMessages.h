#pragma once

#include <string_view>

#include "controls/Form.h"
#include "translation/MessageTexts.h"
#include "translation/Translator.h"

namespace korvanta {

// The hidden form whose labels' captions are the texts of the message boxes, so that they are translated together with
// everything else. It is never shown and needs no window. A text that is asked for before the form is loaded loads it.
class frmMessages : public Form, public MessageTexts {
  public:
    explicit frmMessages(Translator& translator);

    std::u16string Text(std::u16string_view labelName) override;

    Label lblInternalErrorServerName{u"lblInternalErrorServerName"};
    Label lblClientAlreadyRunning{u"lblClientAlreadyRunning"};
    Label lblAccountNotBillable{u"lblAccountNotBillable"};
    Label lblNotificationError{u"lblNotificationError"};
    Label lblSelectAccount{u"lblSelectAccount"};
    Label lblAccountListError{u"lblAccountListError"};
    Label lblNotificationCreationError{u"lblNotificationCreationError"};
    Label lblJobCancelSuccess{u"lblJobCancelSuccess"};
    Label lblJobCancelError{u"lblJobCancelError"};
    Label lblPrimaryServerError{u"lblPrimaryServerError"};
    Label lblPrimaryServerUnknown{u"lblPrimaryServerUnknown"};
    Label lblMessageBoxTitle{u"lblMessageBoxTitle"};
    Label lblEnterPrimaryServer{u"lblEnterPrimaryServer"};
    // Boxes that have no other title have this one.
    Label lblApplicationTitle{u"lblApplicationTitle"};
    // With places for values (see FillIn): the support address, number, description, source and point of the error.
    Label lblUnexpectedError{u"lblUnexpectedError"};
    // Number and description of the error.
    Label lblDownloadError{u"lblDownloadError"};

  protected:
    void OnTranslate() override;

  private:
    Translator& translator_;
};

}  // namespace korvanta
