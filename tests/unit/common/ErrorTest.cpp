#include "common/Error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/FileSystem.h"

namespace korvanta {
namespace {

TEST(ErrorTest, AnErrorHasANumberASourceAndADescription) {
    const Error error(53, u"Source", u"Größe");
    EXPECT_EQ(error.Number(), 53);
    EXPECT_EQ(error.Source(), u"Source");
    EXPECT_EQ(error.NumberAndDescription(), u"53 - Größe");
    EXPECT_STREQ(error.what(), "Gr??e");
}

template <class Exception>
Error CurrentOf(const Exception& exception) {
    try {
        throw exception;
    } catch (...) {
        return Error::Current();
    }
}

TEST(ErrorTest, StandardErrorsHaveTheWordsOfTheirNumbers) {
    const std::pair<std::int32_t, const char16_t*> words[] = {
        {5, u"Invalid procedure call or argument"},
        {6, u"Overflow"},
        {7, u"Out of memory"},
        {9, u"Subscript out of range"},
        {13, u"Type mismatch"},
        {14, u"Out of string space"},
        {52, u"Bad file name or number"},
        {53, u"File not found"},
        {57, u"Device I/O error"},
        {61, u"Disk full"},
        {62, u"Input past end of file"},
        {70, u"Permission denied"},
        {76, u"Path not found"},
        {91, u"Object variable or With block variable not set"},
    };
    for (const auto& [number, description] : words) {
        const Error error = StandardError(number, u"Source");
        EXPECT_EQ(error.Number(), number);
        EXPECT_EQ(error.Source(), u"Source");
        EXPECT_EQ(error.Description(), description);
    }
}

TEST(ErrorTest, CurrentTellsEveryExceptionAsAnError) {
    EXPECT_EQ(CurrentOf(Error(62, u"s", u"d")).Number(), 62);
    EXPECT_EQ(CurrentOf(Error(62, u"s", u"d")).Source(), u"s");
    EXPECT_EQ(CurrentOf(std::bad_alloc()).NumberAndDescription(), u"7 - Out of memory");
    EXPECT_EQ(CurrentOf(std::out_of_range("x")).NumberAndDescription(), u"5 - Invalid procedure call or argument");
    EXPECT_EQ(CurrentOf(17).Number(), 5);
}

TEST(ErrorTest, FileErrorsHaveTheNumbersThatFileOperationsRaise) {
    const std::pair<std::uint32_t, std::int32_t> numbers[] = {
        {windowsError::fileNotFound, 53},     {windowsError::pathNotFound, 76},
        {windowsError::badNetPath, 76},       {windowsError::badNetName, 76},
        {windowsError::accessDenied, 70},     {windowsError::sharingViolation, 70},
        {windowsError::invalidName, 52},      {windowsError::diskFull, 61},
        {windowsError::notReady, 57},         {1117, 57},
        {windowsError::semaphoreTimeout, 57},
    };
    for (const auto& [code, number] : numbers) {
        EXPECT_EQ(FileError(code).Number(), number) << code;
        EXPECT_THROW(CheckFile(code), Error);
    }
    EXPECT_EQ(FileError(1117).Description(), u"Device I/O error (Windows error 1117)");
    EXPECT_NO_THROW(CheckFile(0));
}

}  // namespace
}  // namespace korvanta
