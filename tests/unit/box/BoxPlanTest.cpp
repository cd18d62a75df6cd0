// SPDX-License-Identifier: Apache-2.0
#include "common/BoxPlan.h"
#include "common/Failure.h"

#include <sys/mman.h>
#include <unistd.h>

#include <gtest/gtest.h>

using namespace tamobox;

namespace {

TEST(BoxPlanTest, ArrivesAsItWasSent)
{
    BoxPlan plan;
    plan.boxName = "phone";
    plan.controlSocket = 5;
    plan.listeningSocket = 6;
    plan.standardStreams = {10, -1, 12};
    plan.workingDirectory = "/a b\n";
    plan.capabilities = 0x1ff'ffff'ffffULL;
    plan.childSignalIgnored = true;
    sigaddset(&plan.signalMask, SIGUSR2);
    plan.arguments = {"app", "", "a\nb", std::string(100'000, 'x')};
    plan.environment = {"A=b", "C="};
    plan.stateDirectory = "/state";
    plan.catalogue = "{}\n";

    const BoxPlan arrived = BoxPlan::fromDescriptor(plan.toDescriptor().get());
    EXPECT_EQ(arrived.boxName, plan.boxName);
    EXPECT_EQ(arrived.controlSocket, 5);
    EXPECT_EQ(arrived.listeningSocket, 6);
    EXPECT_EQ(arrived.standardStreams, plan.standardStreams);
    EXPECT_EQ(arrived.workingDirectory, plan.workingDirectory);
    EXPECT_EQ(arrived.capabilities, plan.capabilities);
    EXPECT_TRUE(arrived.childSignalIgnored);
    EXPECT_EQ(sigismember(&arrived.signalMask, SIGUSR2), 1);
    EXPECT_EQ(sigismember(&arrived.signalMask, SIGUSR1), 0);
    EXPECT_EQ(arrived.arguments, plan.arguments);
    EXPECT_EQ(arrived.environment, plan.environment);
    EXPECT_EQ(arrived.stateDirectory, "/state");
    EXPECT_EQ(arrived.catalogue, "{}\n");
}

TEST(BoxPlanTest, AnythingElseIsRefused)
{
    EXPECT_THROW(BoxPlan::fromDescriptor(-1), Failure);
    const Descriptor garbage(memfd_create("garbage", MFD_CLOEXEC));
    EXPECT_THROW(BoxPlan::fromDescriptor(garbage.get()), Failure);
    const std::string bytes(100, '\xff'); // lengths beyond the end
    ASSERT_EQ(write(garbage.get(), bytes.data(), bytes.size()), 100);
    EXPECT_THROW(BoxPlan::fromDescriptor(garbage.get()), Failure);
}

} // namespace
