#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace korvanta {

// A text file being read. UTF-16 files are little-endian; a byte-order mark at the start is skipped, and so is half a
// unit at the end. Lines end with CR LF or LF. Failures raise Error: file errors, 62 "Input past end of file", 14 for a
// line longer than longestLine, and 7 for a whole text longer than longestText.
class TextInput {
  public:
    // Characters of the longest line, and of the longest whole text, that are read.
    static constexpr std::size_t longestLine = std::size_t{1} << 20U;
    static constexpr std::size_t longestText = std::size_t{1} << 25U;

    static TextInput OpenUtf16(FileSystem& files, const std::u16string& path);
    static TextInput OpenAnsi(FileSystem& files, const CodePage& codePage, const std::u16string& path);

    bool AtEnd();
    // The next line without its line end. The view is valid until the next call.
    std::u16string_view ReadLineView();
    std::u16string ReadLine() { return std::u16string(ReadLineView()); }
    // The rest of the file. Raises error 62 when nothing is left, as in an empty file.
    std::u16string ReadAll();

  private:
    TextInput(std::unique_ptr<InputFile> file, const CodePage* codePage);
    bool Fill();

    std::unique_ptr<InputFile> file_;
    const CodePage* codePage_;  // none for UTF-16
    std::vector<char> bytes_;
    std::size_t heldBytes_ = 0;  // at the start of bytes_: not yet a whole unit or line
    std::u16string text_;
    std::size_t position_ = 0;
    bool started_ = false;
    bool fileEnded_ = false;
};

// A text file being written. Texts are collected, and written to the file at Flush, at Close and when they have become
// many. Only then can writing fail, which raises Error; the collected texts are then lost.
class TextOutput {
  public:
    // Creates or empties the file; UTF-16 files begin with the byte-order mark.
    static TextOutput OpenUtf16(FileSystem& files, const std::u16string& path);
    static TextOutput OpenAnsi(FileSystem& files, const CodePage& codePage, const std::u16string& path,
                               OutputMode mode = OutputMode::Truncate);

    void Write(std::u16string_view text);
    // The text and CR LF.
    void WriteLine(std::u16string_view text);
    void Flush();
    // Flushes and closes. Without it, destroying the stream loses what was not flushed.
    void Close();
    // The file's length in bytes, without what is not flushed yet.
    std::uint64_t FileLength();

  private:
    TextOutput(std::unique_ptr<OutputFile> file, const CodePage* codePage);

    std::unique_ptr<OutputFile> file_;
    const CodePage* codePage_;  // none for UTF-16
    std::string pending_;
};

}  // namespace korvanta
