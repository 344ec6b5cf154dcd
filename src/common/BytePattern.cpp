#include "common/BytePattern.h"

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

// Looks closer only where both the first and the last byte are right. Whoever calls may have aligned the stack for
// less than sixteen bytes.
__attribute__((target("sse2"), force_align_arg_pointer)) const std::uint8_t* BytePattern::FindBySixteens(
    const std::uint8_t* from, const std::uint8_t* end) const {
    const std::size_t toLast = bytes_.size() - 1;
    const Sixteen first = Sixteen{} + bytes_.front();
    const Sixteen last = Sixteen{} + bytes_.back();
    while (static_cast<std::size_t>(end - from) >= toLast + sizeof(Sixteen)) {
        Sixteen beginnings;
        Sixteen endings;
        std::memcpy(&beginnings, from, sizeof beginnings);
        std::memcpy(&endings, from + toLast, sizeof endings);
        using Signed = char __attribute__((vector_size(16)));
        auto candidates = static_cast<unsigned>(
            __builtin_ia32_pmovmskb128(reinterpret_cast<Signed>((beginnings == first) & (endings == last))));
        for (; candidates != 0; candidates &= candidates - 1) {
            const std::uint8_t* const place = from + __builtin_ctz(candidates);
            if (toLast < 2 || std::equal(bytes_.begin() + 1, bytes_.end() - 1, place + 1)) {
                return place;
            }
        }
        from += sizeof(Sixteen);
    }
    return FindBySkips(from, end);
}

const std::uint8_t* BytePattern::FindBySkips(const std::uint8_t* from, const std::uint8_t* end) const {
    if (bytes_.empty()) {
        return from;
    }
    const std::size_t toLast = bytes_.size() - 1;
    while (static_cast<std::size_t>(end - from) > toLast) {
        const std::size_t skip = skips_[from[toLast]];
        if (skip == 0 && std::equal(bytes_.begin(), bytes_.end() - 1, from)) {
            return from;
        }
        from += skip == 0 ? skipAfterLast_ : skip;
    }
    return nullptr;
}

}  // namespace korvanta
