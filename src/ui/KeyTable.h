#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace korvanta {

// Texts with keys, in the order in which the keys were first set. Keys that differ in letter case are different keys.
class KeyTable {
  public:
    using Pairs = std::vector<std::pair<std::u16string, std::u16string>>;

    // Null when the key is absent. The text is valid until the next Set or Clear.
    const std::u16string* Find(const std::u16string& key) const;
    void Set(const std::u16string& key, const std::u16string& value);
    void Clear();
    // Pairs of key and text.
    const Pairs& All() const { return pairs_; }

  private:
    Pairs pairs_;
    std::map<std::u16string, std::size_t> places_;  // index in pairs_
};

}  // namespace korvanta
