#include "common/List.h"

#include <algorithm>
#include <iterator>

#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::uint32_t lockTimeout = 10'000;

Error ListError(std::int32_t number, std::u16string description) {
    return {userErrorBase + number, u"List", std::move(description)};
}

// Merge sort of `count` elements, at least one; `scratch` has room for half of them.
void SortRange(Variant** first, std::size_t count, Variant** scratch, IComparator& comparator) {
    if (count == 1) {
        return;
    }
    if (count == 2) {
        if (comparator.Compare(*first[0], *first[1]) > 0) {
            std::swap(first[0], first[1]);
        }
        return;
    }
    Variant** const middle = first + count / 2;
    Variant** const end = first + count;
    SortRange(first, count / 2, scratch, comparator);
    SortRange(middle, count - count / 2, scratch, comparator);

    Variant** const leftEnd = std::copy(first, middle, scratch);
    Variant** left = scratch;
    Variant** right = middle;
    Variant** next = first;
    while (left != leftEnd && right != end) {
        *next++ = comparator.Compare(**left, **right) > 0 ? *right++ : *left++;
    }
    std::copy(left, leftEnd, next);
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

    // The last step of every successful operation. When the mutex cannot be released, `undo` reverts what the operation
    // has changed, and an Error is raised.
    template <class Undo>
    void Release(Undo undo) {
        held_ = false;
        std::uint32_t errorCode = 0;
        if (!mutex_.Release(errorCode)) {
            undo();
            throw ListError(34033, u"Unable to release mutex. GetLastError returned: " +
                                       NumberText(static_cast<std::int64_t>(errorCode)));
        }
    }
    void Release() {
        Release([] {});
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

// The element is destroyed after the lock is released, since an object's destructor may use this list.
Variant List::TakeOut(std::int32_t index, Lock& lock) {
    Variant value = std::move(items_[static_cast<std::size_t>(index)]);
    items_.erase(items_.begin() + index);
    lock.Release([&] { items_.insert(items_.begin() + index, value); });
    return value;
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
    const auto exchange = [&] { std::swap(items_[static_cast<std::size_t>(index)], value); };
    exchange();
    lock.Release(exchange);
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
    lock.Release([this] { items_.pop_back(); });
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
    return TakeOut(index, lock);
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
    TakeOut(index, lock);
}

void List::Remove(const Variant& value) {
    Lock lock(*this);
    const std::int32_t index = Find(value);
    if (index == -1) {
        throw ListError(34011, u"The value is not in the list.");
    }
    TakeOut(index, lock);
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
    if (items_.size() < 2) {
        lock.Release();
        return;
    }
    std::vector<Variant> unsorted = items_;  // a comparator may use this list
    std::vector<Variant*> order(unsorted.size());
    std::transform(unsorted.begin(), unsorted.end(), order.begin(), [](Variant& item) { return &item; });
    std::vector<Variant*> scratch(order.size() / 2);
    SortRange(order.data(), order.size(), scratch.data(), comparator);

    std::vector<Variant> sorted;
    sorted.reserve(order.size());
    std::transform(order.begin(), order.end(), std::back_inserter(sorted),
                   [](Variant* item) { return std::move(*item); });
    items_.swap(sorted);
    lock.Release([&] { items_.swap(sorted); });
}

std::shared_ptr<List> List::Clone() const {
    auto clone = std::make_shared<List>(mutexes_);
    clone->items_ = Items();
    return clone;
}

void List::Extend(const List& other) {
    std::vector<Variant> added = other.Items();
    Lock lock(*this);
    const std::size_t length = items_.size();
    items_.insert(items_.end(), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    lock.Release([&] { items_.resize(length); });
}

}  // namespace korvanta
