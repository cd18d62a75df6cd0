// SPDX-License-Identifier: Apache-2.0
// Displays that come and go while a DisplayManager is there.
#include "DisplayManagerTest.h"

#include <tamo/Exception.h>

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

#include <iostream>
#include <sstream>

using namespace tamotest;
using namespace testing;
using tamo::device::Display;
using tamo::device::DisplayManager;

namespace {

const std::string threwLine =
    "ZelEventDispatcher::processZelEvents() - a handler threw an exception";

class DisplayEventTest : public DisplayManagerTest
{
protected:
    DisplayEventTest() { make(phoneAndTelevision()); }

    bool isEverythingGone()
    {
        return eventually([this] { return core.channels().empty(); });
    }

    std::vector<std::string> argumentsOf(const std::string& operation) const
    {
        std::vector<std::string> arguments;
        for (const Call& call : journal.calls(operation))
            arguments.push_back(call.arguments);
        return arguments;
    }
};

TEST_F(DisplayEventTest, NothingIsRegisteredWithoutAConnection)
{
    const QSignalSpy spy(&display(2), &Display::attachedChanged);
    EXPECT_TRUE(core.channels().empty());
    EXPECT_EQ(journal.count("screen.requestEvents"), 0);
}

TEST_F(DisplayEventTest, AreAskedForWithTheContext)
{
    {
        const QSignalSpy spy(&manager(), &DisplayManager::displayDetached);
        awaitEvents();
        EXPECT_THAT(argumentsOf("screen.requestEvents"), ElementsAre("1"));
        const QSignalSpy other(&manager(), &DisplayManager::displayAttached);
    }
    EXPECT_TRUE(isEverythingGone());
    EXPECT_EQ(journal.count("screen.requestEvents"), 1);
    EXPECT_THAT(argumentsOf("screen.stopEvents"), ElementsAre("1"));
}

TEST_F(DisplayEventTest, AttachedDisplayIsReadAndTold)
{
    listen(2);
    setAttached(1, true);
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(1)", "displayAttached(2)"));
    EXPECT_THAT(logged(),
                ElementsAre("display Id: 2", "display name: Television", "display type: 30305",
                            "attached: 1", "detachable: 1", "physical size: 0, 0", "rotation: 0",
                            "pixel size: 1920, 1080"));
    EXPECT_TRUE(display(2).isAttached());
    setAttached(1, false);
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(0)", "displayDetached(2)"));
    EXPECT_FALSE(display(2).isAttached());
}

TEST_F(DisplayEventTest, EverythingIsReadAnew)
{
    listen(2);
    Displays displays = phoneAndTelevision();
    displays[1] = {90, 720, 1280, 2, "Projector"};
    displays[1].physicalWidth = 1280;
    displays[1].physicalHeight = 720;
    displays[1].detachable = 0;
    screen.setDisplays(displays);
    setAttached(1, true);
    EXPECT_EQ(display(2).displayName(), QStringLiteral("Projector"));
    EXPECT_EQ(display(2).pixelSize(), QSize(1280, 720));
    EXPECT_EQ(display(2).resolution(), QSizeF(1000, 1000));
    EXPECT_EQ(display(2).displayType(), Display::DisplayTypeInternal);
    EXPECT_FALSE(display(2).isDetachable());
    EXPECT_EQ(manager().primaryDisplayId(), 1);
}

TEST_F(DisplayEventTest, WhatIsKnownAlreadyIsNotTold)
{
    listen(2);
    deliver({SCREEN_EVENT_DISPLAY, 1, 0});
    deliver({SCREEN_EVENT_DISPLAY, 0, 1});
    deliver({SCREEN_EVENT_DISPLAY, 1, -1});
    deliver({SCREEN_EVENT_DISPLAY, 1, 2});
    EXPECT_THAT(heard(), IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(DisplayEventTest, WhatIsToldIsTheEventAndWhatIsKnownTheReading)
{
    listen(2);
    deliver({SCREEN_EVENT_DISPLAY, 1, 1}); // the display has gone again meanwhile
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(1)", "displayAttached(2)"));
    EXPECT_FALSE(display(2).isAttached());
}

TEST_F(DisplayEventTest, OtherEventsAreLogged)
{
    listen(2);
    deliver({3, 1, 1});
    EXPECT_THAT(logged(), ElementsAre("DisplayManagerPrivate::handleDisplayEvent() unhandled: 3"));
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(DisplayEventTest, OtherCodesGoToStandardError)
{
    listen(2);
    std::ostringstream errors;
    std::streambuf* const before = std::cerr.rdbuf(errors.rdbuf());
    const int taken = journal.count("core.getEvent");
    EXPECT_TRUE(platform.screenEvents().deliver(5));
    EXPECT_TRUE(journal.waitForCount("core.getEvent", taken + 1));
    std::cerr.rdbuf(before);
    EXPECT_EQ(errors.str(),
              "DisplayManagerPrivate::handleZelEvent(): Event received: Unknown event:5\n");
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(DisplayEventTest, UnknownDisplayIsLoggedAndTheNextEventComes)
{
    listen(2);
    Displays displays = phoneAndTelevision();
    displays.push_back(displays.back());
    displays.back().id = 3;
    screen.setDisplays(displays);
    deliver({SCREEN_EVENT_DISPLAY, 2, 1});
    EXPECT_EQ(log.count(threwLine), 1);
    EXPECT_THAT(logged(), ElementsAre("DisplayManagerPrivate::getDisplay(): bad display ID:3"));
    EXPECT_THROW(manager().getDisplay(3), tamo::Exception);
    setAttached(1, true);
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(1)", "displayAttached(2)"));
}

TEST_F(DisplayEventTest, ReachOtherThreadsQueued)
{
    QSignalSpy changed(&display(2), &Display::attachedChanged);
    QSignalSpy attached(&manager(), &DisplayManager::displayAttached);
    QObject receiver;
    std::vector<std::thread::id> threads;
    QObject::connect(&manager(), &DisplayManager::displayAttached, &receiver,
                     [&](int) { threads.push_back(std::this_thread::get_id()); });
    awaitEvents();
    setAttached(1, true);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(attached.at(0).at(0).toInt(), 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !threads.empty(); }, 10'000));
    EXPECT_THAT(threads, ElementsAre(std::this_thread::get_id()));
}

TEST_F(DisplayEventTest, SlotOnTheDispatchThreadMayAskConnectAndDisconnect)
{
    QObject receiver;
    int heardHere = 0;
    QObject::connect(&manager(), &DisplayManager::displayAttached, [&](int id) {
        EXPECT_TRUE(display(id).isAttached());
        EXPECT_THROW(manager().getDisplay(99), tamo::Exception);
        const auto disconnect = [&](int) {
            ++heardHere;
            QObject::disconnect(&manager(), nullptr, &receiver, nullptr);
        };
        QObject::connect(&manager(), &DisplayManager::displayDetached, &receiver, disconnect,
                         Qt::DirectConnection);
    });
    awaitEvents();
    setAttached(1, true);
    setAttached(1, false);
    EXPECT_EQ(heardHere, 1);
}

TEST_F(DisplayEventTest, DeletionEndsASubscriptionThatIsStillOpen)
{
    listen(2);
    destroy();
    EXPECT_TRUE(isEverythingGone());
    EXPECT_THAT(argumentsOf("screen.stopEvents"), ElementsAre("1"));
    std::vector<std::string> ends;
    for (const Call& call : journal.calls())
        if (call.operation == "screen.stopEvents" || call.operation == "screenApi.destroyContext")
            ends.push_back(call.operation);
    EXPECT_THAT(ends, ElementsAre("screen.stopEvents", "screenApi.destroyContext"));
}

TEST_F(DisplayEventTest, SecondManagerIsNotTold)
{
    listen(2);
    DisplayManager second;
    QSignalSpy attached(&second, &DisplayManager::displayAttached);
    EXPECT_EQ(log.count("ZelEventDispatcher::registerForEvents() - domain (3) already registered. "
                        "Ignoring registration request."),
              1);
    setAttached(1, true);
    EXPECT_EQ(attached.count(), 0);
    EXPECT_FALSE(second.getDisplay(2)->isAttached());
    EXPECT_THAT(heard(), ElementsAre("attachedChanged(1)", "displayAttached(2)"));
}

} // namespace
