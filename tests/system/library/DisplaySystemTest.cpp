// SPDX-License-Identifier: Apache-2.0
// An application that follows the displays of a real box.
#include "BoxTest.h"

#include <signal.h>

using namespace boxtest;
using namespace testing;

namespace {

const std::string phone = R"({"id":1,"name":"Phone","type":"internal","width":768,"height":1280,)"
                          R"("physicalWidth":53,"physicalHeight":88})";
const std::string television = R"({"id":2,"name":"Television","width":1280,"height":720,)"
                               R"("physicalWidth":640,"physicalHeight":360,"attached":false})";

class DisplaySystemTest : public BoxTest
{
protected:
    /** Starts the application in a box with some displays, and waits until it hears events. */
    Box startFollowing(const std::string& displays) const
    {
        Box box = start({"sh", "-c",
                         "echo 'displays:json:[" + displays +
                             "]' > /pps/services/screen/displays && exec " +
                             helper("tamo-test-displays")},
                        "following\n");
        expect(box, {"navigator", "low-memory"}, {"low memory"});
        return box;
    }

    /** Runs tamo-box, and waits until the application has printed some lines, one after the other.
     */
    void expect(const Box& box, const std::vector<std::string>& command,
                const std::vector<std::string>& lines) const
    {
        const std::size_t before = box.launcher->output().size();
        EXPECT_THAT(in(box, command), succeeds());
        std::string text;
        for (const std::string& line : lines)
            text += line + '\n';
        EXPECT_TRUE(box.launcher->printed(text, before))
            << "not printed: " << text << "but: " << box.launcher->output().substr(before);
    }

    /** Has the application work by itself in a box, until it prints `done`; what it prints. */
    std::string runAlone(const std::string& mode, int count, const std::string& done) const
    {
        const Box box = start({helper("tamo-test-displays"), mode, std::to_string(count)}, done);
        return box.launcher->output();
    }
};

TEST_P(DisplaySystemTest, SeesASecondDisplayComeAndGo)
{
    const Box box = startFollowing(phone + ',' + television);
    EXPECT_THAT(box.launcher->output(),
                AllOf(HasSubstr("2 display(s)\n"), HasSubstr("primary 1\nsecondary 2\n")));
    const std::string description =
        "display 2: Television, 1280 x 720, 640 x 360 mm, aspect 0, type 1, ";
    for (int i = 0; i < 3; ++i) {
        expect(box, {"display", "attach", "2"},
               {"display Id: 2", "display name: Television", "display type: 30305", "attached: 1",
                "detachable: 1", "physical size: 640, 360", "rotation: 0", "pixel size: 1280, 720",
                "heard displayAttached 2", description + "attached, detachable"});
        expect(box, {"display", "detach", "2"},
               {"pixel size: 1280, 720", "heard displayDetached 2",
                description + "detached, detachable"});
    }
}

TEST_P(DisplaySystemTest, DisplayThatComesBackAsAnotherIsReadAnew)
{
    const Box box = startFollowing(phone + ',' + television);
    expect(box,
           {"display", "attach", "2", "--size", "1080x1920", "--physical-size", "0x0", "--name",
            "Projector", "--rotation", "90"},
           {"rotation: 90", "pixel size: 1080, 1920", "heard displayAttached 2",
            "display 2: Projector, 1080 x 1920, 0 x 0 mm, aspect 1, type 1, attached, detachable"});
}

TEST_P(DisplaySystemTest, DisplaysOfOddShapes)
{
    const std::string name(128, 'n');
    const Box box = startFollowing(
        R"({"id":5,"width":720,"height":720,"rotation":90,"name":")" + name + R"("},)" +
        R"({"id":2147483647,"width":2147483647,"height":1,"rotation":270,"type":"internal",)"
        R"("detachable":true},{"id":0,"width":1,"height":1},{"id":5,"width":1,"height":1})");
    EXPECT_THAT(box.launcher->output(),
                AllOf(HasSubstr("2 display(s)\n"), HasSubstr("display name: " + name + '\n'),
                      HasSubstr("rotation: 90\npixel size: 720, 720\n"),
                      HasSubstr("rotation: 270\npixel size: 2147483647, 1\n"),
                      HasSubstr("primary 2147483647\nsecondary 5\n")));
    expect(box, {"pps", "set", "services/screen/displays", "displays:json:[]"},
           {"heard displayDetached 2147483647"});
}

TEST_P(DisplaySystemTest, DisplayThatWasNotThereAtFirstIsLoggedAndTheApplicationLives)
{
    const Box box = startFollowing(phone + ',' + television);
    expect(box, {"display", "attach", "3"},
           {"DisplayManagerPrivate::getDisplay(): bad display ID:3",
            "ZelEventDispatcher::processZelEvents() - a handler threw an exception"});
    expect(box, {"display", "attach", "2"}, {"heard displayAttached 2"});
}

TEST_P(DisplaySystemTest, ServiceThatDiesIsNotNoticed)
{
    const Box box = startFollowing(phone + ',' + television);
    expect(box, {"display", "attach", "2"}, {"heard displayAttached 2"});
    const std::size_t before = box.launcher->output().size();
    box.signal("display-service", SIGKILL);
    ASSERT_TRUE(box.launcher->complained("display-service ended by signal 9; started again\n"));
    expect(box, {"display", "detach", "2"}, {"heard displayDetached 2"});
    EXPECT_THAT(box.launcher->output().substr(before), Not(HasSubstr("displayAttached")));
}

TEST_P(DisplaySystemTest, DamagedListChangesNothing)
{
    const Box box = startFollowing(phone + ',' + television);
    EXPECT_THAT(in(box, {"pps", "set", "services/screen/displays", "displays::none"}), succeeds());
    EXPECT_THAT(in(box, {"pps", "set", "services/screen/displays",
                         "displays:json:[" + phone + ',' + television + ']'}),
                succeeds());
    const std::size_t before = box.launcher->output().size();
    expect(box, {"display", "attach", "2"}, {"heard displayAttached 2"});
    EXPECT_THAT(box.launcher->output().substr(before), Not(HasSubstr("bad display ID")));
}

TEST_P(DisplaySystemTest, DisplayIsReadWhileItComesAndGoesTwoThousandTimes)
{
    EXPECT_THAT(runAlone("churn", 2000, "settled\n"),
                HasSubstr("\nwrong 0, out of turn 0, settled\n"));
}

TEST_P(DisplaySystemTest, ManagersComeAndGoWhileTheDisplayDoes)
{
    EXPECT_THAT(runAlone("again", 100, "done\n"),
                AllOf(HasSubstr("\ndone\n"), Not(HasSubstr("nothing was heard"))));
}

BOX_TEST_USERS(DisplaySystemTest);

} // namespace
