#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace korvanta {

// Marks on some of many places, which are numbered from 0.
class Marks {
  public:
    // One bit for each place; the first place of a word is its lowest bit.
    using Word = std::uint32_t;
    static constexpr std::size_t placesOfWord = 32;

    // Starts again with so many places, none of them marked.
    void Reset(std::size_t places) {
        words_.assign(places / placesOfWord + 3, 0);
        any_ = false;
    }
    void Set(std::size_t place) {
        words_[place / placesOfWord] |= Word{1} << (place % placesOfWord);
        any_ = true;
    }
    // All marks of the word whose first place is `place`.
    void SetWord(std::size_t place, Word marks) {
        words_[place / placesOfWord] = marks;
        any_ = any_ || marks != 0;
    }

    bool Any() const { return any_; }
    // Whether a place is marked that is not before `from` and before `end`.
    bool Any(std::size_t from, std::size_t end) const {
        return end - from <= mostAtOnce ? (From(from) & ((std::uint64_t{1} << (end - from)) - 1)) != 0
                                        : AnyOfMany(from, end);
    }

    // Removes the marks of the places for which `keep` gives false.
    template <class Keep>
    void KeepIf(Keep keep) {
        any_ = false;
        for (std::size_t word = 0; word < words_.size(); ++word) {
            for (Word left = words_[word]; left != 0; left &= left - 1) {
                if (keep(word * placesOfWord + static_cast<std::size_t>(__builtin_ctz(left)))) {
                    any_ = true;
                } else {
                    words_[word] &= ~(left & (~left + 1));
                }
            }
        }
    }

  private:
    // From reads 64 bits from the byte on that holds the place, up to seven of which lie before it: at least so many
    // marks are left.
    static constexpr std::size_t mostAtOnce = 56;

    std::uint64_t From(std::size_t place) const {
        std::uint64_t marks = 0;
        std::memcpy(&marks, reinterpret_cast<const char*>(words_.data()) + place / 8, sizeof marks);
        return marks >> (place % 8);
    }
    bool AnyOfMany(std::size_t from, std::size_t end) const {
        for (; end - from > mostAtOnce; from += mostAtOnce) {
            if (Any(from, from + mostAtOnce)) {
                return true;
            }
        }
        return Any(from, end);
    }

    std::vector<Word> words_;  // two more than needed, so that From can always read eight bytes
    bool any_ = false;
};

}  // namespace korvanta
