// SPDX-License-Identifier: Apache-2.0
// Each call of the platform fails in turn: when the manager is made, and when an event comes.
#include "DisplayManagerTest.h"

#include <tamo/Exception.h>

#include <QSignalSpy>

#include <gmock/gmock.h>

using namespace tamotest;
using namespace testing;
using tamo::device::Display;
using tamo::device::DisplayManager;

namespace {

const std::string making = "DisplayManagerPrivate::DisplayManagerPrivate(): ";
const std::string reading = "DisplayPrivate::createDisplay(): screen_get_display_property(";
const std::string handling = "DisplayManagerPrivate::handleDisplayEvent(): ";
const std::string threwLine =
    "ZelEventDispatcher::processZelEvents() - a handler threw an exception";

/** A call that fails: which it is, in its part of the way, and what is logged last. */
struct Failure
{
    std::string name;
    std::string operation;
    int nth;
    std::string line;
};

// Of one display.
const Failure readings[] = {
    {"Id", "getDisplayPropertyIv", 1, reading + "SCREEN_PROPERTY_ID) failed"},
    {"Name", "getDisplayPropertyCv", 1, reading + "SCREEN_PROPERTY_ID_STRING) failed"},
    {"Type", "getDisplayPropertyIv", 2, reading + "SCREEN_PROPERTY_TYPE) failed"},
    {"Attached", "getDisplayPropertyIv", 3, reading + "SCREEN_PROPERTY_ATTACHED) failed"},
    {"Detachable", "getDisplayPropertyIv", 4, reading + "SCREEN_PROPERTY_DETACHABLE ) failed"},
    {"PhysicalSize", "getDisplayPropertyIv", 5, reading + "SCREEN_PROPERTY_PHYSICAL_SIZE) failed"},
    {"Rotation", "getDisplayPropertyIv", 6, reading + "SCREEN_PROPERTY_ROTATION) failed"},
    {"Size", "getDisplayPropertyIv", 7, reading + "SCREEN_PROPERTY_SIZE) failed"},
};
constexpr int numbersOfADisplay = 7;

std::vector<Failure> failuresOfMaking()
{
    std::vector<Failure> failures = {
        {"Context", "createContext", 1, making + "screen_create_context() failed"},
        {"Count", "getContextPropertyIv", 1,
         making + "screen_get_context_property_iv(SCREEN_PROPERTY_DISPLAY_COUNT) failed"},
        {"Handles", "getContextPropertyPv", 1,
         making + "screen_get_context_property_iv(SCREEN_PROPERTY_DISPLAYS) failed"},
    };
    for (const Failure& failure : readings) {
        failures.push_back(failure);
        Failure second = failure;
        second.name += "OfSecond";
        second.nth += failure.operation == "getDisplayPropertyIv" ? numbersOfADisplay : 1;
        failures.push_back(second);
    }
    return failures;
}

std::vector<Failure> failuresOfAnEvent()
{
    std::vector<Failure> failures = {
        {"EventType", "getEventPropertyIv", 1,
         handling + "screen_get_event_property_iv(SCREEN_PROPERTY_TYPE) failed"},
        {"EventDisplay", "getEventPropertyPv", 1,
         handling + "screen_get_event_property_pv(SCREEN_PROPERTY_DISPLAY) failed"},
        {"EventDisplayId", "getDisplayPropertyIv", 1,
         handling + "screen_get_display_property_iv(SCREEN_PROPERTY_ID) failed"},
        {"EventAttached", "getEventPropertyIv", 2,
         handling + "screen_get_event_property_iv(SCREEN_PROPERTY_ATTACHED) failed"},
    };
    for (Failure failure : readings) {
        failure.nth += failure.operation == "getDisplayPropertyIv" ? 1 : 0;
        failures.push_back(failure);
    }
    return failures;
}

class DisplayFailureTest : public DisplayManagerTest,
                           public WithParamInterface<std::tuple<Failure, int>>
{
protected:
    const Failure& failure() const { return std::get<0>(GetParam()); }

    void failNow()
    {
        journal.fail("screenApi." + failure().operation, failure().nth, std::get<1>(GetParam()));
        errno = ERANGE;
    }

    void expectErrnoWasCleared()
    {
        for (const Call& call : journal.calls()) {
            const bool isGetter = call.operation.compare(0, 13, "screenApi.get") == 0;
            EXPECT_TRUE(!isGetter || call.errnoBefore == 0) << call.operation << call.arguments;
        }
    }
};

class FailedMaking : public DisplayFailureTest
{
};

TEST_P(FailedMaking, ThrowsAfterItsLineAndLeavesNothingBehind)
{
    failNow();
    EXPECT_THROW(make(phoneAndTelevision()), tamo::Exception);
    EXPECT_EQ(log.lines().back(), failure().line);
    EXPECT_EQ(log.linesWith("Display").size(), 1U);
    EXPECT_EQ(screen.contextCount(), 0);
    expectErrnoWasCleared();
    make(phoneAndTelevision());
    EXPECT_EQ(manager().primaryDisplayId(), 1);
}

TEST_P(FailedMaking, LeavesTheParentAsItWas)
{
    screen.setDisplays(phoneAndTelevision());
    QObject parent;
    failNow();
    EXPECT_THROW(new DisplayManager(&parent), tamo::Exception);
    EXPECT_TRUE(parent.children().isEmpty());
}

std::string nameOf(const TestParamInfo<std::tuple<Failure, int>>& info)
{
    const auto& [failure, error] = info.param;
    return failure.name + (error != 0 ? "WithErrno" : "WithoutErrno");
}

INSTANTIATE_TEST_SUITE_P(Each, FailedMaking, Combine(ValuesIn(failuresOfMaking()), Values(EIO, 0)),
                         nameOf);

class FailedEvent : public DisplayFailureTest
{
};

TEST_P(FailedEvent, IsLoggedAndChangesNothingAndTheNextOneComes)
{
    make(phoneAndTelevision());
    listen(2);
    Displays displays = phoneAndTelevision();
    displays[1].name = "Projector";
    screen.setDisplays(displays);
    failNow();
    setAttached(1, true);
    EXPECT_EQ(log.count(threwLine), 1);
    EXPECT_EQ(logged().back(), failure().line);
    EXPECT_THAT(heard(), IsEmpty());
    EXPECT_FALSE(display(2).isAttached());
    EXPECT_EQ(display(2).displayName(), QStringLiteral("Television"));
    expectErrnoWasCleared();
    setAttached(1, true);
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(1)", "displayAttached(2)"));
    EXPECT_EQ(display(2).displayName(), QStringLiteral("Projector"));
}

INSTANTIATE_TEST_SUITE_P(Each, FailedEvent, Combine(ValuesIn(failuresOfAnEvent()), Values(EIO, 0)),
                         nameOf);

class DisplaySubscriptionFailureTest : public DisplayManagerTest
{
};

TEST_F(DisplaySubscriptionFailureTest, EventWithoutAScreenEventIsLogged)
{
    make(phoneAndTelevision());
    listen(2);
    journal.fail("screen.eventGetEvent");
    setAttached(1, true);
    EXPECT_THAT(logged(), ElementsAre(handling + "screen_get_event_property_iv("
                                                 "SCREEN_PROPERTY_TYPE) failed"));
    setAttached(1, true);
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(1)", "displayAttached(2)"));
}

TEST_F(DisplaySubscriptionFailureTest, ConnectionThatCannotBeServedThrowsAndIsNotThere)
{
    make(phoneAndTelevision());
    const auto connectOnce = [this] {
        QObject::connect(&manager(), &DisplayManager::displayAttached, [](int) {});
    };
    journal.fail("core.registerDomain");
    EXPECT_THROW(connectOnce(), tamo::Exception);
    EXPECT_TRUE(core.channels().empty());
    listen(2);
    setAttached(1, true);
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(1)", "displayAttached(2)"));
}

TEST_F(DisplaySubscriptionFailureTest, ContextThatCannotBeEndedIsNoObstacle)
{
    make(phoneAndTelevision());
    journal.fail("screenApi.destroyContext");
    destroy();
    EXPECT_EQ(screen.destroyContext(reinterpret_cast<screen_context_t>(std::uintptr_t{1})), 0);
}

} // namespace
