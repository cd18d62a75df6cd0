// SPDX-License-Identifier: Apache-2.0
#include "NavigatorTest.h"

#include <QObject>

#include <gmock/gmock.h>

#include <limits>

using namespace tamotest;
using namespace testing;
using tamo::Navigator;
using Display = SubstituteScreenApi::Display;

namespace {

const std::string setting = "NavigatorPrivate::setAllowedOrientation - ";
const std::string checking = "NavigatorPrivate::handleOrientationCheck - ";
const std::string badAngle = "NavigatorPrivate::isDisplayLandscapeForAngle: exlpode";

const Display portrait{0, 600, 1024};
const Display landscape{0, 1024, 600};

// The last ones are nobody's values.
const int allowedValues[] = {Navigator::AllowNone,
                             Navigator::AllowAll,
                             Navigator::AllowLandscape,
                             Navigator::AllowPortrait,
                             Navigator::AllowDefaultAngle,
                             5,
                             -1,
                             std::numeric_limits<int>::max()};
const int angles[] = {0, 90, 180, 270, 45, -90, 360};

bool isRightAngle(int angle)
{
    return angle == 0 || angle == 90 || angle == 180 || angle == 270;
}

/** Whether a display is landscape at an angle, as a person would say. */
bool isLandscape(bool isNaturalLandscape, int angle)
{
    if (!isRightAngle(angle))
        return false;
    const bool isUpright = angle == 0 || angle == 180;
    return isUpright ? isNaturalLandscape : !isNaturalLandscape;
}

bool usesLandscapeRule(int allow)
{
    return allow == Navigator::AllowLandscape || allow == Navigator::AllowPortrait;
}

class AllowedOrientationTest : public NavigatorTest
{
protected:
    void check(int angle)
    {
        EventContent content;
        content.angle = angle;
        content.id = "check-1";
        deliver(NAVIGATOR_ORIENTATION_CHECK, content);
    }

    /** Makes a navigator whose window is at an angle, on a display that is like this at 0. */
    void makeAt(int angle, const Display& display)
    {
        const bool isTurned = angle == 90 || angle == 270;
        make(isTurned ? Display{angle, display.height, display.width}
                      : Display{angle, display.width, display.height});
    }
};

/** A value, an angle that is asked for, and whether the display is landscape at 0. */
class OrientationCheckTest : public AllowedOrientationTest,
                             public WithParamInterface<std::tuple<int, int, bool>>
{
protected:
    static bool isAccepted(int allow, int angle, bool isNaturalLandscape)
    {
        switch (allow) {
        case Navigator::AllowAll:
            return true;
        case Navigator::AllowLandscape:
            return isLandscape(isNaturalLandscape, angle);
        case Navigator::AllowPortrait:
            return !isLandscape(isNaturalLandscape, angle);
        case Navigator::AllowDefaultAngle:
            return angle == 0;
        default:
            return false;
        }
    }
};

TEST_P(OrientationCheckTest, IsAnsweredByTheAllowedValue)
{
    const auto& [allow, angle, isNaturalLandscape] = GetParam();
    make(isNaturalLandscape ? landscape : portrait);
    listen();
    navigatorImpl().setAllowedOrientation(allow);
    logged();
    journal.clear();

    check(angle);
    const bool isYes = isAccepted(allow, angle, isNaturalLandscape);
    std::vector<std::string> lines = {"NavigatorPrivate::handleZelEvent - orientation check",
                                      checking + "angle=" + std::to_string(angle)};
    if (usesLandscapeRule(allow) && !isRightAngle(angle))
        lines.push_back(badAngle);
    lines.push_back(checking + "allow=" + (isYes ? "1" : "0"));
    EXPECT_EQ(logged(), lines);
    EXPECT_THAT(argumentsOf("navigator.orientationCheckResponseId"),
                ElementsAre(isYes ? "check-1, true" : "check-1, false"));
    EXPECT_THAT(heard(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, OrientationCheckTest,
                         Combine(ValuesIn(allowedValues), ValuesIn(angles), Bool()));

TEST_F(AllowedOrientationTest, AcceptedCheckMovesTheWindowsAngle)
{
    make(portrait);
    listen();
    navigatorImpl().setAllowedOrientation(Navigator::AllowAll);
    for (const int angle : {90, 180, 270, 0, 45}) {
        navigatorImpl().setAllowedOrientation(Navigator::AllowAll);
        check(angle);
        EXPECT_EQ(findAngle(), angle);
    }
}

TEST_F(AllowedOrientationTest, RefusedCheckDoesNot)
{
    make(portrait);
    listen();
    check(90);
    EXPECT_EQ(findAngle(), 0);
}

TEST_F(AllowedOrientationTest, FailedAnswerIsLoggedAndTheAngleMovesAllTheSame)
{
    for (const int error : {EIO, 0}) {
        make(portrait);
        journal.clear();
        listen();
        navigatorImpl().setAllowedOrientation(Navigator::AllowAll);
        logged();
        // Leaves errno behind in the dispatch thread.
        journal.fail("navigator.eventGetOrientationAngle", 1, ERANGE);
        journal.fail("navigator.orientationCheckResponseId", 1, error);
        check(180);
        EXPECT_THAT(logged(), ElementsAre("NavigatorPrivate::handleZelEvent - orientation check",
                                          checking + "angle=180", checking + "allow=1",
                                          checking + "exlpode"));
        EXPECT_EQ(journal.calls("navigator.orientationCheckResponseId").at(0).errnoBefore, 0);
        EXPECT_EQ(findAngle(), 180);
        destroy();
    }
}

TEST_F(AllowedOrientationTest, CheckWithoutAnIdIsAnsweredWithoutOne)
{
    make();
    listen();
    deliver(NAVIGATOR_ORIENTATION_CHECK);
    EXPECT_THAT(argumentsOf("navigator.orientationCheckResponseId"), ElementsAre("null, false"));
}

TEST_F(AllowedOrientationTest, IsNoneAtFirst)
{
    EXPECT_EQ(make().allowedOrientation(), Navigator::AllowNone);
}

TEST_F(AllowedOrientationTest, IsWhatWasSet)
{
    make();
    for (const int allow : allowedValues) {
        navigatorImpl().setAllowedOrientation(allow);
        EXPECT_EQ(navigatorImpl().allowedOrientation(), allow);
    }
}

/** A value, the window's angle when it is set, and whether the display is landscape at 0. */
class ForcedRotationTest : public AllowedOrientationTest,
                           public WithParamInterface<std::tuple<int, int, bool>>
{
protected:
    static int target(int allow, int angle, bool isNaturalLandscape)
    {
        const bool isWide = isLandscape(isNaturalLandscape, angle);
        const bool isOver = (allow == Navigator::AllowPortrait && isWide) ||
                            (allow == Navigator::AllowLandscape && !isWide);
        if (allow == Navigator::AllowDefaultAngle)
            return 0;
        return isOver ? (angle + 90) % 360 : angle;
    }
};

TEST_P(ForcedRotationTest, TurnsTheWindowWhereItsAngleIsNotAllowed)
{
    const auto& [allow, angle, isNaturalLandscape] = GetParam();
    makeAt(angle, isNaturalLandscape ? landscape : portrait);
    // A display at an odd angle is not landscape, whatever its size says.
    const int forced = target(allow, angle, isNaturalLandscape && isRightAngle(angle));

    navigatorImpl().setAllowedOrientation(allow);
    std::vector<std::string> lines;
    std::vector<std::string> calls;
    if (allow != Navigator::AllowNone)
        lines.push_back(setting + "allow=" + std::to_string(allow));
    if (usesLandscapeRule(allow) && !isRightAngle(angle))
        lines.push_back(badAngle);
    if (forced != angle) {
        lines.push_back(setting + "force angle=" + std::to_string(forced));
        calls.push_back(std::to_string(forced) + ", null");
    }
    EXPECT_EQ(logged(), lines);
    EXPECT_EQ(argumentsOf("navigator.setOrientation"), calls);

    navigatorImpl().setAllowedOrientation(allow);
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_EQ(findAngle(), (forced + 360) % 360);
}

INSTANTIATE_TEST_SUITE_P(, ForcedRotationTest,
                         Combine(ValuesIn(allowedValues), ValuesIn(angles), Bool()));

TEST_F(AllowedOrientationTest, FailedRotationIsLoggedAndTheAngleMovesAllTheSame)
{
    for (const int error : {EIO, 0}) {
        make(landscape);
        journal.clear();
        journal.fail("navigator.setOrientation", 1, error);
        errno = ERANGE;
        navigatorImpl().setAllowedOrientation(Navigator::AllowPortrait);
        EXPECT_THAT(logged(), ElementsAre(setting + "allow=3", setting + "force angle=90",
                                          "NavigatorPrivate::setAllowedOrientation: exlpode"));
        EXPECT_EQ(journal.calls("navigator.setOrientation").at(0).errnoBefore, 0);
        EXPECT_EQ(findAngle(), 90);
    }
}

TEST_F(AllowedOrientationTest, TurnsFromTheGreatestAngle)
{
    make(portrait);
    listen();
    navigatorImpl().setAllowedOrientation(Navigator::AllowAll);
    check(std::numeric_limits<int>::max());
    navigatorImpl().setAllowedOrientation(Navigator::AllowLandscape);
    // (2^31 - 1 + 90) modulo 360
    EXPECT_THAT(argumentsOf("navigator.setOrientation"), ElementsAre("217, null"));
}

// Called in the dispatch thread, with the registry lock held.
TEST_F(AllowedOrientationTest, MayBeSetInASlotThatRunsDirectly)
{
    make(landscape);
    listen();
    QObject::connect(&navigatorImpl(), &Navigator::awake, [this](const QString&) {
        navigatorImpl().setAllowedOrientation(Navigator::AllowPortrait);
    });
    deliver(NAVIGATOR_WINDOW_ACTIVE);
    EXPECT_THAT(argumentsOf("navigator.setOrientation"), ElementsAre("90, null"));
}

TEST_F(AllowedOrientationTest, MayBeSetFromEveryThreadAtOnceWhileChecksCome)
{
    make(portrait);
    listen();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this, i] {
            for (int n = 0; n < 200; ++n) {
                navigatorImpl().setAllowedOrientation((n + i) % 6);
                navigatorImpl().allowedOrientation();
            }
        });
    }
    for (int n = 0; n < 200; ++n)
        check(n % 4 * 90);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(journal.count("navigator.orientationCheckResponseId"), 200);
}

} // namespace
