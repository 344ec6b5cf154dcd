#pragma once

#include <string_view>

#include "controls/Form.h"
#include "translation/MessageTexts.h"
#include "translation/Translator.h"

namespace korvanta {

// A hidden form whose labels hold the texts of the message boxes as captions, so that they are translated like those of
// any form. It is never shown and has no window. Asking for a text loads the form if it is not loaded yet.
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
    // The default title of message boxes.
    Label lblApplicationTitle{u"lblApplicationTitle"};
    // Placeholders (see FillIn): support address; number, description, source and progress marker of the error.
    Label lblUnexpectedError{u"lblUnexpectedError"};
    // Placeholders: number and description of the error.
    Label lblDownloadError{u"lblDownloadError"};

  protected:
    void OnTranslate() override;

  private:
    Translator& translator_;
};

}  // namespace korvanta
