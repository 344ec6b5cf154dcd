#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "common/IComparator.h"
#include "common/Object.h"
#include "common/Variant.h"
#include "platform/Mutex.h"

namespace korvanta {

// Error numbers of List are relative to this base.
inline constexpr std::int32_t userErrorBase = static_cast<std::int32_t>(0x80040000U);

// The program's ordered, zero-based, growable list. Objects are held by reference and shared with the caller, other
// values are copied. Every operation waits for the list's mutex, which the creating thread owns from the beginning and
// never gives up: on that thread the waits succeed at once, on any other they time out.
//
// Raises Error with source "List" and the number userErrorBase plus: 34010 an index outside 0 to Length - 1; 34011
// Remove of what is not there; 34012 Pop of an empty list; 34030 the mutex cannot be created; 34031 and 34032 waiting
// for it times out (10,000 ms) or fails; 34033 it cannot be released. A failed operation leaves the list unchanged;
// that includes a Sort whose comparator raises.
class List : public Object {
  public:
    explicit List(MutexFactory& mutexes);

    std::int32_t Length() const;
    Variant Item(std::int32_t index) const;
    void Item(std::int32_t index, Variant value);
    // A copy of all elements. Walk over this: it does not change when the list does.
    std::vector<Variant> Items() const;
    void Append(Variant value);
    void Push(Variant value);
    // -1 is the last element.
    Variant Pop(std::int32_t index = -1);
    bool Contains(const Variant& value) const;
    // -1 when no element is equal.
    std::int32_t Index(const Variant& value) const;
    void Delete(std::int32_t index);
    void Remove(const Variant& value);
    // "[" the elements joined by ", " "]".
    std::u16string ToString() const;
    // Stable merge sort.
    void Sort(IComparator& comparator);
    std::shared_ptr<List> Clone() const;
    void Extend(const List& other);

  private:
    class Lock;
    void CheckIndex(std::int32_t index) const;
    std::int32_t Find(const Variant& value) const;
    Variant TakeOut(std::int32_t index, Lock& lock);

    MutexFactory& mutexes_;
    std::unique_ptr<Mutex> mutex_;
    std::vector<Variant> items_;
};

}  // namespace korvanta
