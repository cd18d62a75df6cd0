// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

class StatusTest : public BoxTest
{
};

TEST_P(StatusTest, ShowsTheApplicationTheServicesAndTheBattery)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"battery", "charger", "NONE"}), succeeds());
    const Result text = in(box, {"status"});
    EXPECT_THAT(text, succeeds());
    EXPECT_THAT(text.output,
                AllOf(HasSubstr("box          " + box.name + '\n'), HasSubstr("tamo-test-idle"),
                      HasSubstr("power-service: process"), HasSubstr("battery      unknown\n"),
                      HasSubstr("charger      NONE\n")));
    EXPECT_THAT(in(box, {"status", "--json"}).output,
                AllOf(StartsWith("{\"box\":\"" + box.name + "\",\"application\":{\"pid\":"),
                      HasSubstr("\"battery\":{\"level\":null,\"charger\":\"NONE\"}")));
}

TEST_P(StatusTest, UnknownCommandsAreListed)
{
    EXPECT_THAT(run({"explode"}),
                failsWith(2, "there is no command 'explode'; there are: run, exec"));
    EXPECT_THAT(run({}), failsWith(2, "a command is missing; there are: run, exec"));
    EXPECT_THAT(run({"status", "more"}), failsWith(2, "more"));
}

TEST_P(StatusTest, HelpNamesTheWholeCommand)
{
    EXPECT_THAT(run({"battery", "drain", "--help"}).output,
                HasSubstr("tamo-box battery drain [OPTIONS]"));
    EXPECT_THAT(run({"--help"}), succeeds());
}

BOX_TEST_USERS(StatusTest);

} // namespace
