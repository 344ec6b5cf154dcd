#pragma once

#include "translation/Translator.h"

namespace korvanta::fakes {

// Leaves all captions unchanged.
class PlainTranslator : public Translator {
  public:
    void SetSections(const std::vector<std::u16string>&) override {}
    void LoadCatalogue(const std::u16string&) override {}
    void SetLanguage(const std::u16string&) override {}
    void SelectSection(const std::u16string&) override {}
    void Translate(Container&) override {}
    std::vector<std::u16string> Problems() const override { return {}; }
};

}  // namespace korvanta::fakes
