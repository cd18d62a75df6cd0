// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <malloc.h>

#include <cerrno>
#include <set>
#include <vector>

namespace tamotest {
namespace {

using ::testing::ElementsAre;

class ChannelTest : public ZelTest
{
protected:
    static int create()
    {
        int made = 0;
        EXPECT_EQ(zel_channel_create(&made), 0);
        return made;
    }
};

TEST_F(ChannelTest, NumbersAreAboveZeroAndNeverUsedAgain)
{
    std::set<int> numbers{channel()};
    for (int i = 0; i < 100; ++i) {
        const int made = create();
        EXPECT_GT(made, 0);
        EXPECT_TRUE(numbers.insert(made).second);
        EXPECT_EQ(zel_channel_destroy(made), 0);
    }
    EXPECT_THAT(zel_channel_create(nullptr), FailsWith(EINVAL));
}

TEST_F(ChannelTest, ANewOneIsNotActive)
{
    const int made = create();
    EXPECT_EQ(zel_channel_get_active(), channel());
    int previous = -1;
    EXPECT_EQ(zel_channel_set_active(made, &previous), 0);
    EXPECT_EQ(previous, channel());
    EXPECT_EQ(zel_channel_get_active(), made);
    EXPECT_EQ(zel_channel_set_active(channel(), nullptr), 0);
}

TEST_F(ChannelTest, AThreadWithoutAnActiveOneIsGivenOne)
{
    EXPECT_EQ(zel_channel_destroy(channel()), 0);
    const int other = create();
    int previous = -1;
    EXPECT_EQ(zel_channel_set_active(other, &previous), 0);
    EXPECT_EQ(previous, 0);
    EXPECT_EQ(zel_channel_destroy(other), 0);
    const int given = zel_channel_get_active();
    EXPECT_GT(given, other);
    EXPECT_EQ(zel_channel_get_active(), given);
}

TEST_F(ChannelTest, UnknownOnesAndOtherThreadsAreRefused)
{
    for (const int number : {0, -1, 1 << 30, -(1 << 30)}) {
        zel_event_t* const event = make(1);
        EXPECT_THAT(zel_channel_set_active(number, nullptr), FailsWith(EINVAL));
        EXPECT_THAT(zel_channel_destroy(number), FailsWith(EINVAL));
        EXPECT_THAT(zel_channel_push_event(number, event), FailsWith(EINVAL));
        zel_event_destroy(event);
    }
    inThread([&] {
        zel_initialize();
        EXPECT_THAT(zel_channel_set_active(channel(), nullptr), FailsWith(EINVAL));
        EXPECT_THAT(zel_channel_destroy(channel()), FailsWith(EINVAL));
        EXPECT_THAT(zel_register_channel_destroy_handler(
                        channel(), [](void*) {}, nullptr),
                    FailsWith(EINVAL));
    });
    EXPECT_EQ(zel_channel_get_active(), channel());
}

TEST_F(ChannelTest, EventsAreTakenOutOfTheActiveOneAlone)
{
    const int other = create();
    push(other, 1);
    EXPECT_EQ(take(0), -1);
    zel_channel_set_active(other, nullptr);
    EXPECT_EQ(take(0), 1);
    zel_channel_set_active(channel(), nullptr);
}

TEST_F(ChannelTest, DestructionCompletesEventsAndPushesFailFromThenOn)
{
    static int completed;
    completed = 0;
    const int other = create();
    zel_channel_set_active(other, nullptr);
    for (int i = 0; i < 5; ++i)
        push(other, i, 0, [](zel_event_t*) { ++completed; });
    EXPECT_EQ(take(), 0);
    EXPECT_EQ(zel_channel_destroy(other), 0);
    EXPECT_EQ(completed, 5);
    zel_event_t* const event = make(1);
    EXPECT_THAT(zel_channel_push_event(other, event), FailsWith(EINVAL));
    EXPECT_THAT(zel_channel_destroy(other), FailsWith(EINVAL));
    zel_channel_set_active(channel(), nullptr);
    EXPECT_EQ(zel_push_event(event), 0) << "it was still ours";
    EXPECT_EQ(take(), 1);
}

struct Ending
{
    int channel;
    std::vector<int> calls;
};

template<int Number>
void record(void* data)
{
    auto* const ending = static_cast<Ending*>(data);
    ending->calls.push_back(Number);
    EXPECT_EQ(zel_channel_get_active(), ending->channel);
    EXPECT_THAT(zel_channel_destroy(ending->channel), FailsWith(EINVAL));
    EXPECT_THAT(zel_register_channel_destroy_handler(ending->channel, record<Number>, data),
                FailsWith(EINVAL));
}

TEST_F(ChannelTest, DestroyHandlersRunTheLastFirstWhileTheChannelIsThere)
{
    Ending ending{create(), {}};
    zel_channel_set_active(ending.channel, nullptr);
    EXPECT_EQ(zel_register_channel_destroy_handler(ending.channel, record<1>, &ending), 0);
    EXPECT_EQ(zel_register_channel_destroy_handler(ending.channel, record<2>, &ending), 0);
    EXPECT_THAT(zel_register_channel_destroy_handler(ending.channel, nullptr, nullptr),
                FailsWith(EINVAL));
    EXPECT_THAT(zel_register_channel_destroy_handler(-5, record<1>, nullptr), FailsWith(EINVAL));
    EXPECT_EQ(zel_channel_destroy(ending.channel), 0);
    EXPECT_THAT(ending.calls, ElementsAre(2, 1));
}

TEST_F(ChannelTest, DestroyHandlersRunAtTheThreadsEndToo)
{
    static int calls;
    calls = 0;
    inThread([] {
        zel_initialize();
        for (int i = 0; i < 3; ++i)
            zel_register_channel_destroy_handler(
                create(), [](void*) { ++calls; }, nullptr);
    });
    EXPECT_EQ(calls, 3);
}

TEST_F(ChannelTest, ADestroyHandlerMayShutDown)
{
    inThread([] {
        zel_initialize();
        const int made = zel_channel_get_active();
        zel_register_channel_destroy_handler(
            made, [](void*) { EXPECT_EQ(zel_shutdown(), 0); }, nullptr);
        EXPECT_EQ(zel_channel_destroy(made), 0);
        EXPECT_THAT(zel_channel_get_active(), FailsWith(EPERM));
    });
}

TEST_F(ChannelTest, ACompletionAtTheThreadsEndCannotMakeChannels)
{
    static int result;
    result = 0;
    inThread([this] {
        zel_initialize();
        push(zel_channel_get_active(), 1, 0, [](zel_event_t*) {
            int made = 0;
            result = zel_channel_create(&made);
            EXPECT_EQ(errno, EPERM);
        });
        zel_shutdown();
    });
    EXPECT_EQ(result, -1);
}

TEST_F(ChannelTest, ManyThatComeAndGoLeaveNothing)
{
    const auto comeAndGo = [this](int times) {
        for (int i = 0; i < times; ++i) {
            const int made = create();
            push(made, 1);
            ASSERT_EQ(zel_channel_destroy(made), 0);
        }
    };
    comeAndGo(100);
    const std::size_t descriptors = openDescriptors();
    const auto memory = mallinfo2().uordblks;
    comeAndGo(10'000);
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_LT(mallinfo2().uordblks, memory + 64 * 1024);
}

} // namespace
} // namespace tamotest
