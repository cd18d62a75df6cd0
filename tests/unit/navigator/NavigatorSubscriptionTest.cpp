// SPDX-License-Identifier: Apache-2.0
#include "NavigatorTest.h"

#include <QMetaMethod>
#include <QSignalSpy>

#include <gmock/gmock.h>

using namespace tamotest;
using namespace testing;
using tamo::Navigator;

namespace {

class NavigatorSubscriptionTest : public NavigatorTest
{
protected:
    NavigatorSubscriptionTest() { make(); }

    bool isEverythingGone()
    {
        return eventually([this] { return core.channels().empty(); });
    }
};

TEST_F(NavigatorSubscriptionTest, NothingIsRegisteredWithoutAConnection)
{
    EXPECT_TRUE(core.channels().empty());
    EXPECT_EQ(journal.count("core.initialize"), 0);
    EXPECT_EQ(journal.count("navigator.requestEvents"), 0);
}

TEST_F(NavigatorSubscriptionTest, AConnectionToWhicheverSignalAloneRegisters)
{
    int signalCount = 0;
    for (int i = 0; i < Navigator::staticMetaObject.methodCount(); ++i) {
        const QMetaMethod method = Navigator::staticMetaObject.method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        SCOPED_TRACE(method.methodSignature().toStdString());
        ++signalCount;
        journal.clear();
        {
            const QSignalSpy spy(&navigatorImpl(), method);
            ASSERT_TRUE(journal.waitForCount("navigator.requestEvents", 1));
            EXPECT_THAT(argumentsOf("navigator.requestEvents"), ElementsAre("0"));
        }
        ASSERT_TRUE(isEverythingGone());
        EXPECT_EQ(journal.count("navigator.requestEvents"), 1);
        EXPECT_THAT(argumentsOf("navigator.stopEvents"), ElementsAre("0"));
    }
    // The ten of its own, and QObject's.
    EXPECT_GE(signalCount, 12);
}

TEST_F(NavigatorSubscriptionTest, EventsComeAsLongAsAnyConnectionIsThere)
{
    auto first = std::make_unique<QSignalSpy>(&navigatorImpl(), &Navigator::exit);
    const auto second = std::make_unique<QSignalSpy>(&navigatorImpl(), &Navigator::swipeDown);
    awaitEvents();
    EXPECT_EQ(journal.count("navigator.requestEvents"), 1);
    first.reset();
    deliver(NAVIGATOR_SWIPE_DOWN);
    EXPECT_EQ(second->count(), 1);
}

TEST_F(NavigatorSubscriptionTest, GroupIdOutlivesTheConnections)
{
    {
        const QSignalSpy spy(&navigatorImpl(), &Navigator::exit);
        awaitEvents();
        EventContent content;
        content.groupId = "app-1";
        deliver(NAVIGATOR_WINDOW_ACTIVE, content);
    }
    ASSERT_TRUE(isEverythingGone());
    EXPECT_EQ(navigatorImpl().windowGroupId(), QStringLiteral("app-1"));
}

TEST_F(NavigatorSubscriptionTest, DeletionEndsASubscriptionThatIsStillOpen)
{
    listen();
    destroy();
    EXPECT_TRUE(isEverythingGone());
    EXPECT_EQ(journal.count("navigator.stopEvents"), 1);
}

} // namespace
