// SPDX-License-Identifier: Apache-2.0
#include "ScreenContext.h"

#include <DisplayFeed.h>

using namespace tamotest;
using namespace testing;
using namespace screen;

namespace {

class DisplayFeedTest : public Test
{
protected:
    int take(std::string text) { return feed::takeReading(context.get(), text.data(), states); }

    ScreenContext context;
    std::vector<feed::DisplayState> states;
};

TEST_F(DisplayFeedTest, EventHasItsPropertiesUntilItIsFreed)
{
    const screen_display_t display = context.displays().at(0);
    screen_event_t event = nullptr;
    ASSERT_EQ(feed::makeDisplayEvent(context.get(), 1, false, event), 0);
    int value = -1;
    void* handle = nullptr;
    EXPECT_EQ(screen_get_event_property_iv(event, SCREEN_PROPERTY_TYPE, &value), 0);
    EXPECT_EQ(value, SCREEN_EVENT_DISPLAY);
    EXPECT_EQ(screen_get_event_property_iv(event, SCREEN_PROPERTY_ATTACHED, &value), 0);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(screen_get_event_property_pv(event, SCREEN_PROPERTY_DISPLAY, &handle), 0);
    EXPECT_EQ(handle, display);
    feed::freeEvent(event);
    EXPECT_FAILS(screen_get_event_property_iv(event, SCREEN_PROPERTY_TYPE, &value), EINVAL);
    EXPECT_FAILS(screen_get_event_property_pv(event, SCREEN_PROPERTY_DISPLAY, &handle), EINVAL);
    feed::freeEvent(event);
    feed::freeEvent(nullptr);
    screen_event_t next = nullptr;
    ASSERT_EQ(feed::makeDisplayEvent(context.get(), 1, false, next), 0);
    EXPECT_NE(next, event);
    feed::freeEvent(next);
}

TEST_F(DisplayFeedTest, WrongEventPropertiesAreRefused)
{
    context.count();
    screen_event_t event = nullptr;
    ASSERT_EQ(feed::makeDisplayEvent(context.get(), 1, true, event), 0);
    int value = 77;
    long long longValue = 77;
    char text[4] = "as";
    void* handle = &value;
    EXPECT_FAILS(screen_get_event_property_iv(event, SCREEN_PROPERTY_DISPLAY, &value), EINVAL);
    EXPECT_FAILS(screen_get_event_property_iv(event, SCREEN_PROPERTY_ID, nullptr), EINVAL);
    EXPECT_FAILS(screen_get_event_property_pv(event, SCREEN_PROPERTY_ID, &handle), EINVAL);
    EXPECT_FAILS(screen_get_event_property_pv(event, SCREEN_PROPERTY_DISPLAY, nullptr), EINVAL);
    EXPECT_FAILS(screen_get_event_property_llv(event, SCREEN_PROPERTY_ID, &longValue), EINVAL);
    EXPECT_FAILS(screen_get_event_property_cv(event, SCREEN_PROPERTY_ID_STRING, 4, text), EINVAL);
    EXPECT_FAILS(screen_get_event_property_iv(nullptr, SCREEN_PROPERTY_ID, &value), EINVAL);
    EXPECT_EQ(value, 77);
    EXPECT_EQ(longValue, 77);
    EXPECT_STREQ(text, "as");
    EXPECT_EQ(handle, &value);
    feed::freeEvent(event);
}

TEST_F(DisplayFeedTest, ReadingIsTakenWithItsStates)
{
    ASSERT_EQ(take("@displays\ndisplays:json:[" + display(2, R"(,"rotation":90)") + ',' +
                   display(1, R"(,"attached":false)") + "]\n"),
              0);
    ASSERT_EQ(states.size(), 2u);
    EXPECT_EQ(states[0].id, 2);
    EXPECT_TRUE(states[0].isAttached);
    EXPECT_EQ(states[0].rotation, 90);
    EXPECT_FALSE(states[1].isAttached);
}

TEST_F(DisplayFeedTest, MalformedTextChangesNothing)
{
    ASSERT_EQ(take("@displays\ndisplays:json:[" + display(2) + "]\n"), 0);
    EXPECT_EQ(take("@displays\ndisplays::x\n"), EBADMSG);
    EXPECT_EQ(take("@displays\ndisplays:json:{}\n"), EBADMSG);
    EXPECT_EQ(take("no message"), EBADMSG);
    EXPECT_EQ(states.size(), 1u);
}

TEST_F(DisplayFeedTest, WhatIsNotThereIsRefused)
{
    screen_event_t event = nullptr;
    EXPECT_EQ(feed::makeDisplayEvent(context.get(), 5, true, event), EINVAL);
    EXPECT_EQ(feed::makeDisplayEvent(nullptr, 1, true, event), EINVAL);
    EXPECT_EQ(event, nullptr);
    EXPECT_FALSE(feed::isContext(nullptr));
    EXPECT_TRUE(feed::isContext(context.get()));
    EXPECT_EQ(feed::takeUnpublished(nullptr, states), EINVAL);
    std::string text = "@displays\n";
    EXPECT_EQ(feed::takeReading(nullptr, text.data(), states), EINVAL);
}

TEST_F(DisplayFeedTest, UnpublishedKeepsWhatIsKnown)
{
    ASSERT_EQ(take("@displays\ndisplays:json:[" + display(1, R"(,"name":"mine")") + "]\n"), 0);
    ASSERT_EQ(feed::takeUnpublished(context.get(), states), 0);
    EXPECT_EQ(states.at(0).id, 1);
    screen_event_t event = nullptr;
    ASSERT_EQ(feed::makeDisplayEvent(context.get(), 1, true, event), 0);
    void* handle = nullptr;
    ASSERT_EQ(screen_get_event_property_pv(event, SCREEN_PROPERTY_DISPLAY, &handle), 0);
    EXPECT_EQ(nameOf(static_cast<screen_display_t>(handle)), "mine");
    feed::freeEvent(event);
}

} // namespace
