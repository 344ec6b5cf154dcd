// The translation catalogue: which texts it has for which names, that the rest is passed over, that its texts written
// anew read the same, and that a form has afterwards no text but its own and the catalogue's.
// Aims at: translation/Catalogue.cpp translation/CatalogueTranslator.cpp translation/FormTexts.cpp
#include "translation/Catalogue.h"

#include <algorithm>
#include <cctype>

#include "app/frmMessages.h"
#include "common/Text.h"
#include "fakes/FakePlatform.h"
#include "fakes/PlainTranslator.h"
#include "fuzz/Fuzzing.h"
#include "translation/CatalogueTranslator.h"
#include "translation/FormTexts.h"

namespace korvanta {
namespace {

const std::u16string path = u"C:\\Korvanta\\Korvanta.tam";
const std::u16string section = u"TLXActTrkClient";

constexpr char16_t notAnEntry = u'\u0002';

using Texts = std::map<std::u16string, std::u16string>;
using Blocks = std::map<std::pair<std::u16string, std::u16string>, Texts>;

std::u16string Bare(std::u16string text) {
    text.erase(0, text.find_first_not_of(u" \t"));
    text.erase(text.find_last_not_of(u" \t") + 1);
    return text;
}

bool IsName(const std::u16string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char16_t unit) {
        return unit < 0x80 && (std::isalnum(unit) != 0 || unit == u'_' || unit == u'-' || unit == u'.');
    });
}

bool EndsWithOddMarks(const std::u16string& text) {
    std::size_t marks = 0;
    while (marks < text.size() && text[text.size() - 1 - marks] == u'\\') {
        ++marks;
    }
    return marks % 2 == 1;
}

std::optional<std::u16string> Unescaped(const std::u16string& written) {
    std::u16string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        if (written[i] != u'\\') {
            text += written[i];
            continue;
        }
        const char16_t kind = ++i < written.size() ? written[i] : u'?';
        if (kind != u'n' && kind != u's' && kind != u'\\') {
            return std::nullopt;
        }
        text += kind == u'n' ? u"\r\n" : kind == u's' ? u" " : u"\\";
    }
    return text;
}

// Each line of the catalogue, those that go on in the next one with it; a last one that cannot go on ends with "\".
std::vector<std::u16string> WholeLines(const std::u16string& text) {
    std::vector<std::u16string> lines;
    bool goesOn = false;
    std::vector<std::u16string> pieces = fuzz::Pieces(text, u"\n");
    if (pieces.back().empty()) {
        pieces.pop_back();
    }
    for (std::u16string line : pieces) {
        if (line.ends_with(u'\r')) {
            line.pop_back();
        }
        line = Bare(line);
        if (goesOn) {
            std::u16string& whole = lines.back();
            whole.pop_back();
            whole += line;
            if (whole.starts_with(u';') || whole.starts_with(u'[')) {
                whole.insert(whole.begin(), notAnEntry);
            }
        } else {
            lines.push_back(line);
        }
        // Comments and headers are one line each.
        goesOn = (goesOn || !(line.starts_with(u';') || line.starts_with(u'['))) && EndsWithOddMarks(line);
    }
    // What begins otherwise and goes on with what looks like a comment or a header is neither.
    std::erase_if(lines, [](const std::u16string& line) { return line.starts_with(notAnEntry); });
    return lines;
}

Blocks BlocksIn(const std::u16string& text) {
    Blocks blocks;
    Texts* texts = nullptr;
    for (const std::u16string& line : WholeLines(text)) {
        if (line.starts_with(u'[')) {
            texts = nullptr;
            const std::u16string inside = line.ends_with(u']') ? Bare(line.substr(1, line.size() - 2)) : u"";
            const std::size_t gap = std::min(inside.find_first_of(u" \t"), inside.size());
            const std::u16string language = Bare(inside.substr(gap));
            if (IsName(inside.substr(0, gap)) && IsName(language)) {
                texts = &blocks[{Lower(inside.substr(0, gap)), Lower(language)}];
            }
            continue;
        }
        const std::size_t equals = line.find(u'=');
        if (texts == nullptr || line.starts_with(u';') || equals == std::u16string::npos || EndsWithOddMarks(line) ||
            std::any_of(line.begin(), line.end(),
                        [](char16_t unit) { return (unit < 32 && unit != 9) || unit == 127; })) {
            continue;
        }
        const std::u16string key = Bare(line.substr(0, equals));
        const std::optional<std::u16string> said = Unescaped(Bare(line.substr(equals + 1)));
        if (IsName(key) && said && !said->empty() && said->size() <= Catalogue::longestText) {
            (*texts)[Lower(key)] = *said;
        }
    }
    return blocks;
}

void RequireSame(const Catalogue& catalogue, const Blocks& blocks) {
    std::map<std::u16string, std::vector<std::u16string>> languages;
    for (const auto& [name, texts] : blocks) {
        languages[name.first].push_back(name.second);
        REQUIRE(catalogue.Has(Upper(name.first), name.second));
        REQUIRE(catalogue.Keys(name.first, Upper(name.second)).size() == texts.size());
        for (const auto& [key, text] : texts) {
            const std::u16string* found = catalogue.Find(name.first, name.second, Upper(key));
            REQUIRE(found != nullptr && *found == text);
        }
    }
    for (const auto& [name, all] : languages) {
        REQUIRE(catalogue.Languages(name) == all);
    }
}

// The blocks as a catalogue.
std::u16string Written(const Blocks& blocks) {
    std::u16string catalogue;
    for (const auto& [name, texts] : blocks) {
        catalogue += u"[" + name.first + u" " + name.second + u"]\r\n";
        for (const auto& [key, text] : texts) {
            std::u16string escaped = Replace(Replace(Replace(text, u"\\", u"\\\\"), u"\r\n", u"\\n"), u" ", u"\\s");
            // Tabs at the ends would not count; there are none, since they did not count when they were read.
            catalogue += key + u"=" + escaped + u"\r\n";
        }
    }
    return catalogue;
}

void ReadAlone(const std::u16string& text) {
    const Blocks blocks = BlocksIn(text);
    Catalogue catalogue;
    catalogue.Read(text);
    RequireSame(catalogue, blocks);
    REQUIRE(catalogue.Problems().size() <= Catalogue::mostProblems + 1);

    Catalogue again;
    again.Read(Written(blocks));
    RequireSame(again, blocks);
    REQUIRE(again.Problems().empty());

    Catalogue part;
    part.Read(text, {section});
    for (const auto& [name, texts] : blocks) {
        REQUIRE(part.Has(name.first, name.second) == EqualNoCase(name.first, section));
    }
}

void TranslateForm(const std::string& bytes, const std::u16string& language, std::size_t readSize) {
    fakes::FakePlatform platform;
    platform.files.WriteBytes(path, bytes);
    platform.files.largestRead = readSize;
    const Blocks blocks = BlocksIn(fuzz::Utf16Text(bytes));
    CatalogueTranslator translator(platform.files);
    translator.SetSections({section});
    translator.LoadCatalogue(path);
    translator.SetLanguage(language);
    translator.SelectSection(section);
    fakes::PlainTranslator plain;
    frmMessages form(plain);
    std::map<std::u16string, std::u16string> before;
    for (const FormText& text : TextsOf(form)) {
        before[text.key] = text.text;
    }
    translator.Translate(form);
    for (const FormText& text : TextsOf(form)) {
        bool fromCatalogue = false;
        for (const auto& [name, texts] : blocks) {
            const auto said = texts.find(Lower(text.key));
            fromCatalogue = fromCatalogue || (Lower(language).starts_with(name.second) && said != texts.end() &&
                                              said->second == text.text);
        }
        REQUIRE(fromCatalogue || text.text == before.at(text.key));
    }
    REQUIRE(translator.Problems().size() <= Catalogue::mostProblems + 2);
    REQUIRE(platform.files.OpenFiles() == 0);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    const std::string file = korvanta::fuzz::Utf16File(input);
    korvanta::ReadAlone(korvanta::fuzz::Utf16Text(file));
    const std::u16string language = input.AtEnd() ? u"deu-at" : input.Text();
    korvanta::TranslateForm(file, korvanta::Trim(language), korvanta::fuzz::ReadSize(input));
    return 0;
}
