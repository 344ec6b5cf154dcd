#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"

namespace korvanta {

// Replaces the captions of forms by those of a catalogue. Nothing here raises: without a catalogue, a language, a
// section or an entry captions stay as they are.
class Translator {
  public:
    virtual ~Translator() = default;
    virtual void SetSections(const std::vector<std::u16string>& sections) = 0;
    // `path` is the catalogue file.
    virtual void LoadCatalogue(const std::u16string& path) = 0;
    virtual void SetLanguage(const std::u16string& language) = 0;
    virtual void SelectSection(const std::u16string& section) = 0;
    // Translates the captions of a form, or of a control put together from others, and of all that it holds.
    virtual void Translate(Container& form) = 0;
    // What is wrong with the catalogue and with what was asked of it: lines for a log, in English. Translate may add
    // to them at the end.
    virtual std::vector<std::u16string> Problems() const = 0;
};

}  // namespace korvanta
