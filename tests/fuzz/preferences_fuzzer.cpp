// The preferences file: what is taken from either copy, and that saving and loading gives the same, unknown keys too.
// Aims at: ui/clsTLXPrefs.cpp common/List.cpp
#include "common/Text.h"
#include "fakes/FakePlatform.h"
#include "fuzz/Fuzzing.h"
#include "ui/clsTLXPrefs.h"

namespace korvanta {
namespace {

const std::u16string serverFile = u"\\\\SRV\\TLXPrefs$\\jsmith.txt";
const std::u16string localFile = u"C:\\Temp\\tlxpref.txt";
constexpr std::size_t longestHistory = 20;
constexpr std::size_t mostSteps = 40;

// What the file holds and what is done to it, kept beside the product.
class Table {
  public:
    std::vector<std::int32_t> history;
    std::vector<std::int32_t> preferred;

    static std::optional<Table> In(const std::string& bytes) {
        Table table;
        for (const std::u16string& line : fuzz::LinesOf(fuzz::Utf16Text(bytes))) {
            const std::vector<std::u16string> fields = fuzz::Pieces(line, u"\u0001");
            if (fields.size() < 2) {
                return std::nullopt;
            }
            table.Set(fields[0], fields[1]);
        }
        const bool usable = !table.pairs_.empty() && TakeIds(table.Value(u"history", u""), table.history) &&
                            TakeIds(table.Value(u"preferred", u""), table.preferred);
        return usable ? std::optional(table) : std::nullopt;
    }
    void Set(const std::u16string& key, const std::u16string& value) {
        const auto place = places_.try_emplace(key, pairs_.size());
        if (place.second) {
            pairs_.emplace_back(key, value);
        }
        pairs_[place.first->second].second = value;
    }
    std::u16string Value(const std::u16string& key, const std::u16string& absent) const {
        const auto place = places_.find(key);
        return place == places_.end() ? absent : pairs_[place->second].second;
    }
    // Keys that are set when both lists are taken or stored come behind those of the file.
    std::string File() {
        Set(u"history", IdsText(history));
        Set(u"preferred", IdsText(preferred));
        std::u16string text;
        for (const auto& [key, value] : pairs_) {
            text += key + u"\u0001" + value + u"\r\n";
        }
        return "\xFF\xFE" + fuzz::Utf16Bytes(text);
    }

  private:
    static bool TakeIds(const std::u16string& text, std::vector<std::int32_t>& ids) {
        for (const std::u16string& piece : text.empty() ? std::vector<std::u16string>() : fuzz::Pieces(text, u",")) {
            const std::optional<std::int32_t> id = fuzz::Number32(piece);
            if (!id) {
                return false;
            }
            ids.push_back(*id);
        }
        return true;
    }
    static std::u16string IdsText(const std::vector<std::int32_t>& ids) {
        std::vector<std::u16string> texts;
        for (const std::int32_t id : ids) {
            texts.push_back(NumberText(id));
        }
        return Join(texts, u",");
    }

    std::vector<std::pair<std::u16string, std::u16string>> pairs_;
    std::map<std::u16string, std::size_t> places_;
};

std::vector<std::int32_t> IdsOf(const List& list) {
    std::vector<std::int32_t> ids;
    for (const Variant& id : list.Items()) {
        ids.push_back(id.Integer());
    }
    return ids;
}

void RequireSame(const clsTLXPrefs& prefs, const Table& table) {
    REQUIRE(IdsOf(*prefs.History()) == table.history);
    REQUIRE(IdsOf(*prefs.Preferred()) == table.preferred);
    REQUIRE(prefs.LastTab() == fuzz::WholeNumber(table.Value(u"lasttab", u"1"), INT16_MIN, INT16_MAX).value_or(1));
    REQUIRE(prefs.LastSearchString() == table.Value(u"lastsearchstring", u""));
    REQUIRE(prefs.LastSearchRemember() == (table.Value(u"lastsearchremember", u"0") != u"0"));
    REQUIRE(prefs.GetLastSelectedAccount() == (table.history.empty() ? -1 : table.history.back()));
}

void Select(Table& table, std::int32_t id) {
    const auto found = std::find(table.history.begin(), table.history.end(), id);
    if (found != table.history.end()) {
        table.history.erase(found);
    }
    table.history.push_back(id);
    if (table.history.size() > longestHistory) {
        table.history.erase(table.history.begin());
    }
}

void Step(clsTLXPrefs& prefs, Table& table, fuzz::Input& input) {
    const unsigned step = input.Choose(6);
    const auto id = static_cast<std::int32_t>(input.Choose(26));
    const auto found = std::find(table.preferred.begin(), table.preferred.end(), id);
    switch (step) {
        case 0:
            prefs.SetLastSelectedAccount(id);
            return Select(table, id);
        case 1:
            prefs.AddPreferred(id);
            if (found == table.preferred.end()) {
                table.preferred.push_back(id);
            }
            return;
        case 2:
            prefs.RemovePreferred(id);
            if (found != table.preferred.end()) {
                table.preferred.erase(found);
            }
            return;
        case 3:
            prefs.LastTab(static_cast<std::int16_t>(id));
            return table.Set(u"lasttab", NumberText(id));
        case 4:
            prefs.LastSearchRemember(id % 2 == 1);
            return table.Set(u"lastsearchremember", id % 2 == 1 ? u"1" : u"0");
        default:
            std::u16string text = input.Text();
            prefs.LastSearchString(text);
            std::erase(text, u'\r');
            std::erase(text, u'\n');
            return table.Set(u"lastsearchstring", text);
    }
}

void LoadAndSave(fuzz::Input& input) {
    fakes::FakePlatform platform;
    const std::string server = fuzz::Utf16File(input);
    const std::string local = fuzz::Utf16File(input);
    platform.files.WriteBytes(serverFile, server);
    platform.files.WriteBytes(localFile, local);
    platform.files.largestRead = fuzz::ReadSize(input);
    std::optional<Table> table = Table::In(server);
    if (!table) {
        table = Table::In(local);
    }
    if (!table) {
        table.emplace();
    } else {
        table->File();
    }
    clsTLXPrefs prefs(platform.files, platform.mutexes, u"SRV", u"jsmith");
    RequireSame(prefs, *table);
    for (std::size_t i = 0; i < mostSteps && input.HasLetters(); ++i) {
        Step(prefs, *table, input);
        RequireSame(prefs, *table);
    }
    REQUIRE(prefs.Save());
    const std::string saved = table->File();
    REQUIRE(platform.files.ReadBytes(serverFile) == saved);
    REQUIRE(platform.files.ReadBytes(localFile) == saved);
    const clsTLXPrefs again(platform.files, platform.mutexes, u"SRV", u"jsmith");
    RequireSame(again, Table::In(saved).value());

    // Without the server the local copy is the newest.
    platform.files.Down(u"SRV");
    prefs.SetLastSelectedAccount(4711);
    REQUIRE(!prefs.Save());
    const clsTLXPrefs offline(platform.files, platform.mutexes, u"SRV", u"jsmith");
    REQUIRE(offline.GetLastSelectedAccount() == 4711);
    REQUIRE(platform.files.OpenFiles() == 0);
}

}  // namespace
}  // namespace korvanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvanta::fuzz::Input input(data, size);
    korvanta::LoadAndSave(input);
    return 0;
}
