#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/win32/services/WindowsSpooler.h"
#include "platform/win32/services/WindowsWaitableHandles.h"
#include "spooler/PlayedSpooler.h"

namespace korvanta {
namespace {

constexpr std::uint32_t jobAdded = 0x100;
constexpr std::uint32_t allJobs = 0xFFFFFFFF;
constexpr std::uint32_t nothingSignalled = 258;

class SpoolerTests : public ::testing::Test {
  protected:
    void SetUp() override {
        std::array<char, MAX_PATH> folder{};
        ASSERT_NE(::GetEnvironmentVariableA(spooler::folderVariable, folder.data(), MAX_PATH), 0U)
            << spooler::folderVariable << " must name the folder of the played spooler";
        files_ = std::make_unique<spooler::Files>(folder.data());
        files_->Clear();
        files_->SetPrinters({"\\\\SRV\\Laser", "\\\\SRV\\B\xfcro", "\\\\SRV\\Silent"});
    }

    PrinterHandle Open(const std::u16string& name) {
        PrinterHandle handle = 0;
        EXPECT_TRUE(spooler_.OpenPrinter(name, handle));
        EXPECT_NE(handle, 0);
        return handle;
    }

    std::unique_ptr<spooler::Files> files_;
    WindowsSpooler spooler_;
    WindowsWaitableHandles waitable_;
};

TEST_F(SpoolerTests, PrintersAreOpenedByTheirNamesInTheCodePage) {
    const PrinterHandle laser = Open(u"\\\\SRV\\Laser");
    const PrinterHandle office = Open(u"\\\\SRV\\Büro");
    EXPECT_NE(laser, office);
    EXPECT_TRUE(spooler_.ClosePrinter(laser));
}

TEST_F(SpoolerTests, AMissingPrinterCannotBeOpened) {
    PrinterHandle handle = 5;
    EXPECT_FALSE(spooler_.OpenPrinter(u"\\\\SRV\\No such printer", handle));
    EXPECT_EQ(handle, 0);
    EXPECT_EQ(spooler_.LastError(), static_cast<std::uint32_t>(ERROR_INVALID_PRINTER_NAME));
}

TEST_F(SpoolerTests, ABadHandleFailsEverywhere) {
    std::vector<std::uint32_t> words(10);
    std::uint32_t needed = 0;
    std::uint32_t returned = 0;
    EXPECT_EQ(spooler_.EnumJobs(0, 0, allJobs, words, 40, needed, returned), 0);
    EXPECT_EQ(spooler_.LastError(), static_cast<std::uint32_t>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(returned, 0U);
    EXPECT_EQ(spooler_.SetJob(0, 1, cancelJobCommand), 0);
    EXPECT_FALSE(spooler_.ClosePrinter(0));
    EXPECT_EQ(spooler_.FindFirstChange(0, jobAdded), -1);
    EXPECT_EQ(spooler_.LastError(), static_cast<std::uint32_t>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(spooler_.FindNextChange(0), 0);
}

TEST_F(SpoolerTests, JobsAreBlocksOfSixteenWordsWithTheAddressesOfTheirTexts) {
    files_->SetJobs({{"\\\\SRV\\Laser", 7, "\\\\WS01 ", "JSmith", "R\xe9sum\xe9.doc", {2004, 2, 0, 29, 23, 4, 5, 678}},
                     {"\\\\SRV\\Other", 8, "\\\\WS02", "other", "other.doc"},
                     {"\\\\SRV\\Laser", 9, "\\\\WS03", "jdoe", "b.doc"}});
    const PrinterHandle laser = Open(u"\\\\SRV\\Laser");
    std::vector<std::uint32_t> words;
    std::uint32_t needed = 0;
    std::uint32_t returned = 5;
    EXPECT_EQ(spooler_.EnumJobs(laser, 0, allJobs, words, 0, needed, returned), 0);
    EXPECT_EQ(spooler_.LastError(), static_cast<std::uint32_t>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(returned, 0U);
    ASSERT_GT(needed, 128U);

    words.resize(needed / 4 + 2);
    ASSERT_EQ(spooler_.EnumJobs(laser, 0, allJobs, words, needed, needed, returned), 1);
    ASSERT_EQ(returned, 2U);
    EXPECT_EQ(words[0], 7U);
    EXPECT_EQ(spooler_.TextAt(words[1]), u"\\\\SRV\\Laser");
    EXPECT_EQ(spooler_.TextAt(words[2]), u"\\\\WS01 ");
    EXPECT_EQ(spooler_.TextAt(words[3]), u"JSmith");
    EXPECT_EQ(spooler_.TextAt(words[4]), u"Résumé.doc");
    EXPECT_EQ(spooler_.TextAt(words[6]), u"") << "no status text";
    EXPECT_EQ(words[13], 29U << 16);
    EXPECT_EQ(words[14], (4U << 16) | 23U);
    EXPECT_EQ(words[15], (678U << 16) | 5U);
    EXPECT_EQ(words[16], 9U);
    EXPECT_EQ(spooler_.TextAt(words[20]), u"b.doc");
}

TEST_F(SpoolerTests, NoMoreOfTheBufferIsUsedThanThereIs) {
    files_->SetJobs({{"\\\\SRV\\Laser", 7, "\\\\WS01", "jsmith", "a.doc"}});
    std::vector<std::uint32_t> words(5);
    std::uint32_t needed = 0;
    std::uint32_t returned = 0;
    EXPECT_EQ(spooler_.EnumJobs(Open(u"\\\\SRV\\Laser"), 0, allJobs, words, 4000, needed, returned), 0);
    EXPECT_EQ(spooler_.LastError(), static_cast<std::uint32_t>(ERROR_INSUFFICIENT_BUFFER));
}

TEST_F(SpoolerTests, OnlyAsManyJobsComeAsAreWanted) {
    files_->SetJobs({{"\\\\SRV\\Laser", 7, "", "", ""}, {"\\\\SRV\\Laser", 8, "", "", ""}});
    std::vector<std::uint32_t> words(1001);
    std::uint32_t needed = 0;
    std::uint32_t returned = 0;
    EXPECT_EQ(spooler_.EnumJobs(Open(u"\\\\SRV\\Laser"), 0, 1, words, 4000, needed, returned), 1);
    EXPECT_EQ(returned, 1U);
    EXPECT_EQ(words[0], 7U);
}

TEST_F(SpoolerTests, ACancelledJobIsGone) {
    files_->SetJobs({{"\\\\SRV\\Laser", 7, "", "", "a.doc"}});
    const PrinterHandle laser = Open(u"\\\\SRV\\Laser");
    EXPECT_NE(spooler_.SetJob(laser, 7, cancelJobCommand), 0);
    EXPECT_EQ(files_->Commands().back(), (spooler::Command{"\\\\SRV\\Laser", 7, 3}));
    EXPECT_TRUE(files_->Jobs().empty());
    EXPECT_EQ(spooler_.SetJob(laser, 7, cancelJobCommand), 0);
}

TEST_F(SpoolerTests, AChangeIsSignalledUntilItIsAskedForAgain) {
    const ChangeHandle laser = spooler_.FindFirstChange(Open(u"\\\\SRV\\Laser"), jobAdded);
    const ChangeHandle office = spooler_.FindFirstChange(Open(u"\\\\SRV\\Büro"), jobAdded);
    ASSERT_GT(laser, 0);
    ASSERT_GT(office, 0);
    const std::vector<ChangeHandle> changes{laser, office};
    EXPECT_EQ(waitable_.PollAny(changes), nothingSignalled);
    files_->AddJobs({{"\\\\SRV\\B\xfcro", 1}});
    EXPECT_EQ(waitable_.PollAny(changes), 1U);
    EXPECT_EQ(waitable_.PollAny(changes), 1U);
    EXPECT_NE(spooler_.FindNextChange(office), 0);
    EXPECT_EQ(waitable_.PollAny(changes), nothingSignalled);
}

TEST_F(SpoolerTests, AChangeHandleThatIsClosedCannotBeWaitedFor) {
    const ChangeHandle laser = spooler_.FindFirstChange(Open(u"\\\\SRV\\Laser"), jobAdded);
    EXPECT_NE(spooler_.FindCloseChange(laser), 0);
    EXPECT_EQ(waitable_.PollAny({laser}), 0xFFFFFFFFU);
    EXPECT_EQ(spooler_.FindCloseChange(laser), 0);
    EXPECT_EQ(spooler_.LastError(), static_cast<std::uint32_t>(ERROR_INVALID_HANDLE));
}

TEST_F(SpoolerTests, ASpoolerThatRestartsLeavesItsHandlesSignalledForGood) {
    const ChangeHandle laser = spooler_.FindFirstChange(Open(u"\\\\SRV\\Laser"), jobAdded);
    files_->Restart();
    EXPECT_EQ(waitable_.PollAny({laser}), 0U);
    EXPECT_EQ(spooler_.FindNextChange(laser), 0);
    EXPECT_EQ(waitable_.PollAny({laser}), 0U);
    EXPECT_NE(spooler_.FindCloseChange(laser), 0);
    EXPECT_GT(spooler_.FindFirstChange(Open(u"\\\\SRV\\Laser"), jobAdded), 0);
}

TEST_F(SpoolerTests, APrinterWithoutNotificationsSaysSo) {
    files_->Inject({spooler::fault::watch, "\\\\SRV\\Silent", ERROR_INVALID_PARAMETER});
    EXPECT_EQ(spooler_.FindFirstChange(Open(u"\\\\SRV\\Silent"), jobAdded), -1);
    EXPECT_EQ(spooler_.LastError(), static_cast<std::uint32_t>(ERROR_INVALID_PARAMETER));
}

TEST_F(SpoolerTests, ATextIsReadAtItsAddressInTheCodePage) {
    const char text[] = "R\xe9sum\xe9\0behind";
    EXPECT_EQ(spooler_.TextAt(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(text))), u"Résumé");
    EXPECT_EQ(spooler_.TextAt(0), u"");
}

TEST_F(SpoolerTests, ATextThatCannotBeReadIsEmpty) {
    EXPECT_EQ(spooler_.TextAt(1), u"");
    EXPECT_EQ(spooler_.TextAt(0xFFFFFFF0), u"");
    SYSTEM_INFO system{};
    ::GetSystemInfo(&system);
    const std::size_t size = system.dwPageSize;
    auto* pages = static_cast<char*>(::VirtualAlloc(nullptr, 3 * size, MEM_RESERVE, PAGE_NOACCESS));
    ASSERT_NE(pages, nullptr);
    // Two pages of different kinds, and nothing behind them.
    ASSERT_NE(::VirtualAlloc(pages, 2 * size, MEM_COMMIT, PAGE_READWRITE), nullptr);
    std::fill_n(pages, 2 * size, 'x');
    DWORD earlier = 0;
    ASSERT_NE(::VirtualProtect(pages, size, PAGE_READONLY, &earlier), 0);
    const auto address = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(pages));
    EXPECT_EQ(spooler_.TextAt(address), u"") << "it does not end";
    pages[size + 1] = '\0';
    EXPECT_EQ(spooler_.TextAt(address), std::u16string(size + 1, u'x'));
    EXPECT_EQ(spooler_.TextAt(static_cast<std::uint32_t>(address + 2 * size)), u"");
    ::VirtualFree(pages, 0, MEM_RELEASE);
}

}  // namespace
}  // namespace korvanta
