#include "Folder.h"

#include <windows.h>

#include <stdexcept>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/WindowsFileSystem.h"

using korvanta::textCalls::Wide;

namespace services {

Folder::Folder() {
    korvanta::WindowsFileSystem files;
    path_ = files.TemporaryFolder() + u"\\" + files.TemporaryName();
    if (!::CreateDirectoryW(Wide(path_), nullptr)) {
        throw std::runtime_error("the test's folder cannot be made");
    }
}

Folder::~Folder() {
    WIN32_FIND_DATAW entry{};
    const HANDLE search = ::FindFirstFileW(Wide(path_ + u"\\*"), &entry);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring name = entry.cFileName;
            const std::u16string path = path_ + u"\\" + korvanta::textCalls::FromWide(name.c_str(), name.size());
            ::DeleteFileW(Wide(path));
        } while (::FindNextFileW(search, &entry));
        ::FindClose(search);
    }
    ::RemoveDirectoryW(Wide(path_));
}

}  // namespace services
