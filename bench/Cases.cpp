#include "Cases.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <span>

#include "common/List.h"
#include "common/Services.h"
#include "common/Text.h"
#include "server/clsTLXAccounts.h"
#include "server/search/AccountSearch.h"

namespace korvanta::bench {

namespace {

class NoLog : public TraceLog {
  public:
    void Log(const std::u16string& /*text*/) override {}
};

class ByValue : public IComparator {
  private:
    std::int16_t IComparator_Compare(const Variant& a, const Variant& b) override {
        return static_cast<std::int16_t>(a.Integer() < b.Integer() ? -1 : a.Integer() > b.Integer() ? 1 : 0);
    }
};

void Check(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "The benchmark cannot run: %s\n", what);
        std::exit(1);
    }
}

struct Loading {
    Loading(const Surroundings& surroundings) : where(surroundings) {}
    void Load() {
        accounts = std::make_unique<clsTLXAccounts>(where.files, where.mutexes, log, u"BENCH");
        Check(accounts->LoadAccounts(), "the accounts cannot be loaded.");
    }

    Surroundings where;
    NoLog log;
    std::unique_ptr<clsTLXAccounts> accounts;
    std::vector<KeptFields> kept;
};

Case LoadCase(const Surroundings& surroundings, int count) {
    const auto state = std::make_shared<Loading>(surroundings);
    return {"load",
            count,
            [state] { state->Load(); },
            [state] { state->kept = LoadBare(state->where.accountsFile); },
            [state] {
                state->accounts.reset();
                state->kept = {};
            },
            false};
}

struct Searching {
    explicit Searching(const Surroundings& surroundings) {
        Loading loading(surroundings);
        loading.Load();
        table = loading.accounts->Table();
        for (std::size_t number = 0; number < table->Count(); ++number) {
            const AccountFields account = table->Fields(number);
            titles.push_back({std::u16string(account.mainTitle), std::u16string(account.subTitle)});
        }
    }
    // Each finds the numbers of accounts and writes them down once; ours where it gives them to the list on the screen.
    std::size_t Ours(const std::u16string& text) const {
        AccountSearch search(table, text);
        std::size_t shown = 0;
        for (std::size_t group = 0; group < table->GroupCount(); ++group) {
            const std::span<const std::uint32_t> ofGroup = search.Shown(group);
            Keep(ofGroup);
            shown += ofGroup.size();
        }
        return shown;
    }
    std::size_t Bare(const std::u16string& text) const {
        SearchBare(titles, text, found);
        return found.size();
    }

    // The titles' pair of letters that comes closest to being in half of the accounts.
    std::u16string HalfHit() const {
        const std::size_t sample = std::min<std::size_t>(titles.size(), 2000);
        std::set<std::u16string> pairs;
        for (std::size_t i = 0; i < 200 && i < titles.size(); ++i) {
            const std::u16string text = Lower(titles[i].mainTitle + u" " + titles[i].subTitle);
            for (std::size_t at = 0; at + 2 <= text.size(); ++at) {
                pairs.insert(text.substr(at, 2));
            }
        }
        const std::vector<KeptTitles> first(titles.begin(), titles.begin() + static_cast<std::ptrdiff_t>(sample));
        std::u16string best;
        std::size_t bestDistance = sample;
        for (const std::u16string& pair : pairs) {
            SearchBare(first, pair, found);
            const std::size_t hits = 2 * found.size();
            const std::size_t distance = hits > sample ? hits - sample : sample - hits;
            if (distance < bestDistance) {
                best = pair;
                bestDistance = distance;
            }
        }
        return best;
    }
    // The title of the last main account, which carries a number.
    std::u16string OneHit() const { return titles[table->GroupStart(table->GroupCount() - 1)].mainTitle; }
    std::size_t LastGroup() const { return table->Count() - table->GroupStart(table->GroupCount() - 1); }

    std::shared_ptr<const AccountTable> table;
    std::vector<KeptTitles> titles;
    mutable std::vector<std::uint32_t> found;
};

Case SearchCase(const std::shared_ptr<const Searching>& state, const char* name, const std::u16string& text) {
    return {name, static_cast<int>(state->titles.size()), [state, text] { Keep(state->Ours(text)); },
            [state, text] { Keep(state->Bare(text)); }};
}

struct Lists {
    Lists(MutexFactory& factory, int elements) : mutexes(factory), count(elements), list(factory) {
        for (int i = 0; i < count; ++i) {
            // Neither sorted nor alike.
            plain.emplace_back(static_cast<std::int32_t>((static_cast<std::uint32_t>(i) * 2'654'435'769U) >> 1U));
            list.Append(plain.back());
        }
    }
    MutexFactory& mutexes;
    int count;
    List list;
    std::vector<Variant> plain;
    std::shared_ptr<List> sorted;
    std::vector<Variant> plainSorted;
    ByValue byValue;
};

}  // namespace

std::vector<Case> AccountCases(const Surroundings& surroundings, int count, const Wanted& wanted) {
    std::vector<Case> cases;
    if (wanted("load")) {
        cases.push_back(LoadCase(surroundings, count));
    }
    if (wanted("search")) {
        const auto state = std::make_shared<const Searching>(surroundings);
        const std::u16string none = u"quartz";
        const std::u16string one = state->OneHit();
        const std::u16string half = state->HalfHit();
        Check(state->Bare(none) == 0 && state->Ours(none) == 0, "what should be found nowhere is.");
        Check(state->Bare(one) == state->LastGroup() && state->Ours(one) == state->LastGroup(),
              "what should be found once is not.");
        cases.push_back(SearchCase(state, "search, no hit", none));
        cases.push_back(SearchCase(state, "search, one hit", one));
        cases.push_back(SearchCase(state, "search, half hit", half));
    }
    return cases;
}

std::vector<Case> ListCases(MutexFactory& mutexes, int count) {
    const auto state = std::make_shared<Lists>(mutexes, count);
    const int middle = count / 2;
    const auto append = [state](auto add) {
        for (int i = 0; i < state->count; ++i) {
            add(Variant(i));
        }
    };
    const auto sum = [](const std::vector<Variant>& items) {
        std::int64_t total = 0;
        for (const Variant& item : items) {
            total += item.Integer();
        }
        Keep(total);
    };
    std::vector<Case> cases;
    cases.push_back({"list, append", count,
                     [state, append] {
                         List list(state->mutexes);
                         append([&list](Variant value) { list.Append(std::move(value)); });
                         Keep(list);
                     },
                     [append] {
                         std::vector<Variant> list;
                         append([&list](Variant value) { list.push_back(std::move(value)); });
                         Keep(list);
                     }});
    cases.push_back({"list, walk", count, [state, sum] { sum(state->list.Items()); },
                     [state, sum] { sum(std::vector<Variant>(state->plain)); }});
    cases.push_back({"list, item", count,
                     [state] {
                         for (int i = 0; i < state->count; ++i) {
                             Keep(state->list.Item(i).Integer());
                         }
                     },
                     [state] {
                         for (std::size_t i = 0; i < state->plain.size(); ++i) {
                             Keep(Variant(state->plain.at(i)).Integer());
                         }
                     }});
    cases.push_back({"list, index", count, [state] { Keep(state->list.Index(-1)); },
                     [state] {
                         Keep(std::find_if(state->plain.begin(), state->plain.end(),
                                           [](const Variant& item) { return item.Equals(-1); }));
                     }});
    cases.push_back({"list, delete", count,
                     [state, middle] {
                         const Variant value = state->list.Item(middle);
                         state->list.Delete(middle);
                         state->list.Append(value);
                     },
                     [state, middle] {
                         const Variant value = state->plain[static_cast<std::size_t>(middle)];
                         state->plain.erase(state->plain.begin() + middle);
                         state->plain.push_back(value);
                     }});
    cases.push_back({"list, sort", count, [state] { state->sorted->Sort(state->byValue); },
                     [state] {
                         std::stable_sort(
                             state->plainSorted.begin(), state->plainSorted.end(),
                             [state](const Variant& a, const Variant& b) { return state->byValue.Compare(a, b) < 0; });
                     },
                     [state] {
                         state->sorted = state->list.Clone();
                         state->plainSorted = state->plain;
                     },
                     false});
    return cases;
}

void UseList(MutexFactory& mutexes, int operations) {
    List list(mutexes);
    for (int i = 0; i < 1000; ++i) {
        list.Append(i);
    }
    for (int i = 0; i < operations; ++i) {
        list.Item(i % 1000, list.Item((i + 1) % 1000));
    }
    Keep(list);
}

}  // namespace korvanta::bench
