// Printer monitoring: jobs are found in the spooler, by its change notifications or by polling.

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"
#include "spooler/PlayedSpooler.h"

using driver::WaitFor;

namespace {

// The played spooler gives the first printer of its list this handle.
constexpr int firstPrinterHandle = 0x10000;

// On both families of Windows; the parameter says whether it is the Windows 98 family, where the client polls.
class SpoolerTest : public SystemTest, public ::testing::WithParamInterface<bool> {
  protected:
    SpoolerTest() : folder_(Client().Folder() + L"\\spooler"), spooler_(driver::AnsiBytes(folder_)) {
        driver::PretendWindows98(GetParam());
        driver::MakeFolders(folder_);
        driver::CopyOver(ProgramFolder() + L"\\winspool.drv", Client().Folder() + L"\\winspool.drv");
        SetEnvironmentVariableA(spooler::folderVariable, driver::AnsiBytes(folder_).c_str());
        spooler_.SetPrinters({{PrinterName()}});
    }
    ~SpoolerTest() override { SetEnvironmentVariableA(spooler::folderVariable, nullptr); }

    std::string PrinterName() const { return driver::AnsiBytes(Server().Complete(driver::Job{}).fullPrinter); }

    // Puts a job of this user into the queue; it comes back as the client should see it.
    driver::Job Print(int id, const std::wstring& document) {
        jobs_.push_back({PrinterName(), id, "\\\\" + driver::AnsiBytes(driver::CurrentMachine()) + " ",
                         driver::AnsiBytes(driver::CurrentUser()), driver::AnsiBytes(document), id % 60});
        if (Client().Running() && !Dialog().Visible()) {
            MarkComment();
        }
        spooler_.SetJobs(jobs_);
        spooler::Files::Announce(PrinterName());
        return Server().Complete({.id = id,
                                  .user = driver::CurrentUserLowerCase(),
                                  .document = document,
                                  .printerHandle = firstPrinterHandle});
    }
    void StartPrinterMonitoring() {
        PublishAll({.jobDetectionMethod = 1, .jobDetectionMethodWindows9x = 1});
        ASSERT_NO_FATAL_FAILURE(StartMonitoring());
        ASSERT_EQ(Status(L"lblJobDetectionMethod").Text(), L"Printer monitoring");
    }
    const spooler::Files& Spooler() const { return spooler_; }

  private:
    static std::wstring ProgramFolder() {
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        const std::wstring path = program;
        return path.substr(0, path.rfind(L'\\'));
    }

    std::wstring folder_;
    spooler::Files spooler_;
    std::vector<spooler::Job> jobs_;
};

INSTANTIATE_TEST_SUITE_P(Family, SpoolerTest, ::testing::Bool(), [](const ::testing::TestParamInfo<bool>& family) {
    return family.param ? "Windows98" : "WindowsNT";
});

TEST_P(SpoolerTest, JobFromAfterTheStartIsOfferedAndCharged) {
    Print(3, L"Yesterday.doc");
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    const driver::Job job = Print(7, L"R\u00e9sum\u00e9.doc");
    ASSERT_TRUE(DialogOffers(L"R\u00e9sum\u00e9.doc"));
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"1") << "the job from before the start is not offered";
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    const driver::Notification expected = Expected(job, L"", 1, L"Smith");
    PressOk();
    ExpectNotification(expected);
    EXPECT_TRUE(Spooler().Commands().empty());
}

TEST_P(SpoolerTest, CancelledJobLeavesTheSpooler) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    Print(7, L"Unwanted.doc");
    ASSERT_TRUE(DialogOffers(L"Unwanted.doc"));
    PressCancel();
    ExpectMessage(L"The print job was successfully cancelled.");
    EXPECT_EQ(Spooler().Commands(), (std::vector<spooler::Command>{{PrinterName(), 7, 3}}));
    EXPECT_TRUE(Spooler().Jobs().empty());
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_P(SpoolerTest, JobsAreOfferedOnceAlsoAfterAFullRefresh) {
    ASSERT_NO_FATAL_FAILURE(StartPrinterMonitoring());
    Print(7, L"Once.doc");
    ASSERT_TRUE(DialogOffers(L"Once.doc"));
    RefreshEverything();
    Print(8, L"Second.doc");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    EXPECT_EQ(DialogControl(L"lblDocument").Text(), L"Once.doc");
}

}  // namespace
