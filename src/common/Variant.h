#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/Error.h"
#include "common/Object.h"
#include "platform/Clock.h"

namespace korvanta {

// One value of any kind, as a List holds them. Copies share their text, which never changes, or their object.
class Variant {
  public:
    struct Null {
        bool operator==(const Null&) const = default;
    };
    struct ErrorValue {
        std::int32_t number = 0;
        bool operator==(const ErrorValue&) const = default;
    };
    // Money: the amount times 10,000.
    struct Currency {
        std::int64_t tenThousandths = 0;
        bool operator==(const Currency&) const = default;
    };
    using Array = std::vector<Variant>;

    Variant() = default;  // the empty value
    Variant(Null value) : value_(value) {}
    Variant(ErrorValue value) : value_(value) {}
    Variant(Currency value) : value_(value) {}
    Variant(bool value) : value_(value) {}
    Variant(std::uint8_t value) : value_(value) {}
    Variant(std::int16_t value) : value_(value) {}
    Variant(std::int32_t value) : value_(value) {}
    Variant(float value) : value_(value) {}
    Variant(double value) : value_(value) {}
    Variant(DateTime value) : value_(value) {}
    Variant(const char16_t* text) : Variant(std::u16string(text)) {}
    Variant(std::u16string text) : value_(std::make_shared<const std::u16string>(std::move(text))) {}
    Variant(Array items) : value_(std::make_shared<const Array>(std::move(items))) {}
    template <class T>
    requires std::is_base_of_v<Object, T> Variant(std::shared_ptr<T> object)
        : value_(std::shared_ptr<Object>(std::move(object))) {}

    bool IsEmpty() const { return std::holds_alternative<std::monostate>(value_); }
    bool IsObject() const { return std::holds_alternative<ObjectReference>(value_); }
    bool IsText() const { return std::holds_alternative<TextReference>(value_); }
    bool IsNumber() const;

    // The value. Raises Error 13 "Type mismatch" when it is of another kind.
    std::int32_t Integer() const;
    double Number() const;
    const std::u16string& Text() const;
    bool Boolean() const;
    const std::shared_ptr<Object>& Reference() const;
    // The object as a T; none when it is not one.
    template <class T>
    std::shared_ptr<T> As() const {
        return std::dynamic_pointer_cast<T>(Reference());
    }
    // The same without counting the reference, for tight loops. Valid while this or another reference is there.
    template <class T>
    T* Peek() const {
        return dynamic_cast<T*>(Reference().get());
    }

    // The equality by which a List searches. Objects are equal when they are the same object, numbers of any kind when
    // they have the same value (true is -1), texts when they are the same exactly. The empty value equals itself, 0,
    // false and the empty text. Null and arrays equal nothing. Other values of different kinds are not equal.
    bool Equals(const Variant& other) const;
    // The value in ToString of a List. Numbers and dates do not follow the regional settings.
    std::u16string Rendering() const;

  private:
    using TextReference = std::shared_ptr<const std::u16string>;
    using ArrayReference = std::shared_ptr<const Array>;
    using ObjectReference = std::shared_ptr<Object>;

    std::variant<std::monostate, Null, ErrorValue, Currency, bool, std::uint8_t, std::int16_t, std::int32_t, float,
                 double, DateTime, TextReference, ArrayReference, ObjectReference>
        value_;
};

}  // namespace korvanta
