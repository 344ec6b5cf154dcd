// What the account dialog sends to the print server: whatever the job, the account, the comment and the charge rate
// are, thirteen lines that a strict reader reads back to the same fields.
// Aims at: ui/frmAccountNumber.cpp ui/NotificationWriter.cpp server/clsAccountNotification.cpp
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "app/frmMessages.h"
#include "common/Text.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSetupFile.h"
#include "fakes/FakeTraceLog.h"
#include "fakes/PlainTranslator.h"
#include "fuzz/Fuzzing.h"
#include "ui/frmAccountNumber.h"

namespace korvanta {
namespace {

constexpr std::size_t longestComment = 254;

// As a notification holds a text: each line break is a blank.
std::u16string OneLine(const std::u16string& text) {
    std::u16string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
            continue;
        }
        line += text[i] == u'\r' || text[i] == u'\n' ? u' ' : text[i];
    }
    return line;
}

// As a line of the accounts file or of the charge rates file can hold a text.
std::u16string Field(std::u16string text) {
    std::erase_if(text, [](char16_t unit) { return unit == u'\n' || unit == u'\u0001'; });
    return text;
}

bool IsHigh(char16_t unit) {
    return (unit & 0xFC00U) == 0xD800U;
}
bool IsLow(char16_t unit) {
    return (unit & 0xFC00U) == 0xDC00U;
}

std::u16string Sent(std::u16string comment) {
    if (comment.size() > longestComment) {
        const bool cutsCharacter = IsHigh(comment[longestComment - 1]) && IsLow(comment[longestComment]);
        comment.resize(longestComment - (cutsCharacter ? 1 : 0));
    }
    return OneLine(comment);
}

std::vector<std::u16string> StrictLines(const std::string& bytes) {
    REQUIRE(bytes.starts_with("\xFF\xFE") && bytes.size() % 2 == 0);
    std::vector<std::u16string> lines = fuzz::Pieces(fuzz::Utf16Text(bytes), u"\r\n");
    REQUIRE(lines.back().empty());
    lines.pop_back();
    REQUIRE(lines.size() == 13);
    for (const std::u16string& line : lines) {
        REQUIRE(line.find_first_of(u"\r\n") == std::u16string::npos);
    }
    return lines;
}

double Value(const std::u16string& text) {
    const std::string number = fuzz::DecimalAtStart(text);
    REQUIRE(!number.empty() && number.size() == text.size());
    return std::strtod(number.c_str(), nullptr);
}

class Dialog {
  public:
    explicit Dialog(const clsAccount& account) {
        platform_.files.WriteUtf16(u"\\\\SRV\\TLXData$\\Accounts.txt", account.StringForm() + u"\r\n");
        platform_.files.AddFolder(u"\\\\SRV\\TLXPrefs$");
        platform_.files.AddFolder(u"\\\\SRV\\TLXActN$");
        dialog_.Load(nullptr);
    }
    ~Dialog() { dialog_.Detach(); }
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    void AddRate(const std::u16string& description, double value) { rates_->Add(description, value); }
    // Returns whether the user was told that it failed.
    bool Charge(const std::shared_ptr<clsJobInfo>& job, std::int32_t accountId, const std::u16string& comment,
                bool invoiceable) {
        dialog_.AddJob(job);
        dialog_.tmrMonitor.HandleTick();
        dialog_.ctlAccountListAll.SelectedID(accountId);
        dialog_.txtComment.Text(comment);
        if (dialog_.chkInvoice.Enabled()) {
            dialog_.chkInvoice.Value(invoiceable);
        }
        dialog_.cboChargeRate.ListIndex(static_cast<int>(dialog_.cboChargeRate.Items().size()) - 1);
        dialog_.cmdOK.HandleClick();
        return !platform_.messageBoxes.shown.empty();
    }
    fakes::FakeFileSystem& Files() { return platform_.files; }

  private:
    fakes::FakePlatform platform_;
    fakes::FakeTraceLog log_;
    fakes::FakeErrorReports reports_;
    fakes::FakeSetupFile setupFile_;
    fakes::PlainTranslator translator_;
    frmMessages messages_{translator_};
    clsRegSettings registrySettings_{platform_.registry, setupFile_, reports_};
    clsClientSettings settings_;
    std::shared_ptr<clsChargeRates> rates_ = std::make_shared<clsChargeRates>(platform_.mutexes, platform_.clock);
    clsTLXPrefs prefs_{platform_.files, platform_.mutexes, u"SRV", u"jsmith"};
    clsTLXAccounts accounts_{platform_.files, platform_.mutexes, log_, u"SRV"};
    frmAccountNumber dialog_{AccountDialogServices{.platform = platform_.platform,
                                                   .log = log_,
                                                   .errorReports = reports_,
                                                   .messages = messages_,
                                                   .translator = translator_,
                                                   .registrySettings = registrySettings_,
                                                   .settings = settings_,
                                                   .accounts = accounts_,
                                                   .prefs = prefs_,
                                                   .chargeRates = [this] { return rates_; },
                                                   .cancelPrintJob = [](const clsJobInfo&) { return true; }}};
};

void Notify(fuzz::Input& input) {
    clsAccount account;
    account.AccountID = input.Choose(2) == 0 ? 17 : -2'000'000'000;
    account.IsMain = true;
    account.IsActive = true;
    account.AllowNoninvoiceable = input.Choose(2) == 0;
    account.RequireComment = static_cast<std::int16_t>(input.Choose(3));
    const bool invoiceable = input.Choose(2) == 0;

    const auto job = std::make_shared<clsJobInfo>();
    job->Document = input.Text();
    job->UserName = input.Text();
    const std::u16string comment = input.Text();
    account.MainTitle = Field(input.Text());
    const std::u16string rate = Field(input.Text());
    const double rateValue = fuzz::NumberAtStart(input.Text());
    job->PrinterName = input.Text();
    job->JobEventFilename = input.Text();
    job->MachineName = u"WS01";
    job->FullPrinterName = u"\\\\SRV\\Laser";
    job->JobID = fuzz::Number32(input.Text()).value_or(5);
    job->PrinterHandle = -1;

    Dialog dialog(account);
    dialog.AddRate(rate, rateValue);
    const bool lacksComment = account.RequireComment == 2 && comment.find_first_not_of(u' ') == std::u16string::npos;
    REQUIRE(dialog.Charge(job, account.AccountID, comment, invoiceable) == lacksComment);
    const std::vector<std::u16string> files = dialog.Files().FilesIn(u"\\\\SRV\\TLXActN$");
    REQUIRE(files.size() == (lacksComment ? 0 : 1));
    if (lacksComment) {
        return;
    }
    const std::u16string id = NumberText(job->JobID);
    REQUIRE(files[0] == u"WS01.-1." + id + u".tlx");
    std::vector<std::u16string> lines = StrictLines(dialog.Files().ReadBytes(u"\\\\SRV\\TLXActN$\\" + files[0]));
    const double value = Value(lines.back());
    REQUIRE(std::abs(value - rateValue) <= 1e-14 * std::abs(rateValue) || std::abs(rateValue) > 1.79769313486231e308);
    lines.pop_back();
    REQUIRE((lines == std::vector<std::u16string>{id, u"WS01", OneLine(job->PrinterName), OneLine(job->UserName),
                                                  OneLine(job->Document), u"-1", NumberText(account.AccountID),
                                                  OneLine(account.MainTitle),
                                                  invoiceable || !account.AllowNoninvoiceable ? u"1" : u"0",
                                                  account.RequireComment == 0 ? u"" : Sent(comment),
                                                  OneLine(job->JobEventFilename), OneLine(rate)}));
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::Notify(input);
    return 0;
}
