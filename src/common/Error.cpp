#include "common/Error.h"

#include <new>
#include <utility>

#include "common/Text.h"
#include "platform/FileSystem.h"

namespace korvanta {

namespace {

const char16_t* WordsFor(std::int32_t number) {
    switch (number) {
        case errorNumber::invalidCall:
            return u"Invalid procedure call or argument";
        case errorNumber::overflow:
            return u"Overflow";
        case errorNumber::outOfMemory:
            return u"Out of memory";
        case errorNumber::subscriptOutOfRange:
            return u"Subscript out of range";
        case errorNumber::typeMismatch:
            return u"Type mismatch";
        case errorNumber::outOfStringSpace:
            return u"Out of string space";
        case errorNumber::badFileName:
            return u"Bad file name or number";
        case errorNumber::fileNotFound:
            return u"File not found";
        case errorNumber::deviceError:
            return u"Device I/O error";
        case errorNumber::diskFull:
            return u"Disk full";
        case errorNumber::inputPastEnd:
            return u"Input past end of file";
        case errorNumber::permissionDenied:
            return u"Permission denied";
        case errorNumber::pathNotFound:
            return u"Path not found";
        case errorNumber::objectNotSet:
            return u"Object variable or With block variable not set";
        default:
            return u"";
    }
}

}  // namespace

Error::Error(std::int32_t number, std::u16string source, std::u16string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {
    for (const char16_t unit : description_) {
        narrow_ += unit < 128 ? static_cast<char>(unit) : '?';
    }
}

std::u16string Error::NumberAndDescription() const {
    return NumberText(number_) + u" - " + description_;
}

Error Error::Current() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return StandardError(errorNumber::outOfMemory, u"");
    } catch (...) {
        return StandardError(errorNumber::invalidCall, u"");
    }
}

Error StandardError(std::int32_t number, std::u16string source) {
    return {number, std::move(source), WordsFor(number)};
}

Error FileError(std::uint32_t windowsErrorCode) {
    const char16_t* const source = u"FileSystem";
    switch (windowsErrorCode) {
        case windowsError::fileNotFound:
            return StandardError(errorNumber::fileNotFound, source);
        case windowsError::pathNotFound:
        case windowsError::badNetPath:
        case windowsError::badNetName:
            return StandardError(errorNumber::pathNotFound, source);
        case windowsError::accessDenied:
        case windowsError::sharingViolation:
            return StandardError(errorNumber::permissionDenied, source);
        case windowsError::invalidName:
            return StandardError(errorNumber::badFileName, source);
        case windowsError::diskFull:
            return StandardError(errorNumber::diskFull, source);
        default:
            return {errorNumber::deviceError, source,
                    WordsFor(errorNumber::deviceError) + std::u16string(u" (Windows error ") +
                        NumberText(static_cast<std::int64_t>(windowsErrorCode)) + u")"};
    }
}

void CheckFile(std::uint32_t windowsErrorCode) {
    if (windowsErrorCode != windowsError::none) {
        throw FileError(windowsErrorCode);
    }
}

}  // namespace korvanta
