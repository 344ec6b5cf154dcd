#include "common/LogErrors.h"

#include <gtest/gtest.h>

#include <new>

#include "fakes/FakeTraceLog.h"

namespace korvanta {
namespace {

TEST(LogErrorsTest, HandlerThatRaisesNothingLeavesTheLogAlone) {
    fakes::FakeTraceLog log;
    bool ran = false;
    LogErrors(log, u"frmMain:cmdRefresh", [&ran] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_TRUE(log.lines.empty());
}

TEST(LogErrorsTest, RaisedErrorEndsTheHandlerAndIsLoggedWithItsProcedure) {
    fakes::FakeTraceLog log;
    LogErrors(log, u"frmMain:cmdRefresh", [] { throw Error(13, u"here", u"Type mismatch"); });
    EXPECT_EQ(log.lines, std::vector<std::u16string>{u"frmMain:cmdRefresh Error: 13 - Type mismatch"});
}

TEST(LogErrorsTest, WantOfMemoryIsLoggedAsError7) {
    fakes::FakeTraceLog log;
    LogErrors(log, u"frmMain:cmdRefresh", [] { throw std::bad_alloc(); });
    EXPECT_EQ(log.lines, std::vector<std::u16string>{u"frmMain:cmdRefresh Error: 7 - Out of memory"});
}

class LogWithoutMemory : public TraceLog {
  public:
    void Log(const std::u16string&) override { throw std::bad_alloc(); }
};

TEST(LogErrorsTest, LogThatRaisesItselfDoesNotLetTheErrorOut) {
    LogWithoutMemory log;
    EXPECT_NO_THROW(LogErrors(log, u"frmMain:cmdRefresh", [] { throw std::bad_alloc(); }));
}

}  // namespace
}  // namespace korvanta
