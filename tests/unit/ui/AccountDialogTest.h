#pragma once

#include "unit/ui/DialogFixture.h"

namespace korvanta {

// Numbers of the notification's lines.
inline constexpr std::size_t lineAccountId = 7;
inline constexpr std::size_t lineAccountTitle = 8;
inline constexpr std::size_t lineInvoiceable = 9;
inline constexpr std::size_t lineComment = 10;
inline constexpr std::size_t lineRate = 12;
inline constexpr std::size_t lineRateValue = 13;

class AccountDialogTest : public DialogFixture {
  protected:
    // Offers the job, chooses the account and presses OK.
    void Charge(std::int32_t jobId, std::int32_t accountId) {
        Offer(jobId);
        SelectAll(accountId);
        PressOK();
    }
    Color CommentColor() { return Dialog().txtComment.BackColor(); }
};

}  // namespace korvanta
