// SPDX-License-Identifier: Apache-2.0
#include "services/led/LedText.h"

#include <gmock/gmock.h>

using namespace tamobox;
using namespace testing;

namespace {

TEST(LedTextTest, WhatIsWrittenIsRead)
{
    LedState written;
    written.lit = LedColor::Magenta;
    written.litFor = LedRequest{9, 14, "ended", "2", LedColor::Magenta, 0};
    written.requests = {{7, 12, "app", "1", LedColor::Magenta, 3},
                        {8, 0, "", "a\nb", LedColor::White, -1}};
    MessageWriter message;
    writeLed(message.object("led"), written);
    const LedState read = readLed(message.text());
    EXPECT_EQ(read.lit, LedColor::Magenta);
    ASSERT_TRUE(read.litFor);
    EXPECT_TRUE(read.litFor->isOf(9, "2"));
    EXPECT_EQ(read.litFor->application, "ended");
    ASSERT_EQ(read.requests.size(), 2U);
    EXPECT_TRUE(read.requests[0].isOf(7, "1"));
    EXPECT_EQ(read.requests[0].process, 12);
    EXPECT_EQ(read.requests[0].application, "app");
    EXPECT_EQ(read.requests[0].remaining, 3);
    EXPECT_TRUE(read.requests[1].isOf(8, "a\nb"));
    EXPECT_EQ(read.requests[1].color, LedColor::White);
    EXPECT_EQ(read.requests[1].remaining, -1);
}

TEST(LedTextTest, WhatCannotBeReadIsLeftOut)
{
    const LedState state =
        readLed("@led\nlit::ultraviolet\nrequests:json:[1,{},{\"client\":1,\"color\":\"red\"},"
                "{\"client\":0,\"color\":\"red\",\"remaining\":1},"
                "{\"client\":1,\"color\":\"RED\",\"remaining\":1},"
                "{\"client\":2,\"color\":\"red\",\"remaining\":1}]\n");
    EXPECT_EQ(state.lit, LedColor::None);
    ASSERT_EQ(state.requests.size(), 1U);
    EXPECT_EQ(state.requests[0].client, 2);
    EXPECT_THAT(readLed("@other\nlit::red\n").requests, IsEmpty());
}

TEST(LedColorTest, EveryComponentOnOrOffIsAColor)
{
    const std::vector<const char*> names = {"red",  "green",   "blue", "yellow",
                                            "cyan", "magenta", "white"};
    for (const char* name : names) {
        const std::optional<LedColor> color = ledColorNamed(name);
        ASSERT_TRUE(color) << name;
        EXPECT_STREQ(nameOf(*color), name);
        EXPECT_EQ(ledColorOf(static_cast<int>(*color)), color);
    }
    EXPECT_EQ(ledColorNamed("Red"), std::nullopt);
    EXPECT_EQ(ledColorNamed(""), std::nullopt);
    EXPECT_EQ(ledColorOf(0), LedColor::None);
    EXPECT_EQ(ledColorOf(0xFF8000), std::nullopt);
    EXPECT_EQ(ledColorOf(-1), std::nullopt);
}

} // namespace
