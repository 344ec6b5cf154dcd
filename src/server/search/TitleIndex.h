#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace korvanta {

// The titles of accounts, numbered from 0, laid out so that a search walks through them once: one behind the other in
// blocks, each title followed by a fieldSeparator, the main title before the sub title. A main title that an account
// shares with its main account is there once, with the main account.
class TitleIndex {
  public:
    // The titles of one account lie in one block.
    struct Block {
        std::unique_ptr<char16_t[]> units;
        std::unique_ptr<std::uint8_t[]> folded;  // for each unit the byte that FoldedByte gives its lower-case form
        std::size_t size = 0;
        std::size_t used = 0;
        std::size_t firstAccount = 0;
    };

    // The titles of the next account, which has a main title of its own.
    void Add(std::u16string_view mainTitle, std::u16string_view subTitle);
    // The same for a sub-account: a main title equal to that of `mainAccount`, added before, is shared.
    void AddBelow(std::size_t mainAccount, std::u16string_view mainTitle, std::u16string_view subTitle);

    std::size_t Count() const { return places_.size(); }
    // Both hold as long as this object.
    std::u16string_view MainTitle(std::size_t account) const {
        return {titles_[account].main, titles_[account].mainLength};
    }
    std::u16string_view SubTitle(std::size_t account) const {
        return {titles_[account].sub, titles_[account].subLength};
    }

    // For the search. Offsets count units from the beginning of the account's block.
    const std::vector<Block>& Blocks() const { return blocks_; }
    bool HasOwnMainTitle(std::size_t account) const { return places_[account].hasMainTitle != 0; }
    // Where the account's titles begin.
    std::size_t Offset(std::size_t account) const { return places_[account].offset; }
    std::size_t SubTitleOffset(std::size_t account) const {
        return Offset(account) + (HasOwnMainTitle(account) ? titles_[account].mainLength + std::size_t{1} : 0);
    }

    // One byte for a lower-case unit: ASCII stands for itself, all other units share the bytes above.
    static std::uint8_t FoldedByte(char16_t lowerUnit) {
        return static_cast<std::uint8_t>(IsAscii(lowerUnit) ? lowerUnit : 0x80U | (lowerUnit ^ (lowerUnit >> 7U)));
    }
    static std::vector<std::uint8_t> Folded(std::u16string_view lowerText);
    static bool IsAscii(char16_t unit) { return unit < 0x80; }

  private:
    struct Titles {
        const char16_t* main;
        const char16_t* sub;
        std::uint32_t mainLength;
        std::uint32_t subLength;
    };
    struct Place {
        std::uint32_t hasMainTitle : 1;
        std::uint32_t offset : 31;
    };

    void Add(const char16_t* sharedMainTitle, std::u16string_view mainTitle, std::u16string_view subTitle);
    Block& BlockFor(std::size_t units);
    static const char16_t* Store(Block& block, std::u16string_view title);

    std::vector<Block> blocks_;
    std::vector<Titles> titles_;
    std::vector<Place> places_;  // apart from titles_: a search that finds much reads all of them
};

}  // namespace korvanta
