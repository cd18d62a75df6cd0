// SPDX-License-Identifier: Apache-2.0
#include "cli/ExtentOption.h"

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

TEST(ExtentOptionTest, IsTwoNumbersWithAnX)
{
    const std::optional<Extent> extent = parseExtent("1920x1080", 1);
    ASSERT_TRUE(extent);
    EXPECT_EQ(extent->width, 1920);
    EXPECT_EQ(extent->height, 1080);
    EXPECT_TRUE(parseExtent("0x0", 0));
    EXPECT_TRUE(parseExtent("2147483647x1", 1));
}

TEST(ExtentOptionTest, AnythingElseIsNone)
{
    for (const char* text : {"", "x", "1", "1x", "x1", "1X1", "1 x 1", "1x1 ", " 1x1", "1x1x1",
                             "1.5x1", "1x0x", "ax1", "1xa", "2147483648x1", "1x99999999999"})
        EXPECT_FALSE(parseExtent(text, 0)) << text;
    EXPECT_FALSE(parseExtent("0x1", 1));
    EXPECT_FALSE(parseExtent("1x0", 1));
    EXPECT_FALSE(parseExtent("-1x1", 0));
    EXPECT_FALSE(parseExtent("1x-1", 0));
}

} // namespace
