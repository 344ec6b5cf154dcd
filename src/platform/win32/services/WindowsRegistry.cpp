#include "platform/win32/services/WindowsRegistry.h"

#include <windows.h>

#include <cstring>
#include <vector>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

class WindowsRegistryKey : public RegistryKey {
  public:
    explicit WindowsRegistryKey(RegistryKeyHandle key) : key_(std::move(key)) {}

    std::uint32_t QueryText(const std::u16string& name, std::u16string& text) override {
        DWORD type = REG_NONE;
        std::vector<unsigned char> data;
        const LONG result = textCalls::QueryValue(key_.Get(), name, type, data);
        if (result != ERROR_SUCCESS) {
            return static_cast<std::uint32_t>(result);
        }
        if (type != REG_SZ && type != REG_EXPAND_SZ) {
            return ERROR_INVALID_DATA;
        }
        text = textCalls::FromNativeBytes(data.data(), data.size());
        text.resize(text.find_last_not_of(u'\0') + 1);
        return ERROR_SUCCESS;
    }

    std::uint32_t QueryNumber(const std::u16string& name, std::int32_t& number) override {
        DWORD type = REG_NONE;
        std::vector<unsigned char> data;
        const LONG result = textCalls::QueryValue(key_.Get(), name, type, data);
        if (result != ERROR_SUCCESS) {
            return static_cast<std::uint32_t>(result);
        }
        if (type != REG_DWORD || data.size() != sizeof(number)) {
            return ERROR_INVALID_DATA;
        }
        std::memcpy(&number, data.data(), sizeof(number));
        return ERROR_SUCCESS;
    }

    std::uint32_t SetText(const std::u16string& name, const std::u16string& text) override {
        textCalls::NativeText native(text);
        return static_cast<std::uint32_t>(
            textCalls::SetValue(key_.Get(), name, REG_SZ, native.Pointer(), native.SizeWithZero()));
    }

    std::uint32_t SetNumber(const std::u16string& name, std::int32_t number) override {
        return static_cast<std::uint32_t>(textCalls::SetValue(key_.Get(), name, REG_DWORD, &number, sizeof(number)));
    }

  private:
    RegistryKeyHandle key_;
};

HKEY Root(RegistryHive hive) {
    return hive == RegistryHive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::uint32_t Keep(LONG result, HKEY opened, std::unique_ptr<RegistryKey>& key) {
    if (result == ERROR_SUCCESS) {
        key = std::make_unique<WindowsRegistryKey>(RegistryKeyHandle(opened));
    }
    return static_cast<std::uint32_t>(result);
}

}  // namespace

std::uint32_t WindowsRegistry::Open(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                                    std::unique_ptr<RegistryKey>& key) {
    HKEY opened = nullptr;
    const LONG result = textCalls::OpenKey(Root(hive), subKey, access, opened);
    return Keep(result, opened, key);
}

std::uint32_t WindowsRegistry::Create(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                                      std::unique_ptr<RegistryKey>& key) {
    HKEY opened = nullptr;
    const LONG result = textCalls::CreateKey(Root(hive), subKey, access, opened);
    return Keep(result, opened, key);
}

}  // namespace korvanta
