#include "platform/win32/services/WindowsFileSystem.h"

#include <windows.h>

#include <objbase.h>

#include <algorithm>

#include "platform/win32/calls/Failure.h"
#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr std::size_t largestTransfer = 0x10000000;

DWORD Transfer(std::size_t size) {
    return static_cast<DWORD>(std::min(size, largestTransfer));
}

class WindowsInputFile : public InputFile {
  public:
    explicit WindowsInputFile(FileHandle file) : file_(std::move(file)) {}

    std::uint32_t Read(void* buffer, std::size_t size, std::size_t& got) override {
        DWORD read = 0;
        const bool done = ::ReadFile(file_.Get(), buffer, Transfer(size), &read, nullptr) != 0;
        got = done ? read : 0;
        return done ? windowsError::none : FailureCode();
    }

  private:
    FileHandle file_;
};

class WindowsOutputFile : public OutputFile {
  public:
    WindowsOutputFile(FileHandle file, bool append) : file_(std::move(file)), append_(append) {}

    std::uint32_t Write(const void* bytes, std::size_t size) override {
        if (append_) {
            const std::uint32_t error = SeekEnd();
            if (error != windowsError::none) {
                return error;
            }
        }
        const auto* next = static_cast<const char*>(bytes);
        while (size > 0) {
            const DWORD part = Transfer(size);
            DWORD written = 0;
            if (!::WriteFile(file_.Get(), next, part, &written, nullptr)) {
                return FailureCode();
            }
            if (written == 0) {
                return windowsError::diskFull;
            }
            next += written;
            size -= written;
        }
        return windowsError::none;
    }

    std::uint32_t Length(std::uint64_t& length) override {
        DWORD high = 0;
        const DWORD low = ::GetFileSize(file_.Get(), &high);
        if (low == INVALID_FILE_SIZE && ::GetLastError() != NO_ERROR) {
            return FailureCode();
        }
        length = (static_cast<std::uint64_t>(high) << 32) | low;
        return windowsError::none;
    }

    std::uint32_t Close() override { return file_.Reset() ? windowsError::none : FailureCode(); }

  private:
    std::uint32_t SeekEnd() {
        LONG high = 0;
        const DWORD low = ::SetFilePointer(file_.Get(), 0, &high, FILE_END);
        return low == INVALID_SET_FILE_POINTER && ::GetLastError() != NO_ERROR ? FailureCode() : windowsError::none;
    }

    FileHandle file_;
    bool append_;
};

bool HasAttributes(const std::u16string& path, DWORD& attributes) {
    attributes = textCalls::PathAttributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES;
}

// Windows would take a text with a zero inside for the shorter path before the zero.
bool IsPath(const std::u16string& path) {
    return path.find(u'\0') == std::u16string::npos;
}

}  // namespace

std::uint32_t WindowsFileSystem::OpenForReading(const std::u16string& path, std::unique_ptr<InputFile>& file) {
    if (!IsPath(path)) {
        return windowsError::invalidName;
    }
    // Windows 9x refuses FILE_SHARE_DELETE.
    const DWORD sharing =
        FILE_SHARE_READ | FILE_SHARE_WRITE | (textCalls::IsWindows9x() ? 0 : static_cast<DWORD>(FILE_SHARE_DELETE));
    FileHandle opened(textCalls::OpenPath(path, GENERIC_READ, sharing, OPEN_EXISTING));
    if (!opened) {
        return FailureCode();
    }
    file = std::make_unique<WindowsInputFile>(std::move(opened));
    return windowsError::none;
}

std::uint32_t WindowsFileSystem::OpenForWriting(const std::u16string& path, OutputMode mode,
                                                std::unique_ptr<OutputFile>& file) {
    if (!IsPath(path)) {
        return windowsError::invalidName;
    }
    FileHandle opened(textCalls::OpenPath(path, GENERIC_WRITE, FILE_SHARE_READ,
                                          mode == OutputMode::Truncate ? CREATE_ALWAYS : OPEN_ALWAYS));
    if (!opened) {
        return FailureCode();
    }
    file = std::make_unique<WindowsOutputFile>(std::move(opened), mode == OutputMode::Append);
    return windowsError::none;
}

bool WindowsFileSystem::FileExists(const std::u16string& path) {
    DWORD attributes = 0;
    return IsPath(path) && HasAttributes(path, attributes) && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool WindowsFileSystem::FolderExists(const std::u16string& path) {
    DWORD attributes = 0;
    return IsPath(path) && HasAttributes(path, attributes) && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::uint32_t WindowsFileSystem::LastModified(const std::u16string& path, std::uint64_t& time) {
    // With a wildcard FindPath would find some other file.
    if (!IsPath(path) || path.find_first_of(u"*?") != std::u16string::npos) {
        return windowsError::invalidName;
    }
    DWORD attributes = 0;
    FILETIME lastWrite{};
    if (!textCalls::FindPath(path, attributes, lastWrite)) {
        return FailureCode();
    }
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) {
        return windowsError::fileNotFound;
    }
    time = (static_cast<std::uint64_t>(lastWrite.dwHighDateTime) << 32) | lastWrite.dwLowDateTime;
    return windowsError::none;
}

std::uint32_t WindowsFileSystem::Copy(const std::u16string& from, const std::u16string& to) {
    if (!IsPath(from) || !IsPath(to)) {
        return windowsError::invalidName;
    }
    return textCalls::CopyPath(from, to) ? windowsError::none : FailureCode();
}

std::uint32_t WindowsFileSystem::Delete(const std::u16string& path) {
    if (!IsPath(path)) {
        return windowsError::invalidName;
    }
    DWORD attributes = 0;
    if (HasAttributes(path, attributes) && (attributes & FILE_ATTRIBUTE_READONLY)) {
        textCalls::SetPathAttributes(path, attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    }
    return textCalls::DeletePath(path) ? windowsError::none : FailureCode();
}

std::u16string WindowsFileSystem::TemporaryFolder() {
    std::u16string folder = textCalls::TemporaryFolder();
    if (!folder.empty() && folder.back() == u'\\') {
        folder.pop_back();
    }
    return folder;
}

std::u16string WindowsFileSystem::TemporaryName() {
    // A GUID is unique among all processes and machines, so no file of that name can exist.
    GUID identifier{};
    ::CoCreateGuid(&identifier);
    const auto* bytes = reinterpret_cast<const unsigned char*>(&identifier);
    std::u16string name;
    for (std::size_t i = 0; i < sizeof(identifier); ++i) {
        constexpr char16_t digits[] = u"0123456789ABCDEF";
        name += digits[bytes[i] >> 4];
        name += digits[bytes[i] & 15];
    }
    return name + u".tmp";
}

}  // namespace korvanta
