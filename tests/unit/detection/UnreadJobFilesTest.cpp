// Job files that cannot be read when their turn comes: they hold up none behind them, and are tried again for a minute.

#include <gtest/gtest.h>

#include "unit/detection/FileDetection.h"

namespace korvanta::tests {
namespace {

const std::u16string laser = u"\\\\srv\\laser";

class UnreadJobFiles : public FileDetection {
  protected:
    UnreadJobFiles() {
        SetCounter(u"5");
        Start();
    }
    // Neither the polls nor the reading take time by the clock.
    void PollFor(int seconds) {
        for (int second = 0; second < seconds; ++second) {
            Pass(1);
            detector_.PollServers();
        }
    }
    std::ptrdiff_t ReadsOf(int number) const {
        return Calls(u"OpenForReading \\\\SRV\\TLXData$\\jobs\\jsmith." + PaddedNumberText(number, 3));
    }
    bool GivenUp(int number) const {
        return organisation_.log.Has(u"Job event file " + NumberText(number) +
                                     u" of server srv given up: it could not be read for 60 seconds");
    }
    fakes::FakeClock& clock_ = organisation_.platform.clock;
};

TEST_F(UnreadJobFiles, MalformedFileThatIsMendedWithinAMinuteIsReported) {
    SpoilJob(5);
    WriteJob(6, u"behind it");
    PollFor(59);
    EXPECT_EQ(sink_.Documents(), Texts{u"behind it"});
    WriteJob(5, u"mended");
    detector_.PollServers();
    ASSERT_EQ(sink_.Documents(), (Texts{u"behind it", u"mended"}));
    EXPECT_EQ(sink_.jobs[1]->JobEventFilename, u"JSmith.005");
    EXPECT_TRUE(organisation_.log.Has(u"Job event file 5 of server srv read at a later attempt"));
    const std::ptrdiff_t reads = ReadsOf(5);
    PollFor(100);
    EXPECT_EQ(ReadsOf(5), reads) << "read once, it is no longer asked for";
    EXPECT_EQ(sink_.jobs.size(), 2U);
}

TEST_F(UnreadJobFiles, FileThatStaysMalformedIsGivenUpAfterAMinuteByTheClock) {
    SpoilJob(5);
    for (int poll = 0; poll < 100; ++poll) {
        detector_.PollServers();
    }
    EXPECT_FALSE(GivenUp(5)) << "a hundred polls are not a minute";
    PollFor(59);
    EXPECT_FALSE(GivenUp(5));
    PollFor(2);
    EXPECT_TRUE(GivenUp(5));
    WriteJob(5, u"too late");
    PollFor(10);
    EXPECT_EQ(sink_.jobs.size(), 0U);
}

TEST_F(UnreadJobFiles, FileIsTriedOnceMoreBeforeItIsGivenUpHoweverRareThePollsAre) {
    SpoilJob(5);
    detector_.PollServers();
    WriteJob(5, u"after an hour without polls");
    Pass(3'600);
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 1U);
    EXPECT_FALSE(GivenUp(5));
}

TEST_F(UnreadJobFiles, ClockThatIsSetBackDelaysTheEndByNoMoreThanAMinute) {
    SpoilJob(5);
    detector_.PollServers();
    Pass(-36'000);
    PollFor(59);
    EXPECT_FALSE(GivenUp(5));
    PollFor(3);
    EXPECT_TRUE(GivenUp(5));
}

TEST_F(UnreadJobFiles, FileThatIsMissingAlthoughTheCounterTellsOfItIsReadWhenItAppears) {
    WriteJob(6, u"6");
    SetCounter(u"7");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), Texts{u"6"});
    Pass(5);
    WriteJob(5, u"5");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"6", u"5"}));
}

TEST_F(UnreadJobFiles, CounterPollsTryThemAgainToo) {
    SetCounter(u"6");
    Detector().FullRefresh();
    WriteJob(5, u"5");
    Detector().FullRefresh();
    EXPECT_EQ(sink_.Documents(), Texts{u"5"});
}

TEST_F(UnreadJobFiles, LateJobThatTheHistoryKnowsIsNotOfferedTwice) {
    SpoilJob(5);
    WriteJob(6, u"job");
    detector_.PollServers();
    WriteJob(5, u"job");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"job"});
}

TEST_F(UnreadJobFiles, RowOfThemSurvivesTheEndOfTheNumbers) {
    SetCounter(u"997");
    Detector().FullRefresh();
    for (const int number : {997, 998, 999, 0}) {
        SpoilJob(number);
    }
    WriteJob(1, u"1");
    detector_.PollServers();
    SetCounter(u"2");
    Detector().FullRefresh();
    WriteJobs(997, 999);
    WriteJob(0, u"0");
    detector_.PollServers();
    Texts documents = sink_.Documents();
    std::sort(documents.begin(), documents.end());
    EXPECT_EQ(documents, (Texts{u"0", u"1", u"997", u"998", u"999"}));
}

TEST_F(UnreadJobFiles, FileThatThePollFoundMissingIsReadAlthoughTheCounterStartsAgain) {
    for (const auto& [before, last, after] : {std::tuple{u"999", 999, u"0"}, std::tuple{u"1000", 0, u"1"}}) {
        SetCounter(before);
        Detector().FullRefresh();
        RemoveJob(last);
        detector_.PollServers();
        WriteJob(last, NumberText(last));
        SetCounter(after);
        Detector().FullRefresh();
        detector_.PollServers();
    }
    EXPECT_EQ(sink_.Documents(), (Texts{u"999", u"0"}));
}

TEST_F(UnreadJobFiles, ServerThatGoesAwayAfterTellingTheCounterLosesNoJobHoweverLongItIsAway) {
    WriteJobs(5, 7);
    SetCounter(u"8");
    files_.onRead = [this](const std::u16string& path) {
        if (path.ends_with(u"jsmith.tlu")) {
            files_.onRead = nullptr;
            files_.Down(u"srv");
        }
    };
    Detector().FullRefresh();
    PollFor(600);
    EXPECT_EQ(sink_.jobs.size(), 0U);
    files_.Up(u"srv");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"7"}));
}

TEST_F(UnreadJobFiles, NoPauseIsMadeForAFileThatIsMetAgain) {
    SpoilJob(5);
    files_.WriteUtf16(Organisation::JobFilePath(u"srv", 6), u"");
    detector_.PollServers();
    EXPECT_EQ(system_.sleeps.size(), 2U);
    PollFor(30);
    EXPECT_EQ(system_.sleeps.size(), 2U) << "neither for the one passed over nor for the empty one that is next";
}

TEST_F(UnreadJobFiles, FileThatVanishesAndComesBackIsNewAgain) {
    SpoilJob(5);
    system_.onSleep = Once([this] { RemoveJob(5); });
    detector_.PollServers();
    SpoilJob(5);
    detector_.PollServers();
    EXPECT_EQ(system_.sleeps.size(), 2U);
}

TEST_F(UnreadJobFiles, ThousandOfThemPauseForASecondAtMostAndAreAllKept) {
    organisation_.AddServer(u"other");
    Publish({u"laser", u"\\\\other\\laser"}, {u"other"});
    SetCounter(u"0");
    Detector().FullRefresh();
    for (int number = 0; number < 999; ++number) {
        SpoilJob(number);
        files_.WriteUtf16(Organisation::JobFilePath(u"other", number), u"half a file");
    }
    WriteJob(999, u"behind them all");
    system_.sleeps.clear();
    detector_.PollServers();
    EXPECT_EQ(system_.sleeps, (std::vector<std::uint32_t>{200, 200, 200, 200, 200})) << "for both servers together";
    EXPECT_EQ(sink_.Documents(), Texts{u"behind them all"});
    detector_.PollServers();
    EXPECT_EQ(system_.sleeps.size(), 5U);
    WriteJob(500, u"mended");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"behind them all", u"mended"}));
    Pass(61);
    detector_.PollServers();
    EXPECT_TRUE(GivenUp(0));
    EXPECT_TRUE(GivenUp(998));
    EXPECT_FALSE(GivenUp(500));
}

TEST_F(UnreadJobFiles, ManyMissingFilesBelowTheCounterPauseForASecondAtMost) {
    SetCounter(u"905");
    Detector().FullRefresh();
    EXPECT_EQ(system_.sleeps.size(), 5U);
    WriteJob(904, u"904");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"904"});
    EXPECT_EQ(system_.sleeps.size(), 5U);
}

TEST_F(UnreadJobFiles, SlowServerHasSomeOfThemTriedAtEachLookInTurn) {
    SetCounter(u"15");
    Detector().FullRefresh();
    files_.onCall = [this](const std::u16string& call, const std::u16string&) {
        if (call == u"OpenForReading") {
            clock_.AdvanceMilliseconds(400);
        }
    };
    for (int look = 0; look < 4; ++look) {
        files_.log.clear();
        detector_.PollServers();
        std::ptrdiff_t reads = 0;
        for (int number = 5; number <= 14; ++number) {
            reads += ReadsOf(number);
        }
        EXPECT_EQ(reads, 3) << "1.2 seconds";
        EXPECT_EQ(ReadsOf(5 + look * 3), 1) << "goes on where the last look ended";
    }
}

TEST_F(UnreadJobFiles, SlowServerHasTheRestOfALongRowLeftToLaterLooks) {
    WriteJob(204, u"204");
    SetCounter(u"205");
    files_.onCall = [this](const std::u16string& call, const std::u16string&) {
        if (call == u"OpenForReading") {
            clock_.AdvanceMilliseconds(2'000);
        }
    };
    files_.log.clear();
    Detector().FullRefresh();
    EXPECT_LT(std::count_if(files_.log.begin(), files_.log.end(),
                            [](const std::u16string& call) { return call.starts_with(u"OpenForReading"); }),
              6);
    files_.onCall = nullptr;
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"204"});
}

TEST_F(UnreadJobFiles, PollOfASlowServerGoesOnAtTheNextPoll) {
    for (int number = 5; number <= 14; ++number) {
        SpoilJob(number);
    }
    WriteJob(15, u"15");
    files_.onCall = [this](const std::u16string& call, const std::u16string&) {
        if (call == u"OpenForReading") {
            clock_.AdvanceMilliseconds(2'000);
        }
    };
    detector_.PollServers();
    EXPECT_EQ(sink_.jobs.size(), 0U);
    EXPECT_EQ(ReadsOf(9), 0);
    for (int poll = 0; poll < 8; ++poll) {
        detector_.PollServers();
    }
    EXPECT_EQ(sink_.Documents(), Texts{u"15"});
}

TEST_F(UnreadJobFiles, LateJobWhoseReportRaisesIsKept) {
    SpoilJob(5);
    detector_.PollServers();
    WriteJob(5, u"late");
    sink_.onJob = Once([] { throw std::bad_alloc(); });
    EXPECT_THROW(detector_.PollServers(), std::bad_alloc);
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"late", u"late"})) << "the first time it was lost to the lack of memory";
}

class UnreadJobFilesOverHttp : public UnreadJobFiles {
  protected:
    UnreadJobFilesOverHttp() {
        organisation_.serverInterfaces.Renew();
        organisation_.serverInterfaces.InterfaceType(1);
        internet_.unknownUrlBody = "<html>File not found</html>";
        internet_.PutUtf16(u"http://SRV/TLXData/ClientSet.txt", u"settings");
        PutCounter(u"5");
    }
    void PutCounter(const std::u16string& text) { internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.tlu", text); }
    void PutJob(int number) {
        internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith." + PaddedNumberText(number, 3),
                           Organisation::JobText(laser, NumberText(number)));
    }

    fakes::FakeInternet& internet_ = organisation_.platform.internet;
};

TEST_F(UnreadJobFilesOverHttp, AnswerThatIsCutOffCostsNoJob) {
    internet_.Put(u"http://SRV/TLXData/jobs/jsmith.005",
                  "\xFF\xFE"
                  "1");
    PutJob(6);
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), Texts{u"6"});
    PutCounter(u"7");
    Detector().FullRefresh();
    PutJob(5);
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"6", u"5"}));
}

TEST_F(UnreadJobFilesOverHttp, EmptyAnswersBeforeAMalformedFileAreTriedAgain) {
    internet_.Put(u"http://SRV/TLXData/jobs/jsmith.005", "");
    internet_.Put(u"http://SRV/TLXData/jobs/jsmith.006", "");
    internet_.PutUtf16(u"http://SRV/TLXData/jobs/jsmith.007", u"half a file");
    detector_.PollServers();
    for (int number = 5; number <= 7; ++number) {
        PutJob(number);
    }
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6", u"7"}));
}

TEST_F(UnreadJobFilesOverHttp, ServerThatGoesAwayAfterTellingTheCounterLosesNoJob) {
    PutJob(5);
    PutJob(6);
    PutCounter(u"7");
    organisation_.platform.messageLoop.onRunPending = [this] {
        if (!internet_.requests.empty() && internet_.requests.back().url.ends_with(u"jsmith.005")) {
            internet_.Down(u"SRV");
        }
    };
    Detector().FullRefresh();
    organisation_.platform.messageLoop.onRunPending = nullptr;
    PollFor(30);
    internet_.Up(u"SRV");
    detector_.PollServers();
    EXPECT_EQ(sink_.Documents(), (Texts{u"5", u"6"}));
}

}  // namespace
}  // namespace korvanta::tests
