// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_PROGRAMRUNS_H
#define TAMO_TESTS_PROGRAMRUNS_H

#include <QProcess>

#include <gtest/gtest.h>

#include <string>

namespace tamotest {

/** The status with which a program says that everything was as it should be. */
constexpr int AsItShouldBe = 42;

/** Runs a program again and again; it is told which of its ways to go, and ends with
 * AsItShouldBe. */
inline void runAgainAndAgain(const char* program, const char* way, int runs)
{
    for (int i = 0; i < runs; ++i) {
        QProcess process;
        process.start(program, {way});
        ASSERT_TRUE(process.waitForFinished(60'000)) << "run " << i;
        const std::string errors = process.readAllStandardError().toStdString();
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit) << "run " << i << ": " << errors;
        ASSERT_EQ(process.exitCode(), AsItShouldBe) << "run " << i << ": " << errors;
    }
}

/** The name of a test for one of a program's ways. */
inline std::string wayName(const testing::TestParamInfo<const char*>& info)
{
    std::string name = info.param;
    for (char& c : name)
        c = c == '-' ? '_' : c;
    return name;
}

} // namespace tamotest

#endif
