#include "detection/WatchedPrinter.h"

#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::uint32_t jobAdded = 0x100;

std::u16string CodeText(std::uint32_t code) {
    return NumberText(static_cast<std::int64_t>(code));
}

}  // namespace

class WatchedPrinter::OpenHandle {
  public:
    explicit OpenHandle(Spooler& spooler) : spooler_(spooler) {}
    ~OpenHandle() {
        if (handle_ != 0) {
            spooler_.ClosePrinter(handle_);
        }
    }
    OpenHandle(const OpenHandle&) = delete;
    OpenHandle& operator=(const OpenHandle&) = delete;

    bool Open(const std::u16string& name) { return spooler_.OpenPrinter(name, handle_); }
    PrinterHandle Handle() const { return handle_; }

  private:
    Spooler& spooler_;
    PrinterHandle handle_ = 0;
};

WatchedPrinter::WatchedPrinter(Spooler& spooler, const std::u16string& fullPrinterName)
    : spooler_(spooler), name_(fullPrinterName), handle_(std::make_shared<OpenHandle>(spooler)) {}

// A printer has to be open until its change handle is closed.
WatchedPrinter::~WatchedPrinter() {
    CloseSignal();
}

std::u16string WatchedPrinter::Open(bool wantsSignal) {
    if (!handle_->Open(name_)) {
        return u"OpenPrinter call failed: " + CodeText(spooler_.LastError());
    }
    if (wantsSignal) {
        const ChangeHandle signal = spooler_.FindFirstChange(handle_->Handle(), jobAdded);
        if (signal == 0 || signal == -1) {
            return u"invalid change handle returned. Error: " + CodeText(spooler_.LastError());
        }
        signal_ = signal;
    }
    return {};
}

PrinterHandle WatchedPrinter::Handle() const {
    return handle_->Handle();
}

void WatchedPrinter::CloseSignal() {
    if (signal_ != 0) {
        spooler_.FindCloseChange(signal_);
        signal_ = 0;
    }
}

std::shared_ptr<clsJobInfo> WatchedPrinter::KeepingOpen(const std::shared_ptr<clsJobInfo>& job) const {
    struct Kept {
        std::shared_ptr<clsJobInfo> job;
        std::shared_ptr<OpenHandle> handle;
    };
    return {std::make_shared<Kept>(Kept{job, handle_}), job.get()};
}

}  // namespace korvanta
