// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <fstream>
#include <string>

namespace tamotest {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/** ppsfs as a program: how it is called, and what it says. */
class CommandLine : public PpsTest
{
protected:
    /** Runs ppsfs and returns its exit status. */
    static int run(const std::string& arguments, std::string& output)
    {
        return shell(std::string("timeout 10 ") + TAMO_TEST_PPSFS + ' ' + arguments + " 2>&1",
                     &output);
    }

    /** It failed, with one line that names the program. */
    static void expectOneLine(const std::string& output, const std::string& reason)
    {
        EXPECT_THAT(output, StartsWith("ppsfs: "));
        EXPECT_THAT(output, HasSubstr(reason));
        EXPECT_EQ(output.find('\n'), output.size() - 1) << output;
    }
};

TEST_F(CommandLine, HelpAndVersionSucceed)
{
    std::string output;
    EXPECT_EQ(run("--help", output), 0);
    EXPECT_THAT(output, HasSubstr("MOUNTPOINT"));
    EXPECT_THAT(output, HasSubstr("--ready-fd"));
    EXPECT_EQ(run("--version", output), 0);
    EXPECT_THAT(output, StartsWith("ppsfs "));
}

TEST_F(CommandLine, MistakesAreOneLine)
{
    std::string output;
    EXPECT_NE(run("", output), 0);
    EXPECT_THAT(output, HasSubstr("MOUNTPOINT"));
    EXPECT_NE(run("--state /tmp /pps", output), 0);
    EXPECT_NE(run("/nowhere/at/all", output), 0);
    expectOneLine(output, "No such file or directory");
    EXPECT_NE(run("/dev/null", output), 0);
    expectOneLine(output, "Not a directory");
    EXPECT_NE(run("--ready-fd 77 /pps", output), 0);
    expectOneLine(output, "Bad file descriptor");
}

TEST_F(CommandLine, MountingTakesTheCapability)
{
    std::string output;
    EXPECT_NE(shell(std::string("timeout 10 setpriv --ambient-caps -all --inh-caps -all "
                                "--bounding-set -all ") +
                        TAMO_TEST_PPSFS + " /pps 2>&1",
                    &output),
              0);
    expectOneLine(output, "CAP_SYS_ADMIN");
}

TEST_F(CommandLine, ItHoldsNoEffectiveCapability)
{
    std::ifstream status("/proc/" + std::to_string(filesystem().pid()) + "/status");
    std::string effective;
    for (std::string word; status >> word;) {
        if (word == "CapEff:")
            status >> effective;
    }
    EXPECT_EQ(effective, "0000000000000000");
}

} // namespace
} // namespace tamotest
