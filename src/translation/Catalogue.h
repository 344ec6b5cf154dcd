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
// In a text "\n" is a line break (CR LF), "\s" a blank, also at the text's ends, and "\\" a backslash. Sections,
// languages and keys are compared without regard to letter case. Nothing here raises: what cannot be understood is
// passed over, and Problems tells of it.
class Catalogue {
  public:
    // Characters of the largest catalogue that is read, and of the longest text in it.
    static constexpr std::size_t largestCatalogue = std::size_t{1} << 20U;
    static constexpr std::size_t longestText = 4'096;
    // How many broken lines are told of one by one.
    static constexpr std::size_t mostProblems = 20;

    // Adds the texts of these sections, those of all sections when none is named. Where something is said twice the
    // later one counts. An empty text says nothing.
    void Read(std::u16string_view catalogue, const std::vector<std::u16string>& sections = {});

    // None when the catalogue does not say it. The text lives until the next Read.
    const std::u16string* Find(std::u16string_view section, std::u16string_view language,
                               std::u16string_view key) const;
    bool Has(std::u16string_view section, std::u16string_view language) const;
    // In lower case, sorted.
    std::vector<std::u16string> Languages(std::u16string_view section) const;
    std::vector<std::u16string> Keys(std::u16string_view section, std::u16string_view language) const;

    // What was wrong, in English and in the order of the lines, whose numbers are told.
    const std::vector<std::u16string>& Problems() const { return problems_; }

  private:
    using Texts = std::map<std::u16string, std::u16string, std::less<>>;

    class Reader;
    const Texts* TextsOf(std::u16string_view section, std::u16string_view language) const;

    // By section, a blank and the language; all keys in lower case.
    std::map<std::u16string, Texts, std::less<>> blocks_;
    std::vector<std::u16string> problems_;
};

}  // namespace korvanta
