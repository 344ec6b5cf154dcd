#include "driver/RemoteMemory.h"

namespace driver {

RemoteMemory::RemoteMemory(DWORD processId, std::size_t size)
    : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId)) {
    if (process_ != nullptr) {
        address_ = VirtualAllocEx(process_, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
}

RemoteMemory::~RemoteMemory() {
    if (address_ != nullptr) {
        VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
    }
    if (process_ != nullptr) {
        CloseHandle(process_);
    }
}

bool RemoteMemory::Write(std::size_t offset, const void* bytes, std::size_t size) const {
    return Valid() && WriteProcessMemory(process_, At(offset), bytes, size, nullptr);
}

bool RemoteMemory::Read(std::size_t offset, void* bytes, std::size_t size) const {
    return Valid() && ReadProcessMemory(process_, At(offset), bytes, size, nullptr);
}

std::wstring RemoteMemory::ReadText(std::size_t offset, std::size_t capacity) const {
    std::wstring text(capacity, L'\0');
    if (!Read(offset, text.data(), capacity * sizeof(wchar_t))) {
        return {};
    }
    return text.substr(0, text.find(L'\0'));
}

}  // namespace driver
