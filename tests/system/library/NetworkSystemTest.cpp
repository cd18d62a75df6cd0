// SPDX-License-Identifier: Apache-2.0
// Real applications in real boxes that follow the network.
#include "BoxTest.h"

#include <signal.h>

#include <sstream>

using namespace boxtest;
using namespace testing;

namespace {

using Lines = std::vector<std::string>;

constexpr const char* status = "services/network/status";

class NetworkSystemTest : public BoxTest
{
protected:
    /** Starts the application in a box; it has heard how things are. */
    Box startApplication() const
    {
        Box box = start({helper("tamo-test-network")}, "started");
        EXPECT_TRUE(box.launcher->printed("down, asked down\n"));
        return box;
    }

    /** Expects the application to print exactly some lines behind a place. Its two threads print
     * beside each other, in either order. */
    static void expectLines(const Box& box, std::size_t place, const Lines& expected)
    {
        for (const std::string& line : expected)
            EXPECT_TRUE(box.launcher->printed('\n' + line + '\n', place - 1))
                << "not printed: " << line << "\nbut: " << box.launcher->output().substr(place);
        std::istringstream stream(box.launcher->output().substr(place));
        Lines lines;
        for (std::string line; std::getline(stream, line);)
            lines.push_back(line);
        EXPECT_THAT(lines, UnorderedElementsAreArray(expected));
    }

    /** Runs tamo-box, and expects the application to print exactly some lines because of it. */
    void expect(const Box& box, const Lines& command, const Lines& expected) const
    {
        const std::size_t before = box.launcher->output().size();
        EXPECT_THAT(in(box, command), succeeds());
        expectLines(box, before, expected);
    }

    /** Expects lines that begin like this behind a place, one after the other, whatever comes
     * between them; and no more of the first kind or the second. */
    static void expectAlternating(const Box& box, std::size_t place, const std::string& first,
                                  const std::string& second, int count)
    {
        const std::size_t begin = place - 1;
        std::size_t from = begin;
        for (int i = 0; i < count; ++i) {
            const std::string line = '\n' + (i % 2 == 0 ? first : second);
            ASSERT_TRUE(box.launcher->printed(line, from)) << line << ' ' << i;
            from = box.launcher->output().find(line, from) + line.size();
        }
        int found = 0;
        for (const std::string& line : {'\n' + first, '\n' + second})
            for (std::size_t i = box.launcher->output().find(line, begin); i != std::string::npos;
                 i = box.launcher->output().find(line, i + 1))
                ++found;
        EXPECT_EQ(found, count);
    }

    static void expectFlaps(const Box& box, std::size_t place, int count)
    {
        expectAlternating(box, place, "up, asked ", "down, asked ", count);
        expectAlternating(box, place, "external connected", "external disconnected", count);
    }
};

TEST_P(NetworkSystemTest, EachReportIsHeardAndOnlyChangesAreFolded)
{
    const Box box = startApplication();
    expect(box, {"network", "up"}, {"up, asked up", "external connected"});
    expect(box, {"network", "up"}, {"up, asked up"});
    expect(box, {"network", "proxy", "--http", "a:1"}, {"up, asked up"});
    expect(box, {"network", "down"}, {"down, asked down", "external disconnected"});
    expect(box, {"network", "down"}, {"down, asked down"});
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NetworkSystemTest, AThousandChangesInABurstArriveInOrder)
{
    const Box box = startApplication();
    const std::size_t before = box.launcher->output().size();
    EXPECT_THAT(in(box, {"network", "flap", "--count", "1000"}), succeeds());
    expectFlaps(box, before, 1000);
    expect(box, {"network", "up"}, {"up, asked up", "external connected"});
}

TEST_P(NetworkSystemTest, ApplicationThatStopsHearsAllOfItLater)
{
    const Box box = startApplication();
    const std::size_t before = box.launcher->output().size();
    box.signal("tamo-test-netwo", SIGSTOP);
    EXPECT_THAT(in(box, {"network", "flap", "--count", "1001"}), succeeds());
    EXPECT_TRUE(box.launcher->complained("does not read its events; it is told when it does\n"));
    EXPECT_THAT(in(box, {"network", "--json"}).output, HasSubstr("\"available\":true"));
    box.signal("tamo-test-netwo", SIGCONT);
    expectFlaps(box, before, 1001);
}

TEST_P(NetworkSystemTest, WhatSomebodyElsePublishesIsToldToo)
{
    const Box box = startApplication();
    expect(box, {"pps", "set", status, "available:b:true"}, {"up, asked up", "external connected"});
}

TEST_P(NetworkSystemTest, GarbageInTheObjectIsReadAsNotConnectedUntilTheNextState)
{
    const Box box = startApplication();
    expect(box, {"network", "up"}, {"up, asked up", "external connected"});
    for (const char* const line :
         {"available::up", "available:json:null", "httpProxyHost:n:7", "httpProxyPort:n:99999"}) {
        EXPECT_THAT(in(box, {"pps", "set", status, line}), succeeds());
        EXPECT_TRUE(box.launcher->complained("network-service: /pps/services/network/status: "));
        expect(box, {"network", "event", "1"}, {"up, asked down"});
        EXPECT_TRUE(
            box.launcher->complained("netstatus_get_availability() failed:74 - Bad message\n"));
        expect(box, {"network", "up"}, {"up, asked up"});
    }
}

TEST_P(NetworkSystemTest, UnknownEventsAreSaidOnStandardError)
{
    const Box box = startApplication();
    EXPECT_THAT(in(box, {"network", "event", "-7"}), succeeds());
    EXPECT_TRUE(box.launcher->complained(
        "NetworkStatusImpl::handleZelEvent(): Event received: Unknown netstatus event: -7\n"));
    expect(box, {"network", "up"}, {"up, asked up", "external connected"});
}

TEST_P(NetworkSystemTest, ServiceThatIsKilledTellsTheSameStateAgain)
{
    const Box box = startApplication();
    expect(box, {"network", "up"}, {"up, asked up", "external connected"});
    const std::size_t before = box.launcher->output().size();
    box.signal("network-service", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("network-service ended by signal 9; started again\n"));
    expectLines(box, before, {"up, asked up"});
    expect(box, {"network", "down"}, {"down, asked down", "external disconnected"});
}

TEST_P(NetworkSystemTest, ServiceThatIsKilledInABurstLeavesTheRightPicture)
{
    const Box box = startApplication();
    Process flap(tamoBox({"network", "flap", "--count", "100000", "--box", box.name}), GetParam());
    ASSERT_TRUE(box.launcher->printed("external connected\n"));
    box.signal("network-service", SIGKILL);
    EXPECT_NE(flap.wait(), 0);
    EXPECT_TRUE(box.launcher->complained("started again\n"));
    // Whatever it is, the application has been told of it: another state is a change.
    EXPECT_THAT(in(box, {"network", "event", "0"}), succeeds());
    EXPECT_TRUE(box.launcher->complained("Unknown netstatus event: 0\n"));
    const bool isUp = in(box, {"network", "--json"}).output.find("true") != std::string::npos;
    const std::size_t before = box.launcher->output().size();
    EXPECT_THAT(in(box, {"network", isUp ? "down" : "up"}), succeeds());
    EXPECT_TRUE(
        box.launcher->printed(isUp ? "external disconnected\n" : "external connected\n", before));
}

BOX_TEST_USERS(NetworkSystemTest);

} // namespace
