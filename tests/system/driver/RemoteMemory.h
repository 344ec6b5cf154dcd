#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace driver {

// A piece of another process's memory, for messages that carry pointers. Both processes are of the same width.
class RemoteMemory {
  public:
    RemoteMemory(DWORD processId, std::size_t size);
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    bool Valid() const { return address_ != nullptr; }
    void* At(std::size_t offset) const { return static_cast<char*>(address_) + offset; }
    bool Write(std::size_t offset, const void* bytes, std::size_t size) const;
    bool Read(std::size_t offset, void* bytes, std::size_t size) const;
    // The text at the offset, up to its terminating U+0000 or `capacity` characters.
    std::wstring ReadText(std::size_t offset, std::size_t capacity) const;

  private:
    HANDLE process_;
    void* address_ = nullptr;
};

}  // namespace driver
