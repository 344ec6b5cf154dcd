#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace korvanta {

// A text file being read. UTF-16 files are little-endian; a byte-order mark at the start is passed over, a half unit
// at the end is dropped. Lines end with CR LF or LF. Failures raise Error: file errors, 62 "Input past end of file",
// and 14 or 7 where a line or a whole text is larger than any that the program has use for.
class TextInput {
  public:
    // Characters of the longest line, and of the longest whole text, that are read.
    static constexpr std::size_t longestLine = std::size_t{1} << 20U;
    static constexpr std::size_t longestText = std::size_t{1} << 25U;

    static TextInput OpenUtf16(FileSystem& files, const std::u16string& path);
    static TextInput OpenAnsi(FileSystem& files, const CodePage& codePage, const std::u16string& path);

    bool AtEnd();
    // The next line without its line end; the view holds until the next call.
    std::u16string_view ReadLineView();
    std::u16string ReadLine() { return std::u16string(ReadLineView()); }
    // All that is left; at the end of the file (an empty file) there is nothing to read, which is error 62.
    std::u16string ReadAll();

  private:
    TextInput(std::unique_ptr<InputFile> file, const CodePage* codePage);
    bool Fill();

    std::unique_ptr<InputFile> file_;
    const CodePage* codePage_;  // none for UTF-16
    std::vector<char> bytes_;
    std::size_t heldBytes_ = 0;  // bytes of bytes_ that make no whole unit or line yet
    std::u16string text_;
    std::size_t position_ = 0;
    bool started_ = false;
    bool fileEnded_ = false;
};

// A text file being written. What is written reaches the file at Flush or Close (or when much has gathered); only
// then do failures show, as Error, and what could not be written is dropped.
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
    // Flush and close. A stream that is destroyed without it loses what was not flushed.
    void Close();
    // The file's length in bytes, what is not flushed aside.
    std::uint64_t FileLength();

  private:
    TextOutput(std::unique_ptr<OutputFile> file, const CodePage* codePage);

    std::unique_ptr<OutputFile> file_;
    const CodePage* codePage_;  // none for UTF-16
    std::string pending_;
};

}  // namespace korvanta
