#include "common/TextStream.h"

#include <cstring>
#include <utility>

#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::size_t chunkBytes = 65'536;
constexpr char16_t byteOrderMark = u'\uFEFF';

Error PastEnd() {
    return StandardError(errorNumber::inputPastEnd, u"TextStream");
}

Error LineTooLong() {
    return StandardError(errorNumber::outOfStringSpace, u"TextStream");
}

}  // namespace

TextInput::TextInput(std::unique_ptr<InputFile> file, const CodePage* codePage)
    : file_(std::move(file)), codePage_(codePage), bytes_(chunkBytes) {}

TextInput TextInput::OpenUtf16(FileSystem& files, const std::u16string& path) {
    std::unique_ptr<InputFile> file;
    CheckFile(files.OpenForReading(path, file));
    return {std::move(file), nullptr};
}

TextInput TextInput::OpenAnsi(FileSystem& files, const CodePage& codePage, const std::u16string& path) {
    std::unique_ptr<InputFile> file;
    CheckFile(files.OpenForReading(path, file));
    return {std::move(file), &codePage};
}

// Appends the next chunk of the file to the text; false at the end of the file. An ANSI chunk is decoded up to its last
// line feed, so that no character of several bytes is cut in two.
bool TextInput::Fill() {
    while (!fileEnded_) {
        if (heldBytes_ == bytes_.size()) {
            if (bytes_.size() >= longestLine * 4) {  // more than the longest line even of two-byte characters
                throw LineTooLong();
            }
            bytes_.resize(bytes_.size() * 2);
        }
        std::size_t got = 0;
        CheckFile(file_->Read(bytes_.data() + heldBytes_, bytes_.size() - heldBytes_, got));
        fileEnded_ = got == 0;
        const std::string_view held(bytes_.data(), heldBytes_ + got);
        std::size_t whole = held.size();
        if (codePage_ == nullptr) {
            whole -= whole % sizeof(char16_t);
        } else if (!fileEnded_) {
            const std::size_t lineFeed = held.rfind('\n');
            whole = lineFeed == std::string_view::npos ? 0 : lineFeed + 1;
        }
        if (whole != 0) {
            text_.erase(0, position_);
            position_ = 0;
            if (codePage_ != nullptr) {
                text_ += codePage_->Decode(held.substr(0, whole));
            } else {
                const std::size_t before = text_.size();
                text_.resize(before + whole / sizeof(char16_t));
                std::memcpy(text_.data() + before, held.data(), whole);
                if (!started_ && text_.front() == byteOrderMark) {
                    position_ = 1;
                }
                started_ = true;
            }
        }
        std::memmove(bytes_.data(), bytes_.data() + whole, held.size() - whole);
        heldBytes_ = held.size() - whole;
        if (position_ < text_.size() && whole != 0) {
            return true;
        }
    }
    return false;
}

bool TextInput::AtEnd() {
    return position_ == text_.size() && !Fill();
}

std::u16string_view TextInput::ReadLineView() {
    if (AtEnd()) {
        throw PastEnd();
    }
    std::size_t lineFeed = text_.find(u'\n', position_);
    while (lineFeed == std::u16string::npos) {
        const std::size_t searched = text_.size() - position_;
        if (searched > longestLine + 1 || !Fill()) {
            break;
        }
        lineFeed = text_.find(u'\n', position_ + searched);
    }
    const bool ended = lineFeed != std::u16string::npos;
    std::u16string_view line(text_.data() + position_, (ended ? lineFeed : text_.size()) - position_);
    if (ended && !line.empty() && line.back() == u'\r') {
        line.remove_suffix(1);
    }
    if (line.size() > longestLine) {
        throw LineTooLong();
    }
    position_ = ended ? lineFeed + 1 : text_.size();
    return line;
}

std::u16string TextInput::ReadAll() {
    if (AtEnd()) {
        throw PastEnd();
    }
    while (Fill()) {
        if (text_.size() - position_ > longestText) {
            throw StandardError(errorNumber::outOfMemory, u"TextStream");
        }
    }
    text_.erase(0, position_);
    position_ = 0;
    return std::exchange(text_, {});
}

TextOutput::TextOutput(std::unique_ptr<OutputFile> file, const CodePage* codePage)
    : file_(std::move(file)), codePage_(codePage) {}

TextOutput TextOutput::OpenUtf16(FileSystem& files, const std::u16string& path) {
    std::unique_ptr<OutputFile> file;
    CheckFile(files.OpenForWriting(path, OutputMode::Truncate, file));
    TextOutput output(std::move(file), nullptr);
    output.Write(std::u16string_view(&byteOrderMark, 1));
    return output;
}

TextOutput TextOutput::OpenAnsi(FileSystem& files, const CodePage& codePage, const std::u16string& path,
                                OutputMode mode) {
    std::unique_ptr<OutputFile> file;
    CheckFile(files.OpenForWriting(path, mode, file));
    return {std::move(file), &codePage};
}

void TextOutput::Write(std::u16string_view text) {
    if (codePage_ != nullptr) {
        pending_ += codePage_->Encode(text);
    } else {
        const std::size_t before = pending_.size();
        pending_.resize(before + text.size() * sizeof(char16_t));
        std::memcpy(pending_.data() + before, text.data(), text.size() * sizeof(char16_t));
    }
    if (pending_.size() >= chunkBytes) {
        Flush();
    }
}

void TextOutput::WriteLine(std::u16string_view text) {
    Write(text);
    Write(lineBreak);
}

void TextOutput::Flush() {
    if (!pending_.empty()) {
        const std::string bytes = std::move(pending_);
        pending_.clear();
        CheckFile(file_->Write(bytes.data(), bytes.size()));
    }
}

void TextOutput::Close() {
    Flush();
    CheckFile(file_->Close());
}

std::uint64_t TextOutput::FileLength() {
    std::uint64_t length = 0;
    CheckFile(file_->Length(length));
    return length;
}

}  // namespace korvanta
