// SPDX-License-Identifier: Apache-2.0
#include "PpsTest.h"

#include <string>

namespace tamotest {
namespace {

using Shell = PpsTest;
using ::testing::HasSubstr;

TEST_F(Shell, EchoAndCatPublishAndRead)
{
    std::string output;
    EXPECT_EQ(shell("echo 'a:n:1' > /pps/o && cat /pps/o", &output), 0);
    EXPECT_EQ(output, "@o\na:n:1\n");
    EXPECT_EQ(shell("echo 'b:n:2' >> /pps/o && cat /pps/o", &output), 0);
    EXPECT_EQ(output, "@o\na:n:1\nb:n:2\n");
    EXPECT_EQ(shell("echo 'c:n:3' > /pps/o && cat '/pps/o?changes'", &output), 0);
    EXPECT_EQ(output, "@o\nc:n:3\n");
}

TEST_F(Shell, ARedirectionWithoutOutputChangesNothing)
{
    publish("o", "a:n:1\n");
    EXPECT_EQ(shell(": > /pps/o"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\n");
}

TEST_F(Shell, SeveralCommandsShareADescriptor)
{
    EXPECT_EQ(shell("{ echo a:n:1; echo b:n:2; echo c:n:3; } > /pps/o"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:2\nc:n:3\n");
    EXPECT_EQ(shell("{ echo d:n:1; echo e:n:2; } >> /pps/o"), 0);
    EXPECT_EQ(contentOf("o"), "@o\na:n:1\nb:n:2\nc:n:3\nd:n:1\ne:n:2\n");
}

TEST_F(Shell, MistakesAreToldClearly)
{
    publish("a", "x:n:1\n");
    publish("b", "y:n:1\n");
    std::string output;
    EXPECT_NE(shell("cat /pps/a 2>&1 > /pps/b", &output), 0); // its heading is a's
    EXPECT_THAT(output, HasSubstr("Invalid argument"));
    EXPECT_EQ(contentOf("b"), "@b\ny:n:1\n");
    EXPECT_NE(shell("echo nonsense 2>&1 | tee /pps/b 2>&1", &output), 0);
    EXPECT_THAT(output, HasSubstr("Invalid argument"));
    EXPECT_NE(shell("cat '/pps/a?what' 2>&1", &output), 0);
    EXPECT_THAT(output, HasSubstr("Invalid argument"));
    EXPECT_NE(shell("cat /pps/missing 2>&1", &output), 0);
    EXPECT_THAT(output, HasSubstr("No such file or directory"));
    EXPECT_NE(shell("mv /pps/a /pps/c 2>&1", &output), 0);
    EXPECT_THAT(output, HasSubstr("Operation not permitted"));
}

TEST_F(Shell, FilesAreCopiedInAndOut)
{
    publish("o", textOfSize("o", 100'000));
    EXPECT_EQ(
        shell("f=$(mktemp) && cp /pps/o $f && rm /pps/o && cp $f /pps/o; s=$?; rm $f; exit $s"), 0);
    EXPECT_EQ(contentOf("o"), textOfSize("o", 100'000));
}

TEST_F(Shell, ListingsShowPlainNames)
{
    publish("d/o", "a:n:1\n");
    const PpsDescriptor view("d/o?wait");
    std::string output;
    EXPECT_EQ(shell("cd /pps && find . | sort", &output), 0);
    EXPECT_EQ(output, ".\n./d\n./d/o\n");
    EXPECT_EQ(shell("rm -r /pps/d && ls -A /pps", &output), 0);
    EXPECT_EQ(output, "");
}

} // namespace
} // namespace tamotest
