#include "server/clsClientSettings.h"

#include <string_view>

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

namespace {

// Hands out a text's lines one by one; only CR LF ends a line.
class Lines {
  public:
    explicit Lines(std::u16string_view text) : rest_(text) {}

    std::u16string_view Next() {
        if (ended_) {
            throw Error(errorNumber::subscriptOutOfRange, u"clsClientSettings", u"Subscript out of range");
        }
        const std::size_t end = rest_.find(lineBreak);
        ended_ = end == std::u16string_view::npos;
        const std::u16string_view line = rest_.substr(0, end);
        rest_.remove_prefix(ended_ ? rest_.size() : end + lineBreak.size());
        return line;
    }

  private:
    std::u16string_view rest_;
    bool ended_ = false;
};

}  // namespace

template <class NextLine>
bool clsClientSettings::Load(NextLine nextLine) {
    try {
        for (std::int32_t* number :
             {&jobMatchMethod_, &jobDetectionMethod_, &jobDetectionMethodWin9X_, &serverHealthTestInterval_,
              &fullRefreshInterval_, &printerListRefreshInterval_, &serverDownFullRefreshInterval_,
              &printerPollingInterval_, &filePollingInterval_}) {
            *number = ToInteger32(nextLine());
        }
        clientPopupOnTop_ = ToBoolean(nextLine());
        usersDoNotRequireAccount_ = nextLine();
    } catch (...) {
        return false;
    }
    for (std::u16string* text : {&defaultComment_, &showOnInvoiceLabel_}) {
        try {
            *text = nextLine();
        } catch (...) {
            // A file may end before these two, and they then stay as they are.
        }
    }
    return true;
}

bool clsClientSettings::LoadString(const std::u16string& text) {
    return Load([lines = Lines(text)]() mutable { return lines.Next(); });
}

bool clsClientSettings::LoadFile(TextInput& stream) {
    return Load([&stream] { return stream.ReadLineView(); });
}

bool clsClientSettings::SaveFile(TextOutput& stream) const {
    try {
        for (const std::int32_t number :
             {jobMatchMethod_, jobDetectionMethod_, jobDetectionMethodWin9X_, serverHealthTestInterval_,
              fullRefreshInterval_, printerListRefreshInterval_, serverDownFullRefreshInterval_,
              printerPollingInterval_, filePollingInterval_}) {
            stream.WriteLine(NumberText(number));
        }
        stream.WriteLine(clientPopupOnTop_ ? u"-1" : u"0");
        stream.WriteLine(usersDoNotRequireAccount_);
        stream.WriteLine(defaultComment_);
        stream.WriteLine(showOnInvoiceLabel_);
        stream.Flush();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace korvanta
