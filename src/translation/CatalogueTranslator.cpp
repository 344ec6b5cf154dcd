#include "translation/CatalogueTranslator.h"

#include <algorithm>

#include "common/Text.h"
#include "common/TextStream.h"
#include "translation/FormTexts.h"

namespace korvanta {

namespace {

// The language of the captions in the code.
const char16_t* const builtInLanguage = u"eng";

}  // namespace

void CatalogueTranslator::LoadCatalogue(const std::u16string& path) {
    path_ = path;
    failure_.reset();
    catalogue_ = Catalogue();
    collisions_.clear();
    try {
        TextInput file = TextInput::OpenUtf16(files_, path);
        if (!file.AtEnd()) {
            catalogue_.Read(file.ReadAll(), sections_);
        }
    } catch (const std::exception&) {
        failure_ = Error::Current();
    }
}

void CatalogueTranslator::SetLanguage(const std::u16string& language) {
    languages_.clear();
    std::u16string name = Trim(language);
    while (!name.empty()) {
        languages_.push_back(name);
        const std::size_t part = name.find_last_of(u"-_");
        name.resize(part == std::u16string::npos ? 0 : part);
    }
}

void CatalogueTranslator::SelectSection(const std::u16string& section) {
    section_ = section;
}

void CatalogueTranslator::Translate(Container& form) {
    for (const FormText& text : TextsOf(form)) {
        if (const std::u16string* translation = Find(text.key)) {
            text.replace(*translation);
        }
    }
    for (std::u16string& key : DropRepeatedAccessKeys(form)) {
        collisions_.push_back(std::move(key));
    }
}

const std::u16string* CatalogueTranslator::Find(const std::u16string& key) const {
    for (const std::u16string& language : languages_) {
        if (const std::u16string* text = catalogue_.Find(section_, language, key)) {
            return text;
        }
    }
    return nullptr;
}

std::vector<std::u16string> CatalogueTranslator::Problems() const {
    std::vector<std::u16string> problems;
    const auto add = [&](const std::u16string& problem) {
        problems.push_back(u"Catalogue " + path_ + u": " + problem);
    };
    const bool builtIn = languages_.empty() || EqualNoCase(languages_.back(), builtInLanguage);
    // An installation in the program's own language needs no catalogue.
    if (failure_ && !(builtIn && failure_->Number() == errorNumber::fileNotFound)) {
        add(failure_->NumberAndDescription());
    }
    for (const std::u16string& problem : catalogue_.Problems()) {
        add(problem);
    }
    const auto known = [this](const std::u16string& language) { return catalogue_.Has(section_, language); };
    if (!failure_ && !builtIn && std::none_of(languages_.begin(), languages_.end(), known)) {
        add(u"there is no language \"" + languages_.front() + u"\"");
    }
    for (const std::u16string& key : collisions_) {
        add(key + u" has the access key of an earlier text of its form, and loses it");
    }
    return problems;
}

}  // namespace korvanta
