// SPDX-License-Identifier: Apache-2.0
// The screen's functions of <zel/screen.h>, and the events of <screen/screen.h>.
#include "ScreenEvents.h"

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <memory>
#include <thread>

using namespace tamotest;
using namespace testing;

namespace {

int lowestFreeDescriptor()
{
    const int descriptor = dup(0);
    close(descriptor);
    return descriptor;
}

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/** The limit is what the test is about: nothing comes. */
bool nothingComesFor(int milliseconds)
{
    zel_event_t* event = nullptr;
    return zel_get_event(&event, milliseconds) == 0 && event == nullptr;
}

TEST(ScreenEventTest, WithoutPpsThereIsNothingToAsk)
{
    const ScreenContext context;
    const ScreenEvents events;
    EXPECT_FAILS(screen_request_events(context.number()), ENOENT);
    EXPECT_FAILS(screen_stop_events(context.number()), ENOENT);
}

TEST(ScreenEventTest, NeedsAnInitialisedThreadAndAContext)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext context;
    EXPECT_FAILS(screen_request_events(context.number()), EPERM);
    EXPECT_FAILS(screen_stop_events(context.number()), EPERM);
    const ScreenEvents events;
    for (const int wrong : {0, -1, context.number() + 1})
        EXPECT_FAILS(screen_request_events(wrong), EINVAL);
    EXPECT_EQ(screen_request_events(context.number()), 0);
}

TEST(ScreenEventTest, DomainIsTheSameInEveryThread)
{
    const int domain = screen_get_domain();
    EXPECT_GT(domain, 0);
    std::thread([domain] { EXPECT_EQ(screen_get_domain(), domain); }).join();
}

TEST(ScreenEventTest, AskingAgainChangesNothing)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext context;
    const ScreenEvents events;
    ASSERT_EQ(screen_request_events(context.number()), 0);
    const int free = lowestFreeDescriptor();
    errno = E2BIG;
    ASSERT_EQ(screen_request_events(context.number()), 0);
    EXPECT_EQ(errno, E2BIG);
    EXPECT_EQ(lowestFreeDescriptor(), free);
    publishDisplays(display(1) + ',' + display(2));
    publishDisplays(display(1) + ',' + display(2) + ',' + display(3));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
    EXPECT_EQ(events.nextChange(), std::pair(3, 1));
    EXPECT_EQ(screen_stop_events(context.number()), 0);
    EXPECT_FAILS(screen_stop_events(context.number()), ENOENT);
}

TEST(ScreenEventTest, StopEndsThemAndARequestBeginsAnew)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext context;
    const ScreenEvents events;
    const int free = lowestFreeDescriptor();
    ASSERT_EQ(zel_channel_get_active() > 0, true);
    ASSERT_EQ(screen_request_events(context.number()), 0);
    ASSERT_EQ(screen_stop_events(context.number()), 0);
    publishDisplays(display(1) + ',' + display(2));
    ASSERT_EQ(screen_request_events(context.number()), 0);
    publishDisplays(display(1) + ',' + display(2) + ',' + display(3));
    EXPECT_EQ(events.nextChange(), std::pair(3, 1));
    ASSERT_EQ(screen_stop_events(context.number()), 0);
    EXPECT_LE(lowestFreeDescriptor(), free + 2); // the channel keeps its own two
}

TEST(ScreenEventTest, EventsInTheChannelStillComeAfterStop)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext context;
    const ScreenEvents events;
    ASSERT_EQ(screen_request_events(context.number()), 0);
    publishDisplays(display(1) + ',' + display(2) + ',' + display(3));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1)); // the reading gave both
    ASSERT_EQ(screen_stop_events(context.number()), 0);
    EXPECT_EQ(events.nextChange(), std::pair(3, 1));
}

TEST(ScreenEventTest, EndOfTheContextEndsThem)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext marker;
    const ScreenEvents events;
    auto context = std::make_unique<ScreenContext>();
    const int number = context->number();
    ASSERT_EQ(screen_request_events(number), 0);
    context.reset();
    ASSERT_EQ(screen_request_events(marker.number()), 0);
    publishDisplays(display(1) + ',' + display(2));
    publishDisplays(display(1) + ',' + display(2) + ',' + display(3));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
    EXPECT_EQ(events.nextChange(), std::pair(3, 1));
    EXPECT_FAILS(screen_stop_events(number), ENOENT);
    EXPECT_FAILS(screen_request_events(number), EINVAL);
}

TEST(ScreenEventTest, WatchOfAContextThatEndedIsGoneAtTheNextPublication)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenEvents events;
    auto context = std::make_unique<ScreenContext>();
    const int number = context->number();
    ASSERT_EQ(screen_request_events(number), 0);
    context.reset();
    publishDisplays(display(2));
    EXPECT_TRUE(nothingComesFor(100));
    EXPECT_FAILS(screen_stop_events(number), ENOENT);
}

TEST(ScreenEventTest, ContextsThatComeAndGoLeaveNothingInTheChannel)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenEvents events;
    const auto requestOnce = [] {
        const ScreenContext context;
        ASSERT_EQ(screen_request_events(context.number()), 0);
    };
    requestOnce();
    const int free = lowestFreeDescriptor();
    for (int i = 0; i < 100; ++i)
        requestOnce();
    EXPECT_EQ(lowestFreeDescriptor(), free);
}

TEST(ScreenEventTest, EndOfTheChannelEndsThem)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext context;
    const ScreenEvents events;
    const int free = lowestFreeDescriptor();
    const int channel = zel_channel_get_active();
    ASSERT_EQ(screen_request_events(context.number()), 0);
    publishDisplays(display(1) + ',' + display(2) + ',' + display(3));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1)); // the other one is freed with the channel
    ASSERT_EQ(zel_channel_destroy(channel), 0);
    EXPECT_EQ(lowestFreeDescriptor(), free);
    EXPECT_FAILS(screen_stop_events(context.number()), ENOENT);
}

TEST(ScreenEventTest, EachChannelAsksForItself)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext context;
    const ScreenEvents events;
    ASSERT_EQ(screen_request_events(context.number()), 0);
    std::thread([&] {
        const ScreenEvents others;
        EXPECT_FAILS(screen_stop_events(context.number()), ENOENT);
        ASSERT_EQ(screen_request_events(context.number()), 0);
        publishDisplays(display(1) + ',' + display(2));
        EXPECT_EQ(others.nextChange(), std::pair(2, 1));
    }).join();
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
}

TEST(ScreenEventTest, DeadPpsEndsThemWithoutSpinning)
{
    auto pps = std::make_unique<PpsFilesystem>();
    publishDisplays(display(1));
    const ScreenContext context;
    const ScreenEvents events;
    ASSERT_EQ(screen_request_events(context.number()), 0);
    pps->kill();
    const double before = processorSeconds();
    EXPECT_TRUE(nothingComesFor(300));
    EXPECT_LT(processorSeconds() - before, 0.1);
    EXPECT_FAILS(screen_stop_events(context.number()), ENOENT);
    EXPECT_FAILS(screen_request_events(context.number()), ENOENT);
    pps.reset();
    const PpsFilesystem next;
    publishDisplays(display(1));
    ASSERT_EQ(screen_request_events(context.number()), 0);
    publishDisplays(display(1) + ',' + display(2));
    EXPECT_EQ(events.nextChange(), std::pair(2, 1));
}

TEST(ScreenEventTest, EventsOfOthersHaveNoScreenEvent)
{
    const ScreenEvents events;
    for (const int domain : {screen_get_domain(), zel_register_domain()}) {
        zel_event_t* event = nullptr;
        ASSERT_EQ(zel_event_create(&event, domain, SCREEN_EVENT, nullptr, nullptr), 0);
        errno = 0;
        EXPECT_EQ(screen_event_get_event(event), nullptr);
        EXPECT_EQ(errno, EINVAL);
        zel_event_destroy(event);
    }
    errno = 0;
    EXPECT_EQ(screen_event_get_event(nullptr), nullptr);
    EXPECT_EQ(errno, EINVAL);
}

TEST(ScreenEventTest, IsValidAsLongAsItsPlatformEvent)
{
    const PpsFilesystem pps;
    publishDisplays(display(1));
    const ScreenContext context;
    const ScreenEvents events;
    ASSERT_EQ(screen_request_events(context.number()), 0);
    publishDisplays("");
    zel_event_t* event = nullptr;
    ASSERT_EQ(zel_get_event(&event, ScreenEvents::TimeoutMs), 0);
    const screen_event_t screenEvent = screen_event_get_event(event);
    ASSERT_NE(screenEvent, nullptr);
    EXPECT_EQ(ScreenEvents::read(screenEvent).id, 1);
    EXPECT_TRUE(nothingComesFor(0));
    int value = 77;
    EXPECT_FAILS(screen_get_event_property_iv(screenEvent, SCREEN_PROPERTY_ID, &value), EINVAL);
    EXPECT_EQ(value, 77);
}

} // namespace
