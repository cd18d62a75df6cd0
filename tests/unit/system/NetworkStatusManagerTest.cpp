// SPDX-License-Identifier: Apache-2.0
// However an application comes to the manager first, and however it ends with it.
#include <QProcess>

#include <gtest/gtest.h>

#include <string>

namespace {

class NetworkStatusManagerUse : public testing::TestWithParam<const char*>
{
};

TEST_P(NetworkStatusManagerUse, IsAsItShouldBeEveryTime)
{
    constexpr int runs = 10;
    for (int i = 0; i < runs; ++i) {
        QProcess process;
        process.start(TAMO_TEST_NETWORK_USES, {GetParam()});
        ASSERT_TRUE(process.waitForFinished(60'000)) << "run " << i;
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit)
            << "run " << i << ": " << process.readAllStandardError().toStdString();
        ASSERT_EQ(process.exitCode(), 42)
            << "run " << i << ": " << process.readAllStandardError().toStdString();
    }
}

std::string nameOf(const testing::TestParamInfo<const char*>& info)
{
    std::string name = info.param;
    for (char& c : name)
        c = c == '-' ? '_' : c;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Ways, NetworkStatusManagerUse,
                         testing::Values("in-a-thread-that-ends", "in-a-qthread-that-ends",
                                         "in-a-slot-on-the-dispatch-thread",
                                         "in-two-threads-one-of-which-dispatches",
                                         "in-many-threads", "where-the-platform-fails-at-first",
                                         "quit", "exit", "exit-on-the-dispatch-thread"),
                         nameOf);

} // namespace
