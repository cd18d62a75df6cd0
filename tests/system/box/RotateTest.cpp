// SPDX-License-Identifier: Apache-2.0
#include "NavigatedTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

class RotateTest : public NavigatedTest
{
protected:
    static std::string reportOf(const std::string& angle, const std::string& group,
                                const std::string& check, const std::string& done,
                                const std::string& turned, const std::string& rotation)
    {
        const auto timeOf = [](const std::string& outcome) {
            return outcome == "not asked" || outcome == "locked" ? "null" : "[0-9.e-]+";
        };
        return "\\{\"angle\":" + angle + ",\"group\":\"" + group + "\",\"check\":\"" + check +
               "\",\"checkTime\":" + timeOf(check) + ",\"done\":\"" + done +
               "\",\"doneTime\":" + timeOf(done) + ",\"turned\":" + turned +
               ",\"rotation\":" + rotation + "\\}\n";
    }

    std::string displays(const Box& box) const
    {
        return in(box, {"pps", "get", "services/screen/displays"}).output;
    }
};

TEST_P(RotateTest, ApplicationThatAcceptsIsTurned)
{
    const Box box = startNavigated();
    const Navigated application = applicationOf(box);
    const Result result = in(box, {"rotate", "90", "--json"});
    EXPECT_THAT(result, succeeds());
    EXPECT_THAT(result.output,
                MatchesRegex(reportOf("90", application.group, "accepted", "done", "true", "90")));
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":90"));
    EXPECT_THAT(in(box, {"navigator", "--json"}).output, HasSubstr("\"angle\":90"));
    EXPECT_TRUE(box.launcher->printed("msg::orientationEnd,angle:n:90\n"));
    EXPECT_THAT(box.launcher->output(),
                ContainsRegex("msg::orientationCheck,angle:n:90,id::[0-9]+-1\n"
                              "msg::orientation,angle:n:90,id::[0-9]+-2\n"
                              "msg::orientationEnd,angle:n:90\n"));
    EXPECT_THAT(in(box, {"rotate", "0"}).output,
                MatchesRegex("application  " + application.group +
                             "\ncheck        accepted  [0-9.]+ ms\ndisplay      turned to 0\n"
                             "orientation  done  [0-9.]+ ms\n"));
}

TEST_P(RotateTest, ApplicationThatRefusesKeepsItsAngle)
{
    const Box box = startNavigated({"refuse"});
    EXPECT_THAT(in(box, {"rotate", "90", "--json"}).output,
                MatchesRegex(reportOf("90", applicationOf(box).group, "refused", "not asked",
                                      "false", "0")));
    EXPECT_THAT(in(box, {"rotate", "90"}).output,
                HasSubstr("display      stays at 0\norientation  not asked\n"));
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":0"));
}

TEST_P(RotateTest, ApplicationWithLockedRotationIsNotAsked)
{
    const Box box = startNavigated({"msg::rotationLock,locked:b:true"});
    applicationsWith(box, "\"rotationLocked\":true");
    EXPECT_THAT(in(box, {"rotate", "90", "--json"}).output,
                MatchesRegex(
                    reportOf("90", applicationOf(box).group, "locked", "not asked", "false", "0")));
    EXPECT_THAT(box.launcher->output(), Not(HasSubstr("orientation")));
}

TEST_P(RotateTest, DisplayIsTurnedAtOnceWhereNobodyIsInTheForeground)
{
    const Box box = startIdle();
    EXPECT_THAT(in(box, {"rotate", "270", "--json"}).output,
                MatchesRegex(reportOf("270", "", "not asked", "not asked", "true", "270")));
    EXPECT_THAT(in(box, {"rotate", "180"}).output,
                "application  none in the foreground\ncheck        not asked\n"
                "display      turned to 180\norientation  not asked\n");
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":180"));
    const auto process = startBeside(box);
    applicationsWith(box, "\"angle\":180");
}

TEST_P(RotateTest, ApplicationThatDoesNotAnswerKeepsItsAngle)
{
    const Box box = startNavigated({"ignore=orientationCheck"});
    const Navigated application = applicationOf(box);
    EXPECT_THAT(in(box, {"rotate", "90", "--limit", "50ms", "--json"}).output,
                MatchesRegex(reportOf("90", application.group, "none", "not asked", "false", "0")));
    ASSERT_TRUE(box.launcher->printed("msg::orientationCheck"));
    const std::string id = valueIn(application, "msg::orientationCheck", "id");
    have(box, application, "msg::orientationCheckResponse,accept:b:true,id::" + id);
    EXPECT_TRUE(box.launcher->complained("the answer '" + id + "' came too late\n"));
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":0"));
}

TEST_P(RotateTest, ApplicationThatIsNeverDoneIsWaitedForWithinTheLimit)
{
    const Box box = startNavigated({"ignore=orientation"});
    const Navigated application = applicationOf(box);
    EXPECT_THAT(in(box, {"rotate", "90", "--limit", "1s", "--json"}).output,
                MatchesRegex(reportOf("90", application.group, "accepted", "none", "true", "90")));
    ASSERT_TRUE(box.launcher->printed("msg::orientationEnd,angle:n:90\n"));
    const std::string id = valueIn(application, "msg::orientation,", "id");
    have(box, application, "msg::orientationDone,id::" + id);
    EXPECT_TRUE(box.launcher->complained("the answer '" + id + "' came too late\n"));
}

TEST_P(RotateTest, ApplicationThatDiesIsGoneAtOnce)
{
    const Box box = startNavigated();
    for (const char* how : {"die", "leave"}) {
        const auto asked = startBeside(box, {std::string(how) + "=orientationCheck"});
        const std::string first = applicationOf(*asked).group;
        EXPECT_THAT(in(box, {"rotate", "90", "--limit", "1h", "--json"}).output,
                    MatchesRegex(reportOf("90", first, "gone", "not asked", "false", "[0-9]+")));
        const auto turned = startBeside(box, {std::string(how) + "=orientation"});
        const std::string second = applicationOf(*turned).group;
        EXPECT_THAT(in(box, {"rotate", "180", "--limit", "1h", "--json"}).output,
                    MatchesRegex(reportOf("180", second, "accepted", "gone", "true", "180")));
    }
}

TEST_P(RotateTest, AnswersThatNobodyAskedForAreIgnored)
{
    const Box box = startNavigated({"twice", "foreign"});
    const Navigated application = applicationOf(box);
    EXPECT_THAT(in(box, {"rotate", "90", "--json"}).output,
                MatchesRegex(reportOf("90", application.group, "accepted", "done", "true", "90")));
    EXPECT_TRUE(box.launcher->complained("the answer 'nobody-asked' is to what was never asked\n"));
    ASSERT_TRUE(box.launcher->printed("msg::orientationEnd"));
    const std::string check = valueIn(application, "msg::orientationCheck", "id");
    const std::string done = valueIn(application, "msg::orientation,", "id");
    EXPECT_TRUE(box.launcher->complained("the answer '" + check + "' came twice\n"));
    EXPECT_TRUE(box.launcher->complained("the answer '" + done + "' came twice\n"));
}

TEST_P(RotateTest, AnswersOfAnotherApplicationAreIgnored)
{
    const Box box = startNavigated();
    const Navigated other = applicationOf(box);
    const auto process = startBeside(box, {"ignore=orientationCheck"});
    const Navigated asked = applicationOf(*process);
    const auto rotate = begin(box, {"rotate", "90", "--limit", "1h", "--json"});
    ASSERT_TRUE(process->printed("msg::orientationCheck"));
    ASSERT_TRUE(process->printed(",id::"));
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    ASSERT_TRUE(process->printed("msg::back\n"));
    const std::string answer =
        ",accept:b:true,id::" + valueIn(asked, "msg::orientationCheck", "id");
    have(box, other, "msg::orientationCheckResponse" + answer);
    EXPECT_TRUE(box.launcher->complained(" is to what another process was asked\n"));
    have(box, asked, "msg::orientationDone" + answer);
    EXPECT_TRUE(box.launcher->complained(" is to a question of another kind\n"));
    have(box, asked, "msg::orientationCheckResponse" + answer);
    EXPECT_EQ(rotate->wait(), 0) << rotate->errors();
    EXPECT_THAT(rotate->output(),
                MatchesRegex(reportOf("90", asked.group, "accepted", "done", "true", "90")));
}

TEST_P(RotateTest, OneTurnIsPlayedAtATime)
{
    const Box box = startNavigated({"ignore=orientationCheck"});
    const Navigated application = applicationOf(box);
    const auto first = begin(box, {"rotate", "90", "--limit", "1h", "--json"});
    ASSERT_TRUE(box.launcher->printed("msg::orientationCheck,angle:n:90"));
    // What it wishes itself waits, too.
    have(box, application, "msg::setOrientation,angle:n:270,id::wish");
    const auto second = begin(box, {"rotate", "180", "--limit", "50ms", "--wait", "1ms", "--json"});
    EXPECT_THAT(in(box, {"navigator", "back"}), succeeds());
    ASSERT_TRUE(box.launcher->printed("msg::back\n"));
    EXPECT_EQ(countOf(box.launcher->output(), "orientation"), 1);
    have(box, application,
         "msg::orientationCheckResponse,accept:b:true,id::" +
             valueIn(application, "msg::orientationCheck", "id"));
    EXPECT_EQ(first->wait(), 0) << first->errors();
    EXPECT_THAT(first->output(), HasSubstr("\"done\":\"done\""));
    EXPECT_EQ(second->wait(), 0) << second->errors();
    EXPECT_THAT(second->output(), HasSubstr("\"check\":\"none\""));
    EXPECT_TRUE(box.launcher->printed("msg::orientationResult,angle:n:270,id::wish\n"));
}

TEST_P(RotateTest, ApplicationTurnsItself)
{
    const Box box = startNavigated();
    const Navigated application = applicationOf(box);
    have(box, application, "msg::setOrientation,angle:n:90,id::one");
    EXPECT_TRUE(box.launcher->printed("msg::orientationEnd,angle:n:90\n"
                                      "msg::orientationResult,angle:n:90,id::one\n"));
    EXPECT_THAT(box.launcher->output(), ContainsRegex("msg::orientation,angle:n:90,id::[0-9-]+\n"));
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":90"));
    EXPECT_THAT(in(box, {"navigator", "--json"}).output, HasSubstr("\"angle\":90"));
    have(box, application, "msg::setOrientation,angle:n:90,id::two");
    EXPECT_TRUE(box.launcher->printed("id::two\nmsg::orientationResult,angle:n:90,id::two\n"));
    EXPECT_EQ(countOf(box.launcher->output(), "msg::orientation,"), 1);
    EXPECT_EQ(box.launcher->errors(), "");
}

TEST_P(RotateTest, ApplicationInTheBackgroundDoesNotTurnTheDisplay)
{
    const Box box = startNavigated();
    const Navigated application = applicationOf(box);
    const auto process = startBeside(box);
    have(box, application, "msg::setOrientation,angle:n:90,id::one");
    EXPECT_TRUE(box.launcher->printed("msg::orientationResult,angle:n:0,id::one,err::" +
                                      application.group + " is not in the foreground\n"));
    EXPECT_THAT(in(box, {"rotate", "90", "--group", application.group, "--wait", "1ms"}),
                failsWith(1, application.group + " is not in the foreground"));
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":0"));
}

TEST_P(RotateTest, ApplicationMayAskToBeTurnedBeforeItListens)
{
    const Box box = start({"sh", "-c",
                           "printf 'msg::setOrientation\nangle:n:90\nid::early\n'"
                           " > /pps/services/navigator/control && echo started &&"
                           " exec cat '/pps/services/navigator/events?wait'"});
    EXPECT_TRUE(box.launcher->printed("msg::orientation\nangle:n:90\n"));
    EXPECT_TRUE(box.launcher->printed("msg::orientationResult\nangle:n:90\nid::early\n"));
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":90"));
}

TEST_P(RotateTest, DisplayServiceThatDoesNotAnswerIsAnError)
{
    const Box box = startNavigated();
    box.signal("display-service", SIGSTOP);
    const Result result = in(box, {"rotate", "90", "--json"});
    EXPECT_THAT(result, failsWith(1, "the display was not turned: the display service did not "
                                     "answer within 2000 ms"));
    EXPECT_THAT(result.output, MatchesRegex(reportOf("90", applicationOf(box).group, "accepted",
                                                     "not asked", "false", "0")));
    EXPECT_TRUE(box.launcher->printed("msg::orientationEnd,angle:n:0\n"));
    box.signal("display-service", SIGKILL);
    EXPECT_THAT(in(box, {"rotate", "90"}), succeeds());
    EXPECT_THAT(displays(box), HasSubstr("\"rotation\":90"));
}

BOX_TEST_USERS(RotateTest);

} // namespace
