#include "common/List.h"

#include <gtest/gtest.h>

#include <functional>

#include "fakes/FakeMutexFactory.h"

namespace korvanta {
namespace {

using fakes::FakeMutexFactory;

class Thing : public Object {};

// Orders numbers, or fails, and counts its calls.
class CountingComparator : public IComparator {
  public:
    int calls = 0;
    std::function<void(int call)> onCompare;

  private:
    std::int16_t IComparator_Compare(const Variant& a, const Variant& b) override {
        ++calls;
        if (onCompare) {
            onCompare(calls);
        }
        return static_cast<std::int16_t>(a.Integer() < b.Integer() ? -1 : a.Integer() > b.Integer() ? 1 : 0);
    }
};

// Orders texts by their first character alone, so that stability shows.
class FirstCharacterComparator : public IComparator {
  private:
    std::int16_t IComparator_Compare(const Variant& a, const Variant& b) override {
        return static_cast<std::int16_t>(a.Text()[0] - b.Text()[0]);
    }
};

class ListTest : public testing::Test {
  protected:
    void Fill(std::initializer_list<Variant> values) {
        for (const Variant& value : values) {
            list.Append(value);
        }
    }
    static std::int32_t ErrorOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const Error& error) {
            EXPECT_EQ(error.Source(), u"List");
            return error.Number() - userErrorBase;
        }
        return 0;
    }
    static std::u16string DescriptionOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const Error& error) {
            return error.Description();
        }
        return {};
    }

    FakeMutexFactory mutexes;
    List list{mutexes};
    CountingComparator comparator;
};

TEST_F(ListTest, ANewListIsEmpty) {
    EXPECT_EQ(list.Length(), 0);
    EXPECT_TRUE(list.Items().empty());
    EXPECT_EQ(list.ToString(), u"[]");
}

TEST_F(ListTest, ToStringShowsNumbersTextsAndObjects) {
    Fill({1, u"a", std::make_shared<Thing>()});
    EXPECT_EQ(list.ToString(), u"[1, \"a\", Object]");
}

TEST_F(ListTest, ToStringRendersEveryKind) {
    Fill({Variant(), Variant::Null(), Variant::ErrorValue{5}, true, false, std::uint8_t{255}, std::int16_t{-3}, 70000,
          1.5F, 0.1, Variant::Currency{12345}, Variant::Array{1, 2}});
    EXPECT_EQ(list.ToString(), u"[Empty, Null, Error, True, False, 255, -3, 70000, 1.5, 0.1, 1.2345, Array]");
}

TEST_F(ListTest, ToStringOfAListInsideAListSaysObject) {
    list.Append(std::make_shared<List>(mutexes));
    EXPECT_EQ(list.ToString(), u"[Object]");
}

TEST_F(ListTest, AppendAndPushAddAtTheEnd) {
    list.Append(1);
    list.Push(2);
    list.Append(3);
    EXPECT_EQ(list.ToString(), u"[1, 2, 3]");
    EXPECT_EQ(list.Length(), 3);
}

TEST_F(ListTest, ItemGivesAndReplacesTheElement) {
    Fill({1, 2, 3});
    EXPECT_EQ(list.Item(1).Integer(), 2);
    list.Item(1, u"two");
    EXPECT_EQ(list.ToString(), u"[1, \"two\", 3]");
}

TEST_F(ListTest, ObjectsAreSharedAndTextsAreCopied) {
    const auto thing = std::make_shared<Thing>();
    std::u16string text = u"before";
    Fill({thing, text});
    text = u"after";
    EXPECT_EQ(list.Item(0).Reference(), thing);
    EXPECT_EQ(thing.use_count(), 2);
    EXPECT_EQ(list.Item(1).Text(), u"before");
}

TEST_F(ListTest, AnIndexOutsideTheListIsError34010) {
    Fill({1, 2});
    for (const std::int32_t index : {-2, -1, 2, 3, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(ErrorOf([&] { list.Item(index); }), 34010) << index;
        EXPECT_EQ(ErrorOf([&] { list.Item(index, 7); }), 34010) << index;
        EXPECT_EQ(ErrorOf([&] { list.Delete(index); }), 34010) << index;
    }
    for (const std::int32_t index : {-2, 2, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(ErrorOf([&] { list.Pop(index); }), 34010) << index;
    }
    EXPECT_EQ(list.ToString(), u"[1, 2]");
}

TEST_F(ListTest, AnEmptyListHasNoIndexAtAll) {
    EXPECT_EQ(ErrorOf([&] { list.Item(0); }), 34010);
    EXPECT_EQ(ErrorOf([&] { list.Delete(0); }), 34010);
}

TEST_F(ListTest, ErrorNumbersAreRelativeToTheUserErrorBase) {
    try {
        list.Item(0);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(static_cast<std::uint32_t>(error.Number()), 0x80040000U + 34010U);
    }
}

TEST_F(ListTest, ItemsIsACopyThatStaysAsItIs) {
    Fill({1, 2});
    const std::vector<Variant> items = list.Items();
    list.Append(3);
    list.Item(0, 9);
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].Integer(), 1);
}

TEST_F(ListTest, PopTakesTheLastElementByDefault) {
    Fill({1, 2, 3});
    EXPECT_EQ(list.Pop().Integer(), 3);
    EXPECT_EQ(list.ToString(), u"[1, 2]");
}

TEST_F(ListTest, PopOfIndexZeroTakesTheFirstElement) {
    Fill({1, 2, 3});
    EXPECT_EQ(list.Pop(0).Integer(), 1);
    EXPECT_EQ(list.ToString(), u"[2, 3]");
}

TEST_F(ListTest, PopGivesAnObjectAsReference) {
    const auto thing = std::make_shared<Thing>();
    list.Append(thing);
    EXPECT_EQ(list.Pop().Reference(), thing);
    EXPECT_EQ(list.Length(), 0);
}

TEST_F(ListTest, PopOfAnEmptyListRaisesItsOwnError) {
    EXPECT_EQ(ErrorOf([&] { list.Pop(); }), 34012);
    EXPECT_EQ(ErrorOf([&] { list.Pop(0); }), 34012);
    EXPECT_EQ(DescriptionOf([&] { list.Pop(); }), u"Cannot pop item off an empty list.");
}

TEST_F(ListTest, ThePoppedListCanBeFilledAgain) {
    Fill({1});
    list.Pop();
    Fill({2, 3});
    EXPECT_EQ(list.ToString(), u"[2, 3]");
}

TEST_F(ListTest, IndexOfAValueThatOccursTwiceIsTheFirstPosition) {
    Fill({u"a", u"b", u"a", u"b"});
    EXPECT_EQ(list.Index(u"b"), 1);
    EXPECT_EQ(list.Index(u"c"), -1);
    EXPECT_TRUE(list.Contains(u"a"));
    EXPECT_FALSE(list.Contains(u"c"));
}

TEST_F(ListTest, IndexFindsTextsExactly) {
    Fill({u"Straße"});
    EXPECT_EQ(list.Index(u"straße"), -1);
    EXPECT_EQ(list.Index(u"Straße"), 0);
}

TEST_F(ListTest, IndexFindsAnObjectOnlyByItself) {
    const auto thing = std::make_shared<Thing>();
    Fill({std::make_shared<Thing>(), thing});
    EXPECT_EQ(list.Index(thing), 1);
    EXPECT_EQ(list.Index(std::make_shared<Thing>()), -1);
    EXPECT_EQ(list.Index(0), -1);
    EXPECT_EQ(list.Index(Variant()), -1);
}

TEST_F(ListTest, IndexOfNullIsNeverFound) {
    Fill({Variant::Null(), 1});
    EXPECT_EQ(list.Index(Variant::Null()), -1);
}

TEST_F(ListTest, DeleteMovesLaterElementsDown) {
    Fill({1, 2, 3});
    list.Delete(1);
    EXPECT_EQ(list.ToString(), u"[1, 3]");
    list.Delete(1);
    list.Delete(0);
    EXPECT_EQ(list.ToString(), u"[]");
}

TEST_F(ListTest, RemoveTakesTheFirstEqualElement) {
    Fill({1, 2, 1});
    list.Remove(1);
    EXPECT_EQ(list.ToString(), u"[2, 1]");
}

TEST_F(ListTest, RemoveOfAnAbsentValueIsError34011AndChangesNothing) {
    Fill({1, 2});
    EXPECT_EQ(ErrorOf([&] { list.Remove(3); }), 34011);
    EXPECT_EQ(list.ToString(), u"[1, 2]");
}

TEST_F(ListTest, SortOfOneElementDoesNotCompare) {
    list.Append(u"not even a number");
    list.Sort(comparator);
    EXPECT_EQ(comparator.calls, 0);
}

TEST_F(ListTest, SortOfNoElementsDoesNotCompare) {
    list.Sort(comparator);
    EXPECT_EQ(comparator.calls, 0);
}

TEST_F(ListTest, SortOfTwoElementsComparesExactlyOnce) {
    Fill({2, 1});
    list.Sort(comparator);
    EXPECT_EQ(comparator.calls, 1);
    EXPECT_EQ(list.ToString(), u"[1, 2]");
}

TEST_F(ListTest, SortOfThreeElementsComparesTheRightPairThenMerges) {
    Fill({1, 2, 3});
    list.Sort(comparator);
    EXPECT_EQ(comparator.calls, 2);  // 2 with 3, then 1 with 2; the rest is appended
    list.Item(0, 9);
    comparator.calls = 0;
    list.Sort(comparator);
    EXPECT_EQ(comparator.calls, 3);
    EXPECT_EQ(list.ToString(), u"[2, 3, 9]");
}

TEST_F(ListTest, SortKeepsTheOrderOfEqualElements) {
    Fill({u"b1", u"a1", u"b2", u"c1", u"a2", u"b3", u"a3", u"c2", u"a4"});
    FirstCharacterComparator byFirst;
    list.Sort(byFirst);
    EXPECT_EQ(list.ToString(), u"[\"a1\", \"a2\", \"a3\", \"a4\", \"b1\", \"b2\", \"b3\", \"c1\", \"c2\"]");
}

TEST_F(ListTest, SortOrdersAnyNumberOfElements) {
    for (std::int32_t count = 2; count < 70; ++count) {
        List numbers(mutexes);
        for (std::int32_t i = 0; i < count; ++i) {
            numbers.Append(i * 37 % 101);
        }
        numbers.Sort(comparator);
        const std::vector<Variant> sorted = numbers.Items();
        ASSERT_EQ(static_cast<std::int32_t>(sorted.size()), count);
        for (std::size_t i = 1; i < sorted.size(); ++i) {
            ASSERT_LE(sorted[i - 1].Integer(), sorted[i].Integer()) << count;
        }
    }
}

TEST_F(ListTest, AComparatorThatRaisesLeavesTheListUnsortedAndUnlocked) {
    Fill({4, 3, 2, 1});
    comparator.onCompare = [](int call) {
        if (call == 3) {
            throw Error(errorNumber::invalidCall, u"test", u"no");
        }
    };
    EXPECT_THROW(list.Sort(comparator), Error);
    EXPECT_EQ(list.ToString(), u"[4, 3, 2, 1]");
    EXPECT_EQ(mutexes.state.held, 0);
}

TEST_F(ListTest, AComparatorMayChangeTheListThatIsSorted) {
    Fill({3, 2, 1});
    comparator.onCompare = [this](int call) {
        for (int i = 0; i < 100; ++i) {
            list.Append(call);
        }
        list.Delete(0);
    };
    list.Sort(comparator);
    EXPECT_EQ(list.ToString(), u"[1, 2, 3]");
}

TEST_F(ListTest, CloneIsANewListWithTheSameElements) {
    const auto thing = std::make_shared<Thing>();
    Fill({1, thing});
    const std::shared_ptr<List> clone = list.Clone();
    list.Delete(0);
    EXPECT_EQ(clone->ToString(), u"[1, Object]");
    EXPECT_EQ(clone->Item(1).Reference(), thing);
    EXPECT_EQ(mutexes.state.created, 2);
}

TEST_F(ListTest, ExtendAppendsTheOtherListInOrder) {
    Fill({1});
    List other(mutexes);
    other.Append(2);
    other.Append(3);
    list.Extend(other);
    EXPECT_EQ(list.ToString(), u"[1, 2, 3]");
    EXPECT_EQ(other.Length(), 2);
}

TEST_F(ListTest, AListExtendedByItselfHoldsEverythingTwice) {
    Fill({1, 2});
    list.Extend(list);
    EXPECT_EQ(list.ToString(), u"[1, 2, 1, 2]");
}

TEST_F(ListTest, AMutexThatCannotBeCreatedIsError34030) {
    mutexes.faults.FailOnce("CreateOwned", 1, 8);
    EXPECT_EQ(ErrorOf([&] { List other(mutexes); }), 34030);
    mutexes.faults.FailOnce("CreateOwned", 1, 8);
    EXPECT_EQ(DescriptionOf([&] { List other(mutexes); }), u"Unable to create mutex. GetLastError returned: 8");
    mutexes.faults.FailOnce("CreateOwned", 1, 8);
    EXPECT_EQ(ErrorOf([&] { list.Clone(); }), 34030);
}

TEST_F(ListTest, TheMutexGoesWithTheList) {
    { List other(mutexes); }
    EXPECT_EQ(mutexes.state.created, 2);
    EXPECT_EQ(mutexes.state.alive, 1);
}

// What the operations do, for the tests of every way the lock can fail.
struct Operation {
    const char* name;
    void (*run)(List& list, List& other, IComparator& comparator);
};

const Operation operations[] = {
    {"Length", [](List& list, List&, IComparator&) { list.Length(); }},
    {"Item", [](List& list, List&, IComparator&) { list.Item(0); }},
    {"set Item", [](List& list, List&, IComparator&) { list.Item(0, 99); }},
    {"Items", [](List& list, List&, IComparator&) { list.Items(); }},
    {"Append", [](List& list, List&, IComparator&) { list.Append(99); }},
    {"Push", [](List& list, List&, IComparator&) { list.Push(99); }},
    {"Pop", [](List& list, List&, IComparator&) { list.Pop(); }},
    {"Pop first", [](List& list, List&, IComparator&) { list.Pop(0); }},
    {"Contains", [](List& list, List&, IComparator&) { list.Contains(1); }},
    {"Index", [](List& list, List&, IComparator&) { list.Index(1); }},
    {"Delete", [](List& list, List&, IComparator&) { list.Delete(1); }},
    {"Remove", [](List& list, List&, IComparator&) { list.Remove(1); }},
    {"ToString", [](List& list, List&, IComparator&) { list.ToString(); }},
    {"Sort", [](List& list, List&, IComparator& comparator) { list.Sort(comparator); }},
    {"Clone", [](List& list, List&, IComparator&) { list.Clone(); }},
    {"Extend", [](List& list, List& other, IComparator&) { list.Extend(other); }},
};

TEST_F(ListTest, EveryOperationTimesOutOnAForeignThreadAndChangesNothing) {
    Fill({3, 1, 2});
    List other(mutexes);
    other.Append(7);
    for (const Operation& operation : operations) {
        mutexes.state.waitResults = {WaitResult::TimedOut};
        try {
            operation.run(list, other, comparator);
            ADD_FAILURE() << operation.name;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number() - userErrorBase, 34031) << operation.name;
            EXPECT_EQ(error.Description(), u"Mutex wait timed out.");
        }
        EXPECT_EQ(mutexes.state.lastTimeout, 10'000U);
        EXPECT_EQ(mutexes.state.held, 0) << operation.name;
        EXPECT_EQ(list.ToString(), u"[3, 1, 2]") << operation.name;
    }
}

TEST_F(ListTest, EveryOperationTellsAFailedWaitAndChangesNothing) {
    Fill({3, 1, 2});
    List other(mutexes);
    other.Append(7);
    for (const Operation& operation : operations) {
        mutexes.state.waitResults = {WaitResult::Failed};
        try {
            operation.run(list, other, comparator);
            ADD_FAILURE() << operation.name;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number() - userErrorBase, 34032) << operation.name;
            EXPECT_EQ(error.Description(), u"Mutex wait failed.");
        }
        EXPECT_EQ(mutexes.state.held, 0) << operation.name;
        EXPECT_EQ(list.ToString(), u"[3, 1, 2]") << operation.name;
    }
}

TEST_F(ListTest, EveryOperationTellsARefusedReleaseAndLeavesTheListAsItWas) {
    Fill({3, 1, 2});
    List other(mutexes);
    other.Append(7);
    for (const Operation& operation : operations) {
        mutexes.faults.FailFrom("Release", 1, 288);
        try {
            operation.run(list, other, comparator);
            ADD_FAILURE() << operation.name;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number() - userErrorBase, 34033) << operation.name;
            EXPECT_EQ(error.Description(), u"Unable to release mutex. GetLastError returned: 288");
        }
        mutexes.faults.Clear();
        EXPECT_EQ(mutexes.state.held, 0) << operation.name;
        EXPECT_EQ(list.ToString(), u"[3, 1, 2]") << operation.name;
    }
}

TEST_F(ListTest, ExtendByAListThatCannotBeReadChangesNothing) {
    Fill({1});
    List other(mutexes);
    other.Append(2);
    mutexes.state.waitResults = {WaitResult::Acquired, WaitResult::TimedOut};
    EXPECT_EQ(ErrorOf([&] { list.Extend(other); }), 34031);
    EXPECT_EQ(list.ToString(), u"[1]");
}

TEST_F(ListTest, EveryOperationWaitsAndReleasesOnce) {
    Fill({3, 1, 2});
    List other(mutexes);
    for (const Operation& operation : operations) {
        if (operation.name == std::string("Extend")) {
            continue;  // locks both lists
        }
        const int waits = mutexes.state.waits;
        const int releases = mutexes.state.releases;
        operation.run(list, other, comparator);
        EXPECT_EQ(mutexes.state.waits, waits + 1) << operation.name;
        EXPECT_EQ(mutexes.state.releases, releases + 1) << operation.name;
    }
}

TEST_F(ListTest, AFailedOperationReleasesTheMutexToo) {
    EXPECT_EQ(ErrorOf([&] { list.Item(0); }), 34010);
    EXPECT_EQ(ErrorOf([&] { list.Pop(); }), 34012);
    EXPECT_EQ(ErrorOf([&] { list.Remove(1); }), 34011);
    EXPECT_EQ(mutexes.state.waits, mutexes.state.releases);
    EXPECT_EQ(mutexes.state.held, 0);
}

TEST_F(ListTest, AHundredThousandElementsAreListedAndSorted) {
    constexpr std::int32_t count = 100'000;
    for (std::int32_t i = 0; i < count; ++i) {
        list.Append(static_cast<std::int32_t>(static_cast<std::int64_t>(i) * 7919 % count));
    }
    EXPECT_EQ(list.Length(), count);
    list.Sort(comparator);
    const std::vector<Variant> sorted = list.Items();
    for (std::int32_t i = 0; i < count; ++i) {
        ASSERT_EQ(sorted[static_cast<std::size_t>(i)].Integer(), i);
    }
    EXPECT_EQ(list.Index(count - 1), count - 1);
}

}  // namespace
}  // namespace korvanta
