#include "common/Variant.h"

#include <gtest/gtest.h>

#include "fakes/FakeClock.h"

namespace korvanta {
namespace {

using fakes::FakeClock;

class Thing : public Object {};
class Other : public Object {};

TEST(VariantTest, AValueGivesItselfOnlyAsWhatItIs) {
    EXPECT_EQ(Variant(std::uint8_t{200}).Integer(), 200);
    EXPECT_EQ(Variant(std::int16_t{-5}).Integer(), -5);
    EXPECT_EQ(Variant(70000).Integer(), 70000);
    EXPECT_EQ(Variant(1.5).Number(), 1.5);
    EXPECT_EQ(Variant(1.5F).Number(), 1.5);
    EXPECT_EQ(Variant(Variant::Currency{15000}).Number(), 1.5);
    EXPECT_EQ(Variant(7).Number(), 7.0);
    EXPECT_EQ(Variant(true).Number(), -1.0);
    EXPECT_EQ(Variant(false).Number(), 0.0);
    EXPECT_EQ(Variant(u"x").Text(), u"x");
    EXPECT_TRUE(Variant(true).Boolean());
}

TEST(VariantTest, AnotherKindIsATypeMismatch) {
    const Variant values[] = {Variant(),        Variant::Null(),          u"1", std::make_shared<Thing>(),
                              Variant::Array{}, FakeClock::At(2026, 1, 1)};
    for (const Variant& value : values) {
        try {
            value.Integer();
            FAIL();
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), 13);
        }
        EXPECT_THROW(value.Number(), Error);
        EXPECT_THROW(value.Boolean(), Error);
    }
    EXPECT_THROW(Variant(1.0).Integer(), Error);
    EXPECT_THROW(Variant(1).Text(), Error);
    EXPECT_THROW(Variant(1).Boolean(), Error);
    EXPECT_THROW(Variant(u"x").Reference(), Error);
    EXPECT_THROW(Variant().Text(), Error);
}

TEST(VariantTest, KindsAreTold) {
    EXPECT_TRUE(Variant().IsEmpty());
    EXPECT_FALSE(Variant(Variant::Null()).IsEmpty());
    EXPECT_FALSE(Variant(u"").IsEmpty());
    EXPECT_TRUE(Variant(u"").IsText());
    EXPECT_TRUE(Variant(std::make_shared<Thing>()).IsObject());
    EXPECT_TRUE(Variant(true).IsNumber());
    EXPECT_TRUE(Variant(Variant::Currency{}).IsNumber());
    EXPECT_FALSE(Variant(u"1").IsNumber());
    EXPECT_FALSE(Variant().IsNumber());
}

TEST(VariantTest, AnObjectIsGivenAsItsOwnTypeOnly) {
    const auto thing = std::make_shared<Thing>();
    const Variant value(thing);
    EXPECT_EQ(value.As<Thing>(), thing);
    EXPECT_EQ(value.As<Other>(), nullptr);
    EXPECT_EQ(value.Peek<Thing>(), thing.get());
    EXPECT_EQ(value.Peek<Other>(), nullptr);
    EXPECT_EQ(Variant(std::shared_ptr<Thing>()).As<Thing>(), nullptr);
}

TEST(VariantTest, NumbersAreEqualByValueWhateverTheirKind) {
    EXPECT_TRUE(Variant(1).Equals(std::int16_t{1}));
    EXPECT_TRUE(Variant(1).Equals(1.0));
    EXPECT_TRUE(Variant(1.5).Equals(1.5F));
    EXPECT_TRUE(Variant(Variant::Currency{10000}).Equals(std::uint8_t{1}));
    EXPECT_TRUE(Variant(true).Equals(-1));
    EXPECT_FALSE(Variant(true).Equals(1));
    EXPECT_FALSE(Variant(1).Equals(2));
}

TEST(VariantTest, LargeAmountsOfMoneyThatDifferByTheSmallestUnitAreNotEqual) {
    EXPECT_FALSE(Variant(Variant::Currency{INT64_MAX}).Equals(Variant::Currency{INT64_MAX - 1}));
    EXPECT_TRUE(Variant(Variant::Currency{INT64_MAX}).Equals(Variant::Currency{INT64_MAX}));
}

TEST(VariantTest, TextsAreEqualExactly) {
    EXPECT_TRUE(Variant(u"a").Equals(u"a"));
    EXPECT_FALSE(Variant(u"a").Equals(u"A"));
    EXPECT_FALSE(Variant(u"a").Equals(u"a "));
    EXPECT_FALSE(Variant(u"1").Equals(1));
    EXPECT_TRUE(Variant(std::u16string(u"a\0b", 3)).Equals(std::u16string(u"a\0b", 3)));
    EXPECT_FALSE(Variant(std::u16string(u"a\0b", 3)).Equals(u"a"));
}

TEST(VariantTest, TheEmptyValueEqualsZeroAndTheEmptyTextAsWell) {
    EXPECT_TRUE(Variant().Equals(Variant()));
    EXPECT_TRUE(Variant().Equals(0));
    EXPECT_TRUE(Variant(false).Equals(Variant()));
    EXPECT_TRUE(Variant(u"").Equals(Variant()));
    EXPECT_FALSE(Variant().Equals(1));
    EXPECT_FALSE(Variant().Equals(u" "));
    EXPECT_FALSE(Variant().Equals(Variant::Null()));
    EXPECT_FALSE(Variant().Equals(Variant::ErrorValue{0}));
}

TEST(VariantTest, NullArraysAndDifferentKindsEqualNothing) {
    EXPECT_FALSE(Variant(Variant::Null()).Equals(Variant::Null()));
    EXPECT_FALSE(Variant(Variant::Array{1}).Equals(Variant::Array{1}));
    EXPECT_FALSE(Variant(Variant::ErrorValue{1}).Equals(1));
    EXPECT_TRUE(Variant(Variant::ErrorValue{1}).Equals(Variant::ErrorValue{1}));
    EXPECT_FALSE(Variant(FakeClock::At(2026, 1, 1)).Equals(u"2026-01-01"));
    EXPECT_TRUE(Variant(FakeClock::At(2026, 1, 1)).Equals(FakeClock::At(2026, 1, 1)));
}

TEST(VariantTest, ObjectsAreEqualWhenTheyAreTheSame) {
    const auto thing = std::make_shared<Thing>();
    EXPECT_TRUE(Variant(thing).Equals(thing));
    EXPECT_FALSE(Variant(thing).Equals(std::make_shared<Thing>()));
    EXPECT_FALSE(Variant(thing).Equals(Variant()));
    EXPECT_FALSE(Variant(0).Equals(thing));
}

TEST(VariantTest, MoneyIsRenderedExactly) {
    EXPECT_EQ(Variant(Variant::Currency{0}).Rendering(), u"0");
    EXPECT_EQ(Variant(Variant::Currency{1000}).Rendering(), u"0.1");
    EXPECT_EQ(Variant(Variant::Currency{1}).Rendering(), u"0.0001");
    EXPECT_EQ(Variant(Variant::Currency{-15000}).Rendering(), u"-1.5");
    EXPECT_EQ(Variant(Variant::Currency{-1}).Rendering(), u"-0.0001");
    EXPECT_EQ(Variant(Variant::Currency{1000000}).Rendering(), u"100");
    EXPECT_EQ(Variant(Variant::Currency{INT64_MAX}).Rendering(), u"922337203685477.5807");
    EXPECT_EQ(Variant(Variant::Currency{INT64_MIN}).Rendering(), u"-922337203685477.5808");
}

TEST(VariantTest, FloatingNumbersAreRenderedWithTheDigitsTheyHold) {
    EXPECT_EQ(Variant(0.1F).Rendering(), u"0.1");
    EXPECT_EQ(Variant(1.0 / 3).Rendering(), u"0.333333333333333");
    EXPECT_EQ(Variant(1e20).Rendering(), u"1E+20");
    EXPECT_EQ(Variant(100.0).Rendering(), u"100");
    EXPECT_EQ(Variant(-0.0).Rendering(), u"0");
}

TEST(VariantTest, DatesAreRenderedSortablyWithTheTimeWhenThereIsOne) {
    EXPECT_EQ(Variant(FakeClock::At(2026, 11, 20)).Rendering(), u"2026-11-20");
    EXPECT_EQ(Variant(FakeClock::At(2026, 11, 20, 4, 3, 9)).Rendering(), u"2026-11-20 04:03:09");
    EXPECT_EQ(Variant(FakeClock::At(1601, 1, 1)).Rendering(), u"1601-01-01");
    EXPECT_EQ(Variant(FakeClock::At(1900, 2, 28, 23, 59, 59)).Rendering(), u"1900-02-28 23:59:59");
    EXPECT_EQ(Variant(FakeClock::At(2000, 2, 29)).Rendering(), u"2000-02-29");
    EXPECT_EQ(Variant(FakeClock::At(2100, 3, 1)).Rendering(), u"2100-03-01");
    EXPECT_EQ(Variant(FakeClock::At(1600, 12, 31, 12)).Rendering(), u"1600-12-31 12:00:00");
    EXPECT_EQ(Variant(FakeClock::At(9999, 12, 31)).Rendering(), u"9999-12-31");
}

TEST(VariantTest, EveryDayOfACenturyIsRenderedAsTheCalendarHasIt) {
    FakeClock calendar;
    for (DateTime day = FakeClock::At(1899, 12, 30); day < FakeClock::At(2002, 1, 1); day = day.PlusMinutes(24 * 60)) {
        ASSERT_EQ(Variant(day).Rendering(), calendar.ShortDate(day));
    }
}

}  // namespace
}  // namespace korvanta
