// SPDX-License-Identifier: Apache-2.0
#include "ZelTest.h"

#include <zel/navigator.h>

#include <cerrno>
#include <climits>

namespace tamotest {
namespace {

class EventTest : public ZelTest
{
};

TEST_F(EventTest, CarriesDomainCodeAndACopyOfThePayload)
{
    zel_event_payload_t payload{1, UINTPTR_MAX, 3};
    zel_event_t* event = nullptr;
    ASSERT_EQ(zel_event_create(&event, domain(), INT_MIN, &payload, nullptr), 0);
    payload = {};
    EXPECT_EQ(zel_event_get_domain(event), domain());
    EXPECT_EQ(zel_event_get_code(event), INT_MIN);
    const zel_event_payload_t* const copy = zel_event_get_payload(event);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->data1, 1U);
    EXPECT_EQ(copy->data2, UINTPTR_MAX);
    EXPECT_EQ(copy->data3, 3U);
    zel_event_destroy(event);
}

TEST_F(EventTest, HasNoPayloadWhereItWasMadeWithoutOne)
{
    zel_event_t* event = nullptr;
    ASSERT_EQ(zel_event_create(&event, navigator_get_domain(), 0, nullptr, nullptr), 0);
    EXPECT_EQ(zel_event_get_payload(event), nullptr);
    zel_event_destroy(event);
}

TEST_F(EventTest, NeedsAKnownDomain)
{
    zel_event_t* event = nullptr;
    for (const int unknown : {0, -1, 500, domain() + 1, INT_MAX, INT_MIN})
        EXPECT_THAT(zel_event_create(&event, unknown, 0, nullptr, nullptr), FailsWith(EINVAL));
    EXPECT_THAT(zel_event_create(nullptr, domain(), 0, nullptr, nullptr), FailsWith(EINVAL));
    EXPECT_EQ(event, nullptr);
}

TEST_F(EventTest, NullIsRefusedByTheGetters)
{
    errno = 0;
    EXPECT_THAT(zel_event_get_domain(nullptr), FailsWith(EINVAL));
    errno = 0;
    EXPECT_THAT(zel_event_get_code(nullptr), FailsWith(EINVAL));
    errno = 0;
    EXPECT_EQ(zel_event_get_payload(nullptr), nullptr);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_THAT(zel_push_event(nullptr), FailsWith(EINVAL));
    EXPECT_THAT(zel_channel_push_event(channel(), nullptr), FailsWith(EINVAL));
    zel_event_destroy(nullptr);
}

int completions;

void count(zel_event_t* event)
{
    ++completions;
    EXPECT_EQ(zel_event_get_code(event), 5) << "it is still whole";
    zel_event_destroy(event); // is left alone
    EXPECT_THAT(zel_push_event(event), FailsWith(EINVAL));
}

TEST_F(EventTest, CompletionIsCalledOnceWhenItIsDestroyed)
{
    completions = 0;
    zel_event_destroy(make(5, 0, count));
    EXPECT_EQ(completions, 1);
}

TEST_F(EventTest, CompletionIsCalledAtTheNextTaking)
{
    completions = 0;
    push(channel(), 5, 0, count);
    EXPECT_EQ(take(), 5);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(take(0), -1);
    EXPECT_EQ(completions, 1);
}

TEST_F(EventTest, CannotBePushedTwiceOrOnceTaken)
{
    zel_event_t* const event = make(5);
    EXPECT_EQ(zel_push_event(event), 0);
    EXPECT_THAT(zel_push_event(event), FailsWith(EINVAL));
    EXPECT_THAT(zel_channel_push_event(channel(), event), FailsWith(EINVAL));
    zel_event_destroy(event); // belongs to the channel
    zel_event_t* taken = nullptr;
    ASSERT_EQ(zel_get_event(&taken, 0), 0);
    ASSERT_EQ(taken, event);
    EXPECT_THAT(zel_push_event(taken), FailsWith(EINVAL));
    zel_event_destroy(taken);
    EXPECT_EQ(zel_event_get_code(taken), 5);
}

TEST_F(EventTest, CompletionsMayDoAnything)
{
    static int other;
    zel_channel_create(&other);
    push(channel(), 1, 0, [](zel_event_t*) {
        zel_channel_destroy(zel_channel_get_active());
        zel_channel_set_active(other, nullptr);
    });
    EXPECT_EQ(take(), 1);
    push(other, 2);
    EXPECT_EQ(take(), 2) << "of the channel that is active by then";
}

TEST_F(EventTest, ACompletionMayTakeTheNextEvent)
{
    static int inner;
    inner = 0;
    push(channel(), 1, 0, [](zel_event_t*) { inner = take(0); });
    push(channel(), 2);
    push(channel(), 3);
    EXPECT_EQ(take(), 1);
    EXPECT_EQ(take(), 3);
    EXPECT_EQ(inner, 2);
}

TEST_F(EventTest, ACompletionMayShutDown)
{
    inThread([this] {
        zel_initialize();
        push(zel_channel_get_active(), 1, 0, [](zel_event_t*) { EXPECT_EQ(zel_shutdown(), 0); });
        EXPECT_EQ(take(), 1);
        zel_event_t* event = nullptr;
        EXPECT_THAT(zel_get_event(&event, -1), FailsWith(EPERM));
    });
}

TEST_F(EventTest, RegisteredDomainsAreNewOnes)
{
    const int next = zel_register_domain();
    EXPECT_GT(next, domain());
    EXPECT_GT(domain(), navigator_get_domain());
}

TEST_F(EventTest, DomainDataIsKeptForEachChannelAndDomain)
{
    int one = 0;
    int two = 0;
    void* data = &one;
    EXPECT_EQ(zel_get_domain_data(domain(), &data), 0);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(zel_set_domain_data(domain(), &one, nullptr), 0);
    EXPECT_EQ(zel_set_domain_data(navigator_get_domain(), &two, &data), 0);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(zel_set_domain_data(domain(), &two, &data), 0);
    EXPECT_EQ(data, &one);
    EXPECT_EQ(zel_get_domain_data(domain(), &data), 0);
    EXPECT_EQ(data, &two);

    int other = 0;
    zel_channel_create(&other);
    zel_channel_set_active(other, nullptr);
    EXPECT_EQ(zel_get_domain_data(domain(), &data), 0);
    EXPECT_EQ(data, nullptr);

    EXPECT_THAT(zel_get_domain_data(domain(), nullptr), FailsWith(EINVAL));
    EXPECT_THAT(zel_get_domain_data(500, &data), FailsWith(EINVAL));
    EXPECT_THAT(zel_set_domain_data(0, &one, nullptr), FailsWith(EINVAL));
}

} // namespace
} // namespace tamotest
