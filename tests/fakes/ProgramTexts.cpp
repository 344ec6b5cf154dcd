#include "fakes/ProgramTexts.h"

#include <set>

#include "app/basKorvanta.h"
#include "common/Deployment.h"
#include "common/Text.h"
#include "fakes/FakePeers.h"
#include "fakes/FakePlatform.h"
#include "translation/FormTexts.h"

namespace korvanta::fakes {

namespace {

constexpr std::size_t lineLength = 118;

class NotingTranslator : public Translator {
  public:
    void SetSections(const std::vector<std::u16string>&) override {}
    void LoadCatalogue(const std::u16string&) override {}
    void SetLanguage(const std::u16string&) override {}
    void SelectSection(const std::u16string&) override {}
    void Translate(Container& form) override {
        for (const FormText& text : TextsOf(form)) {
            if (keys_.insert(text.key).second) {
                texts.push_back({text.key, text.text});
            }
        }
    }
    std::vector<std::u16string> Problems() const override { return {}; }

    std::vector<ProgramText> texts;

  private:
    std::set<std::u16string> keys_;
};

// Starting may fail without a server; the forms that were made have been translated by then.
void StartProgram(const std::u16string& primaryServer, Translator& translator) {
    FakePlatform windows;
    FakePeers peers;
    windows.registry.Put(registrySubKey, u"TLXPrimaryServer", primaryServer);
    basKorvanta program(windows.platform, &peers, translator);
    program.Main();
}

std::u16string Escaped(const std::u16string& text) {
    std::u16string escaped = Replace(Replace(text, u"\\", u"\\\\"), u"\r\n", u"\\n");
    if (!escaped.empty() && escaped.back() == u' ') {
        escaped.replace(escaped.size() - 1, 1, u"\\s");
    }
    if (!escaped.empty() && escaped.front() == u' ') {
        escaped.replace(0, 1, u"\\s");
    }
    return escaped;
}

// The entry; one that is too long for a line is broken between words.
std::u16string Entry(const ProgramText& text) {
    std::u16string entry;
    std::u16string line = text.key + u" =";
    for (const std::u16string& word : Split(Escaped(text.text), u" ")) {
        if (line.size() + 1 + word.size() > lineLength && !word.empty()) {
            entry += line + u" \\\n";
            line = u"    " + word;
        } else {
            line += u" " + word;
        }
    }
    return entry + line + u"\n";
}

}  // namespace

std::vector<ProgramText> ProgramTexts() {
    NotingTranslator translator;
    StartProgram(u"", translator);
    StartProgram(u"SRV", translator);
    return translator.texts;
}

std::u16string CatalogueOf(const std::u16string& section, const std::u16string& language,
                           const std::vector<ProgramText>& texts) {
    std::u16string catalogue = u"[" + section + u" " + language + u"]\n";
    std::u16string owner;
    for (const ProgramText& text : texts) {
        const std::u16string newOwner = text.key.substr(0, text.key.find(u'.'));
        if (newOwner != owner) {
            catalogue += u"\n; " + newOwner + u"\n";
            owner = newOwner;
        }
        catalogue += Entry(text);
    }
    return catalogue;
}

}  // namespace korvanta::fakes
