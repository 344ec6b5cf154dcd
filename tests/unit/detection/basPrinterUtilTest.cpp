#include "detection/basPrinterUtil.h"

#include <gtest/gtest.h>

#include "unit/detection/FileDetection.h"
#include "unit/detection/PrinterDetection.h"

namespace korvanta::tests {
namespace {

const std::u16string laser = u"\\\\srv\\laser";

class CancelWithFileDetection : public FileDetection {
  protected:
    CancelWithFileDetection() {
        spooler_.AddPrinter(laser);
        spooler_.AddJob(laser, {.id = 17, .machine = u"m", .user = u"u", .document = u"d"});
        job_.JobID = 17;
        job_.FullPrinterName = laser;
        job_.PrinterHandle = 99;
    }

    clsJobInfo job_;
};

TEST_F(CancelWithFileDetection, OpensThePrinterByNameAndClosesItAgain) {
    EXPECT_TRUE(CancelPrintJob(spooler_, &detector_, job_));
    EXPECT_EQ(spooler_.log, (Texts{u"OpenPrinter \\\\srv\\laser", u"SetJob 4096 17 3", u"ClosePrinter 4096"}));
    EXPECT_EQ(spooler_.Jobs(laser).size(), 0U);
    EXPECT_EQ(spooler_.OpenHandles(), 0U);
}

TEST_F(CancelWithFileDetection, PrinterThatDoesNotOpenIsFalse) {
    job_.FullPrinterName = u"\\\\srv\\gone";
    EXPECT_FALSE(CancelPrintJob(spooler_, &detector_, job_));
    EXPECT_EQ(spooler_.log, (Texts{u"OpenPrinter \\\\srv\\gone", u"ClosePrinter 0"}));
}

TEST_F(CancelWithFileDetection, OnlyAResultAboveZeroIsSuccessAndThePrinterIsClosedInAnyCase) {
    for (const std::int32_t result : {0, -1, 1, 2}) {
        spooler_.setJobResult = result;
        EXPECT_EQ(CancelPrintJob(spooler_, &detector_, job_), result > 0) << result;
        EXPECT_EQ(spooler_.OpenHandles(), 0U);
    }
}

class CancelWithPrinterDetection : public CancelWithFileDetection {
  protected:
    CancelWithPrinterDetection() {
        EXPECT_TRUE(spooler_.OpenPrinter(laser, job_.PrinterHandle));
        spooler_.log.clear();
    }
};

TEST_F(CancelWithPrinterDetection, UsesTheHandleThatTheRecordCarries) {
    clsJobDetectionPrinter detector(spooler_, organisation_.platform.waitableHandles, organisation_.printersMonitored,
                                    organisation_.settings, organisation_.platform.mutexes,
                                    organisation_.platform.messageLoop, organisation_.systemInformation,
                                    organisation_.log);
    EXPECT_TRUE(CancelPrintJob(spooler_, &detector, job_));
    EXPECT_EQ(spooler_.log, Texts{u"SetJob 4096 17 3"});
    EXPECT_EQ(spooler_.Jobs(laser).size(), 0U);
}

TEST_F(CancelWithPrinterDetection, JobThatWasReadFromAFileIsCancelledByName) {
    clsJobDetectionPrinter detector(spooler_, organisation_.platform.waitableHandles, organisation_.printersMonitored,
                                    organisation_.settings, organisation_.platform.mutexes,
                                    organisation_.platform.messageLoop, organisation_.systemInformation,
                                    organisation_.log);
    for (IJobDetectionObject* const active : {static_cast<IJobDetectionObject*>(&detector), {}}) {
        spooler_.log.clear();
        job_.JobEventFilename = u"JSmith.007";
        job_.PrinterHandle = 4096;
        CancelPrintJob(spooler_, active, job_);
        EXPECT_EQ(spooler_.log.front(), u"OpenPrinter \\\\srv\\laser");
        EXPECT_FALSE(std::any_of(spooler_.log.begin(), spooler_.log.end(), [](const std::u16string& call) {
            return call.starts_with(u"SetJob 4096 ");
        })) << "the number that the server wrote means another printer here";
    }
}

TEST_F(CancelWithPrinterDetection, NoDetectorIsNotFileDetection) {
    EXPECT_TRUE(CancelPrintJob(spooler_, nullptr, job_));
    EXPECT_EQ(spooler_.log, Texts{u"SetJob 4096 17 3"});
}

TEST_F(CancelWithPrinterDetection, AnyResultButZeroIsSuccess) {
    for (const std::int32_t result : {0, -1, 1}) {
        spooler_.setJobResult = result;
        EXPECT_EQ(CancelPrintJob(spooler_, nullptr, job_), result != 0) << result;
    }
}

}  // namespace
}  // namespace korvanta::tests
