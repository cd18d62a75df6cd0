// SPDX-License-Identifier: Apache-2.0
// Real applications in real boxes, driven by tamo-box.
#include "BoxTest.h"

#include <signal.h>

#include <sstream>

using namespace boxtest;
using namespace testing;

namespace {

using Lines = std::vector<std::string>;

const std::string begin = "NavigatorPrivate::handleZelEvent";
const std::string checking = "NavigatorPrivate::handleOrientationCheck - ";
const std::string delivering = "NavigatorPrivate::event - ";

Lines linesOf(const std::string& text)
{
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

class NavigatorSystemTest : public BoxTest
{
protected:
    /** Starts the application in a box, and has it carry out orders. */
    Box startApplication(Lines orders = {}) const
    {
        orders.insert(orders.begin(), helper("tamo-test-application"));
        Box box = start(orders, "listening as app-");
        // It hears the navigator from its own time on.
        EXPECT_THAT(in(box, {"navigator", "active"}), succeeds());
        EXPECT_TRUE(box.launcher->printed("heard awake " + groupOf(box) + '\n'));
        return box;
    }

    static std::string groupOf(const Box& box)
    {
        const std::string mark = "listening as ";
        const std::string& output = box.launcher->output();
        const std::size_t place = output.find(mark) + mark.size();
        EXPECT_TRUE(box.launcher->printed("\n"));
        return output.substr(place, output.find('\n', place) - place);
    }

    /** Has the application carry out an order, and waits until it has. */
    void order(const Box& box, const std::string& name, const std::string& argument = {}) const
    {
        const std::size_t before = box.launcher->output().size();
        EXPECT_THAT(in(box, {"navigator", "invoke", "order:" + name + '?' + argument}), succeeds());
        waitFor(box, before, "ordered " + name);
    }

    /** Waits for a line behind a place in the application's output, where a line begins. */
    static void waitFor(const Box& box, std::size_t place, const std::string& line)
    {
        EXPECT_TRUE(box.launcher->printed('\n' + line + '\n', place - 1))
            << "not printed: " << line << "\nbut: " << box.launcher->output().substr(place);
    }

    /**
     * Runs tamo-box, and expects the application to print exactly some lines, the last of which is
     * waited for.
     */
    Result expect(const Box& box, const Lines& command, const Lines& lines) const
    {
        const std::size_t before = box.launcher->output().size();
        Result result = in(box, command);
        EXPECT_THAT(result, succeeds());
        waitFor(box, before, lines.back());
        EXPECT_EQ(linesOf(box.launcher->output().substr(before)), lines);
        return result;
    }
};

TEST_P(NavigatorSystemTest, EachEventOfThePhoneIsLoggedAndHeard)
{
    const Box box = startApplication();
    const std::string group = groupOf(box);
    const std::string state = begin + " - window state";
    const std::string stateIs = "NavigatorPrivate::handleWindowStateEvent - ";
    expect(box, {"navigator", "thumbnail"},
           {state, stateIs + "thumbnail", "heard thumbnail " + group});
    expect(box, {"navigator", "invisible"},
           {state, stateIs + "invisible", "heard invisible " + group});
    expect(box, {"navigator", "fullscreen"},
           {state, stateIs + "fullscreen", "heard fullscreen " + group});
    expect(box, {"navigator", "inactive"},
           {begin + ": Event received: navigator inactive. WindowGroupId: " + group,
            "heard asleep " + group});
    expect(box, {"navigator", "active"},
           {begin + ": Event received: navigator active. WindowGroupID: " + group,
            "heard awake " + group});
    expect(box, {"navigator", "swipe-down"}, {begin + " - swipe down", "heard swipeDown"});
    expect(box, {"navigator", "low-memory"}, {begin + " - low memory", "heard lowMemory"});
    expect(box, {"navigator", "swipe-start"}, {begin + " - swipe start"});
    expect(box, {"navigator", "back"}, {begin + " - back"});
    expect(box, {"navigator", "lock"}, {begin + " - window lock"});
    expect(box, {"navigator", "unlock"}, {begin + " - window unlock"});
    expect(box, {"navigator", "invoke", "https://example.com/a?b#c"},
           {begin + " - invoked https://example.com/a?b#c",
            "heard urlHandlerInvoked https://example.com/a?b#c"});
}

TEST_P(NavigatorSystemTest, EventsThatNoPhoneSendsAreLived)
{
    const Box box = startApplication();
    const std::string state = begin + " - window state";
    const std::string unknownState = "NavigatorPrivate::handleWindowStateEvent - unknown";
    for (const char* code : {"0", "16", "-1", "2147483647"})
        expect(box, {"navigator", "event", code}, {begin + " - unknown"});
    expect(box, {"navigator", "event", "12"}, {begin + " - orientation done"});
    expect(box, {"navigator", "event", "13"}, {begin + " - orientation result"});
    expect(box, {"navigator", "event", "3", "--state", "7", "--window-group", "seven"},
           {state, unknownState});
    expect(box, {"navigator", "event", "11", "--window-group", "asleep"},
           {begin + ": Event received: navigator inactive. WindowGroupId: asleep",
            "heard asleep asleep"});
    expect(box, {"navigator", "invoke", "order:group"},
           {begin + " - invoked order:group", "group seven", "ordered group"});
    expect(box, {"navigator", "event", "3"}, {state, unknownState});
    expect(box, {"navigator", "event", "1"}, {begin + " - invoked ", "heard urlHandlerInvoked "});
    expect(box, {"navigator", "event", "1", "--data", "http://[no url"},
           {begin + " - invoked http://[no url", "heard urlHandlerInvoked "});
    expect(box, {"navigator", "event", "8"},
           {begin + " - orientation", "NavigatorPrivate::handleOrientation - angle=-1, id=",
            delivering + "angle=-1, id=", delivering + "auto reply"});
    expect(box, {"navigator", "event", "7"},
           {begin + " - orientation check", checking + "angle=-1", checking + "allow=0",
            checking + "exlpode"});
}

/** Turns, and what the application answers. */
class OrientationSystemTest : public NavigatorSystemTest
{
protected:
    /** What the application prints when it is asked whether it would turn. */
    static Lines check(int angle, bool isAccepted)
    {
        return {begin + " - orientation check", checking + "angle=" + std::to_string(angle),
                checking + "allow=" + (isAccepted ? "1" : "0")};
    }

    /** ... and when it is turned, without the ids, which are the box's. */
    static Lines turn(int angle, const Lines& answer)
    {
        Lines lines = check(angle, true);
        const std::string angleText = "angle=" + std::to_string(angle) + ", id=ID";
        lines.insert(lines.end(), {begin + " - orientation",
                                   "NavigatorPrivate::handleOrientation - " + angleText,
                                   delivering + angleText});
        lines.insert(lines.end(), answer.begin(), answer.end());
        lines.push_back(begin + " - orientation done");
        return lines;
    }

    static Lines withoutIds(Lines lines)
    {
        for (std::string& line : lines) {
            const std::size_t id = line.find("id=");
            if (id != std::string::npos)
                line.replace(id + 3, std::string::npos, "ID");
        }
        return lines;
    }

    /** Turns the phone, and expects the application to print exactly some lines. */
    std::string rotate(const Box& box, const Lines& arguments, const Lines& lines) const
    {
        const std::size_t before = box.launcher->output().size();
        Lines command = {"rotate", "--json"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const Result result = in(box, command);
        EXPECT_THAT(result, succeeds());
        waitFor(box, before, lines.back());
        EXPECT_EQ(withoutIds(linesOf(box.launcher->output().substr(before))), lines);
        return result.output;
    }
};

const std::string doneLine = "OrientationRequestImpl::done - id=ID";

TEST_P(OrientationSystemTest, ApplicationThatAllowsNothingStays)
{
    const Box box = startApplication({"handler?now"});
    EXPECT_THAT(rotate(box, {"90"}, check(90, false)),
                AllOf(HasSubstr("\"check\":\"refused\""), HasSubstr("\"turned\":false")));
}

TEST_P(OrientationSystemTest, ItsOwnHandlerAnswers)
{
    const Box box = startApplication({"allow?1", "handler?now"});
    for (const int angle : {90, 180, 270, 0}) {
        const std::string angleText = std::to_string(angle);
        EXPECT_THAT(rotate(box, {angleText}, turn(angle, {"paint " + angleText, doneLine})),
                    AllOf(HasSubstr("\"check\":\"accepted\""), HasSubstr("\"done\":\"done\""),
                          HasSubstr("\"turned\":true,\"rotation\":" + angleText + '}')));
    }
}

TEST_P(OrientationSystemTest, WithoutAHandlerTheTurnIsAnsweredAllTheSame)
{
    const Box box = startApplication({"allow?1"});
    EXPECT_THAT(rotate(box, {"90"}, turn(90, {delivering + "auto reply"})),
                HasSubstr("\"done\":\"done\""));
}

TEST_P(OrientationSystemTest, AnswersFromAnotherThreadOrTwiceCountOnce)
{
    const Box box = startApplication({"allow?1", "handler?thread"});
    EXPECT_THAT(rotate(box, {"90"}, turn(90, {"paint 90", doneLine})),
                HasSubstr("\"done\":\"done\""));
    order(box, "handler", "twice");
    EXPECT_THAT(rotate(box, {"180"}, turn(180, {"paint 180", doneLine})),
                HasSubstr("\"done\":\"done\""));
    EXPECT_THAT(box.launcher->errors(), IsEmpty());
}

TEST_P(OrientationSystemTest, DroppedRequestAndHandlerThatThrowsLetThePhoneGoOnAtItsLimit)
{
    const Box box = startApplication({"allow?1", "handler?drop"});
    EXPECT_THAT(rotate(box, {"90", "--limit", "1s"}, turn(90, {"paint 90"})),
                AllOf(HasSubstr("\"done\":\"none\""), HasSubstr("\"turned\":true")));
    order(box, "handler", "throw");
    EXPECT_THAT(
        rotate(box, {"180", "--limit", "1s"}, turn(180, {"paint 180", "caught no paint left"})),
        HasSubstr("\"done\":\"none\""));
    order(box, "handler", "now");
    EXPECT_THAT(rotate(box, {"270"}, turn(270, {"paint 270", doneLine})),
                HasSubstr("\"done\":\"done\""));
}

TEST_P(OrientationSystemTest, LateAnswerIsSentAndSaidByTheBox)
{
    const Box box = startApplication({"allow?1", "handler?keep"});
    EXPECT_THAT(rotate(box, {"90", "--limit", "1s"}, turn(90, {"paint 90"})),
                HasSubstr("\"done\":\"none\""));
    order(box, "done");
    EXPECT_TRUE(box.launcher->complained("came too late"));
}

TEST_P(OrientationSystemTest, AllowedValuesDecideWithoutTheApplication)
{
    // The display is higher than wide at angle 0.
    const Box box = startApplication({"handler?now"});
    order(box, "allow", "3");
    rotate(box, {"90"}, check(90, false));
    rotate(box, {"180"}, turn(180, {"paint 180", doneLine}));
    const std::size_t before = box.launcher->output().size();
    order(box, "allow", "4");
    // The window stood at 180, and is turned back.
    waitFor(box, before, begin + " - orientation result");
    rotate(box, {"90"}, check(90, false));
}

TEST_P(OrientationSystemTest, ValueThatForbidsThePresentAngleTurnsTheWindow)
{
    const Box box = startApplication({"handler?now"});
    const std::size_t before = box.launcher->output().size();
    order(box, "allow", "2");
    waitFor(box, before, begin + " - orientation result");
    const Lines lines = withoutIds(linesOf(box.launcher->output().substr(before)));
    // The order is carried out in one thread while the events come in another.
    EXPECT_THAT(lines, IsSupersetOf({"NavigatorPrivate::setAllowedOrientation - allow=2",
                                     "NavigatorPrivate::setAllowedOrientation - force angle=90",
                                     "NavigatorPrivate::handleOrientation - angle=90, id=ID",
                                     "paint 90", doneLine.c_str()}));
    EXPECT_THAT(in(box, {"navigator", "--json"}).output, HasSubstr("\"angle\":90"));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("exlpode"))));
}

/**
 * Ends of applications and of the service. What the command says that ends an application, and the
 * box with it, is not looked at.
 */
class NavigatorEndSystemTest : public OrientationSystemTest
{
};

TEST_P(NavigatorEndSystemTest, ApplicationThatIsAskedToLeaveLeaves)
{
    const Box box = startApplication();
    const std::size_t before = box.launcher->output().size();
    in(box, {"navigator", "exit"});
    EXPECT_EQ(box.launcher->wait(), 0);
    EXPECT_THAT(linesOf(box.launcher->output().substr(before)),
                ElementsAre(begin + " - exit", "leaving",
                            "ZelEventDispatcher::processZelEvents() - thread stopped"));
}

TEST_P(NavigatorEndSystemTest, ApplicationsOwnStatusIsTheBoxs)
{
    const Box box = startApplication();
    in(box, {"navigator", "invoke", "order:quit?37"});
    EXPECT_EQ(box.launcher->wait(), 37);
}

TEST_P(NavigatorEndSystemTest, ServiceThatDiesInTheMiddleOfATurnComesBack)
{
    const Box box = startApplication({"allow?1", "handler?keep"});
    const std::size_t before = box.launcher->output().size();
    Process rotation(tamoBox({"rotate", "90", "--limit", "1h", "--box", box.name}), GetParam());
    waitFor(box, before, "paint 90");
    ASSERT_EQ(kill(box.find("navigator-servi"), SIGKILL), 0);
    EXPECT_NE(rotation.wait(), 0);
    // Nobody waits for this answer any more.
    order(box, "done");
    order(box, "handler", "now");
    const std::string group = groupOf(box);
    expect(box, {"navigator", "thumbnail"},
           {begin + " - window state", "NavigatorPrivate::handleWindowStateEvent - thumbnail",
            "heard thumbnail " + group});
    EXPECT_THAT(rotate(box, {"180"}, turn(180, {"paint 180", doneLine})),
                HasSubstr("\"done\":\"done\""));
}

TEST_P(NavigatorEndSystemTest, VersionIsThatOfTheBox)
{
    const Box box = startApplication();
    order(box, "version");
    const std::string data = in(box, {"pps", "get", "services/deviceinfo/data"}).output;
    const std::size_t version = data.find("OsVersion::") + 11;
    EXPECT_THAT(linesOf(box.launcher->output()),
                Contains("version " + data.substr(version, data.find('\n', version) - version)));
}

TEST_P(NavigatorEndSystemTest, WithoutAPhoneItRunsAndNothingIsHeard)
{
    Process application({helper("tamo-test-application"), "version", "allow?2"}, GetParam());
    ASSERT_TRUE(application.printed("listening"));
    EXPECT_EQ(kill(application.pid(), SIGTERM), 0);
    EXPECT_EQ(application.wait(), 128 + SIGTERM);
    EXPECT_THAT(
        linesOf(application.output()),
        IsSupersetOf({"NavigatorPrivate::NavigatorPrivate - width=768",
                      "NavigatorPrivate::NavigatorPrivate - height=1280",
                      "NavigatorPrivate::NavigatorPrivate - angle=0",
                      "ZelEventDispatcher::processZelEvents() - thread started", "version 0.0.0.0",
                      "NavigatorPrivate::setAllowedOrientation - allow=2",
                      "NavigatorPrivate::setAllowedOrientation - force angle=90",
                      "NavigatorPrivate::setAllowedOrientation: exlpode"}));
}

BOX_TEST_USERS(NavigatorSystemTest);
BOX_TEST_USERS(OrientationSystemTest);
BOX_TEST_USERS(NavigatorEndSystemTest);

} // namespace
