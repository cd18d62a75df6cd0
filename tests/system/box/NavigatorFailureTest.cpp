// SPDX-License-Identifier: Apache-2.0
#include "NavigatedTest.h"

#include <signal.h>

#include <algorithm>

using namespace boxtest;
using namespace testing;

namespace {

constexpr const char* control = "services/navigator/control";

class NavigatorFailureTest : public NavigatedTest
{
};

TEST_P(NavigatorFailureTest, ApplicationThatDoesNotReadIsNamedAndHurtsNobody)
{
    const Box box = startNavigated({"deaf"});
    const Navigated deaf = applicationOf(box);
    const std::string request = "printf 'msg::back\\ndat:json:{}\\n' >&3 2>/dev/null || sleep 0";
    EXPECT_THAT(
        in(box, {"exec", "--", "sh", "-c",
                 "exec 3<>/pps/box/navigator; for i in $(seq 500); do " + request + "; done"}),
        succeeds());
    Result result;
    ASSERT_TRUE(waitUntil([&] {
        result = in(box, {"navigator", "back"});
        return result.status != 0;
    }));
    EXPECT_THAT(result, failsWith(1, deaf.group + " does not read its events, its queue is full; "
                                                  "back was not delivered"));
    EXPECT_THAT(in(box, {"navigator", "thumbnail"}), failsWith(1, "does not read its events"));
    EXPECT_THAT(in(box, {"navigator", "--json"}).output, HasSubstr("\"state\":\"fullscreen\""));
    EXPECT_THAT(in(box, {"navigator", "lock"}), failsWith(1, "windowLock was not delivered"));
    EXPECT_THAT(
        in(box, {"rotate", "90"}),
        failsWith(1, deaf.group + " does not read its events; it was not told orientationCheck"));

    const auto process = startBeside(box);
    EXPECT_TRUE(box.launcher->complained(deaf.group + " does not read its events"));
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    EXPECT_TRUE(process->printed("msg::back\n"));
    EXPECT_THAT(in(box, {"navigator", "low-memory"}), failsWith(1, deaf.group));
    EXPECT_TRUE(process->printed("msg::lowMemory\n"));
}

TEST_P(NavigatorFailureTest, MalformedRequestsAreReportedAndChangeNothing)
{
    struct Row
    {
        const char* request;
        const char* complaint;
    };
    const std::vector<Row> rows = {
        {"nonsense::1", "msg is missing"},
        {"msg:n:1", "msg is missing"},
        {"msg::explode", "there is no request 'explode'"},
        {"msg::\x1b[31m", "there is no request '?[31m'"},
        {"msg::orientationCheckResponse,accept:b:true", "id must be a text"},
        {"msg::orientationCheckResponse,id::1,accept::true", "accept must be true or false"},
        {"msg::orientationDone", "id must be a text"},
        {"msg::orientationDone,id::77-1", "the answer '77-1' is to what was never asked"},
        {"msg::setOrientation,angle:n:45,id::1", "angle must be 0, 90, 180 or 270"},
        {"msg::setOrientation,angle:n:90", "id must be a text of at most 256 bytes"},
        {"msg::setWindowAngle,angle::90", "angle must be 0, 90, 180 or 270"},
        {"msg::rotationLock", "locked must be true or false"},
        {"msg::extendTimeout,milliseconds:n:0", "milliseconds must be a whole number from 1 to"},
        {"msg::extendTimeout,milliseconds:n:30001", "milliseconds must be a whole number"},
        {"msg::swipeStart,wanted:json:null", "wanted must be true or false"},
        {"msg::invoke", "url must be a text"},
        {"msg::openFile,path::relative", "path must begin with a slash, and is 'relative'"},
        {"msg::addUri,icon::a,label::b", "url must be a text of at most 1024 bytes"},
        {"msg::closePrompt,title::a", "message must be a text"},
        {"msg::badge,badge:n:0.5", "badge must be a whole number"},
    };
    // A box says so many lines in a second and counts the others.
    constexpr std::size_t linesOfABox = 8;
    for (std::size_t first = 0; first < rows.size(); first += linesOfABox) {
        const Box box = startNavigated();
        const Navigated application = applicationOf(box);
        const std::string before = applicationsWith(box, "\"listening\":true");
        for (std::size_t i = first; i < std::min(first + linesOfABox, rows.size()); ++i) {
            have(box, application, rows[i].request);
            EXPECT_TRUE(box.launcher->complained(
                "tamo-box: navigator-service: a request of process " + application.group.substr(4) +
                " to services/navigator/control has no effect: " + rows[i].complaint))
                << rows[i].request << '\n'
                << box.launcher->errors();
        }
        EXPECT_EQ(in(box, {"navigator", "--json"}).output, before);
    }
}

TEST_P(NavigatorFailureTest, FloodOfGarbageIsCounted)
{
    const Box box = startNavigated();
    Process flood(tamoBox({"exec", "--box", box.name, "--", "sh", "-c",
                           "exec 3<>/pps/services/navigator/control; echo started; "
                           "while :; do printf 'garbage::\\n' >&3; done 2>/dev/null"}),
                  GetParam());
    ASSERT_TRUE(flood.printed("started"));
    EXPECT_TRUE(box.launcher->complained("has no effect: msg is missing\n"));
    EXPECT_TRUE(box.launcher->complained(" more lines like that were left out\n"));
    EXPECT_LE(countOf(box.launcher->errors(), "has no effect"), 16); // of two seconds
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    EXPECT_TRUE(box.launcher->printed("msg::back\n"));
    have(box, applicationOf(box), "msg::badge,badge:n:0");
    applicationsWith(box, "\"badge\":0");
}

TEST_P(NavigatorFailureTest, WhoIsNoApplicationSetsNothing)
{
    const Box box = startNavigated();
    EXPECT_THAT(
        in(box, {"exec", "--", "sh", "-c", "echo msg::badge > /pps/services/navigator/control"}),
        succeeds());
    EXPECT_TRUE(box.launcher->complained(
        "has no effect: it is no application, because it has not asked for events\n"));
    EXPECT_THAT(in(box, {"pps", "set", control, "msg::badge"}), succeeds());
    EXPECT_TRUE(box.launcher->complained("a request of a process outside the box to "));
    EXPECT_THAT(in(box, {"pps", "set", "services/navigator/events", "msg::exit"}), succeeds());
    EXPECT_TRUE(box.launcher->complained("wrote to services/navigator/events, which takes no "));
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
}

TEST_P(NavigatorFailureTest, GarbageOfCommandsIsAnsweredWithAnError)
{
    const Box box = startNavigated();
    const auto answerTo = [&](const std::string& message, const std::string& arguments) {
        return in(box, {"pps", "set", "box/navigator", "--wait", "10s", "id::x", "msg::" + message,
                        "dat:json:" + arguments})
            .output;
    };
    EXPECT_THAT(answerTo("explode", "{}"), HasSubstr("id::x\nres::error\ntext::there is no"));
    EXPECT_THAT(answerTo("back", "{\"group\":1}"), HasSubstr("group must be a text"));
    EXPECT_THAT(answerTo("back", "{\"group\":\"\"}"), HasSubstr("group must not be empty"));
    EXPECT_THAT(answerTo("back", "{\"wait\":-1}"), HasSubstr("wait must be a whole number from 0"));
    EXPECT_THAT(answerTo("back", "{\"wait\":1e300}"), HasSubstr("wait must be a whole number"));
    EXPECT_THAT(answerTo("invoke", "{}"), HasSubstr("url must be a text"));
    EXPECT_THAT(answerTo("exit", "{\"grace\":\"1\"}"), HasSubstr("grace must be a whole number"));
    EXPECT_THAT(answerTo("rotate", "{}"), HasSubstr("angle must be 0, 90, 180 or 270"));
    EXPECT_THAT(answerTo("rotate", "{\"angle\":90,\"limit\":0}"), HasSubstr("limit must be"));
    EXPECT_THAT(answerTo("event", "{}"), HasSubstr("code must be a whole number"));
    EXPECT_THAT(answerTo("event", "{\"code\":1,\"data\":{}}"), HasSubstr("data must be a text"));
    EXPECT_EQ(countOf(box.launcher->output(), "\n"), 1);
    const std::string enormous = std::string(1'000'000, 'x');
    EXPECT_THAT(in(box, {"pps", "set", "box/navigator", "--wait", "10s", "-"},
                   "msg::back\nid::" + enormous + '\n')
                    .output,
                HasSubstr("the id must be at most 256 bytes long"));
    EXPECT_THAT(
        in(box, {"pps", "set", "box/navigator", "--wait", "10s", "-"}, "msg::" + enormous + '\n')
            .output,
        HasSubstr("there is no such command; there are: active"));
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NavigatorFailureTest, ServiceThatWasKilledKnowsItsApplicationsAgain)
{
    const Box box = startNavigated({"msg::badge,badge:n:0", "msg::swipeStart,wanted:b:true"});
    const Navigated application = applicationOf(box);
    EXPECT_THAT(in(box, {"navigator", "thumbnail"}), succeeds());
    const auto process = startBeside(box);
    const Navigated gone = applicationOf(*process);
    EXPECT_THAT(in(box, {"navigator", "lock"}), succeeds());
    // While it is stopped, an application ends that it cannot hear of.
    box.signal("navigator-servi", SIGSTOP);
    kill(process->pid(), SIGTERM);
    EXPECT_EQ(process->wait(), 128 + SIGTERM);
    box.signal("navigator-servi", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("navigator-service ended by signal 9; started again\n"));
    const std::string before = applicationsWith(box, "\"badge\":0");
    ASSERT_TRUE(waitUntil([&] {
        return in(box, {"navigator", "--json"}).output.find(gone.group) == std::string::npos;
    }));
    EXPECT_THAT(applicationsWith(box, "\"listening\":true"),
                AllOf(HasSubstr("\"group\":\"" + application.group + '"'),
                      HasSubstr("\"state\":\"invisible\",\"active\":false"),
                      HasSubstr("\"swipeStart\":true,\"badge\":0"), HasSubstr("\"locked\":true"),
                      HasSubstr("\"foreground\":\"\"")));
    EXPECT_THAT(in(box, {"navigator", "swipe-down", "--group", application.group}), succeeds());
    EXPECT_TRUE(box.launcher->printed("msg::swipeStart\nmsg::swipeDown\n"));
}

TEST_P(NavigatorFailureTest, CommandFailsWhereTheServiceIsKilledMeanwhile)
{
    const Box box = startNavigated({"ignore=orientationCheck"});
    const auto rotate = begin(box, {"rotate", "90", "--limit", "1h"});
    ASSERT_TRUE(box.launcher->printed("msg::orientationCheck"));
    box.signal("navigator-servi", SIGKILL);
    EXPECT_TRUE(box.launcher->complained("started again\n"));
    EXPECT_THAT(in(box, {"rotate", "180", "--limit", "50ms", "--json"}).output,
                HasSubstr("\"check\":\"none\""));
    EXPECT_EQ(rotate->wait(), 1);
    EXPECT_EQ(rotate->errors(), "tamo-box: the service at /pps/box/navigator does not answer\n");
}

TEST_P(NavigatorFailureTest, TurnThatIsCutOffEndsWithTheNextService)
{
    const Box box = startNavigated({"ignore=orientation"});
    const Navigated application = applicationOf(box);
    const auto rotate = begin(box, {"rotate", "90", "--limit", "1h"});
    ASSERT_TRUE(box.launcher->printed("msg::orientation,angle:n:90"));
    EXPECT_THAT(applicationsWith(box, "turningTo"), HasSubstr("\"turningTo\":90"));
    box.signal("navigator-servi", SIGKILL);
    EXPECT_TRUE(box.launcher->printed("msg::orientationEnd,angle:n:90\n"));
    EXPECT_TRUE(box.launcher->complained("the turn of " + application.group +
                                         " was cut off, and has ended at 90\n"));
    EXPECT_EQ(rotate->wait(), 1);
    const std::string applications = in(box, {"navigator", "--json"}).output;
    EXPECT_THAT(applications, HasSubstr("\"angle\":90"));
    EXPECT_THAT(applications, Not(HasSubstr("turningTo")));
    // What it answers to a service that is gone counts for nothing.
    have(box, application,
         "msg::orientationDone,id::" + valueIn(application, "msg::orientation,", "id"));
    EXPECT_TRUE(box.launcher->complained("the answer "));
    EXPECT_EQ(countOf(box.launcher->output(), "orientationEnd"), 1);
}

BOX_TEST_USERS(NavigatorFailureTest);

} // namespace
