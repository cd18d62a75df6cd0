// SPDX-License-Identifier: Apache-2.0
#include "pps/ObjectFile.h"

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

TEST(ObjectPathTest, RootMayBeLeftOut)
{
    EXPECT_EQ(objectPath("services/power/battery"), "/pps/services/power/battery");
    EXPECT_EQ(objectPath("/pps/services/power/battery"), "/pps/services/power/battery");
    EXPECT_EQ(objectPath("a..b/.c"), "/pps/a..b/.c");
}

TEST(ObjectPathTest, WhatIsNoObjectBelowPpsIsRefused)
{
    for (const char* name : {"", "/", "/etc/passwd", "/pps", "/pps/", "a/", "../etc/passwd",
                             "a/../..", "..", "/pps/../etc/passwd", "battery?wait"})
        EXPECT_THROW(objectPath(name), Failure) << name;
}

} // namespace
