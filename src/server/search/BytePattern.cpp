#include "server/search/BytePattern.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace korvanta {

namespace {

constexpr std::size_t longestSkip = 255;

using Sixteen = std::uint8_t __attribute__((vector_size(16)));

}  // namespace

BytePattern::BytePattern(std::vector<std::uint8_t> bytes, bool sixteenAtOnce)
    : bytes_(std::move(bytes)), sixteenAtOnce_(sixteenAtOnce && !bytes_.empty()) {
    skips_.fill(static_cast<std::uint8_t>(std::min(bytes_.size(), longestSkip)));
    for (std::size_t i = 0; i + 1 < bytes_.size(); ++i) {
        skips_[bytes_[i]] = static_cast<std::uint8_t>(std::min(bytes_.size() - 1 - i, longestSkip));
    }
    if (!bytes_.empty()) {
        skipAfterLast_ = std::exchange(skips_[bytes_.back()], std::uint8_t{0});
    }
}

bool BytePattern::CanCompareSixteen() {
    return __builtin_cpu_supports("sse2") != 0;
}

void BytePattern::Mark(const std::uint8_t* from, const std::uint8_t* end, Marks& marks) const {
    const auto length = static_cast<std::size_t>(end - from);
    marks.Reset(length);
    if (!bytes_.empty() && bytes_.size() <= length) {
        const std::size_t places = length - bytes_.size() + 1;
        MarkBySkips(from, sixteenAtOnce_ ? MarkBySixteens(from, places, marks) : 0, places, marks);
    }
}

// Compares the whole sequence only where both its first and its last byte match. Gives the first place that it did not
// look at. The stack is aligned anew, since callers in a 32-bit program may align it to four bytes only.
__attribute__((target("sse2"), force_align_arg_pointer)) std::size_t BytePattern::MarkBySixteens(
    const std::uint8_t* text, std::size_t places, Marks& marks) const {
    const std::size_t toLast = bytes_.size() - 1;
    const Sixteen first = Sixteen{} + bytes_.front();
    const Sixteen last = Sixteen{} + bytes_.back();
    std::size_t place = 0;
    for (; place + Marks::placesOfWord <= places; place += Marks::placesOfWord) {
        Marks::Word found = 0;
        for (std::size_t i = 0; i < Marks::placesOfWord; i += sizeof(Sixteen)) {
            Sixteen beginnings;
            Sixteen endings;
            std::memcpy(&beginnings, text + place + i, sizeof beginnings);
            std::memcpy(&endings, text + place + i + toLast, sizeof endings);
            using Signed = char __attribute__((vector_size(16)));
            const int both =
                __builtin_ia32_pmovmskb128(reinterpret_cast<Signed>((beginnings == first) & (endings == last)));
            found |= static_cast<Marks::Word>(both) << i;
        }
        if (toLast > 1) {
            for (Marks::Word left = found; left != 0; left &= left - 1) {
                const std::uint8_t* const candidate = text + place + __builtin_ctz(left);
                if (!std::equal(bytes_.begin() + 1, bytes_.end() - 1, candidate + 1)) {
                    found &= ~(left & (~left + 1));
                }
            }
        }
        marks.SetWord(place, found);
    }
    return place;
}

void BytePattern::MarkBySkips(const std::uint8_t* text, std::size_t place, std::size_t places, Marks& marks) const {
    const std::size_t toLast = bytes_.size() - 1;
    while (place < places) {
        const std::size_t skip = skips_[text[place + toLast]];
        if (skip == 0 && std::equal(bytes_.begin(), bytes_.end() - 1, text + place)) {
            marks.Set(place);
        }
        place += skip == 0 ? skipAfterLast_ : skip;
    }
}

}  // namespace korvanta
