#include <gtest/gtest.h>
#include <windows.h>

#include "Folder.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/WindowsFileSystem.h"

namespace korvanta {
namespace {

class FileSystemTests : public ::testing::Test {
  protected:
    std::u16string Path(const std::u16string& name) const { return folder_.Path() + u"\\" + name; }

    std::uint32_t Write(const std::u16string& path, OutputMode mode, const std::string& bytes) {
        std::unique_ptr<OutputFile> file;
        const std::uint32_t opened = files_.OpenForWriting(path, mode, file);
        if (opened != windowsError::none) {
            return opened;
        }
        const std::uint32_t written = file->Write(bytes.data(), bytes.size());
        const std::uint32_t closed = file->Close();
        return written != windowsError::none ? written : closed;
    }

    std::string Read(const std::u16string& path) {
        std::unique_ptr<InputFile> file;
        const std::uint32_t opened = files_.OpenForReading(path, file);
        if (opened != windowsError::none) {
            return "error " + std::to_string(opened);
        }
        std::string bytes;
        char buffer[7];
        std::size_t got = 0;
        while (file->Read(buffer, sizeof(buffer), got) == windowsError::none && got > 0) {
            bytes.append(buffer, got);
        }
        return bytes;
    }

    services::Folder folder_;
    WindowsFileSystem files_;
};

TEST_F(FileSystemTests, BytesComeBackAsTheyWereWritten) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) {
        bytes += static_cast<char>(i);
    }
    EXPECT_EQ(Write(Path(u"bytes.bin"), OutputMode::Truncate, bytes), windowsError::none);
    EXPECT_EQ(Read(Path(u"bytes.bin")), bytes);
}

TEST_F(FileSystemTests, NamesOfTheCodePageWork) {
    const std::u16string path = Path(u"Übersicht für René.txt");
    EXPECT_EQ(Write(path, OutputMode::Truncate, "x"), windowsError::none);
    EXPECT_EQ(Read(path), "x");
    EXPECT_TRUE(files_.FileExists(path));
    EXPECT_EQ(::GetFileAttributesW(textCalls::Wide(path)) & FILE_ATTRIBUTE_DIRECTORY, 0U);
}

TEST_F(FileSystemTests, NamesOutsideTheCodePageWorkOnTheNtFamilyAndFailElsewhere) {
    const std::u16string path = Path(u"Żółć 漢字.txt");
    if (textCalls::IsWindows9x()) {
        EXPECT_NE(Write(path, OutputMode::Truncate, "x"), windowsError::none);
        EXPECT_FALSE(files_.FileExists(path));
    } else {
        EXPECT_EQ(Write(path, OutputMode::Truncate, "x"), windowsError::none);
        EXPECT_EQ(Read(path), "x");
    }
}

TEST_F(FileSystemTests, MissingFilesAndFoldersHaveTheirErrors) {
    std::unique_ptr<InputFile> file;
    EXPECT_EQ(files_.OpenForReading(Path(u"missing.txt"), file), windowsError::fileNotFound);
    EXPECT_EQ(files_.OpenForReading(Path(u"missing\\missing.txt"), file), windowsError::pathNotFound);
    EXPECT_EQ(file, nullptr);
    EXPECT_EQ(Write(Path(u"missing\\new.txt"), OutputMode::Truncate, "x"), windowsError::pathNotFound);
    std::uint64_t time = 0;
    EXPECT_EQ(files_.LastModified(Path(u"missing.txt"), time), windowsError::fileNotFound);
    EXPECT_EQ(files_.Delete(Path(u"missing.txt")), windowsError::fileNotFound);
    EXPECT_EQ(files_.Copy(Path(u"missing.txt"), Path(u"copy.txt")), windowsError::fileNotFound);
}

TEST_F(FileSystemTests, TruncatingLeavesNothingOfTheOldContent) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "a long text");
    EXPECT_EQ(Write(Path(u"a.txt"), OutputMode::Truncate, "new"), windowsError::none);
    EXPECT_EQ(Read(Path(u"a.txt")), "new");
}

TEST_F(FileSystemTests, OverwritingLeavesTheOldTail) {
    EXPECT_EQ(Write(Path(u"a.txt"), OutputMode::Overwrite, "a long text"), windowsError::none);
    EXPECT_EQ(Write(Path(u"a.txt"), OutputMode::Overwrite, "THE"), windowsError::none);
    EXPECT_EQ(Read(Path(u"a.txt")), "THEong text");
}

TEST_F(FileSystemTests, AppendingGoesToTheEndAndMakesTheFile) {
    EXPECT_EQ(Write(Path(u"a.txt"), OutputMode::Append, "one "), windowsError::none);
    EXPECT_EQ(Write(Path(u"a.txt"), OutputMode::Append, "two"), windowsError::none);
    EXPECT_EQ(Read(Path(u"a.txt")), "one two");
}

TEST_F(FileSystemTests, OthersMayReadWhatIsBeingWrittenButNotWriteIt) {
    std::unique_ptr<OutputFile> writer;
    ASSERT_EQ(files_.OpenForWriting(Path(u"a.txt"), OutputMode::Truncate, writer), windowsError::none);
    ASSERT_EQ(writer->Write("half", 4), windowsError::none);
    EXPECT_EQ(Read(Path(u"a.txt")), "half");
    EXPECT_EQ(Write(Path(u"a.txt"), OutputMode::Append, "x"), windowsError::sharingViolation);
}

TEST_F(FileSystemTests, OthersMayWriteWhatIsBeingRead) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "old");
    std::unique_ptr<InputFile> reader;
    ASSERT_EQ(files_.OpenForReading(Path(u"a.txt"), reader), windowsError::none);
    EXPECT_EQ(Write(Path(u"a.txt"), OutputMode::Append, "+new"), windowsError::none);
    EXPECT_EQ(Read(Path(u"a.txt")), "old+new");
}

TEST_F(FileSystemTests, OthersMayDeleteWhatIsBeingReadOnTheNtFamily) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "old");
    std::unique_ptr<InputFile> reader;
    ASSERT_EQ(files_.OpenForReading(Path(u"a.txt"), reader), windowsError::none);
    EXPECT_EQ(files_.Delete(Path(u"a.txt")),
              textCalls::IsWindows9x() ? windowsError::sharingViolation : windowsError::none);
}

TEST_F(FileSystemTests, TheLengthCountsWhatWasThereAndWhatWasWritten) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "12345");
    std::unique_ptr<OutputFile> file;
    ASSERT_EQ(files_.OpenForWriting(Path(u"a.txt"), OutputMode::Append, file), windowsError::none);
    std::uint64_t length = 0;
    EXPECT_EQ(file->Length(length), windowsError::none);
    EXPECT_EQ(length, 5U);
    file->Write("678", 3);
    EXPECT_EQ(file->Length(length), windowsError::none);
    EXPECT_EQ(length, 8U);
}

TEST_F(FileSystemTests, ASecondCloseDoesNothing) {
    std::unique_ptr<OutputFile> file;
    ASSERT_EQ(files_.OpenForWriting(Path(u"a.txt"), OutputMode::Truncate, file), windowsError::none);
    EXPECT_EQ(file->Close(), windowsError::none);
    EXPECT_EQ(file->Close(), windowsError::none);
    EXPECT_NE(file->Write("x", 1), windowsError::none);
}

TEST_F(FileSystemTests, FilesAndFoldersAreToldApart) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "x");
    EXPECT_TRUE(files_.FileExists(Path(u"a.txt")));
    EXPECT_FALSE(files_.FolderExists(Path(u"a.txt")));
    EXPECT_TRUE(files_.FolderExists(folder_.Path()));
    EXPECT_FALSE(files_.FileExists(folder_.Path()));
    EXPECT_FALSE(files_.FileExists(Path(u"b.txt")));
    EXPECT_FALSE(files_.FolderExists(Path(u"b")));
    std::uint64_t time = 0;
    EXPECT_EQ(files_.LastModified(folder_.Path(), time), windowsError::fileNotFound);
}

TEST_F(FileSystemTests, AWildcardFindsNoTime) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "x");
    std::uint64_t time = 0;
    EXPECT_EQ(files_.LastModified(Path(u"*.txt"), time), windowsError::invalidName);
}

TEST_F(FileSystemTests, APathWithAZeroInsideIsNotTheShorterPath) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "x");
    const std::u16string path = Path(u"a.txt") + u'\0' + u"b";
    EXPECT_FALSE(files_.FileExists(path));
    EXPECT_EQ(files_.Delete(path), windowsError::invalidName);
    EXPECT_EQ(Write(path, OutputMode::Truncate, "y"), windowsError::invalidName);
    EXPECT_EQ(Read(Path(u"a.txt")), "x");
}

TEST_F(FileSystemTests, AFileWrittenNowIsNewerThanAnOldOneAndItsCopyIsAsOld) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "x");
    FILETIME before{};
    ::GetSystemTimeAsFileTime(&before);
    const std::uint64_t now = (static_cast<std::uint64_t>(before.dwHighDateTime) << 32) | before.dwLowDateTime;
    constexpr std::uint64_t minute = 600000000;
    std::uint64_t time = 0;
    ASSERT_EQ(files_.LastModified(Path(u"a.txt"), time), windowsError::none);
    EXPECT_GT(time, now - minute);
    EXPECT_LT(time, now + minute);

    const FILETIME old{0, 0x01B00000};
    const HANDLE file =
        ::CreateFileW(textCalls::Wide(Path(u"a.txt")), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ::SetFileTime(file, nullptr, nullptr, &old);
    ::CloseHandle(file);
    ASSERT_EQ(files_.Copy(Path(u"a.txt"), Path(u"b.txt")), windowsError::none);
    for (const char16_t* name : {u"a.txt", u"b.txt"}) {
        ASSERT_EQ(files_.LastModified(Path(name), time), windowsError::none);
        EXPECT_EQ(time, 0x01B0000000000000U);
    }
}

TEST_F(FileSystemTests, CopyingOverwrites) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "new");
    Write(Path(u"b.txt"), OutputMode::Truncate, "a longer old text");
    EXPECT_EQ(files_.Copy(Path(u"a.txt"), Path(u"b.txt")), windowsError::none);
    EXPECT_EQ(Read(Path(u"b.txt")), "new");
}

TEST_F(FileSystemTests, AReadOnlyFileCanBeDeleted) {
    Write(Path(u"a.txt"), OutputMode::Truncate, "x");
    ASSERT_TRUE(::SetFileAttributesW(textCalls::Wide(Path(u"a.txt")), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(files_.Delete(Path(u"a.txt")), windowsError::none);
    EXPECT_FALSE(files_.FileExists(Path(u"a.txt")));
}

TEST_F(FileSystemTests, APathThatIsTooLongFails) {
    const std::u16string path = Path(std::u16string(MAX_PATH, u'x') + u".txt");
    EXPECT_NE(Write(path, OutputMode::Truncate, "x"), windowsError::none);
    EXPECT_FALSE(files_.FileExists(path));
    EXPECT_NE(Write(Path(std::u16string(40000, u'x')), OutputMode::Truncate, "x"), windowsError::none);
}

TEST_F(FileSystemTests, APathJustBelowTheLimitWorks) {
    const std::u16string name(MAX_PATH - 2 - folder_.Path().size(), u'x');
    const std::u16string path = Path(name);
    ASSERT_EQ(path.size(), MAX_PATH - 1U);
    EXPECT_EQ(Write(path, OutputMode::Truncate, "x"), windowsError::none);
    EXPECT_EQ(Read(path), "x");
    EXPECT_EQ(files_.Delete(path), windowsError::none);
}

TEST_F(FileSystemTests, TheTemporaryFolderIsThereWithoutABackslash) {
    const std::u16string folder = files_.TemporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_NE(folder.back(), u'\\');
    EXPECT_TRUE(files_.FolderExists(folder));
}

TEST_F(FileSystemTests, TemporaryNamesAreFreshAndMakeNoFile) {
    const std::u16string one = files_.TemporaryName();
    const std::u16string two = files_.TemporaryName();
    EXPECT_NE(one, two);
    EXPECT_TRUE(one.ends_with(u".tmp"));
    EXPECT_EQ(one.find(u'.'), one.size() - 4);
    EXPECT_EQ(one.find(u'\\'), std::u16string::npos);
    EXPECT_FALSE(files_.FileExists(files_.TemporaryFolder() + u"\\" + one));
}

// Shares are played by a folder that the environment names.
class ShareTests : public FileSystemTests {
  protected:
    void SetUp() override {
        wchar_t shares[MAX_PATH];
        ASSERT_NE(::GetEnvironmentVariableW(L"KORVANTA_SHARES", shares, MAX_PATH), 0U)
            << "KORVANTA_SHARES must name the folder in which the system looks for servers";
        server_ = textCalls::FromWide(shares, std::wcslen(shares)) + u"\\SRVSERVICES";
        ::CreateDirectoryW(textCalls::Wide(server_), nullptr);
        ::CreateDirectoryW(textCalls::Wide(server_ + u"\\TLXData$"), nullptr);
    }
    void TearDown() override {
        ::RemoveDirectoryW(textCalls::Wide(server_ + u"\\TLXData$"));
        ::RemoveDirectoryW(textCalls::Wide(server_));
    }

    std::u16string server_;
};

TEST_F(ShareTests, AShareIsAFolderInWhichFilesAreWrittenAndRead) {
    const std::u16string share = u"\\\\SRVSERVICES\\TLXData$";
    EXPECT_TRUE(files_.FolderExists(share));
    EXPECT_EQ(Write(share + u"\\Größe.txt", OutputMode::Truncate, "x"), windowsError::none);
    EXPECT_EQ(Read(share + u"\\Größe.txt"), "x");
    std::uint64_t time = 0;
    EXPECT_EQ(files_.LastModified(share + u"\\Größe.txt", time), windowsError::none);
    EXPECT_EQ(files_.Delete(share + u"\\Größe.txt"), windowsError::none);
}

TEST_F(ShareTests, MissingServersSharesAndFilesFail) {
    EXPECT_FALSE(files_.FolderExists(u"\\\\SRVMISSING\\TLXData$"));
    EXPECT_FALSE(files_.FolderExists(u"\\\\SRVSERVICES\\TLXActN$"));
    EXPECT_FALSE(files_.FileExists(u"\\\\SRVSERVICES\\TLXData$\\Printers.txt"));
    std::unique_ptr<InputFile> file;
    EXPECT_EQ(files_.OpenForReading(u"\\\\SRVSERVICES\\TLXData$\\Printers.txt", file), windowsError::fileNotFound);
    EXPECT_NE(files_.OpenForReading(u"\\\\SRVMISSING\\TLXData$\\Printers.txt", file), windowsError::none);
    EXPECT_NE(files_.OpenForReading(u"\\\\SRVMISSING\\TLXData$\\Printers.txt", file), windowsError::fileNotFound);
}

}  // namespace
}  // namespace korvanta
