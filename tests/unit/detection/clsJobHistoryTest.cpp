#include "detection/clsJobHistory.h"

#include <gtest/gtest.h>

#include "common/Text.h"
#include "detection/JobHistories.h"
#include "fakes/FakeMutexFactory.h"
#include "fakes/FakeTraceLog.h"

namespace korvanta::tests {
namespace {

std::shared_ptr<clsJobInfo> Job(const std::u16string& document = u"Report") {
    auto job = std::make_shared<clsJobInfo>();
    job->JobID = 17;
    job->PrinterName = u"laser";
    job->MachineName = u"WS01";
    job->UserName = u"jsmith";
    job->Document = document;
    job->FullPrinterName = u"\\\\srv\\laser";
    job->PrinterHandle = 4096;
    job->Time1 = 1;
    job->Time2 = 2;
    job->Time3 = 3;
    return job;
}

class JobHistory : public testing::Test {
  protected:
    fakes::FakeMutexFactory mutexes_;
    fakes::FakeTraceLog log_;
    clsJobHistory history_{mutexes_, log_};
};

TEST_F(JobHistory, TheSameJobIsNewOnlyOnce) {
    EXPECT_TRUE(history_.CheckNewJob(Job()));
    EXPECT_FALSE(history_.CheckNewJob(Job()));
}

TEST_F(JobHistory, AJobThatIsForgottenIsNewOnceMoreButNoOtherRecordOfIt) {
    const auto first = Job();
    ASSERT_TRUE(history_.CheckNewJob(first));
    history_.Forget(Job());
    EXPECT_FALSE(history_.CheckNewJob(Job()));
    history_.Forget(first);
    EXPECT_TRUE(history_.CheckNewJob(first));
}

TEST_F(JobHistory, JobsThatDifferInWhatIsNotComparedAreTheSame) {
    ASSERT_TRUE(history_.CheckNewJob(Job()));
    auto job = Job();
    job->JobID = 18;
    EXPECT_FALSE(history_.CheckNewJob(job));
    job->MachineName = u"WS02";
    job->PrinterName = u"other";
    job->PrinterHandle = 0;
    job->JobEventFilename = u"jsmith.001";
    EXPECT_FALSE(history_.CheckNewJob(job));
}

TEST_F(JobHistory, EachComparedFieldTellsJobsApart) {
    const std::vector<std::function<void(clsJobInfo&)>> changes = {
        [](clsJobInfo& job) { job.UserName = u"JSmith"; },
        [](clsJobInfo& job) { job.FullPrinterName = u"\\\\SRV\\laser"; },
        [](clsJobInfo& job) { job.Document = u"report"; },
        [](clsJobInfo& job) { job.Time1 = 9; },
        [](clsJobInfo& job) { job.Time2 = 9; },
        [](clsJobInfo& job) { job.Time3 = 0x00010003; },  // another millisecond of the same second
    };
    ASSERT_TRUE(history_.CheckNewJob(Job()));
    for (std::size_t i = 0; i < changes.size(); ++i) {
        auto job = Job();
        changes[i](*job);
        EXPECT_TRUE(history_.CheckNewJob(job)) << i;
        EXPECT_FALSE(history_.CheckNewJob(job)) << i;
    }
}

TEST_F(JobHistory, AHundredJobsAreRememberedAndTheOldestGoesFirst) {
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(history_.CheckNewJob(Job(NumberText(i))));
    }
    EXPECT_FALSE(history_.CheckNewJob(Job(u"0")));
    EXPECT_TRUE(history_.CheckNewJob(Job(u"100")));
    EXPECT_FALSE(history_.CheckNewJob(Job(u"1")));
    EXPECT_TRUE(history_.CheckNewJob(Job(u"0"))) << "forgotten by the 101st";
    EXPECT_TRUE(history_.CheckNewJob(Job(u"1"))) << "forgotten by the 102nd";
    EXPECT_FALSE(history_.CheckNewJob(Job(u"3")));
}

TEST_F(JobHistory, KeepsTheRecordItself) {
    auto job = Job();
    history_.CheckNewJob(job);
    EXPECT_EQ(job.use_count(), 2);
    job->Document = u"renamed";
    EXPECT_FALSE(history_.CheckNewJob(Job(u"renamed")));
}

TEST_F(JobHistory, WritesTwoLinesForEachCheck) {
    history_.CheckNewJob(Job());
    history_.CheckNewJob(Job());
    const std::u16string called = u"clsJobHistory:CheckNewJob - called for job \\\\srv\\laser, jsmith, Report";
    EXPECT_EQ(log_.lines, (std::vector<std::u16string>{called, u"clsJobHistory:CheckNewJob - blnFound = False", called,
                                                       u"clsJobHistory:CheckNewJob - blnFound = True"}));
}

TEST_F(JobHistory, EachPrinterHasItsOwnByExactName) {
    JobHistories histories(mutexes_, log_);
    EXPECT_TRUE(histories.HistoryForPrinter(u"a").CheckNewJob(Job()));
    EXPECT_TRUE(histories.HistoryForPrinter(u"A").CheckNewJob(Job()));
    EXPECT_FALSE(histories.HistoryForPrinter(u"a").CheckNewJob(Job()));
}

}  // namespace
}  // namespace korvanta::tests
