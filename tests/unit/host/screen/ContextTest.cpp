// SPDX-License-Identifier: Apache-2.0
#include "ScreenContext.h"

#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <limits>

using namespace tamotest;
using namespace testing;

namespace {

TEST(ContextTest, HandlesAreSmallNumbersAndNeverUsedAgain)
{
    std::uintptr_t last = 0;
    for (int i = 0; i < 1000; ++i) {
        screen_context_t context = nullptr;
        ASSERT_EQ(screen_create_context(&context, SCREEN_APPLICATION_CONTEXT), 0);
        const auto number = reinterpret_cast<std::uintptr_t>(context);
        EXPECT_GT(number, last);
        EXPECT_LE(number, static_cast<std::uintptr_t>(std::numeric_limits<int>::max()));
        last = number;
        EXPECT_EQ(screen_destroy_context(context), 0);
        EXPECT_FAILS(screen_destroy_context(context), EINVAL);
    }
}

TEST(ContextTest, WrongFlagsAndNullAreRefused)
{
    auto* const before = reinterpret_cast<screen_context_t>(std::uintptr_t{77});
    screen_context_t context = before;
    EXPECT_FAILS(screen_create_context(&context, 1), EINVAL);
    EXPECT_EQ(context, before);
    EXPECT_FAILS(screen_create_context(nullptr, 0), EINVAL);
}

TEST(ContextTest, WhateverIsNoContextIsRefused)
{
    const ScreenContext context;
    int count = 77;
    void* handle = &count;
    for (const std::uintptr_t wrong :
         {std::uintptr_t{0}, static_cast<std::uintptr_t>(context.number()) + 1,
          std::numeric_limits<std::uintptr_t>::max(),
          (std::uintptr_t{1} << 32) + static_cast<std::uintptr_t>(context.number())}) {
        auto* const none = reinterpret_cast<screen_context_t>(wrong);
        EXPECT_FAILS(screen_destroy_context(none), EINVAL);
        EXPECT_FAILS(screen_get_context_property_iv(none, SCREEN_PROPERTY_DISPLAY_COUNT, &count),
                     EINVAL);
        EXPECT_FAILS(screen_get_context_property_pv(none, SCREEN_PROPERTY_DISPLAYS, &handle),
                     EINVAL);
    }
    EXPECT_EQ(count, 77);
    EXPECT_EQ(handle, &count);
}

TEST(ContextTest, OtherPropertiesAndNullAreRefused)
{
    const ScreenContext context;
    int value = 77;
    void* handle = nullptr;
    EXPECT_FAILS(screen_get_context_property_iv(context.get(), SCREEN_PROPERTY_DISPLAYS, &value),
                 EINVAL);
    EXPECT_FAILS(screen_get_context_property_iv(context.get(), SCREEN_PROPERTY_ID, &value), EINVAL);
    EXPECT_FAILS(
        screen_get_context_property_pv(context.get(), SCREEN_PROPERTY_DISPLAY_COUNT, &handle),
        EINVAL);
    EXPECT_FAILS(
        screen_get_context_property_iv(context.get(), SCREEN_PROPERTY_DISPLAY_COUNT, nullptr),
        EINVAL);
    EXPECT_FAILS(screen_get_context_property_pv(context.get(), SCREEN_PROPERTY_DISPLAYS, nullptr),
                 EINVAL);
    EXPECT_EQ(value, 77);
}

TEST(ContextTest, SuccessLeavesErrnoAlone)
{
    const ScreenContext context;
    errno = E2BIG;
    EXPECT_EQ(context.displays().size(), 1u); // without /pps: its open() fails inside
    EXPECT_EQ(errno, E2BIG);
}

TEST(ContextTest, CountAndHandlesAreOfOneReading)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(display(5) + ',' + display(3));
    EXPECT_EQ(context.count(), 2);
    publishDisplays(display(9));
    EXPECT_EQ(idsOf(context.listed(2)), (std::vector{5, 3}));
    EXPECT_EQ(idsOf(context.displays()), (std::vector{9}));
}

TEST(ContextTest, BeforeTheFirstCountNothingIsListed)
{
    const ScreenContext context;
    void* untouched = &untouched;
    EXPECT_EQ(screen_get_context_property_pv(context.get(), SCREEN_PROPERTY_DISPLAYS, &untouched),
              0);
    EXPECT_EQ(untouched, &untouched);
}

TEST(ContextTest, HandleOfADisplayStaysItsOwn)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    const ScreenContext other;
    publishDisplays(display(1) + ',' + display(2));
    const auto first = context.displays();
    const auto ofOther = other.displays();
    publishDisplays(display(3) + ',' + display(2));
    const auto second = context.displays();
    EXPECT_EQ(second[1], first[1]);
    EXPECT_NE(second[0], first[0]);
    EXPECT_NE(ofOther[0], first[0]);
    publishDisplays(display(1));
    EXPECT_EQ(context.displays(), (std::vector{first[0]}));
}

TEST(ContextTest, UnreadableObjectIsAnErrorAndKeepsTheLastList)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(display(5));
    ASSERT_EQ(context.count(), 1);
    publish("services/screen/displays", "displays::none\n");
    int count = 77;
    EXPECT_FAILS(
        screen_get_context_property_iv(context.get(), SCREEN_PROPERTY_DISPLAY_COUNT, &count),
        EBADMSG);
    EXPECT_EQ(count, 77);
    EXPECT_EQ(idsOf(context.listed(1)), (std::vector{5}));
}

TEST(ContextTest, PpsThatHasDiedIsAnError)
{
    PpsFilesystem pps;
    const ScreenContext context;
    EXPECT_EQ(context.count(), 1);
    pps.kill();
    int count = 77;
    EXPECT_FAILS(
        screen_get_context_property_iv(context.get(), SCREEN_PROPERTY_DISPLAY_COUNT, &count),
        ENOTCONN);
    EXPECT_EQ(count, 77);
}

TEST(ContextTest, UnpublishedObjectMeansTheBuiltInDisplay)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publish("services/screen/other", "a::b\n"); // the directory is there
    EXPECT_EQ(nameOf(context.displays().at(0)), "Built-in display");
    publish("services/screen/displays", "other::attribute\n");
    EXPECT_EQ(nameOf(context.displays().at(0)), "Built-in display");
    ASSERT_EQ(unlink("/pps/services/screen/displays"), 0);
    publishDisplays("");
    EXPECT_EQ(context.count(), 0);
}

TEST(ContextTest, AsManyDisplaysAsAnObjectHolds)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    std::string all = display(1);
    for (int id = 2; id <= 20'000; ++id)
        all += ',' + display(id);
    publishDisplays(all);
    const auto displays = context.displays();
    ASSERT_EQ(displays.size(), 20'000u);
    EXPECT_EQ(numberOf(displays.back(), SCREEN_PROPERTY_ID), 20'000);
}

TEST(ContextTest, AReadingLeavesNoDescriptorOpen)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(display(1));
    const int before = dup(0);
    close(before);
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(context.count(), 1);
    const int after = dup(0);
    close(after);
    EXPECT_EQ(after, before);
}

} // namespace
