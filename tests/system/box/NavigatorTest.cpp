// SPDX-License-Identifier: Apache-2.0
#include "NavigatedTest.h"

#include <array>

using namespace boxtest;
using namespace testing;

namespace {

class NavigatorTest : public NavigatedTest
{
};

TEST_P(NavigatorTest, EachCommandIsToldToTheApplication)
{
    struct Row
    {
        std::vector<std::string> command;
        std::string event;
    };
    const Box box = startNavigated();
    const Navigated application = applicationOf(box);
    const std::string group = ",group::" + application.group;
    const std::array<Row, 12> rows = {{
        {{"fullscreen"}, "msg::windowState,state:n:0" + group},
        {{"thumbnail"}, "msg::windowState,state:n:1" + group},
        {{"invisible"}, "msg::windowState,state:n:2" + group},
        {{"inactive"}, "msg::windowInactive" + group},
        {{"active"}, "msg::windowActive" + group},
        {{"swipe-down"}, "msg::swipeDown"},
        {{"swipe-start"}, "msg::swipeStart"},
        {{"back"}, "msg::back"},
        {{"low-memory"}, "msg::lowMemory"},
        {{"lock"}, "msg::windowLock"},
        {{"unlock"}, "msg::windowUnlock"},
        {{"invoke", "https://example.org/?a=b:c"}, "msg::invoke,data::https://example.org/?a=b:c"},
    }};
    std::string expected = "started " + application.group.substr(4) + '\n';
    for (const Row& row : rows) {
        std::vector<std::string> command = {"navigator", "--json"};
        command.insert(command.begin() + 1, row.command.begin(), row.command.end());
        const Result result = in(box, command);
        EXPECT_THAT(result, succeeds());
        EXPECT_EQ(result.output, "{\"applications\":[\"" + application.group + "\"]}\n");
        expected += row.event + '\n';
    }
    EXPECT_TRUE(box.launcher->printed(expected)) << box.launcher->output();
}

TEST_P(NavigatorTest, AnyEventIsToldAsItStands)
{
    const Box box = startNavigated();
    EXPECT_THAT(in(box, {"navigator", "event", "16"}), succeeds());
    EXPECT_THAT(in(box, {"navigator", "event", "-3", "--state", "-7", "--angle", "45", "--data",
                         "d", "--id", "i", "--err", "e", "--window-group", "w"}),
                succeeds());
    EXPECT_THAT(in(box, {"navigator", "event", "3", "--state", "7"}), succeeds());
    EXPECT_TRUE(box.launcher->printed(
        "\nmsg::event,code:n:16\n"
        "msg::event,code:n:-3,state:n:-7,angle:n:45,data::d,id::i,err::e,group::w\n"
        "msg::windowState,state:n:7\n"))
        << box.launcher->output();
}

TEST_P(NavigatorTest, SwipeStartIsToldOnRequestOnly)
{
    const Box box = startNavigated();
    const Navigated application = applicationOf(box);
    EXPECT_THAT(in(box, {"navigator", "swipe-down"}), succeeds());
    have(box, application, "msg::swipeStart,wanted:b:true");
    applicationsWith(box, "\"swipeStart\":true");
    EXPECT_THAT(in(box, {"navigator", "swipe-down"}), succeeds());
    have(box, application, "msg::swipeStart,wanted:b:false");
    applicationsWith(box, "\"swipeStart\":false");
    EXPECT_THAT(in(box, {"navigator", "swipe-down"}), succeeds());
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    EXPECT_TRUE(box.launcher->printed("msg::back\n"));
    EXPECT_EQ(countOf(box.launcher->output(), "msg::swipeDown\n"), 3);
    EXPECT_EQ(countOf(box.launcher->output(), "msg::swipeStart\nmsg::swipeDown\n"), 1);
}

TEST_P(NavigatorTest, EachChannelIsToldEveryEvent)
{
    const Box box = startNavigated({"channels=3"});
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    EXPECT_TRUE(box.launcher->printed("msg::back\nmsg::back\nmsg::back\n"));
}

TEST_P(NavigatorTest, ApplicationsAreShown)
{
    const Box box = startNavigated();
    const Navigated application = applicationOf(box);
    const std::string pid = application.group.substr(4);
    EXPECT_EQ(applicationsWith(box, "\"listening\":true"),
              "{\"foreground\":\"" + application.group + "\",\"applications\":[{\"group\":\"" +
                  application.group + "\",\"pid\":" + pid +
                  ",\"name\":\"tamo-test-navig\",\"listening\":true,\"state\":\"fullscreen\","
                  "\"active\":true,\"angle\":0,\"rotationLocked\":false,\"swipeStart\":false}],"
                  "\"locked\":false}\n");
    const std::string text = in(box, {"navigator"}).output;
    EXPECT_THAT(text, HasSubstr("group"));
    EXPECT_THAT(text, ContainsRegex("\\*  " + application.group + " +" + pid +
                                    " +fullscreen +yes +yes +0 +free +tamo-test-navig\n"));
}

TEST_P(NavigatorTest, WhatTheApplicationSetsIsShown)
{
    const Box box = startNavigated();
    const Navigated application = applicationOf(box);
    have(box, application, "msg::badge,badge:n:0");
    have(box, application, "msg::closePrompt,title::Sure?,message::It is all lost.");
    have(box, application, "msg::addUri,icon::/i.png,label::News,category::,url::https://n");
    have(box, application, "msg::addUri,icon::/j.png,label::More,url::https://m");
    have(box, application, "msg::setWindowAngle,angle:n:270");
    have(box, application, "msg::rotationLock,locked:b:true");
    EXPECT_THAT(applicationsWith(box, "\"rotationLocked\":true"),
                HasSubstr("\"angle\":270,\"rotationLocked\":true,\"swipeStart\":false,\"badge\":0,"
                          "\"closePrompt\":{\"title\":\"Sure?\",\"message\":\"It is all lost.\"},"
                          "\"uris\":[{\"icon\":\"/i.png\",\"label\":\"News\",\"category\":\"\","
                          "\"url\":\"https://n\"},{\"icon\":\"/j.png\",\"label\":\"More\","
                          "\"category\":\"\",\"url\":\"https://m\"}]}"));
    const std::string text = in(box, {"navigator"}).output;
    EXPECT_THAT(text, HasSubstr("270    locked"));
    EXPECT_THAT(text, HasSubstr("badge 0\n"));
    EXPECT_THAT(text, HasSubstr("close prompt 'Sure?': It is all lost.\n"));
    EXPECT_THAT(text, HasSubstr("icon 'News': https://n\n"));
    have(box, application, "msg::badge");
    have(box, application, "msg::closePrompt");
    have(box, application, "msg::rotationLock,locked:b:false");
    const std::string after = applicationsWith(box, "\"rotationLocked\":false");
    EXPECT_THAT(after, Not(HasSubstr("badge")));
    EXPECT_THAT(after, Not(HasSubstr("closePrompt")));
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(NavigatorTest, LatestApplicationIsInTheForeground)
{
    const Box box = startNavigated();
    const Navigated first = applicationOf(box);
    const auto process = startBeside(box);
    const Navigated second = applicationOf(*process);
    EXPECT_TRUE(first.process->printed("msg::windowInactive,group::" + first.group +
                                       "\nmsg::windowState,state:n:2,group::" + first.group +
                                       '\n'));
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    EXPECT_TRUE(second.process->printed("msg::back\n"));

    EXPECT_THAT(in(box, {"navigator", "fullscreen", "--group", first.group}), succeeds());
    EXPECT_TRUE(first.process->printed("msg::windowState,state:n:0,group::" + first.group +
                                       "\nmsg::windowActive,group::" + first.group + '\n'));
    EXPECT_TRUE(second.process->printed("msg::windowInactive,group::" + second.group +
                                        "\nmsg::windowState,state:n:2,group::" + second.group +
                                        '\n'));
    EXPECT_THAT(in(box, {"navigator", "--json"}).output,
                HasSubstr("\"foreground\":\"" + first.group + '"'));
    EXPECT_EQ(in(box, {"navigator", "low-memory", "--json"}).output,
              "{\"applications\":[\"" + first.group + "\",\"" + second.group + "\"]}\n");
    EXPECT_EQ(in(box, {"navigator", "low-memory", "--group", second.group, "--json"}).output,
              "{\"applications\":[\"" + second.group + "\"]}\n");
    EXPECT_THAT(first.process->output(), Not(HasSubstr("back")));
}

TEST_P(NavigatorTest, CommandWaitsForAnApplicationThatListens)
{
    const Box box = startIdle();
    const auto command = begin(box, {"navigator", "back", "--wait", "1h"});
    const auto memory = begin(box, {"navigator", "low-memory", "--wait", "1h"});
    const auto process = startBeside(box);
    EXPECT_EQ(command->wait(), 0) << command->errors();
    EXPECT_EQ(memory->wait(), 0) << memory->errors();
    EXPECT_TRUE(process->printed("msg::back\n"));
    EXPECT_TRUE(process->printed("msg::lowMemory\n"));
}

TEST_P(NavigatorTest, CommandFailsWhereNobodyListensInTime)
{
    const Box box = startIdle();
    EXPECT_EQ(in(box, {"navigator"}).output, "no application\n");
    EXPECT_EQ(in(box, {"navigator", "--json"}).output,
              "{\"foreground\":\"\",\"applications\":[],\"locked\":false}\n");
    const std::string nobody = "no application listens to the navigator; one does when it opens "
                               "/pps/services/navigator/events";
    for (const char* command : {"fullscreen", "swipe-down", "low-memory", "exit"})
        EXPECT_THAT(in(box, {"navigator", command, "--wait", "1ms"}), failsWith(1, nobody));
    EXPECT_THAT(in(box, {"navigator", "back", "--group", "app-1", "--wait", "1ms"}),
                failsWith(1, nobody));
    EXPECT_THAT(in(box, {"rotate", "90", "--group", "app-1", "--wait", "1ms"}),
                failsWith(1, nobody));
    {
        const auto process = startBeside(box);
        const Navigated application = applicationOf(*process);
        EXPECT_THAT(in(box, {"navigator", "back", "--group", "app-1", "--wait", "1ms"}),
                    failsWith(1, "there is no application 'app-1'; there are: " +
                                     application.group + " (waited 1 ms)"));
        EXPECT_THAT(in(box, {"navigator", "invoke", "close"}), succeeds());
        applicationsWith(box, "\"listening\":false");
        EXPECT_THAT(in(box, {"navigator", "back", "--wait", "1ms"}),
                    failsWith(1, application.group + " does not listen"));
        EXPECT_THAT(in(box, {"rotate", "90", "--wait", "1ms"}),
                    failsWith(1, application.group + " does not listen"));
    }
}

TEST_P(NavigatorTest, NobodyIsInTheForegroundAfterItsEnd)
{
    const Box box = startNavigated();
    const Navigated first = applicationOf(box);
    const auto process = startBeside(box);
    const Navigated second = applicationOf(*process);
    EXPECT_THAT(in(box, {"navigator", "exit"}), succeeds());
    EXPECT_EQ(process->wait(), 3);
    EXPECT_THAT(in(box, {"navigator", "back", "--wait", "1ms"}),
                failsWith(1, "no application is in the foreground; there are: " + first.group));
    EXPECT_THAT(in(box, {"navigator", "--json"}).output, HasSubstr("\"foreground\":\"\""));
    EXPECT_THAT(in(box, {"navigator", "fullscreen", "--group", first.group}), succeeds());
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
}

TEST_P(NavigatorTest, ScreenIsLockedAlsoWhereNobodyListens)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"navigator", "lock"}), succeeds());
    EXPECT_EQ(in(box, {"navigator"}).output, "no application\nthe screen is locked\n");
    EXPECT_EQ(in(box, {"navigator", "unlock", "--json"}).output, "{\"applications\":[]}\n");
    EXPECT_THAT(in(box, {"navigator", "--json"}).output, HasSubstr("\"locked\":false"));
}

TEST_P(NavigatorTest, UrlsAreHandedToTheForeground)
{
    const Box box = startNavigated();
    const Navigated first = applicationOf(box);
    const auto process = startBeside(box);
    have(box, first, "msg::invoke,url::https://example.org");
    have(box, first, "msg::openFile,path::/tmp/a b%c");
    EXPECT_TRUE(process->printed("msg::invoke,data::https://example.org\n"
                                 "msg::invoke,data::file:///tmp/a%20b%25c\n"))
        << process->output() << first.process->errors();
}

TEST_P(NavigatorTest, WrongArgumentsAreRefused)
{
    const Box box = startNavigated();
    EXPECT_THAT(in(box, {"navigator", "explode"}), failsWith(2, "explode"));
    EXPECT_THAT(in(box, {"navigator", "invoke"}), failsWith(2, "url is required"));
    EXPECT_THAT(in(box, {"navigator", "event"}), failsWith(2, "code is required"));
    EXPECT_THAT(in(box, {"navigator", "event", "x"}), failsWith(2, "x"));
    EXPECT_THAT(in(box, {"navigator", "event", "99999999999"}), failsWith(2, "99999999999"));
    EXPECT_THAT(in(box, {"navigator", "exit", "--grace", "5"}), failsWith(2, "durations are like"));
    EXPECT_THAT(in(box, {"navigator", "back", "--group", ""}), failsWith(2, "not empty"));
    EXPECT_THAT(in(box, {"rotate", "45"}), failsWith(2, "45"));
    EXPECT_THAT(in(box, {"rotate"}), failsWith(2, "angle is required"));
    EXPECT_THAT(in(box, {"rotate", "90", "--limit", "0s"}), failsWith(2, "durations are like"));
    EXPECT_THAT(in(box, {"navigator", "invoke", std::string(70'000, 'x')}),
                failsWith(1, "url must be a text of at most 65536 bytes"));
    EXPECT_EQ(countOf(box.launcher->output(), "\n"), 1);
}

BOX_TEST_USERS(NavigatorTest);

} // namespace
