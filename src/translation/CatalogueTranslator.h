#pragma once

#include <optional>

#include "common/Error.h"
#include "platform/FileSystem.h"
#include "translation/Catalogue.h"
#include "translation/Translator.h"

namespace korvanta {

// Translates by a catalogue file (see Catalogue). A language with a part behind a "-" or "_" ("deu-at") has what it
// lacks from the language without that part ("deu"); what no language has stays as it is. Where that leaves two texts
// of a form with one access key, the first in tab order keeps it.
class CatalogueTranslator : public Translator {
  public:
    explicit CatalogueTranslator(FileSystem& files) : files_(files) {}

    void SetSections(const std::vector<std::u16string>& sections) override { sections_ = sections; }
    // The file is UTF-16 little-endian text; it may lack the byte-order mark.
    void LoadCatalogue(const std::u16string& path) override;
    void SetLanguage(const std::u16string& language) override;
    void SelectSection(const std::u16string& section) override;
    void Translate(Container& form) override;
    std::vector<std::u16string> Problems() const override;

  private:
    const std::u16string* Find(const std::u16string& key) const;

    FileSystem& files_;
    Catalogue catalogue_;
    std::vector<std::u16string> sections_;
    std::u16string path_;
    std::optional<Error> failure_;  // why the file could not be read
    // The language, and then those that it falls back to.
    std::vector<std::u16string> languages_;
    std::u16string section_;
    std::vector<std::u16string> collisions_;  // the keys of texts that lost their access keys
};

}  // namespace korvanta
