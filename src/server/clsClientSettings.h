#pragma once

#include <cstdint>
#include <string>

#include "common/TextStream.h"
#include "server/DetectionMethod.h"

namespace korvanta {

// How the administrator wants every client to behave: thirteen settings, which a file holds one per line in the order
// below. The setters check nothing.
class clsClientSettings {
  public:
    // 0 user and machine, 1 machine, 2 user.
    std::int32_t JobMatchMethod() const { return jobMatchMethod_; }
    void JobMatchMethod(std::int32_t method) { jobMatchMethod_ = method; }
    // On the Windows NT family; the numbers are those of DetectionMethod.
    std::int32_t JobDetectionMethod() const { return jobDetectionMethod_; }
    void JobDetectionMethod(std::int32_t method) { jobDetectionMethod_ = method; }
    // The same on Windows 95/98/Me.
    std::int32_t JobDetectionMethodWin9X() const { return jobDetectionMethodWin9X_; }
    void JobDetectionMethodWin9X(std::int32_t method) { jobDetectionMethodWin9X_ = method; }
    // The one of the two that applies.
    DetectionMethod EffectiveDetectionMethod(bool isWindows9x) const {
        return DetectionMethod{isWindows9x ? jobDetectionMethodWin9X_ : jobDetectionMethod_};
    }
    // Seconds.
    std::int32_t ServerHealthTestInterval() const { return serverHealthTestInterval_; }
    void ServerHealthTestInterval(std::int32_t seconds) { serverHealthTestInterval_ = seconds; }
    // Minutes.
    std::int32_t FullRefreshInterval() const { return fullRefreshInterval_; }
    void FullRefreshInterval(std::int32_t minutes) { fullRefreshInterval_ = minutes; }
    // Seconds.
    std::int32_t PrinterListRefreshInterval() const { return printerListRefreshInterval_; }
    void PrinterListRefreshInterval(std::int32_t seconds) { printerListRefreshInterval_ = seconds; }
    // Seconds.
    std::int32_t ServerDownFullRefreshInterval() const { return serverDownFullRefreshInterval_; }
    void ServerDownFullRefreshInterval(std::int32_t seconds) { serverDownFullRefreshInterval_ = seconds; }
    // Ticks of the monitoring clock.
    std::int32_t PrinterPollingInterval() const { return printerPollingInterval_; }
    void PrinterPollingInterval(std::int32_t ticks) { printerPollingInterval_ = ticks; }
    // Ticks of the monitoring clock.
    std::int32_t FilePollingInterval() const { return filePollingInterval_; }
    void FilePollingInterval(std::int32_t ticks) { filePollingInterval_ = ticks; }
    bool ClientPopupOnTop() const { return clientPopupOnTop_; }
    void ClientPopupOnTop(bool onTop) { clientPopupOnTop_ = onTop; }
    // Carried through loading and saving; no decision of the client depends on it.
    const std::u16string& UsersDoNotRequireAccount() const { return usersDoNotRequireAccount_; }
    void UsersDoNotRequireAccount(const std::u16string& users) { usersDoNotRequireAccount_ = users; }
    // Initial text of the comment box, when not empty.
    const std::u16string& DefaultComment() const { return defaultComment_; }
    void DefaultComment(const std::u16string& comment) { defaultComment_ = comment; }
    // Caption of the invoice box, when not empty.
    const std::u16string& ShowOnInvoiceLabel() const { return showOnInvoiceLabel_; }
    void ShowOnInvoiceLabel(const std::u16string& label) { showOnInvoiceLabel_ = label; }

    // Sets the settings from the whole text of the file, whose lines end with CR LF. False when one of the first eleven
    // lines is missing or cannot be converted; the settings before it are then set. The last two lines may be missing;
    // their settings then keep their values. Never raises.
    bool LoadString(const std::u16string& text);
    // The same from a text file, line by line.
    bool LoadFile(TextInput& stream);
    // Writes and flushes the thirteen lines. False when writing fails. Never raises.
    bool SaveFile(TextOutput& stream) const;

  private:
    template <class NextLine>
    bool Load(NextLine nextLine);

    std::int32_t jobMatchMethod_ = 0;
    std::int32_t jobDetectionMethod_ = 0;
    std::int32_t jobDetectionMethodWin9X_ = 0;
    std::int32_t serverHealthTestInterval_ = 31;
    std::int32_t fullRefreshInterval_ = 60;
    std::int32_t printerListRefreshInterval_ = 44;
    std::int32_t serverDownFullRefreshInterval_ = 30;
    std::int32_t printerPollingInterval_ = 8;
    std::int32_t filePollingInterval_ = 4;
    bool clientPopupOnTop_ = false;
    std::u16string usersDoNotRequireAccount_;
    std::u16string defaultComment_;
    std::u16string showOnInvoiceLabel_;
};

}  // namespace korvanta
