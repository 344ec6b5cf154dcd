#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/WindowsClock.h"
#include "platform/win32/services/WindowsFileSystem.h"
#include "platform/win32/services/WindowsSystem.h"

namespace korvanta {
namespace {

std::u16string Variable(const wchar_t* name) {
    std::array<wchar_t, 1024> value{};
    const DWORD length = ::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    return textCalls::FromWide(value.data(), length);
}

TEST(SystemTests, TheVersionTellsTheFamily) {
    WindowsSystem system;
    std::uint32_t platform = 0;
    ASSERT_TRUE(system.VersionPlatform(platform));
    EXPECT_TRUE(platform == 1 || platform == 2);
    EXPECT_EQ(platform == 1, textCalls::IsWindows9x());
}

TEST(SystemTests, NamesFillTheirBufferAsTheSystemDoes) {
    WindowsSystem system;
    std::u16string name;
    ASSERT_EQ(system.ComputerName(name), 0U);
    EXPECT_EQ(name.size(), 256U);
    EXPECT_TRUE(name.starts_with(Variable(L"COMPUTERNAME") + u'\0')) << "no zero behind the computer's name";
    EXPECT_EQ(name.back(), u' ');
    ASSERT_EQ(system.UserName(name), 0U);
    EXPECT_EQ(name.size(), 256U);
    EXPECT_TRUE(name.starts_with(Variable(L"USERNAME") + u'\0')) << "no zero behind the user's name";
    EXPECT_EQ(name.back(), u' ');
}

TEST(SystemTests, TheProgramsFolderHoldsTheProgram) {
    WindowsSystem system;
    const std::u16string folder = system.ProgramFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_NE(folder.back(), u'\\');
    EXPECT_TRUE(WindowsFileSystem().FileExists(folder + u"\\services_tests.exe"));
}

TEST(SystemTests, OnlyTheFirstClaimOfANameSucceedsUntilItEnds) {
    WindowsSystem second;
    {
        WindowsSystem first;
        EXPECT_TRUE(first.ClaimInstance(u"KorvantaServicesTests"));
        EXPECT_FALSE(second.ClaimInstance(u"KorvantaServicesTests"));
        EXPECT_TRUE(second.ClaimInstance(u"KorvantaServicesTests other"));
    }
    EXPECT_TRUE(second.ClaimInstance(u"KorvantaServicesTests"));
    EXPECT_FALSE(second.ClaimInstance(u"KorvantaServicesTests"));
}

TEST(SystemTests, SleepingTakesItsTime) {
    WindowsSystem system;
    const DWORD start = ::GetTickCount();
    system.Sleep(60);
    // The tick count moves in steps of up to 16.
    EXPECT_GE(::GetTickCount() - start, 44U);
}

TEST(SystemTests, HidingAndTheEventLogNeverFail) {
    WindowsSystem system;
    EXPECT_NO_THROW(system.HideFromTaskList());
    EXPECT_NO_THROW(system.WriteEventLog(u"Größe"));
}

// The tests below start this program again; its half of them is this one.
constexpr wchar_t expectedVariable[] = L"KORVANTA_EXPECTED_COMMAND_LINE";
constexpr UINT exitWhenSeen = 42;
constexpr wchar_t filterVariable[] = L"GTEST_FILTER";

TEST(CommandLineChild, SeesWhatItsParentExpects) {
    if (Variable(expectedVariable).empty()) {
        GTEST_SKIP() << "for the program started by CommandLineTests only";
    }
    WindowsSystem system;
    ::ExitProcess(system.CommandLine() == Variable(expectedVariable) ? exitWhenSeen : 1);
}

// Starts this program with the command line; true when it found `expected` behind its name.
bool ChildSees(std::wstring commandLine, const std::wstring& expected) {
    std::array<wchar_t, MAX_PATH> program{};
    ::GetModuleFileNameW(nullptr, program.data(), MAX_PATH);
    ::SetEnvironmentVariableW(expectedVariable, expected.c_str());
    ::SetEnvironmentVariableW(filterVariable, L"CommandLineChild.*");
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION information{};
    const BOOL started = ::CreateProcessW(program.data(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                          nullptr, &startup, &information);
    ::SetEnvironmentVariableW(expectedVariable, nullptr);
    ::SetEnvironmentVariableW(filterVariable, nullptr);
    if (!started) {
        return false;
    }
    const KernelHandle process(information.hProcess);
    const KernelHandle thread(information.hThread);
    DWORD exitCode = 0;
    return ::WaitForSingleObject(process.Get(), 30000) == WAIT_OBJECT_0 &&
           ::GetExitCodeProcess(process.Get(), &exitCode) && exitCode == exitWhenSeen;
}

TEST(CommandLineTests, TheProgramsNameAndBlanksAreLeftOut) {
    const std::wstring arguments = L"/Test \"ä b\" ";
    EXPECT_TRUE(ChildSees(L"name " + arguments, arguments));
    EXPECT_TRUE(ChildSees(L"\"C:\\a folder\\name.exe\"  \t" + arguments, arguments));
    EXPECT_TRUE(ChildSees(L"\"name\"" + arguments, arguments));
    EXPECT_FALSE(ChildSees(L"name " + arguments, L"something else"));
}

constexpr std::int64_t day = 86400000;
// 2004-02-29 23:04:05.
constexpr DateTime leapEvening{147251 * day + ((23 * 60 + 4) * 60 + 5) * 1000};

TEST(ClockTests, TheCalendarKnowsLeapDays) {
    WindowsClock clock;
    const CalendarTime calendar = clock.Calendar(leapEvening);
    EXPECT_EQ(calendar.year, 2004);
    EXPECT_EQ(calendar.month, 2);
    EXPECT_EQ(calendar.day, 29);
    EXPECT_EQ(calendar.hour, 23);
    EXPECT_EQ(calendar.minute, 4);
    EXPECT_EQ(calendar.second, 5);
    EXPECT_EQ(clock.Calendar({}).year, 1601);
    EXPECT_EQ(clock.Calendar({-1}).year, 1601);
}

TEST(ClockTests, NowIsTheLocalTime) {
    WindowsClock clock;
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    CalendarTime calendar;
    do {
        ::GetLocalTime(&before);
        calendar = clock.Calendar(clock.Now());
        ::GetLocalTime(&after);
    } while (before.wSecond != after.wSecond);
    EXPECT_EQ(calendar.year, before.wYear);
    EXPECT_EQ(calendar.month, before.wMonth);
    EXPECT_EQ(calendar.day, before.wDay);
    EXPECT_EQ(calendar.hour, before.wHour);
    EXPECT_EQ(calendar.minute, before.wMinute);
    EXPECT_EQ(calendar.second, before.wSecond);
}

// One of the user's regional settings, changed while this lives.
class RegionalSetting {
  public:
    RegionalSetting(LCTYPE type, const wchar_t* value) : type_(type) {
        ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, old_.data(), static_cast<int>(old_.size()));
        ::SetLocaleInfoW(LOCALE_USER_DEFAULT, type, value);
    }
    ~RegionalSetting() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, type_, old_.data()); }
    RegionalSetting(const RegionalSetting&) = delete;
    RegionalSetting& operator=(const RegionalSetting&) = delete;

  private:
    LCTYPE type_;
    std::array<wchar_t, 80> old_{};
};

TEST(ClockTests, DatesAndTimesAreWrittenAsTheUserWantsThem) {
    WindowsClock clock;
    const RegionalSetting date(LOCALE_SSHORTDATE, L"yyyy-MM-dd");
    const RegionalSetting time(LOCALE_STIMEFORMAT, L"HH:mm:ss");
    EXPECT_EQ(clock.ShortDate(leapEvening), u"2004-02-29");
    EXPECT_EQ(clock.LongTime(leapEvening), u"23:04:05");
    const RegionalSetting otherTime(LOCALE_STIMEFORMAT, L"h:mm:ss");
    EXPECT_EQ(clock.LongTime(leapEvening), u"11:04:05");
}

TEST(ClockTests, TheDecimalSeparatorIsTheUsers) {
    WindowsClock clock;
    const RegionalSetting comma(LOCALE_SDECIMAL, L",");
    EXPECT_EQ(clock.DecimalSeparator(), u",");
    const RegionalSetting point(LOCALE_SDECIMAL, L".");
    EXPECT_EQ(clock.DecimalSeparator(), u".");
}

}  // namespace
}  // namespace korvanta
