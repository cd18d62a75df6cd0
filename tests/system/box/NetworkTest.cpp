// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

class NetworkTest : public BoxTest
{
protected:
    std::string state(const Box& box) const { return in(box, {"network", "--json"}).output; }

    std::string answerTo(const Box& box, const std::string& message,
                         const std::string& arguments) const
    {
        return in(box, {"pps", "set", "box/network", "--wait", "10s", "id::x", "msg::" + message,
                        "dat:json:" + arguments})
            .output;
    }
};

const std::string noProxies =
    "\"proxies\":{\"http\":null,\"https\":null,\"ftp\":null},\"httpLoginRequired\":false}\n";

TEST_P(NetworkTest, IsDownAtFirstAndThenAsItWasSet)
{
    const Box box =
        start({"sh", "-c", "cat /pps/services/network/status; exec " + helper("tamo-test-idle")});
    EXPECT_THAT(box.launcher->output(), StartsWith("@status\navailable:b:false\n"));
    EXPECT_EQ(state(box), "{\"available\":false," + noProxies);
    EXPECT_THAT(in(box, {"network", "up"}), succeeds());
    EXPECT_EQ(state(box), "{\"available\":true," + noProxies);
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("network      up\n"));
    EXPECT_THAT(in(box, {"status", "--json"}).output,
                HasSubstr("\"network\":{\"available\":true,"));
    EXPECT_EQ(in(box, {"network", "down", "--json"}).output, "{\"available\":false," + noProxies);
    EXPECT_EQ(in(box, {"network"}).output, "network      down\nhttp proxy   none\n"
                                           "https proxy  none\nftp proxy    none\n");
}

TEST_P(NetworkTest, FlapChangesAsOftenAsItIsTold)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"network", "flap"}), succeeds());
    EXPECT_THAT(state(box), HasSubstr("\"available\":false"));
    EXPECT_THAT(in(box, {"network", "flap", "--count", "1001"}), succeeds());
    EXPECT_THAT(state(box), HasSubstr("\"available\":true"));
}

TEST_P(NetworkTest, ProxiesAreSetOneByOne)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"network", "proxy", "--http", "a.b:80", "--https", "[::1]:8080",
                         "--login-required", "true"}),
                succeeds());
    EXPECT_EQ(in(box, {"network"}).output,
              "network      down\nhttp proxy   a.b:80, asks for a name and password\n"
              "https proxy  [::1]:8080\nftp proxy    none\n");
    EXPECT_EQ(in(box, {"network", "proxy", "--http", "none", "--ftp", "f:21", "--json"}).output,
              "{\"available\":false,\"proxies\":{\"http\":null,\"https\":{\"host\":\"::1\","
              "\"port\":8080},\"ftp\":{\"host\":\"f\",\"port\":21}},\"httpLoginRequired\":true}\n");
}

TEST_P(NetworkTest, CommandsThatAreWrongSaySoAndChangeNothing)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"network", "proxy"}), failsWith(2, "tell at least one of --http"));
    for (const char* const proxy : {"", "a", "a:", ":80", "a:0", "a:65536", "a:80x", "a:b:80"})
        EXPECT_THAT(in(box, {"network", "proxy", "--http", proxy}), failsWith(2, "--http"))
            << proxy;
    EXPECT_THAT(in(box, {"network", "proxy", "--ftp", "a b:80"}), failsWith(1, "without spaces"));
    for (const char* const count : {"0", "-1", "100001", "x"})
        EXPECT_THAT(in(box, {"network", "flap", "--count", count}), failsWith(2, "--count"));
    EXPECT_THAT(answerTo(box, "explode", "{}"), HasSubstr("there is no command 'explode'"));
    EXPECT_THAT(answerTo(box, "flap", "{}"), HasSubstr("count must be a whole number from 1 to"));
    EXPECT_THAT(answerTo(box, "flap", "{\"count\":1.5}"), HasSubstr("count must be a whole"));
    EXPECT_THAT(answerTo(box, "proxies", "{\"httpProxyHost\":7}"),
                HasSubstr("httpProxyHost must be a text"));
    EXPECT_THAT(answerTo(box, "proxies", "{\"httpProxyHost\":\"a\"}"),
                HasSubstr("httpProxyPort must be above 0"));
    EXPECT_THAT(answerTo(box, "proxies", "{\"available\":true}"),
                HasSubstr("available is not a proxy's"));
    EXPECT_THAT(answerTo(box, "event", "{\"code\":null}"), HasSubstr("code must be a whole"));
    EXPECT_EQ(state(box), "{\"available\":false," + noProxies);
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NetworkTest, KilledServiceKeepsItsState)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"network", "up"}), succeeds());
    EXPECT_THAT(in(box, {"network", "proxy", "--https", "p:1"}), succeeds());
    const std::string before = state(box);
    box.signal("network-service", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("network-service ended by signal 9; started again\n"));
    EXPECT_EQ(in(box, {"network", "up", "--json"}).output, before);
    EXPECT_THAT(in(box, {"network", "flap", "--count", "1"}), succeeds());
    EXPECT_THAT(state(box),
                HasSubstr("\"available\":false,\"proxies\":{\"http\":null,\"https\":{"));
}

TEST_P(NetworkTest, GarbageInTheObjectIsSaidAndMendedByTheNextCommand)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"pps", "set", "services/network/status", "available:n:7"}), succeeds());
    EXPECT_TRUE(box.launcher->complained("network-service: /pps/services/network/status: "
                                         "available must be true or false\n"));
    EXPECT_THAT(in(box, {"network"}), failsWith(1, "available must be true or false"));
    EXPECT_THAT(in(box, {"status"}).output, HasSubstr("available must be true or false\n"));
    EXPECT_THAT(in(box, {"status", "--json"}).output, HasSubstr("\"network\":null"));
    EXPECT_THAT(in(box, {"network", "up"}), succeeds());
    EXPECT_EQ(state(box), "{\"available\":true," + noProxies);
}

TEST_P(NetworkTest, EventsTakeNoRequests)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"exec", "--", "sh", "-c", "echo msg::x > /pps/services/network/events"}),
                succeeds());
    EXPECT_TRUE(box.launcher->complained("wrote to services/network/events, which takes no"));
}

BOX_TEST_USERS(NetworkTest);

} // namespace
