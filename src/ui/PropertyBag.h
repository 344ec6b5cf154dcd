#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>

namespace korvanta {

// The design-time properties of a control that its form stores: by name, and only those that differ from the default.
// Numbers, colors and booleans are all stored as numbers.
class PropertyBag {
  public:
    struct Property {
        template <std::integral Number>
        Property(const char16_t* property, Number value) : name(property), number(value) {}
        Property(const char16_t* property, const char16_t* value) : name(property), text(value), isText(true) {}

        std::u16string name;
        std::int64_t number = 0;
        std::u16string text;
        bool isText = false;
    };

    PropertyBag() = default;
    PropertyBag(std::initializer_list<Property> properties) {
        for (const Property& property : properties) {
            if (property.isText) {
                texts_[property.name] = property.text;
            } else {
                numbers_[property.name] = property.number;
            }
        }
    }

    // The default, too, when a text is stored under a number's name or a number under a text's.
    template <std::integral Number>
    Number Read(const std::u16string& name, Number byDefault) const {
        const auto found = numbers_.find(name);
        return found != numbers_.end() ? static_cast<Number>(found->second) : byDefault;
    }
    std::u16string Read(const std::u16string& name, const char16_t* byDefault) const {
        const auto found = texts_.find(name);
        return found != texts_.end() ? found->second : byDefault;
    }
    template <std::integral Number>
    void Write(const std::u16string& name, Number value, Number byDefault) {
        if (value == byDefault) {
            numbers_.erase(name);
        } else {
            numbers_[name] = value;
        }
    }
    void Write(const std::u16string& name, const std::u16string& value, const char16_t* byDefault) {
        if (value == byDefault) {
            texts_.erase(name);
        } else {
            texts_[name] = value;
        }
    }
    std::size_t Size() const { return numbers_.size() + texts_.size(); }

  private:
    std::map<std::u16string, std::int64_t> numbers_;
    std::map<std::u16string, std::u16string> texts_;
};

}  // namespace korvanta
