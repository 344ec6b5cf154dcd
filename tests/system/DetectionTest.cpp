// Which jobs are offered, and how the files that announce them may look.

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

class DetectionTest : public SystemTest {
  protected:
    std::wstring User() const { return driver::CurrentUserLowerCase(); }
    // Charges the job that is offered next to "Smith".
    void ChargeNext(const driver::Job& job, const std::wstring& jobFile) {
        ASSERT_TRUE(DialogOffers(job.document));
        ASSERT_TRUE(ChooseAccount(L"Smith"));
        const driver::Notification expected = Expected(job, jobFile, 1, L"Smith");
        PressOk();
        ExpectNotification(expected);
    }
    // A job of the usual user comes through after whatever came before.
    void ExpectStillDetecting() {
        Announce(L"Proof.doc");
        EXPECT_TRUE(DialogOffers(L"Proof.doc"));
        EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"1") << "nothing else was queued";
    }
};

TEST_F(DetectionTest, JobOfAnotherUserIsNotOffered) {
    PublishAll();
    StartMonitoring();
    AnnounceJob({.user = L"somebody-else", .document = L"Theirs.doc"});
    ExpectStillDetecting();
}

TEST_F(DetectionTest, JobOfAnotherMachineIsNotOffered) {
    PublishAll();
    StartMonitoring();
    AnnounceJob({.machine = L"ELSEWHERE", .document = L"Theirs.doc"});
    ExpectStillDetecting();
}

TEST_F(DetectionTest, UserAndMachineAreComparedWithoutRegardToCase) {
    PublishAll();
    StartMonitoring();
    std::wstring user = driver::CurrentUser();
    std::wstring machine = driver::CurrentMachine();
    CharUpperBuffW(user.data(), static_cast<DWORD>(user.size()));
    CharLowerBuffW(machine.data(), static_cast<DWORD>(machine.size()));
    const driver::Job job = AnnounceJob({.machine = machine, .user = user, .document = L"Mine.doc"});
    ASSERT_NO_FATAL_FAILURE(ChargeNext(job, LastJobFile()));
}

TEST_F(DetectionTest, JobsFromBeforeTheStartAreSkipped) {
    Server().WriteJobFile(User(), 56, {.document = L"Yesterday.doc"});
    NextJobNumber(57);
    PublishAll();
    StartMonitoring();
    ExpectStillDetecting();
}

TEST_F(DetectionTest, FileNumbersGoFrom999To0) {
    NextJobNumber(998);
    PublishAll();
    StartMonitoring();
    // Without its counter the server is only looked at for the next file, which is what this is about.
    driver::DeleteFileIfThere(Server().JobsFolder() + L"\\" + User() + L".tlu");
    MarkComment();
    std::vector<driver::Job> jobs;
    std::vector<std::wstring> files;
    for (const int number : {998, 999, 0}) {
        const int id = static_cast<int>(jobs.size()) + 1;
        jobs.push_back(Server().Complete({.id = id, .document = L"Sheet " + std::to_wstring(id)}));
        files.push_back(driver::JobFileName(driver::CurrentUser(), number));
        Server().WriteJobFile(User(), number, jobs.back());
    }
    EXPECT_EQ(files, (std::vector<std::wstring>{driver::CurrentUser() + L".998", driver::CurrentUser() + L".999",
                                                driver::CurrentUser() + L".000"}));
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        ASSERT_NO_FATAL_FAILURE(ChargeNext(jobs[i], files[i]));
    }
}

TEST_F(DetectionTest, TheSameJobAnnouncedTwiceIsOfferedOnce) {
    PublishAll();
    StartMonitoring();
    const driver::Job job = AnnounceJob({.id = 5, .document = L"Once.doc", .time3 = 12});
    AnnounceJob({.id = 6, .document = L"Once.doc", .time3 = 12});
    ASSERT_NO_FATAL_FAILURE(ChargeNext(job, driver::JobFileName(driver::CurrentUser(), 0)));
    ExpectStillDetecting();
}

TEST_F(DetectionTest, DamagedJobFilesAreSkipped) {
    PublishAll();
    StartMonitoring();
    const std::string good = driver::Utf16Bytes(Server().Complete({.document = L"Good.doc"}).Text());
    const std::string damaged[] = {
        "",
        "\xFF\xFE",
        std::string("\x00\x01\xFE\xFF\x7F\x00\x80", 7) + std::string(5000, '\xA5'),
        good.substr(0, good.size() / 3),
        driver::Utf8Bytes(Server().Complete({.document = L"Good.doc"}).Text()),
        driver::Utf16Bytes(L"1\r\nLaser\r\nM\r\nU\r\nD\r\n\\\\S\\L\r\nnot a number\r\n1\r\n2\r\n3\r\n"),
        driver::Utf16Bytes(std::wstring(300000, L'x')),
    };
    int number = 0;
    for (const std::string& bytes : damaged) {
        Server().WriteJobFileBytes(User(), number++, bytes);
    }
    Server().WriteCounter(User(), number);
    NextJobNumber(number);
    ExpectStillDetecting();
    EXPECT_TRUE(Client().Answers());
}

TEST_F(DetectionTest, JobFileStillBeingWrittenIsReadWhenItIsComplete) {
    PublishAll();
    StartMonitoring();
    const int count = 4;
    MarkComment();
    for (int id = 1; id <= count; ++id) {
        const std::string bytes =
            driver::Utf16Bytes(Server().Complete({.id = id, .document = L"Growing " + std::to_wstring(id)}).Text());
        const std::wstring path = Server().JobFilePath(User(), id - 1);
        driver::WriteBytes(path, bytes.substr(0, bytes.size() / 2));
        // The server's own delay between the halves, well below the client's patience of 200 milliseconds.
        Sleep(10);
        driver::WriteBytes(path, bytes);
    }
    ASSERT_TRUE(DialogOffers(L"Growing 1"));
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == std::to_wstring(count); }));
}

TEST_F(DetectionTest, DamagedCounterFilesLoseNoJobs) {
    PublishAll();
    StartMonitoring();
    for (const std::string& bytes : {std::string(), std::string("\xFF\xFEx\0y\0", 6), std::string(100000, '\x80'),
                                     driver::Utf16Bytes(L"99999999999999999999")}) {
        driver::WriteBytes(Server().JobsFolder() + L"\\" + User() + L".tlu", bytes);
        // Four polls are two looks at the counter.
        const std::wstring before = Status(L"lblActivity").Text();
        ASSERT_TRUE(WaitFor([&] { return Status(L"lblActivity").Text() != before; }));
    }
    ExpectStillDetecting();
}

}  // namespace
