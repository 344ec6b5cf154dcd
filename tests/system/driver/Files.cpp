#include "driver/Files.h"

#include <windows.h>

#include <algorithm>
#include <stdexcept>

namespace driver {
namespace {

class FileHandle {
  public:
    explicit FileHandle(HANDLE handle) : handle_(handle) {}
    ~FileHandle() {
        if (Valid()) {
            CloseHandle(handle_);
        }
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    bool Valid() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

[[noreturn]] void Fail(const char* action, const std::wstring& path) {
    throw std::runtime_error(std::string(action) + " " + Utf8Bytes(path) + ": error " + std::to_string(GetLastError()));
}

bool HasAttributes(const std::wstring& path, bool folder) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) == folder;
}

std::string Narrow(UINT codePage, const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

template <typename Visit>
void VisitFolder(const std::wstring& folder, Visit visit) {
    WIN32_FIND_DATAW found;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..") {
            visit(name, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

// Names of the files, or of the folders, in a folder.
std::vector<std::wstring> Names(const std::wstring& folder, bool folders) {
    std::vector<std::wstring> names;
    VisitFolder(folder, [&](const std::wstring& name, bool isFolder) {
        if (isFolder == folders) {
            names.push_back(name);
        }
    });
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

bool FileExists(const std::wstring& path) {
    return HasAttributes(path, false);
}

bool FolderExists(const std::wstring& path) {
    return HasAttributes(path, true);
}

std::optional<std::string> TryReadBytes(const std::wstring& path) {
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0,
                                      nullptr));
    if (!file.Valid()) {
        return std::nullopt;
    }
    std::string bytes;
    char buffer[65536];
    for (;;) {
        DWORD got = 0;
        if (!ReadFile(file.Get(), buffer, sizeof buffer, &got, nullptr)) {
            return std::nullopt;
        }
        if (got == 0) {
            return bytes;
        }
        bytes.append(buffer, got);
    }
}

std::string ReadBytes(const std::wstring& path) {
    std::optional<std::string> bytes = TryReadBytes(path);
    if (!bytes) {
        Fail("cannot read", path);
    }
    return *bytes;
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                      CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    if (!file.Valid() || !WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size()) {
        Fail("cannot write", path);
    }
}

void CopyOver(const std::wstring& from, const std::wstring& to) {
    if (!CopyFileW(from.c_str(), to.c_str(), FALSE)) {
        Fail("cannot copy", from);
    }
}

void MakeFolders(const std::wstring& path) {
    if (FolderExists(path)) {
        return;
    }
    const std::size_t slash = path.rfind(L'\\');
    if (slash != std::wstring::npos && slash > 2) {
        MakeFolders(path.substr(0, slash));
    }
    if (!CreateDirectoryW(path.c_str(), nullptr) && !FolderExists(path)) {
        Fail("cannot make folder", path);
    }
}

void Rename(const std::wstring& from, const std::wstring& to) {
    if (!MoveFileW(from.c_str(), to.c_str())) {
        Fail("cannot rename", from);
    }
}

void DeleteFileIfThere(const std::wstring& path) {
    if (!DeleteFileW(path.c_str()) && FileExists(path)) {
        Fail("cannot delete", path);
    }
}

void DeleteTree(const std::wstring& path) {
    std::vector<std::pair<std::wstring, bool>> entries;
    VisitFolder(path, [&](const std::wstring& name, bool folder) { entries.emplace_back(name, folder); });
    for (const auto& [name, folder] : entries) {
        const std::wstring entry = path + L"\\" + name;
        if (folder) {
            DeleteTree(entry);
        } else {
            DeleteFileIfThere(entry);
        }
    }
    if (FolderExists(path) && !RemoveDirectoryW(path.c_str())) {
        Fail("cannot remove folder", path);
    }
}

std::vector<std::wstring> FileNames(const std::wstring& folder) {
    return Names(folder, false);
}

std::vector<std::wstring> FolderNames(const std::wstring& folder) {
    return Names(folder, true);
}

std::string Utf16Bytes(const std::wstring& text) {
    std::string bytes = "\xFF\xFE";
    for (const wchar_t unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
}

std::wstring Utf16Text(const std::string& bytes) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text.push_back(
            static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8));
    }
    if (!text.empty() && text.front() == 0xFEFF) {
        text.erase(0, 1);
    }
    return text;
}

std::string AnsiBytes(const std::wstring& text) {
    return Narrow(CP_ACP, text);
}

std::string Utf8Bytes(const std::wstring& text) {
    return Narrow(CP_UTF8, text);
}

std::wstring FromUtf8(const std::string& bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
    return text;
}

std::vector<std::wstring> Lines(const std::wstring& text) {
    std::vector<std::wstring> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find(L"\r\n", start);
        lines.push_back(text.substr(start, end == std::wstring::npos ? end : end - start));
        start = end == std::wstring::npos ? text.size() : end + 2;
    }
    return lines;
}

}  // namespace driver
