// SPDX-License-Identifier: Apache-2.0
#include "BoxTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

class BatteryTest : public BoxTest
{
protected:
    std::unique_ptr<Process> startDrain(const Box& box, const std::string& to,
                                        const std::string& duration) const
    {
        auto drain = std::make_unique<Process>(tamoBox({"battery", "drain", "--from", "80", "--to",
                                                        to, "--in", duration, "--box", box.name}),
                                               GetParam());
        EXPECT_TRUE(drain->printed("80 %\n"));
        return drain;
    }

    std::string level(const Box& box) const { return in(box, {"battery", "--json"}).output; }
};

TEST_P(BatteryTest, IsUnknownUntilItIsSet)
{
    const Box box = startIdle();
    EXPECT_EQ(in(box, {"battery"}).output, "level    unknown\ncharger  unknown\n");
    EXPECT_EQ(in(box, {"battery", "--json"}).output, "{\"level\":null,\"charger\":null}\n");
    EXPECT_THAT(in(box, {"pps", "get", "services/power/battery"}),
                failsWith(1, "has never been published"));
}

TEST_P(BatteryTest, LevelAndChargerArePublishedWhenTheCommandEnds)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"battery", "level", "57"}), succeeds());
    EXPECT_EQ(in(box, {"pps", "get", "services/power/battery"}).output,
              "@battery\nStateOfCharge:n:57\n");
    for (const char* state : {"NONE", "CHARGE", "PLUGGED"}) {
        EXPECT_THAT(in(box, {"battery", "charger", state}), succeeds());
        EXPECT_EQ(in(box, {"pps", "get", "services/power/charger"}).output,
                  std::string("@charger\nChargerInfo::") + state + '\n');
    }
    EXPECT_EQ(in(box, {"battery", "level", "0", "--json"}).output, "{\"level\":0}\n");
    EXPECT_EQ(in(box, {"battery", "level", "100"}).status, 0);
    EXPECT_EQ(level(box), "{\"level\":100,\"charger\":\"PLUGGED\"}\n");
}

TEST_P(BatteryTest, WrongArgumentsAreRefusedAndChangeNothing)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"battery", "level", "101"}), failsWith(2, "0 to 100"));
    EXPECT_THAT(in(box, {"battery", "level", "-1"}), failsWith(2, "level"));
    EXPECT_THAT(in(box, {"battery", "level", "half"}), failsWith(2, "half"));
    EXPECT_THAT(in(box, {"battery", "level", "5.5"}), failsWith(2, "5.5"));
    EXPECT_THAT(in(box, {"battery", "level"}), failsWith(2, "level is required"));
    EXPECT_THAT(in(box, {"battery", "charger", "charge"}), failsWith(2, "CHARGE"));
    EXPECT_THAT(in(box, {"battery", "drain", "--to", "5"}), failsWith(2, "--in is required"));
    EXPECT_THAT(in(box, {"battery", "drain", "--to", "5", "--in", "10"}),
                failsWith(2, "durations are like"));
    EXPECT_THAT(in(box, {"battery", "drain", "--to", "5", "--in", "1s"}),
                failsWith(1, "level is unknown"));
    EXPECT_THAT(in(box, {"battery", "drain", "--from", "5", "--to", "5", "--in", "1s"}),
                failsWith(1, "must be below"));
    EXPECT_EQ(level(box), "{\"level\":null,\"charger\":null}\n");
}

TEST_P(BatteryTest, DrainPublishesEachPercentOnTime)
{
    const Box box = startIdle();
    Process watcher(
        tamoBox({"pps", "watch", "services/power/battery", "--count", "1", "--box", box.name}),
        GetParam());
    const auto begin = std::chrono::steady_clock::now();
    const Result drain = in(box, {"battery", "drain", "--from", "80", "--to", "75", "--in", "1s"});
    const auto taken = std::chrono::steady_clock::now() - begin;
    EXPECT_THAT(drain, succeeds());
    EXPECT_EQ(drain.output, "80 %\n79 %\n78 %\n77 %\n76 %\n75 %\n");
    EXPECT_GE(taken, std::chrono::seconds(1));
    EXPECT_EQ(level(box), "{\"level\":75,\"charger\":null}\n");
    EXPECT_EQ(watcher.wait(), 0);
    EXPECT_EQ(watcher.output(), "@battery\nStateOfCharge:n:80\n");
}

TEST_P(BatteryTest, DrainBeginsAtThePresentLevel)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"battery", "level", "3"}), succeeds());
    EXPECT_EQ(in(box, {"battery", "drain", "--to", "0", "--in", "3ms", "--json"}).output,
              "{\"level\":3}\n{\"level\":2}\n{\"level\":1}\n{\"level\":0}\n");
}

TEST_P(BatteryTest, DrainEndsWhenTheLevelIsSet)
{
    const Box box = startIdle();
    const auto drain = startDrain(box, "0", "1h");
    EXPECT_THAT(in(box, {"battery", "level", "33"}), succeeds());
    EXPECT_EQ(drain->wait(), 1);
    EXPECT_EQ(drain->errors(),
              "tamo-box: the drain ended at 80: the level was set to 33 meanwhile\n");
    EXPECT_EQ(level(box), "{\"level\":33,\"charger\":null}\n");
}

TEST_P(BatteryTest, DrainEndsWhenAnotherIsStarted)
{
    const Box box = startIdle();
    const auto drain = startDrain(box, "0", "1h");
    EXPECT_THAT(in(box, {"battery", "drain", "--from", "9", "--to", "8", "--in", "1ms"}),
                succeeds());
    EXPECT_EQ(drain->wait(), 1);
    EXPECT_THAT(drain->errors(), HasSubstr("another drain has been started"));
}

TEST_P(BatteryTest, DrainEndsWithItsCommand)
{
    const Box box = startIdle();
    const auto drain = startDrain(box, "0", "1s");
    kill(drain->pid(), SIGINT);
    EXPECT_EQ(drain->wait(), 128 + SIGINT);
    // The service has noticed when it answers the next request, which comes after that.
    EXPECT_THAT(in(box, {"battery", "charger", "NONE"}), succeeds());
    const std::string levelThen = level(box);
    Process watcher(tamoBox({"pps", "watch", "services/power/battery", "--box", box.name}),
                    GetParam());
    EXPECT_TRUE(watcher.printed("@battery\n"));
    EXPECT_THAT(in(box, {"battery", "charger", "CHARGE"}), succeeds());
    EXPECT_EQ(watcher.output().find("@battery"), watcher.output().rfind("@battery"));
    EXPECT_NE(levelThen, "{\"level\":0,\"charger\":\"NONE\"}\n");
}

TEST_P(BatteryTest, DrainNoticesThatTheServiceHasDied)
{
    const Box box = startIdle();
    const auto drain = startDrain(box, "0", "1h");
    box.signal("power-service", SIGKILL);
    EXPECT_EQ(drain->wait(), 1);
    EXPECT_EQ(drain->errors(), "tamo-box: the service at /pps/box/power does not answer\n");
}

TEST_P(BatteryTest, GarbageIsAnsweredWithAnErrorToItsSender)
{
    const Box box = startIdle();
    const auto answerTo = [&](std::vector<std::string> lines) {
        lines.insert(lines.begin(), {"pps", "set", "box/power", "--wait", "10s"});
        return in(box, lines).output;
    };
    EXPECT_THAT(answerTo({"nonsense::yes"}), HasSubstr("res::error\ntext::a request needs"));
    EXPECT_THAT(answerTo({"msg::explode", "id::x"}),
                HasSubstr("id::x\nres::error\ntext::there is no command"));
    EXPECT_THAT(answerTo({"msg::level"}), HasSubstr("0 to 100"));
    EXPECT_THAT(answerTo({"msg::level", "dat:json:[1]"}), HasSubstr("0 to 100"));
    EXPECT_THAT(answerTo({"msg::level", "dat::57"}), HasSubstr("dat must be an object"));
    EXPECT_THAT(answerTo({"msg::level", "dat:json:{\"level\":\"57\"}"}), HasSubstr("0 to 100"));
    EXPECT_THAT(answerTo({"msg::level", "dat:json:{\"level\":57.5}"}), HasSubstr("0 to 100"));
    EXPECT_THAT(answerTo({"msg::charger", "dat:json:{\"state\":\"x\"}"}),
                HasSubstr("NONE, CHARGE"));
    EXPECT_THAT(answerTo({"msg::drain", "dat:json:{\"from\":9,\"to\":1,\"milliseconds\":1e300}"}),
                HasSubstr("milliseconds"));
    EXPECT_EQ(level(box), "{\"level\":null,\"charger\":null}\n");
    EXPECT_THAT(in(box, {"battery", "level", "5"}), succeeds());
}

TEST_P(BatteryTest, FloodHarmsNobodyElse)
{
    const Box box = startIdle();
    const std::string request = "printf 'msg::level\\ndat:json:{\"level\":7}\\n' >&3 2>/dev/null";
    Process flood(
        tamoBox({"exec", "--box", box.name, "--", "sh", "-c",
                 "exec 3<>/pps/box/power; echo started; while :; do " + request + "; done"}),
        GetParam());
    ASSERT_TRUE(flood.printed("started"));
    for (int i = 0; i < 5; ++i)
        EXPECT_THAT(in(box, {"battery", "charger", "CHARGE"}), succeeds());
    EXPECT_THAT(level(box), HasSubstr("\"level\":7"));
}

BOX_TEST_USERS(BatteryTest);

} // namespace
