#include "app/clsSetupTxt.h"

#include "common/Error.h"
#include "common/Text.h"
#include "common/TextStream.h"

namespace korvanta {

clsSetupTxt::clsSetupTxt(FileSystem& files, const CodePage& codePage, const std::u16string& programFolder)
    : files_(files), codePage_(codePage), path_(programFolder + u"\\setup.txt") {}

std::u16string clsSetupTxt::UserDBPath() {
    const std::u16string path = Value(u"UserDBPath");
    return files_.FileExists(path) || files_.FolderExists(path) ? path : u"";
}

bool clsSetupTxt::ShowOnStartup() {
    return Flag(u"ShowOnStartup");
}

bool clsSetupTxt::ShowLink() {
    return Flag(u"ShowLink");
}

std::u16string clsSetupTxt::LinkName() {
    return Value(u"LinkName");
}

std::u16string clsSetupTxt::LinkPath() {
    return Value(u"LinkPath");
}

std::u16string clsSetupTxt::TLXPrimaryServer() {
    return Value(u"TLXPrimaryServer");
}

// The first line that contains the key and "=" counts, wherever they stand in it. Its value begins where it would if
// the line began with the key, as every line should.
std::u16string clsSetupTxt::Value(const std::u16string& key) {
    const std::u16string search = key + u"=";
    try {
        if (!files_.FileExists(path_)) {
            return {};
        }
        TextInput file = TextInput::OpenAnsi(files_, codePage_, path_);
        while (!file.AtEnd()) {
            const std::u16string_view line = file.ReadLineView();
            if (ContainsNoCase(line, search)) {
                return std::u16string(line.substr(search.size()));
            }
        }
    } catch (const std::exception&) {
        // A file that cannot be read counts as one without the setting.
        return {};
    }
    return {};
}

bool clsSetupTxt::Flag(const std::u16string& key) {
    const std::u16string value = Value(key);
    return value.empty() || value == u"1";
}

}  // namespace korvanta
