#include "app/frmMessages.h"

#include "common/Deployment.h"
#include "common/Text.h"

namespace korvanta {

frmMessages::frmMessages(Translator& translator) : Form(u"frmMessages"), translator_(translator) {
    Caption(u"Messages for translation purposes");
    lblInternalErrorServerName.Caption(
        u"Internal error - unable to determine server name for printer. Report this to %1");
    lblClientAlreadyRunning.Caption(u"The Korvanta Costbridge Client is already running.");
    lblAccountNotBillable.Caption(u"The selected account is not active (billable). Please select an active account.");
    lblNotificationError.Caption(
        u"Korvanta was unable to notify the print server of your account. The server may be down, or misconfigured. "
        u"Please report this to your system administrator. Your print job will be cancelled.");
    lblSelectAccount.Caption(u"Please select an account from the list.");
    lblAccountListError.Caption(
        u"Korvanta was unable to find the list of accounts. This is due to the print server being down, or being "
        u"incorrectly configured. Please report this to your system administrator. Your print job will be cancelled.");
    lblNotificationCreationError.Caption(
        u"Korvanta was unable to create files in the notification share on the Korvanta server. The server may be "
        u"down, or may be incorrectly configured. Please report this error to your system administrator. You will not "
        u"be able to print documents to monitored printers until this problem is rectified.");
    lblJobCancelSuccess.Caption(u"The print job was successfully cancelled.");
    lblJobCancelError.Caption(
        u"The print job could not be cancelled. It is possible that a printing error has occurred, or that you do not "
        u"have permissions to delete the job. Please ensure that the job is deleted by deleting it manually, or "
        u"contact your system administrator.");
    lblPrimaryServerError.Caption(
        u"The Primary Korvanta server could not be contacted. This could mean that the server name has been "
        u"incorrectly typed, is currently down, or is not set up properly. Please double-check the server name and "
        u"try again, or contact your system administrator.");
    lblPrimaryServerUnknown.Caption(
        u"Korvanta needs to know the name of the Primary Korvanta server. You will not be able to print documents to "
        u"monitored printers until this problem is rectified. Please contact your system administrator for help.");
    lblMessageBoxTitle.Caption(u"Korvanta Client - Account Tracking");
    lblEnterPrimaryServer.Caption(u"Please enter the name of the Primary Korvanta server.");
    lblApplicationTitle.Caption(u"Korvanta Costbridge Client");
    lblUnexpectedError.Caption(
        u"An unexpected error has occurred. Please report the following message to %1:\r\n\r\nError %2 (%3/%4) at "
        u"point %5");
    lblDownloadError.Caption(u"GetURLSource: err#%1  %2");
    for (Label* label :
         {&lblInternalErrorServerName, &lblClientAlreadyRunning, &lblAccountNotBillable, &lblNotificationError,
          &lblSelectAccount, &lblAccountListError, &lblNotificationCreationError, &lblJobCancelSuccess,
          &lblJobCancelError, &lblPrimaryServerError, &lblPrimaryServerUnknown, &lblMessageBoxTitle,
          &lblEnterPrimaryServer, &lblApplicationTitle, &lblUnexpectedError, &lblDownloadError}) {
        label->AccessKey(false);
        Add(*label);
    }
}

std::u16string frmMessages::Text(std::u16string_view labelName) {
    Load(nullptr);
    const Control* label = Find(std::u16string(labelName));
    return label != nullptr ? label->Caption() : u"";
}

void frmMessages::OnTranslate() {
    translator_.Translate(*this);
    lblInternalErrorServerName.Caption(FillIn(lblInternalErrorServerName.Caption(), {supportAddress}));
}

}  // namespace korvanta
