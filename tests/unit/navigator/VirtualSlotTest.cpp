// SPDX-License-Identifier: Apache-2.0
// Where an application's binary finds the operations: by their place in the table of virtual
// functions, which is part of the interface.
#include "VirtualSlots.h"

#include "navigator/NavigatorImpl.h"

#include <tamo/OrientationHandler.h>

#include <gmock/gmock.h>

using tamo::Navigator;
using tamo::OrientationHandler;
using tamotest::Longer;
using tamotest::slot;

namespace {

TEST(VirtualSlotTest, NavigatorAddsFourOperationsToThoseOfQObject)
{
    const std::ptrdiff_t first = slot(&Longer<QObject>::next);
    EXPECT_EQ(first, 12);
    EXPECT_EQ(slot(&Navigator::allowedOrientation), first);
    EXPECT_EQ(slot(&Navigator::setAllowedOrientation), first + 1);
    EXPECT_EQ(slot(&Navigator::setOrientationHandler), first + 2);
    EXPECT_EQ(slot(&Navigator::windowGroupId), first + 3);
    EXPECT_EQ(slot(&Longer<Navigator>::next), first + 4);
}

TEST(VirtualSlotTest, NavigatorImplAddsNone)
{
    EXPECT_EQ(slot(&Longer<tamo::NavigatorImpl>::next), slot(&Longer<Navigator>::next) + 1);
}

TEST(VirtualSlotTest, OrientationHandlerBeginsWithItsRequest)
{
    EXPECT_EQ(slot(&OrientationHandler::handleOrientationRequest), 0);
}

TEST(VirtualSlotTest, OrientationRequestHasOneOperation)
{
    EXPECT_EQ(slot(&OrientationHandler::OrientationRequest::done), 0);
    EXPECT_EQ(slot(&Longer<OrientationHandler::OrientationRequest>::next), 1);
}

} // namespace
