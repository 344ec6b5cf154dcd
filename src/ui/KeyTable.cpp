#include "ui/KeyTable.h"

namespace korvanta {

const std::u16string* KeyTable::Find(const std::u16string& key) const {
    const auto place = places_.find(key);
    return place == places_.end() ? nullptr : &pairs_[place->second].second;
}

void KeyTable::Set(const std::u16string& key, const std::u16string& value) {
    const auto place = places_.find(key);
    if (place != places_.end()) {
        pairs_[place->second].second = value;
        return;
    }
    pairs_.emplace_back(key, value);
    try {
        places_.emplace(key, pairs_.size() - 1);
    } catch (...) {
        pairs_.pop_back();
        throw;
    }
}

void KeyTable::Clear() {
    pairs_.clear();
    places_.clear();
}

}  // namespace korvanta
