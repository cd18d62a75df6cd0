// SPDX-License-Identifier: Apache-2.0
#include "fuse/Lookout.h"
#include "fuse/ExpectedRequests.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using ppsfs::ExpectedRequests;
using ppsfs::Lookout;

class LookoutTest : public testing::Test
{
protected:
    ~LookoutTest() override { close(event); }

    void makeReadable() { ASSERT_EQ(eventfd_write(event, 1), 0); }

    static std::chrono::nanoseconds processorTime()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    const int event = eventfd(0, EFD_CLOEXEC);
    Lookout lookout;
};

TEST_F(LookoutTest, SeesWhatIsThere)
{
    makeReadable();
    EXPECT_TRUE(lookout.sees(event));
}

TEST_F(LookoutTest, DoesNotWaitForEver)
{
    EXPECT_FALSE(lookout.sees(event));
}

// Each look takes up to 200 us: two seconds in all, were none left out.
TEST_F(LookoutTest, LeavesLooksOutThatAreOfNoUse)
{
    const auto before = processorTime();
    for (int i = 0; i < 10'000; ++i)
        ASSERT_FALSE(lookout.sees(event));
    EXPECT_LT(processorTime() - before, 500ms);
}

TEST_F(LookoutTest, LooksAgainSomeTimeAfterLooksOfNoUse)
{
    for (int i = 0; i < 1'000; ++i)
        ASSERT_FALSE(lookout.sees(event));
    makeReadable();
    const auto limit = std::chrono::steady_clock::now() + 10s;
    while (!lookout.sees(event))
        ASSERT_LT(std::chrono::steady_clock::now(), limit);
}

TEST(ExpectedRequestsTest, AreThereFromTheFirstFileToTheLast)
{
    ExpectedRequests requests;
    ExpectedRequests::Mark first;
    ExpectedRequests::Mark second;
    EXPECT_FALSE(requests.any());
    requests.expect(first);
    requests.expect(second);
    requests.done(first);
    EXPECT_TRUE(requests.any());
    requests.done(second);
    EXPECT_FALSE(requests.any());
}

TEST(ExpectedRequestsTest, CountAFileOnce)
{
    ExpectedRequests requests;
    ExpectedRequests::Mark file;
    requests.done(file);
    requests.expect(file);
    requests.expect(file);
    requests.done(file);
    EXPECT_FALSE(requests.any());
    requests.done(file);
    EXPECT_FALSE(requests.any());
}

TEST(ExpectedRequestsTest, ThatWereGivenUpMayBeExpectedAnew)
{
    ExpectedRequests requests;
    ExpectedRequests::Mark old;
    ExpectedRequests::Mark recent;
    requests.expect(old);
    requests.giveUp();
    EXPECT_FALSE(requests.any());
    requests.expect(recent);
    requests.done(old); // which is not in the count any more
    EXPECT_TRUE(requests.any());
    requests.expect(old);
    requests.done(recent);
    EXPECT_TRUE(requests.any());
}

} // namespace
