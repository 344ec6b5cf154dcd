#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/SystemHandle.h"
#include "platform/win32/services/WindowsMutex.h"
#include "platform/win32/services/WindowsWaitableHandles.h"

namespace korvanta {
namespace {

KernelHandle Event(bool signalled) {
    return KernelHandle(::CreateEventA(nullptr, TRUE, signalled, nullptr));
}

bool Open(HANDLE handle) {
    DWORD flags = 0;
    return ::GetHandleInformation(handle, &flags) != 0;
}

TEST(HandleTests, AHandleIsClosedOnceByItsLastHolder) {
    HANDLE raw = nullptr;
    {
        KernelHandle first = Event(false);
        raw = first.Get();
        const KernelHandle second = std::move(first);
        EXPECT_FALSE(first);
        EXPECT_EQ(second.Get(), raw);
        EXPECT_TRUE(Open(raw));
    }
    EXPECT_FALSE(Open(raw));
}

TEST(HandleTests, AssigningClosesTheOldHandleAndReleasingClosesNone) {
    KernelHandle holder = Event(false);
    const HANDLE old = holder.Get();
    holder = Event(true);
    EXPECT_FALSE(Open(old));
    const HANDLE released = holder.Release();
    EXPECT_FALSE(holder);
    EXPECT_TRUE(Open(released));
    EXPECT_TRUE(::CloseHandle(released));
}

TEST(WaitableHandlesTests, TheResultNamesASignalledHandle) {
    WindowsWaitableHandles waitable;
    const KernelHandle off = Event(false);
    const KernelHandle on = Event(true);
    const ChangeHandle offNumber = FromSystemHandle(off.Get());
    const ChangeHandle onNumber = FromSystemHandle(on.Get());
    EXPECT_EQ(waitable.PollAny({offNumber}), 258U);
    EXPECT_EQ(waitable.PollAny({offNumber, onNumber}), 1U);
    EXPECT_EQ(waitable.PollAny({onNumber, offNumber}), 0U);
}

TEST(WaitableHandlesTests, NoHandlesOrBadOnesAreAFailure) {
    WindowsWaitableHandles waitable;
    EXPECT_EQ(waitable.PollAny({}), 0xFFFFFFFFU);
    EXPECT_EQ(waitable.PollAny({0x7FFFFFF0}), 0xFFFFFFFFU);
    const KernelHandle off = Event(false);
    EXPECT_EQ(waitable.PollAny(std::vector<ChangeHandle>(65, FromSystemHandle(off.Get()))), 0xFFFFFFFFU);
}

std::unique_ptr<Mutex> MakeMutex() {
    WindowsMutexFactory factory;
    std::uint32_t errorCode = 1;
    std::unique_ptr<Mutex> mutex = factory.CreateOwned(errorCode);
    EXPECT_EQ(errorCode, 0U);
    return mutex;
}

TEST(MutexTests, TheOwnerAcquiresAndReleasesAsOftenAsItLikes) {
    const std::unique_ptr<Mutex> mutex = MakeMutex();
    std::uint32_t errorCode = 0;
    EXPECT_EQ(mutex->Wait(0), WaitResult::Acquired);
    EXPECT_EQ(mutex->Wait(10000), WaitResult::Acquired);
    EXPECT_TRUE(mutex->Release(errorCode));
    EXPECT_TRUE(mutex->Release(errorCode));
    EXPECT_EQ(mutex->Wait(0), WaitResult::Acquired);
    EXPECT_TRUE(mutex->Release(errorCode));
}

TEST(MutexTests, TheFirstAcquisitionIsNeverGivenBack) {
    const std::unique_ptr<Mutex> mutex = MakeMutex();
    std::uint32_t errorCode = 0;
    EXPECT_FALSE(mutex->Release(errorCode));
    EXPECT_EQ(errorCode, static_cast<std::uint32_t>(ERROR_NOT_OWNER));
}

struct ForeignUse {
    Mutex& mutex;
    WaitResult waited = WaitResult::Acquired;
    DWORD milliseconds = 0;
    bool released = true;
    std::uint32_t errorCode = 0;

    static DWORD WINAPI Run(void* parameter) {
        auto& use = *static_cast<ForeignUse*>(parameter);
        const DWORD start = ::GetTickCount();
        use.waited = use.mutex.Wait(100);
        use.milliseconds = ::GetTickCount() - start;
        use.released = use.mutex.Release(use.errorCode);
        return 0;
    }
};

TEST(MutexTests, AnotherThreadWaitsInVainAndCannotRelease) {
    const std::unique_ptr<Mutex> mutex = MakeMutex();
    ForeignUse first{*mutex};
    ForeignUse second{*mutex};
    const KernelHandle one(::CreateThread(nullptr, 0, ForeignUse::Run, &first, 0, nullptr));
    const KernelHandle two(::CreateThread(nullptr, 0, ForeignUse::Run, &second, 0, nullptr));
    ASSERT_EQ(::WaitForSingleObject(one.Get(), 10000), WAIT_OBJECT_0);
    ASSERT_EQ(::WaitForSingleObject(two.Get(), 10000), WAIT_OBJECT_0);
    for (const ForeignUse& use : {first, second}) {
        EXPECT_EQ(use.waited, WaitResult::TimedOut);
        EXPECT_GE(use.milliseconds, 90U);
        EXPECT_FALSE(use.released);
        EXPECT_EQ(use.errorCode, static_cast<std::uint32_t>(ERROR_NOT_OWNER));
    }
}

TEST(MutexTests, AMillionCostNeitherHandlesNorSeconds) {
    // A free handle's number is given out again at once, so the next one tells how many are in use.
    const HANDLE before = Event(false).Get();
    const DWORD start = ::GetTickCount();
    std::vector<std::unique_ptr<Mutex>> mutexes(1000000);
    WindowsMutexFactory factory;
    std::uint32_t errorCode = 0;
    for (std::unique_ptr<Mutex>& mutex : mutexes) {
        mutex = factory.CreateOwned(errorCode);
        mutex->Wait(10000);
        mutex->Release(errorCode);
    }
    EXPECT_LT(::GetTickCount() - start, 3000U);
    EXPECT_EQ(Event(false).Get(), before);
}

}  // namespace
}  // namespace korvanta
