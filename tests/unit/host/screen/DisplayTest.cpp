// SPDX-License-Identifier: Apache-2.0
#include "ScreenContext.h"

#include <cstdint>
#include <cstring>

using namespace tamotest;
using namespace testing;

namespace {

TEST(DisplayTest, BuiltInOneWhereThereIsNoPps)
{
    const ScreenContext context;
    const auto displays = context.displays();
    ASSERT_EQ(displays.size(), 1u);
    EXPECT_NE(displays[0], nullptr);
    EXPECT_EQ(nameOf(displays[0]), "Built-in display");
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_ID), 1);
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_TYPE), SCREEN_DISPLAY_TYPE_INTERNAL);
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_ATTACHED), 1);
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_DETACHABLE), 0);
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_ROTATION), 0);
    EXPECT_EQ(pairOf(displays[0], SCREEN_PROPERTY_SIZE), std::pair(768, 1280));
    EXPECT_EQ(pairOf(displays[0], SCREEN_PROPERTY_PHYSICAL_SIZE), std::pair(53, 88));
}

TEST(DisplayTest, EveryPropertyIsThePublishedOne)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(R"({"id":7,"name":"Söhne","type":"internal","attached":false,)"
                    R"("detachable":true,"rotation":180,"width":300,"height":400,)"
                    R"("physicalWidth":30,"physicalHeight":40})");
    const screen_display_t display = context.displays().at(0);
    EXPECT_EQ(nameOf(display), "Söhne");
    EXPECT_EQ(numberOf(display, SCREEN_PROPERTY_ID), 7);
    EXPECT_EQ(numberOf(display, SCREEN_PROPERTY_TYPE), SCREEN_DISPLAY_TYPE_INTERNAL);
    EXPECT_EQ(numberOf(display, SCREEN_PROPERTY_ATTACHED), 0);
    EXPECT_EQ(numberOf(display, SCREEN_PROPERTY_DETACHABLE), 1);
    EXPECT_EQ(numberOf(display, SCREEN_PROPERTY_ROTATION), 180);
    EXPECT_EQ(pairOf(display, SCREEN_PROPERTY_SIZE), std::pair(300, 400));
    EXPECT_EQ(pairOf(display, SCREEN_PROPERTY_PHYSICAL_SIZE), std::pair(30, 40));
}

TEST(DisplayTest, WhatIsNotSaidIsTheDefault)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(display(1) + ',' + display(2, R"(,"type":"internal")"));
    const auto displays = context.displays();
    EXPECT_EQ(nameOf(displays.at(0)), "");
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_TYPE), SCREEN_DISPLAY_TYPE_EXTERNAL);
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_ATTACHED), 1);
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_DETACHABLE), 1);
    EXPECT_EQ(numberOf(displays[0], SCREEN_PROPERTY_ROTATION), 0);
    EXPECT_EQ(pairOf(displays[0], SCREEN_PROPERTY_PHYSICAL_SIZE), std::pair(0, 0));
    EXPECT_EQ(numberOf(displays.at(1), SCREEN_PROPERTY_DETACHABLE), 0);
}

TEST(DisplayTest, SizeIsAsItIsTurnedAndThePhysicalSizeIsNot)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    for (const int rotation : {0, 90, 180, 270}) {
        publishDisplays(display(1, R"(,"physicalWidth":10,"physicalHeight":20,"rotation":)" +
                                       std::to_string(rotation)));
        const screen_display_t display = context.displays().at(0);
        const bool isOnItsSide = rotation % 180 != 0;
        EXPECT_EQ(numberOf(display, SCREEN_PROPERTY_ROTATION), rotation);
        EXPECT_EQ(pairOf(display, SCREEN_PROPERTY_SIZE),
                  isOnItsSide ? std::pair(200, 100) : std::pair(100, 200));
        EXPECT_EQ(pairOf(display, SCREEN_PROPERTY_PHYSICAL_SIZE), std::pair(10, 20));
    }
}

TEST(DisplayTest, PropertiesAreThoseOfTheLastReading)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(display(1));
    const screen_display_t first = context.displays().at(0);
    publishDisplays(display(1, R"(,"rotation":90,"name":"turned")"));
    EXPECT_EQ(numberOf(first, SCREEN_PROPERTY_ROTATION), 0);
    context.count();
    EXPECT_EQ(numberOf(first, SCREEN_PROPERTY_ROTATION), 90);
    publishDisplays(display(2));
    context.count();
    EXPECT_EQ(nameOf(first), "turned");
    EXPECT_EQ(numberOf(first, SCREEN_PROPERTY_ATTACHED), 0);
}

TEST(DisplayTest, NameIsCutAfterAWholeCharacterAndEndedWhereThereIsRoom)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    publishDisplays(display(1, R"(,"name":"aä€𝄞")")); // 1, 2, 3 and 4 bytes
    const screen_display_t display = context.displays().at(0);
    const std::string whole = "aä€𝄞";
    const std::vector<std::size_t> expected = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10};
    for (int length = 1; length <= 11; ++length) {
        std::string buffer(16, '#');
        ASSERT_EQ(screen_get_display_property_cv(display, SCREEN_PROPERTY_ID_STRING, length,
                                                 buffer.data()),
                  0);
        const std::size_t size = expected[static_cast<std::size_t>(length)];
        std::string right = whole.substr(0, size);
        if (size < static_cast<std::size_t>(length))
            right += '\0';
        right.resize(16, '#');
        EXPECT_EQ(buffer, right) << length;
    }
}

TEST(DisplayTest, NameOf128BytesHasNoTerminatorIn128)
{
    const PpsFilesystem pps;
    const ScreenContext context;
    for (const std::string& name :
         {std::string(128, 'n'), std::string(200, 'n'), std::string(127, 'n') + "ä"}) {
        publishDisplays(display(1, ",\"name\":\"" + name + "\""));
        const screen_display_t display = context.displays().at(0);
        char buffer[SCREEN_DISPLAY_NAME_SIZE];
        std::memset(buffer, '#', sizeof buffer);
        ASSERT_EQ(screen_get_display_property_cv(display, SCREEN_PROPERTY_ID_STRING, 128, buffer),
                  0);
        const bool endsWithin = name.back() != 'n';
        EXPECT_EQ(std::string(buffer, 127), std::string(127, 'n'));
        EXPECT_EQ(buffer[127], endsWithin ? '\0' : 'n');
        EXPECT_EQ(buffer[128], '#');
        EXPECT_EQ(nameOf(display), std::string(endsWithin ? 127 : 128, 'n'));
    }
}

TEST(DisplayTest, WrongPropertiesAndArgumentsAreRefused)
{
    const ScreenContext context;
    const screen_display_t display = context.displays().at(0);
    int value = 77;
    char text[8] = "as is";
    for (const int property :
         std::vector<int>{SCREEN_PROPERTY_DISPLAY, SCREEN_PROPERTY_ID_STRING,
                          SCREEN_PROPERTY_DISPLAY_COUNT, SCREEN_PROPERTY_DISPLAYS, 0, -1})
        EXPECT_FAILS(screen_get_display_property_iv(display, property, &value), EINVAL);
    EXPECT_FAILS(screen_get_display_property_iv(display, SCREEN_PROPERTY_ID, nullptr), EINVAL);
    EXPECT_FAILS(screen_get_display_property_cv(display, SCREEN_PROPERTY_ID, 8, text), EINVAL);
    for (const int length : {0, -1})
        EXPECT_FAILS(
            screen_get_display_property_cv(display, SCREEN_PROPERTY_ID_STRING, length, text),
            EINVAL);
    EXPECT_FAILS(screen_get_display_property_cv(display, SCREEN_PROPERTY_ID_STRING, 8, nullptr),
                 EINVAL);
    EXPECT_EQ(value, 77);
    EXPECT_STREQ(text, "as is");
}

TEST(DisplayTest, WhateverIsNoDisplayIsRefused)
{
    screen_display_t ofDestroyed = nullptr;
    {
        const ScreenContext context;
        ofDestroyed = context.displays().at(0);
        EXPECT_EQ(numberOf(ofDestroyed, SCREEN_PROPERTY_ID), 1);
    }
    const ScreenContext context;
    const auto right = reinterpret_cast<std::uintptr_t>(context.displays().at(0));
    for (const std::uintptr_t wrong :
         {std::uintptr_t{0}, std::uintptr_t{1}, right - 1, right + 1, right | 0xFFFF'FFFFu,
          ~std::uintptr_t{0}, static_cast<std::uintptr_t>(context.number()),
          reinterpret_cast<std::uintptr_t>(ofDestroyed)}) {
        auto* const none = reinterpret_cast<screen_display_t>(wrong);
        int value = 77;
        char text[8] = "as is";
        EXPECT_FAILS(screen_get_display_property_iv(none, SCREEN_PROPERTY_ID, &value), EINVAL);
        EXPECT_FAILS(screen_get_display_property_cv(none, SCREEN_PROPERTY_ID_STRING, 8, text),
                     EINVAL);
        EXPECT_EQ(value, 77);
        EXPECT_STREQ(text, "as is");
    }
}

} // namespace
