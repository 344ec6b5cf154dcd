#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace korvanta {

namespace registryAccess {
inline constexpr std::uint32_t query = 1;
inline constexpr std::uint32_t set = 2;
inline constexpr std::uint32_t full = 63;
}  // namespace registryAccess

// An open key; closed when destroyed. All results are Windows error codes; 0 is success.
class RegistryKey {
  public:
    virtual ~RegistryKey() = default;
    // REG_SZ (or REG_EXPAND_SZ, unexpanded), without terminating NULs. Any other type is an error.
    virtual std::uint32_t QueryText(const std::u16string& name, std::u16string& text) = 0;
    // REG_DWORD; any other type or size is an error.
    virtual std::uint32_t QueryNumber(const std::u16string& name, std::int32_t& number) = 0;
    virtual std::uint32_t SetText(const std::u16string& name, const std::u16string& text) = 0;
    virtual std::uint32_t SetNumber(const std::u16string& name, std::int32_t number) = 0;
};

enum class RegistryHive { LocalMachine, CurrentUser };

class Registry {
  public:
    virtual ~Registry() = default;
    // Opens a key that exists. `access` is one of registryAccess. `key` is set only when 0 is returned.
    virtual std::uint32_t Open(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                               std::unique_ptr<RegistryKey>& key) = 0;
    // Opens a key; creates it when it is missing. `key` is set only when 0 is returned.
    virtual std::uint32_t Create(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                                 std::unique_ptr<RegistryKey>& key) = 0;
};

}  // namespace korvanta
