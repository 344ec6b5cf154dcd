#include "common/List.h"

#include <algorithm>

#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::uint32_t lockTimeout = 10'000;

Error ListError(std::int32_t number, std::u16string description) {
    return {userErrorBase + number, u"List", std::move(description)};
}

using Range = std::vector<Variant>;

Range Merged(const Range& left, const Range& right, IComparator& comparator) {
    Range merged;
    merged.reserve(left.size() + right.size());
    std::size_t l = 0;
    std::size_t r = 0;
    while (l < left.size() && r < right.size()) {
        merged.push_back(comparator.Compare(left[l], right[r]) > 0 ? right[r++] : left[l++]);
    }
    merged.insert(merged.end(), left.begin() + static_cast<std::ptrdiff_t>(l), left.end());
    merged.insert(merged.end(), right.begin() + static_cast<std::ptrdiff_t>(r), right.end());
    return merged;
}

Range Sorted(const Range& items, std::size_t first, std::size_t count, IComparator& comparator) {
    if (count == 1) {
        return {items[first]};
    }
    if (count == 2) {
        if (comparator.Compare(items[first], items[first + 1]) > 0) {
            return {items[first + 1], items[first]};
        }
        return {items[first], items[first + 1]};
    }
    const std::size_t half = count / 2;
    const Range left = Sorted(items, first, half, comparator);
    return Merged(left, Sorted(items, first + half, count - half, comparator), comparator);
}

}  // namespace

// Holds the list's mutex while it lives.
class List::Lock {
  public:
    explicit Lock(const List& list) : mutex_(*list.mutex_) {
        switch (mutex_.Wait(lockTimeout)) {
            case WaitResult::Acquired:
                return;
            case WaitResult::TimedOut:
                throw ListError(34031, u"Mutex wait timed out.");
            case WaitResult::Failed:
                throw ListError(34032, u"Mutex wait failed.");
        }
    }
    ~Lock() {
        if (held_) {
            std::uint32_t ignoredWhileUnwinding = 0;
            mutex_.Release(ignoredWhileUnwinding);
        }
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    // Every operation that succeeds ends with this, so that a refused release is told.
    void Release() {
        held_ = false;
        std::uint32_t errorCode = 0;
        if (!mutex_.Release(errorCode)) {
            throw ListError(34033, u"Unable to release mutex. GetLastError returned: " +
                                       NumberText(static_cast<std::int64_t>(errorCode)));
        }
    }

  private:
    Mutex& mutex_;
    bool held_ = true;
};

List::List(MutexFactory& mutexes) : mutexes_(mutexes) {
    std::uint32_t errorCode = 0;
    mutex_ = mutexes.CreateOwned(errorCode);
    if (!mutex_) {
        throw ListError(34030, u"Unable to create mutex. GetLastError returned: " +
                                   NumberText(static_cast<std::int64_t>(errorCode)));
    }
}

void List::CheckIndex(std::int32_t index) const {
    if (index < 0 || index >= static_cast<std::int32_t>(items_.size())) {
        throw ListError(34010, u"Index out of range.");
    }
}

std::int32_t List::Find(const Variant& value) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&value](const Variant& item) { return item.Equals(value); });
    return found == items_.end() ? -1 : static_cast<std::int32_t>(found - items_.begin());
}

std::int32_t List::Length() const {
    Lock lock(*this);
    const auto length = static_cast<std::int32_t>(items_.size());
    lock.Release();
    return length;
}

Variant List::Item(std::int32_t index) const {
    Lock lock(*this);
    CheckIndex(index);
    Variant value = items_[static_cast<std::size_t>(index)];
    lock.Release();
    return value;
}

void List::Item(std::int32_t index, Variant value) {
    Lock lock(*this);
    CheckIndex(index);
    items_[static_cast<std::size_t>(index)] = std::move(value);
    lock.Release();
}

std::vector<Variant> List::Items() const {
    Lock lock(*this);
    std::vector<Variant> copy = items_;
    lock.Release();
    return copy;
}

void List::Append(Variant value) {
    Lock lock(*this);
    items_.push_back(std::move(value));
    lock.Release();
}

void List::Push(Variant value) {
    Append(std::move(value));
}

Variant List::Pop(std::int32_t index) {
    Lock lock(*this);
    if (items_.empty()) {
        throw ListError(34012, u"Cannot pop item off an empty list.");
    }
    if (index == -1) {
        index = static_cast<std::int32_t>(items_.size()) - 1;
    }
    CheckIndex(index);
    Variant value = std::move(items_[static_cast<std::size_t>(index)]);
    items_.erase(items_.begin() + index);
    lock.Release();
    return value;
}

bool List::Contains(const Variant& value) const {
    return Index(value) != -1;
}

std::int32_t List::Index(const Variant& value) const {
    Lock lock(*this);
    const std::int32_t index = Find(value);
    lock.Release();
    return index;
}

void List::Delete(std::int32_t index) {
    Lock lock(*this);
    CheckIndex(index);
    items_.erase(items_.begin() + index);
    lock.Release();
}

void List::Remove(const Variant& value) {
    Lock lock(*this);
    const std::int32_t index = Find(value);
    if (index == -1) {
        throw ListError(34011, u"The value is not in the list.");
    }
    items_.erase(items_.begin() + index);
    lock.Release();
}

std::u16string List::ToString() const {
    std::vector<std::u16string> pieces;
    for (const Variant& item : Items()) {
        pieces.push_back(item.Rendering());
    }
    return u"[" + Join(pieces, u", ") + u"]";
}

void List::Sort(IComparator& comparator) {
    Lock lock(*this);
    if (items_.size() >= 2) {
        items_ = Sorted(items_, 0, items_.size(), comparator);
    }
    lock.Release();
}

std::shared_ptr<List> List::Clone() const {
    auto clone = std::make_shared<List>(mutexes_);
    clone->items_ = Items();
    return clone;
}

void List::Extend(const List& other) {
    std::vector<Variant> added = other.Items();
    Lock lock(*this);
    items_.insert(items_.end(), added.begin(), added.end());
    lock.Release();
}

}  // namespace korvanta
