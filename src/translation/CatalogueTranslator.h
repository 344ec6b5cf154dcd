#pragma once

#include <optional>

#include "common/Error.h"
#include "platform/FileSystem.h"
#include "translation/Catalogue.h"
#include "translation/Translator.h"

namespace korvanta {

// Translates by a catalogue file (see Catalogue). A text that a language with a part behind a "-" or "_" ("deu-at")
// lacks comes from the language without that part ("deu"); a text that no language has stays as it is. When two texts
// of a form then have the same access key, the first in tab order keeps it.
class CatalogueTranslator : public Translator {
  public:
    explicit CatalogueTranslator(FileSystem& files) : files_(files) {}

    void SetSections(const std::vector<std::u16string>& sections) override { sections_ = sections; }
    // The file is UTF-16 little-endian text, with or without a byte-order mark.
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
    // The language, and behind it those that it falls back to.
    std::vector<std::u16string> languages_;
    std::u16string section_;
    std::vector<std::u16string> collisions_;  // keys of the texts that lost their access keys
};

}  // namespace korvanta
