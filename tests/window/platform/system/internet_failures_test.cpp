#include "platform/system/transfer_job.h"
#include "platform/system/web_request.h"
#include "tests/window/platform/system/internet_transfer_test.h"

#include <new>
#include <stdexcept>

namespace vandrel::test {
namespace {

int worksToFail = 0; // how many of the next runs fail

template <typename Error> [[noreturn]] void fail(const Error& error) { throw error; }

std::string withoutMemory(void* session, TransferJob& job)
{
    if (worksToFail-- > 0) fail(std::bad_alloc());
    return openAddress(session, job);
}

std::string withoutMemoryAfterTheConnection(void* session, TransferJob& job)
{
    openAddress(session, job);
    fail(std::bad_alloc());
}

std::string withALengthThatCannotBe(void*, TransferJob&)
{
    return std::string(std::string().max_size() + 1, 'x');
}

std::string withANumber(void*, TransferJob&) { fail(42); }

std::string withAnErrorOfItsOwn(void*, TransferJob&) { fail(RuntimeError(35752)); }

std::string withStatesWithoutEnd(void*, TransferJob& job)
{
    for (int i = 0; i < 10'000; ++i) job.tell(TransferState::connecting);
    return "fine";
}

// Whatever the thread throws becomes an error of the transfer.
class InternetFailures : public InternetTransfers {
  protected:
    int errorOfThread(InternetTransfer::Work work)
    {
        InternetTransfer failing(work);
        watch(failing);
        const ULONGLONG start = GetTickCount64();
        const int error = errorOf([&] { failing.OpenURL(server.address(L"/ok")); });
        EXPECT_LT(GetTickCount64() - start, 4000U) << "nobody waits for what will not come";
        EXPECT_FALSE(failing.StillExecuting());
        return error;
    }
};

TEST_F(InternetFailures, RunningOutOfMemoryInTheThreadIsThatError)
{
    worksToFail = 1;
    EXPECT_EQ(errorOfThread(withoutMemory), 7);
}

TEST_F(InternetFailures, TheStatesBeforeAFailureAreReported)
{
    EXPECT_EQ(errorOfThread(withoutMemoryAfterTheConnection), 7);
    EXPECT_EQ(states, both);
}

TEST_F(InternetFailures, TheSameThreadGoesOnAfterAFailure)
{
    worksToFail = 2;
    InternetTransfer again(withoutMemory);
    watch(again);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(errorOf([&] { again.OpenURL(server.address(L"/ok")); }), 7);
    EXPECT_EQ(again.OpenURL(server.address(L"/ok")), L"fine");
    EXPECT_EQ(states, both);
}

TEST_F(InternetFailures, WhateverElseIsThrownIsAFailureOfTheRequest)
{
    EXPECT_EQ(errorOfThread(withALengthThatCannotBe), 35756);
    EXPECT_EQ(errorOfThread(withANumber), 35756);
}

TEST_F(InternetFailures, AnErrorOfTheProgramsOwnKeepsItsNumber)
{
    EXPECT_EQ(errorOfThread(withAnErrorOfItsOwn), 35752);
}

TEST_F(InternetFailures, AStateWithoutSpaceForItIsDropped)
{
    InternetTransfer talkative(withStatesWithoutEnd);
    watch(talkative);
    EXPECT_EQ(talkative.OpenURL(L"x"), L"fine");
    EXPECT_EQ(states.size(), TransferJob::mostStates);
}

TEST_F(InternetFailures, AListenerThatThrowsLeavesTheRequestBehind)
{
    transfer.StateChanged = [](short) { throw RuntimeError(5); };
    EXPECT_EQ(errorOf([&] { open(L"/silent"); }), 5);
    EXPECT_FALSE(transfer.StillExecuting());
    watch(transfer);
    EXPECT_EQ(open(L"/ok"), L"fine") << "it does not wait for the one before it";
}

} // namespace
} // namespace vandrel::test
