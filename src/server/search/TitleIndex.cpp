#include "server/search/TitleIndex.h"

#include <algorithm>

#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::size_t blockUnits = std::size_t{1} << 16U;

}  // namespace

void TitleIndex::Add(std::u16string_view mainTitle, std::u16string_view subTitle) {
    Add(nullptr, mainTitle, subTitle);
}

void TitleIndex::AddBelow(std::size_t mainAccount, std::u16string_view mainTitle, std::u16string_view subTitle) {
    const std::u16string_view shared = MainTitle(mainAccount);
    Add(mainTitle == shared ? shared.data() : nullptr, mainTitle, subTitle);
}

void TitleIndex::Add(const char16_t* sharedMainTitle, std::u16string_view mainTitle, std::u16string_view subTitle) {
    const bool shares = sharedMainTitle != nullptr;
    Block& block = BlockFor((shares ? 0 : mainTitle.size() + 1) + subTitle.size() + 1);
    const Place place{shares ? 0U : 1U, static_cast<std::uint32_t>(block.used) & 0x7FFF'FFFFU};
    const char16_t* const main = shares ? sharedMainTitle : Store(block, mainTitle);
    const char16_t* const sub = Store(block, subTitle);
    titles_.push_back(
        {main, sub, static_cast<std::uint32_t>(mainTitle.size()), static_cast<std::uint32_t>(subTitle.size())});
    places_.push_back(place);
}

std::vector<std::uint8_t> TitleIndex::Folded(std::u16string_view lowerText) {
    std::vector<std::uint8_t> bytes(lowerText.size());
    std::transform(lowerText.begin(), lowerText.end(), bytes.begin(), FoldedByte);
    return bytes;
}

// Growing block by block needs no memory for a second copy of all titles.
TitleIndex::Block& TitleIndex::BlockFor(std::size_t units) {
    if (blocks_.empty() || blocks_.back().size - blocks_.back().used < units) {
        Block block;
        block.size = std::max(blockUnits, units);
        block.units = std::make_unique_for_overwrite<char16_t[]>(block.size);
        block.folded = std::make_unique_for_overwrite<std::uint8_t[]>(block.size);
        block.firstAccount = Count();
        blocks_.push_back(std::move(block));
    }
    return blocks_.back();
}

const char16_t* TitleIndex::Store(Block& block, std::u16string_view title) {
    char16_t* const units = block.units.get() + block.used;
    std::uint8_t* const folded = block.folded.get() + block.used;
    std::copy(title.begin(), title.end(), units);
    std::transform(title.begin(), title.end(), folded, [](char16_t unit) { return FoldedByte(LowerUnit(unit)); });
    units[title.size()] = fieldSeparator;
    folded[title.size()] = FoldedByte(fieldSeparator);
    block.used += title.size() + 1;
    return units;
}

}  // namespace korvanta
