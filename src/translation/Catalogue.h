#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta {

// The texts of a program in several languages. A catalogue is text, line by line:
//
//     ; a comment
//     [TLXActTrkClient deu]                        section and language of what follows
//     frmMain.cmdClose = S&chließen                form or control, and its text
//     frmMain.lblCloseQuestion = Wirklich? \       a line that ends with "\" goes on in the next one,
//         Alles?                                   whose blanks at the start do not count
//
// In a text "\n" is a line break (CR LF), "\s" a blank, which the text may begin and end with, and "\\" a backslash.
// Letter case does not matter in sections, languages and keys. Nothing here raises: a line that cannot be understood is
// skipped, and Problems reports it.
class Catalogue {
  public:
    // In characters: a larger catalogue is not read at all, a longer text in it is skipped.
    static constexpr std::size_t largestCatalogue = std::size_t{1} << 20U;
    static constexpr std::size_t longestText = 4'096;
    // How many broken lines Problems names; of the others it gives the number.
    static constexpr std::size_t mostProblems = 20;

    // Adds the texts of these sections; of all sections when the list is empty. The later of two texts with one key
    // replaces the earlier. An empty text is ignored.
    void Read(std::u16string_view catalogue, const std::vector<std::u16string>& sections = {});

    // None when the catalogue does not have the text. Valid until the next Read.
    const std::u16string* Find(std::u16string_view section, std::u16string_view language,
                               std::u16string_view key) const;
    bool Has(std::u16string_view section, std::u16string_view language) const;
    // In lower case, sorted.
    std::vector<std::u16string> Languages(std::u16string_view section) const;
    std::vector<std::u16string> Keys(std::u16string_view section, std::u16string_view language) const;

    // What was wrong, in English, with line numbers and in their order.
    const std::vector<std::u16string>& Problems() const { return problems_; }

  private:
    using Texts = std::map<std::u16string, std::u16string, std::less<>>;

    class Reader;
    const Texts* TextsOf(std::u16string_view section, std::u16string_view language) const;

    // Keys, in lower case: section, blank, language.
    std::map<std::u16string, Texts, std::less<>> blocks_;
    std::vector<std::u16string> problems_;
};

}  // namespace korvanta
