// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <stdlib.h>

using namespace boxtest;
using namespace testing;

namespace {

class DoctorTest : public BoxTest
{
};

TEST_P(DoctorTest, EndsWithZeroWhereABoxRuns)
{
    const Result result = run({"doctor"});
    EXPECT_THAT(result, succeeds());
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("/dev/fuse"), HasSubstr("bwrap"), Not(HasSubstr("BAD"))));
    EXPECT_THAT(run({"doctor", "--json"}).output, EndsWith("\"ok\":true}\n"));
}

TEST_P(DoctorTest, SaysWhatWouldMendWhatIsMissing)
{
    Process doctor(tamoBox({"doctor"}), GetParam(), {}, [] { setenv("PATH", "/nowhere", 1); });
    EXPECT_EQ(doctor.wait(), 1);
    EXPECT_THAT(doctor.output(), HasSubstr("BAD   bwrap is not installed\n"
                                           "      mend: sudo apt-get install bubblewrap\n"));
    EXPECT_THAT(doctor.errors(), StartsWith("tamo-box: this machine does not run a box yet"));
}

TEST_P(DoctorTest, RunSaysInOneLineWhatIsMissing)
{
    Process box(tamoBox({"run", "--", "/bin/true"}), GetParam(), {},
                [] { setenv("PATH", "/nowhere", 1); });
    const int status = box.wait();
    EXPECT_THAT((Result{status, box.output(), box.errors()}),
                failsWith(125, "bwrap is not installed; 'sudo apt-get install bubblewrap'"));
}

BOX_TEST_USERS(DoctorTest);

} // namespace
