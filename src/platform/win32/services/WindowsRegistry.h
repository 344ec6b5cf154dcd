#pragma once

#include "platform/Registry.h"

namespace korvanta {

class WindowsRegistry : public Registry {
  public:
    std::uint32_t Open(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                       std::unique_ptr<RegistryKey>& key) override;
    std::uint32_t Create(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                         std::unique_ptr<RegistryKey>& key) override;
};

}  // namespace korvanta
