#include "server/clsClientSettings.h"

#include "common/Conversion.h"
#include "common/FieldReader.h"

namespace korvanta {

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
            // A file may end before these two; they then keep their values.
        }
    }
    return true;
}

bool clsClientSettings::LoadString(const std::u16string& text) {
    return Load([lines = FieldReader(text, lineBreak)]() mutable { return lines.Next(); });
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
