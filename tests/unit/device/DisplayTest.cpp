// SPDX-License-Identifier: Apache-2.0
#include <tamo/device/Display.h>

#include "device/DisplayPrivate.h"

#include <QVariant>

#include <gtest/gtest.h>

#include <memory>
#include <set>

using tamo::device::Display;
using tamo::device::DisplayProperties;

namespace {

TEST(DisplayTest, OfTheApplicationsOwnIsNoDisplay)
{
    const Display display;
    EXPECT_EQ(display.displayId(), -1);
    EXPECT_TRUE(display.displayName().isEmpty());
    EXPECT_EQ(display.pixelSize(), QSize(0, 0));
    EXPECT_EQ(display.physicalSize(), QSizeF(0, 0));
    EXPECT_EQ(display.aspectType(), Display::Square);
    EXPECT_EQ(display.displayType(), Display::DisplayTypeExternal);
    EXPECT_FALSE(display.isAttached());
    EXPECT_FALSE(display.isDetachable());
    EXPECT_EQ(display.resolution(), QSizeF(0, 0));
}

TEST(DisplayTest, PropertiesAreReadByName)
{
    const Display display;
    EXPECT_EQ(display.property("displayId").toInt(), -1);
    EXPECT_EQ(display.property("pixelSize").toSize(), QSize(0, 0));
    EXPECT_EQ(display.property("aspectType").toInt(), Display::Square);
    EXPECT_EQ(display.property("attached").toBool(), false);
}

TEST(DisplayTest, LongestNameIsAConstant)
{
    const char name[Display::displayNameSize] = {};
    EXPECT_EQ(sizeof name, 129U);
    EXPECT_EQ(*std::addressof(Display::displayNameSize), 129);
}

TEST(DisplayTest, EveryDifferenceMakesAnotherReading)
{
    std::set<DisplayProperties> readings = {{}};
    const auto add = [&](auto DisplayProperties::*member, auto value) {
        DisplayProperties properties;
        properties.*member = value;
        return readings.insert(properties).second && !readings.insert(properties).second;
    };
    EXPECT_TRUE(add(&DisplayProperties::id, 1));
    EXPECT_TRUE(add(&DisplayProperties::name, QStringLiteral("a")));
    EXPECT_TRUE(add(&DisplayProperties::pixelWidth, 1));
    EXPECT_TRUE(add(&DisplayProperties::pixelHeight, 1));
    EXPECT_TRUE(add(&DisplayProperties::physicalWidth, 1.0F));
    EXPECT_TRUE(add(&DisplayProperties::physicalHeight, 1.0F));
    EXPECT_TRUE(add(&DisplayProperties::aspectType, Display::Portrait));
    EXPECT_TRUE(add(&DisplayProperties::displayType, Display::DisplayTypeInternal));
    EXPECT_TRUE(add(&DisplayProperties::isAttached, true));
    EXPECT_TRUE(add(&DisplayProperties::isDetachable, true));
}

} // namespace
