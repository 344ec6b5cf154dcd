#include "fakes/FakeRegistry.h"

#include <algorithm>

#include "common/Text.h"
#include "platform/FileSystem.h"

namespace korvanta::fakes {

namespace {
constexpr std::uint32_t unsupportedType = 1630;
}

class FakeRegistry::Key : public RegistryKey {
  public:
    Key(FakeRegistry& registry, std::u16string name, std::uint32_t access)
        : registry_(registry), name_(std::move(name)), access_(access) {
        ++registry_.openKeys;
    }
    ~Key() override { --registry_.openKeys; }

    std::uint32_t QueryText(const std::u16string& name, std::u16string& text) override {
        return Query("QueryText", name, text);
    }
    std::uint32_t QueryNumber(const std::u16string& name, std::int32_t& number) override {
        return Query("QueryNumber", name, number);
    }
    std::uint32_t SetText(const std::u16string& name, const std::u16string& text) override {
        return Set("SetText", name, text);
    }
    std::uint32_t SetNumber(const std::u16string& name, std::int32_t number) override {
        return Set("SetNumber", name, number);
    }

  private:
    template <class T>
    std::uint32_t Query(std::string_view call, const std::u16string& name, T& result) {
        if (const std::uint32_t fault = registry_.Begin(call, name)) {
            return fault;
        }
        if ((access_ & registryAccess::query) == 0) {
            return windowsError::accessDenied;
        }
        const Values& values = registry_.keys_[name_];
        const auto found = values.find(Lower(name));
        if (found == values.end()) {
            return windowsError::fileNotFound;
        }
        const T* value = std::get_if<T>(&found->second);
        if (value == nullptr) {
            return unsupportedType;
        }
        result = *value;
        return windowsError::none;
    }
    std::uint32_t Set(std::string_view call, const std::u16string& name, Value value) {
        if (const std::uint32_t fault = registry_.Begin(call, name)) {
            return fault;
        }
        if ((access_ & registryAccess::set) == 0) {
            return windowsError::accessDenied;
        }
        registry_.keys_[name_][Lower(name)] = std::move(value);
        return windowsError::none;
    }

    FakeRegistry& registry_;
    std::u16string name_;
    std::uint32_t access_;
};

std::u16string FakeRegistry::KeyName(RegistryHive hive, const std::u16string& subKey) {
    return (hive == RegistryHive::LocalMachine ? u"hklm\\" : u"hkcu\\") + Lower(subKey);
}

std::uint32_t FakeRegistry::Begin(std::string_view call, const std::u16string& detail) {
    log.push_back(FromAscii(call) + u" " + detail);
    return faults.Check(call, detail);
}

std::uint32_t FakeRegistry::Refused(std::uint32_t access) const {
    return std::find(refusedAccess.begin(), refusedAccess.end(), access) == refusedAccess.end()
               ? windowsError::none
               : windowsError::accessDenied;
}

void FakeRegistry::Put(RegistryHive hive, const std::u16string& subKey, const std::u16string& name,
                       const std::u16string& text) {
    keys_[KeyName(hive, subKey)][Lower(name)] = text;
}

void FakeRegistry::Put(RegistryHive hive, const std::u16string& subKey, const std::u16string& name,
                       std::int32_t number) {
    keys_[KeyName(hive, subKey)][Lower(name)] = number;
}

const FakeRegistry::Value* FakeRegistry::FindValue(const std::u16string& subKey, const std::u16string& name) const {
    const auto key = keys_.find(KeyName(RegistryHive::LocalMachine, subKey));
    if (key == keys_.end()) {
        return nullptr;
    }
    const auto value = key->second.find(Lower(name));
    return value == key->second.end() ? nullptr : &value->second;
}

bool FakeRegistry::Has(const std::u16string& subKey, const std::u16string& name) const {
    return FindValue(subKey, name) != nullptr;
}

std::u16string FakeRegistry::Text(const std::u16string& subKey, const std::u16string& name) const {
    const Value* value = FindValue(subKey, name);
    const std::u16string* text = value != nullptr ? std::get_if<std::u16string>(value) : nullptr;
    return text != nullptr ? *text : std::u16string();
}

std::int32_t FakeRegistry::Number(const std::u16string& subKey, const std::u16string& name) const {
    const Value* value = FindValue(subKey, name);
    const std::int32_t* number = value != nullptr ? std::get_if<std::int32_t>(value) : nullptr;
    return number != nullptr ? *number : 0;
}

std::uint32_t FakeRegistry::Open(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                                 std::unique_ptr<RegistryKey>& key) {
    if (const std::uint32_t fault = Begin("Open", subKey + u" " + NumberText(access))) {
        return fault;
    }
    const std::u16string name = KeyName(hive, subKey);
    if (!keys_.contains(name)) {
        return windowsError::fileNotFound;
    }
    if (const std::uint32_t error = Refused(access)) {
        return error;
    }
    key = std::make_unique<Key>(*this, name, access);
    return windowsError::none;
}

std::uint32_t FakeRegistry::Create(RegistryHive hive, const std::u16string& subKey, std::uint32_t access,
                                   std::unique_ptr<RegistryKey>& key) {
    if (const std::uint32_t fault = Begin("Create", subKey + u" " + NumberText(access))) {
        return fault;
    }
    if (const std::uint32_t error = Refused(access)) {
        return error;
    }
    const std::u16string name = KeyName(hive, subKey);
    keys_[name];
    key = std::make_unique<Key>(*this, name, access);
    return windowsError::none;
}

}  // namespace korvanta::fakes
