#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace korvanta {

// Texts by their keys, in the order in which the keys were first set. Keys are compared with regard to letter case.
class KeyTable {
  public:
    using Pairs = std::vector<std::pair<std::u16string, std::u16string>>;

    // None when the key is absent; valid until the next Set or Clear.
    const std::u16string* Find(const std::u16string& key) const;
    void Set(const std::u16string& key, const std::u16string& value);
    void Clear();
    // Keys and values.
    const Pairs& All() const { return pairs_; }

  private:
    Pairs pairs_;
    std::map<std::u16string, std::size_t> places_;  // in pairs_
};

}  // namespace korvanta
