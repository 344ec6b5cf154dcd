#pragma once

#include <optional>
#include <string>
#include <vector>

namespace driver {

// Files as the tests and the tools put them in place and look at them. Paths are full Windows paths. What cannot be
// done raises std::runtime_error with the path and the Windows error code, unless a function says otherwise.

bool FileExists(const std::wstring& path);
bool FolderExists(const std::wstring& path);
std::string ReadBytes(const std::wstring& path);
// None when the file is missing or cannot be read now.
std::optional<std::string> TryReadBytes(const std::wstring& path);
// Creates or overwrites.
void WriteBytes(const std::wstring& path, const std::string& bytes);
void CopyOver(const std::wstring& from, const std::wstring& to);
void MakeFolders(const std::wstring& path);
void Rename(const std::wstring& from, const std::wstring& to);
void DeleteFileIfThere(const std::wstring& path);
// The folder with all that is in it; nothing happens when it is missing.
void DeleteTree(const std::wstring& path);
// Names of the files in a folder, sorted; none when the folder is missing.
std::vector<std::wstring> FileNames(const std::wstring& folder);
// Likewise of the folders in it.
std::vector<std::wstring> FolderNames(const std::wstring& folder);

// UTF-16 little-endian with a byte-order mark.
std::string Utf16Bytes(const std::wstring& text);
// The text of such bytes; the byte-order mark is dropped, an odd last byte is ignored.
std::wstring Utf16Text(const std::string& bytes);
// The text in the system's single-byte code page.
std::string AnsiBytes(const std::wstring& text);
std::string Utf8Bytes(const std::wstring& text);
std::wstring FromUtf8(const std::string& bytes);
// The lines of a text that end in CR LF, or reach the end of the text.
std::vector<std::wstring> Lines(const std::wstring& text);

}  // namespace driver
