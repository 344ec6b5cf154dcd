#include "translation/Catalogue.h"

#include <algorithm>

#include "common/Text.h"

namespace korvanta {

namespace {

constexpr char16_t commentMark = u';';
constexpr char16_t escapeMark = u'\\';

bool IsBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}

bool IsControl(char16_t unit) {
    return (unit < u' ' && unit != u'\t') || unit == u'\u007F';
}

bool IsNameUnit(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9') ||
           unit == u'_' || unit == u'-' || unit == u'.';
}

bool IsName(std::u16string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsNameUnit);
}

std::u16string_view WithoutBlanks(std::u16string_view text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Whether a single backslash ends the line; two are an escaped one of the text.
bool GoesOn(std::u16string_view line) {
    const std::size_t last = line.find_last_not_of(escapeMark);
    const std::size_t marks = line.size() - (last == std::u16string_view::npos ? 0 : last + 1);
    return marks % 2 == 1;
}

// False for an unknown escape.
bool Unescape(std::u16string_view written, std::u16string& text) {
    for (std::size_t i = 0; i < written.size(); ++i) {
        if (written[i] != escapeMark) {
            text += written[i];
            continue;
        }
        if (++i == written.size()) {
            return false;
        }
        switch (written[i]) {
            case u'n':
                text += lineBreak;
                break;
            case u's':
                text += u' ';
                break;
            case escapeMark:
                text += escapeMark;
                break;
            default:
                return false;
        }
    }
    return true;
}

std::u16string BlockName(std::u16string_view section, std::u16string_view language) {
    return Lower(section) + u" " + Lower(language);
}

}  // namespace

// Goes through a catalogue once.
class Catalogue::Reader {
  public:
    Reader(Catalogue& catalogue, std::u16string_view text, const std::vector<std::u16string>& sections)
        : catalogue_(catalogue), rest_(text), sections_(sections) {}

    void ReadAll() {
        while (!rest_.empty()) {
            const std::u16string_view line = WithoutBlanks(NextLine());
            first_ = number_;
            if (line.empty() || line.front() == commentMark) {
                continue;
            }
            if (line.front() == u'[') {
                ReadHeader(line);
            } else {
                ReadEntry(line);
            }
        }
        if (broken_ > mostProblems) {
            catalogue_.problems_.push_back(u"and " + NumberText(static_cast<std::int64_t>(broken_ - mostProblems)) +
                                           u" more broken lines");
        }
    }

  private:
    std::u16string_view NextLine() {
        ++number_;
        const std::size_t end = rest_.find(u'\n');
        std::u16string_view line = rest_.substr(0, end);
        rest_ = end == std::u16string_view::npos ? std::u16string_view() : rest_.substr(end + 1);
        if (!line.empty() && line.back() == u'\r') {
            line.remove_suffix(1);
        }
        return line;
    }

    void Broken(const char16_t* what) {
        if (++broken_ <= mostProblems) {
            catalogue_.problems_.push_back(u"line " + NumberText(static_cast<std::int64_t>(first_)) + u": " + what);
        }
    }

    void ReadHeader(std::u16string_view line) {
        // The texts behind a broken header must not go into the block before it.
        texts_ = nullptr;
        skipping_ = true;
        if (line.back() != u']') {
            Broken(u"a header does not end with \"]\"");
            return;
        }
        const std::u16string_view inside = WithoutBlanks(line.substr(1, line.size() - 2));
        const std::size_t gap = std::min(inside.find_first_of(u" \t"), inside.size());
        const std::u16string_view section = inside.substr(0, gap);
        const std::u16string_view language = WithoutBlanks(inside.substr(gap));
        if (!IsName(section) || !IsName(language)) {
            Broken(u"a header is not a section and a language");
            return;
        }
        if (sections_.empty() || std::any_of(sections_.begin(), sections_.end(),
                                             [section](const auto& wanted) { return EqualNoCase(wanted, section); })) {
            texts_ = &catalogue_.blocks_[BlockName(section, language)];
        }
    }

    void ReadEntry(std::u16string_view line) {
        std::u16string written;
        bool goesOn = GoesOn(line);
        while (goesOn && !rest_.empty()) {
            written += line.substr(0, line.size() - 1);
            line = WithoutBlanks(NextLine());
            goesOn = GoesOn(line);
        }
        written += line;
        if (texts_ == nullptr && skipping_) {
            return;
        }
        const std::size_t equals = std::min(written.find(u'='), written.size());
        const std::u16string_view key = WithoutBlanks(std::u16string_view(written).substr(0, equals));
        std::u16string text;
        if (equals == written.size() || !IsName(key)) {
            Broken(u"neither a comment, a header nor \"name = text\"");
        } else if (texts_ == nullptr) {
            Broken(u"a text comes before the first header");
        } else if (goesOn) {
            Broken(u"the line to go on with is missing");
        } else if (std::any_of(written.begin(), written.end(), IsControl)) {
            Broken(u"a text has a control character");
        } else if (!Unescape(WithoutBlanks(std::u16string_view(written).substr(equals + 1)), text)) {
            Broken(u"a \"\\\" is followed by something else than n, s or \\");
        } else if (text.size() > longestText) {
            Broken(u"a text is too long");
        } else if (!text.empty()) {
            (*texts_)[Lower(key)] = std::move(text);
        }
    }

    Catalogue& catalogue_;
    std::u16string_view rest_;
    const std::vector<std::u16string>& sections_;
    Texts* texts_ = nullptr;  // the block that is being read, none before the first header and while skipping
    bool skipping_ = false;   // the block's header is broken, or its section is not wanted
    std::size_t number_ = 0;  // of the line that was read last
    std::size_t first_ = 0;   // of the line that the current entry begins with
    std::size_t broken_ = 0;  // lines
};

void Catalogue::Read(std::u16string_view catalogue, const std::vector<std::u16string>& sections) {
    if (catalogue.size() > largestCatalogue) {
        problems_.push_back(u"the catalogue is too large");
        return;
    }
    Reader(*this, catalogue, sections).ReadAll();
}

const Catalogue::Texts* Catalogue::TextsOf(std::u16string_view section, std::u16string_view language) const {
    const auto block = blocks_.find(BlockName(section, language));
    return block == blocks_.end() ? nullptr : &block->second;
}

const std::u16string* Catalogue::Find(std::u16string_view section, std::u16string_view language,
                                      std::u16string_view key) const {
    const Texts* texts = TextsOf(section, language);
    if (texts == nullptr) {
        return nullptr;
    }
    const auto text = texts->find(Lower(key));
    return text == texts->end() ? nullptr : &text->second;
}

bool Catalogue::Has(std::u16string_view section, std::u16string_view language) const {
    return TextsOf(section, language) != nullptr;
}

std::vector<std::u16string> Catalogue::Languages(std::u16string_view section) const {
    const std::u16string start = Lower(section) + u" ";
    std::vector<std::u16string> languages;
    for (const auto& [name, texts] : blocks_) {
        if (name.starts_with(start)) {
            languages.push_back(name.substr(start.size()));
        }
    }
    return languages;
}

std::vector<std::u16string> Catalogue::Keys(std::u16string_view section, std::u16string_view language) const {
    std::vector<std::u16string> keys;
    if (const Texts* texts = TextsOf(section, language)) {
        for (const auto& [key, text] : *texts) {
            keys.push_back(key);
        }
    }
    return keys;
}

}  // namespace korvanta
