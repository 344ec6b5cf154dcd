#include "common/Error.h"

#include <new>

#include "common/Text.h"
#include "platform/FileSystem.h"

namespace korvanta {

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
        return {errorNumber::outOfMemory, u"", u"Out of memory"};
    } catch (...) {
        return {errorNumber::invalidCall, u"", u"Invalid procedure call or argument"};
    }
}

Error FileError(std::uint32_t windowsErrorCode) {
    const std::u16string source = u"FileSystem";
    switch (windowsErrorCode) {
        case windowsError::fileNotFound:
            return {errorNumber::fileNotFound, source, u"File not found"};
        case windowsError::pathNotFound:
        case windowsError::badNetPath:
        case windowsError::badNetName:
            return {errorNumber::pathNotFound, source, u"Path not found"};
        case windowsError::accessDenied:
        case windowsError::sharingViolation:
            return {errorNumber::permissionDenied, source, u"Permission denied"};
        case windowsError::invalidName:
            return {errorNumber::badFileName, source, u"Bad file name or number"};
        case windowsError::diskFull:
            return {errorNumber::diskFull, source, u"Disk full"};
        default:
            return {
                errorNumber::deviceError, source,
                u"Device I/O error (Windows error " + NumberText(static_cast<std::int64_t>(windowsErrorCode)) + u")"};
    }
}

void CheckFile(std::uint32_t windowsErrorCode) {
    if (windowsErrorCode != windowsError::none) {
        throw FileError(windowsErrorCode);
    }
}

}  // namespace korvanta
