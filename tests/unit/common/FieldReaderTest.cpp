#include "common/FieldReader.h"

#include <string>

#include "gtest/gtest.h"

namespace korvanta {
namespace {

std::int32_t NumberOfNext(FieldReader& fields) {
    try {
        fields.Next();
        return 0;
    } catch (const Error& error) {
        return error.Number();
    }
}

TEST(FieldReader, HandsOutTheFieldsOneByOne) {
    FieldReader fields(u"one\u0001two\u0001three");
    EXPECT_EQ(fields.Next(), u"one");
    EXPECT_EQ(fields.Next(), u"two");
    EXPECT_EQ(fields.Next(), u"three");
    EXPECT_EQ(NumberOfNext(fields), 9);
    EXPECT_EQ(NumberOfNext(fields), 9);
}

TEST(FieldReader, EmptyFieldsCountAlsoAtTheEnds) {
    FieldReader fields(u"\u0001\u0001x\u0001");
    EXPECT_EQ(fields.Next(), u"");
    EXPECT_EQ(fields.Next(), u"");
    EXPECT_EQ(fields.Next(), u"x");
    EXPECT_EQ(fields.Next(), u"");
    EXPECT_EQ(NumberOfNext(fields), 9);
}

TEST(FieldReader, WithoutASeparatorTheRecordIsOneField) {
    FieldReader fields(u"one");
    EXPECT_EQ(fields.Next(), u"one");
    EXPECT_EQ(NumberOfNext(fields), 9);
}

TEST(FieldReader, TheEmptyRecordHasNoField) {
    FieldReader fields(u"");
    EXPECT_EQ(NumberOfNext(fields), 9);
}

TEST(FieldReader, TakesLinesApartWhoseSeparatorHasTwoUnits) {
    FieldReader lines(u"one\r\n\r\ntwo\nstill two\r", lineBreak);
    EXPECT_EQ(lines.Next(), u"one");
    EXPECT_EQ(lines.Next(), u"");
    EXPECT_EQ(lines.Next(), u"two\nstill two\r");
    EXPECT_EQ(NumberOfNext(lines), 9);
}

}  // namespace
}  // namespace korvanta
