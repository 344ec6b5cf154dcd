#pragma once

#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "fakes/FaultPlan.h"
#include "platform/Registry.h"

namespace korvanta::fakes {

// Keys and value names are compared without regard to letter case. Errors: 2 for a missing key or value, 5
// for a key without the needed access or whose access is refused, 1630 for a value of another type.
class FakeRegistry : public Registry {
  public:
    // For tests: puts a value into the store, and creates its key.
    void Put(RegistryHive hive, const std::u16string& subKey, const std::u16string& name, const std::u16string& text);
    void Put(RegistryHive hive, const std::u16string& subKey, const std::u16string& name, std::int32_t number);
    void Put(const std::u16string& subKey, const std::u16string& name, const std::u16string& text) {
        Put(RegistryHive::LocalMachine, subKey, name, text);
    }
    void Put(const std::u16string& subKey, const std::u16string& name, std::int32_t number) {
        Put(RegistryHive::LocalMachine, subKey, name, number);
    }
    bool Has(const std::u16string& subKey, const std::u16string& name) const;
    // Returns an empty text, or 0, if there is no such value under HKEY_LOCAL_MACHINE.
    std::u16string Text(const std::u16string& subKey, const std::u16string& name) const;
    std::int32_t Number(const std::u16string& subKey, const std::u16string& name) const;

    FaultPlan faults;
    // The kinds of access (registryAccess) that Open and Create refuse.
    std::vector<std::uint32_t> refusedAccess;
    // "Open SOFTWARE\Korvanta 1", "SetText LinkName", ... in order.
    std::vector<std::u16string> log;
    int openKeys = 0;

    std::uint32_t Open(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                       std::unique_ptr<RegistryKey>& key) override;
    std::uint32_t Create(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                         std::unique_ptr<RegistryKey>& key) override;

  private:
    class Key;
    friend class Key;
    using Value = std::variant<std::u16string, std::int32_t>;
    using Values = std::map<std::u16string, Value>;
    static std::u16string KeyName(RegistryHive hive, const std::u16string& subKey);
    std::uint32_t Begin(std::string_view call, const std::u16string& detail);
    std::uint32_t Refused(std::uint32_t access) const;
    const Value* FindValue(const std::u16string& subKey, const std::u16string& name) const;

    std::map<std::u16string, Values> keys_;
};

}  // namespace korvanta::fakes
