// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/LedColor.h>

#include <gtest/gtest.h>

using tamo::device::LedColor;

namespace {

TEST(LedColor, IsMadeOfTheComponentsThatAreLit)
{
    EXPECT_EQ(LedColor::fromBitset(false, false, false), LedColor::None);
    EXPECT_EQ(LedColor::fromBitset(true, false, false), LedColor::Red);
    EXPECT_EQ(LedColor::fromBitset(false, true, false), LedColor::Green);
    EXPECT_EQ(LedColor::fromBitset(false, false, true), LedColor::Blue);
    EXPECT_EQ(LedColor::fromBitset(true, true, false), LedColor::Yellow);
    EXPECT_EQ(LedColor::fromBitset(false, true, true), LedColor::Cyan);
    EXPECT_EQ(LedColor::fromBitset(true, false, true), LedColor::Magenta);
    EXPECT_EQ(LedColor::fromBitset(true, true, true), LedColor::White);
}

TEST(LedColor, HasACapitalisedName)
{
    EXPECT_EQ(LedColor::toName(LedColor::Red), "Red");
    EXPECT_EQ(LedColor::toName(LedColor::Green), "Green");
    EXPECT_EQ(LedColor::toName(LedColor::Blue), "Blue");
    EXPECT_EQ(LedColor::toName(LedColor::Yellow), "Yellow");
    EXPECT_EQ(LedColor::toName(LedColor::Cyan), "Cyan");
    EXPECT_EQ(LedColor::toName(LedColor::Magenta), "Magenta");
    EXPECT_EQ(LedColor::toName(LedColor::White), "White");
}

TEST(LedColor, NoneAndWhatIsNoColourHaveNoName)
{
    EXPECT_TRUE(LedColor::toName(LedColor::None).isNull());
    EXPECT_TRUE(LedColor::toName(static_cast<LedColor::Type>(0x123456)).isNull());
}

TEST(LedColor, NamesAreMadeOnce)
{
    const QString first = LedColor::toName(LedColor::Red);
    EXPECT_EQ(first.constData(), LedColor::toName(LedColor::Red).constData());
}

} // namespace
