// SPDX-License-Identifier: Apache-2.0
// However an application ends in the middle of a storm of events, its status is its own.
#include <QProcess>

#include <gtest/gtest.h>

#include <string>

namespace {

class ApplicationEnd : public testing::TestWithParam<const char*>
{
};

TEST_P(ApplicationEnd, GivesItsOwnStatusEveryTime)
{
    constexpr int runs = TAMO_TEST_RUNS;
    for (int i = 0; i < runs; ++i) {
        QProcess process;
        process.start(TAMO_TEST_APPLICATION_ENDINGS, {GetParam()});
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

INSTANTIATE_TEST_SUITE_P(Ways, ApplicationEnd,
                         testing::Values("return", "quit", "exit", "exit-on-the-dispatch-thread",
                                         "_exit", "_exit-on-the-dispatch-thread", "quick_exit"),
                         nameOf);

} // namespace
