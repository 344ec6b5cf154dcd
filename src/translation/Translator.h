#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"

namespace korvanta {

// Replaces the captions of forms by those of a catalogue. Nothing here raises: a caption stays when the catalogue, its
// language, section or entry is missing.
class Translator {
  public:
    virtual ~Translator() = default;
    // The sections that LoadCatalogue reads; all of them when the list is empty.
    virtual void SetSections(const std::vector<std::u16string>& sections) = 0;
    // `path` is the catalogue file.
    virtual void LoadCatalogue(const std::u16string& path) = 0;
    virtual void SetLanguage(const std::u16string& language) = 0;
    virtual void SelectSection(const std::u16string& section) = 0;
    // Translates the captions of a form, or of a control put together from others, and of all controls in it.
    virtual void Translate(Container& form) = 0;
    // What was wrong with the catalogue or missing from it: lines for a log, in English. Translate may append to them.
    virtual std::vector<std::u16string> Problems() const = 0;
};

}  // namespace korvanta
