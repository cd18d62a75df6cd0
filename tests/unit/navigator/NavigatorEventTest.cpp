// SPDX-License-Identifier: Apache-2.0
#include "NavigatorTest.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <gmock/gmock.h>

#include <limits>

using namespace tamotest;
using namespace testing;
using tamo::Navigator;

namespace {

/** What an event is to bring about, letter for letter. */
struct Row
{
    std::string name;
    int code = 0;
    EventContent content;
    std::vector<std::string> reads;   ///< operations, without "navigator."
    std::vector<std::string> lines;   ///< of the log
    std::vector<std::string> emitted; ///< with their arguments
    std::string windowGroupId = "before";
};

void PrintTo(const Row& row, std::ostream* stream)
{
    *stream << row.name;
}

EventContent withData(std::optional<std::string> data)
{
    EventContent content;
    content.data = std::move(data);
    return content;
}

EventContent withGroup(std::optional<std::string> id, int windowState = 0)
{
    EventContent content;
    content.groupId = std::move(id);
    content.windowState = windowState;
    return content;
}

const std::string begin = "NavigatorPrivate::handleZelEvent";
const std::string active = begin + ": Event received: navigator active. WindowGroupID: ";
const std::string inactive = begin + ": Event received: navigator inactive. WindowGroupId: ";

Row invoke(const std::string& name, const std::optional<std::string>& data, const std::string& url)
{
    return {name,
            NAVIGATOR_INVOKE,
            withData(data),
            {"eventGetData"},
            {begin + " - invoked " + data.value_or("")},
            {"urlHandlerInvoked(" + url + ')'}};
}

Row windowState(const std::string& name, int state, const std::string& line,
                const std::vector<std::string>& signal)
{
    return {name,
            NAVIGATOR_WINDOW_STATE,
            withGroup("app-2", state),
            {"eventGetWindowState", "eventGetGroupid"},
            {begin + " - window state", "NavigatorPrivate::handleWindowStateEvent - " + line},
            signal,
            "app-2"};
}

/** An event out of which nothing is read. */
Row plain(const std::string& name, int code, const std::string& line,
          const std::vector<std::string>& signal = {})
{
    return {name, code, {}, {}, {begin + " - " + line}, signal};
}

const Row rows[] = {
    invoke("invokeWithAUrl", "https://example.com/a?b=c#d", "https://example.com/a?b=c#d"),
    invoke("invokeWithoutData", std::nullopt, ""),
    invoke("invokeWithNothing", "", ""),
    invoke("invokeWithAPath", "a path", "a path"),
    invoke("invokeWithNoUrl", "http://[no url", ""),
    invoke("invokeWithUmlauts", "https://example.com/\xc3\xbc", "https://example.com/\xc3\xbc"),
    plain("exit", NAVIGATOR_EXIT, "exit", {"exit()"}),
    windowState("fullscreen", 0, "fullscreen", {"fullscreen(app-2)"}),
    windowState("thumbnail", 1, "thumbnail", {"thumbnail(app-2)"}),
    windowState("invisible", 2, "invisible", {"invisible(app-2)"}),
    windowState("windowState3", 3, "unknown", {}),
    windowState("windowState7", 7, "unknown", {}),
    windowState("windowStateBelow0", -1, "unknown", {}),
    {"windowStateOfNoGroup",
     NAVIGATOR_WINDOW_STATE,
     withGroup(std::nullopt, 1),
     {"eventGetWindowState", "eventGetGroupid"},
     {begin + " - window state", "NavigatorPrivate::handleWindowStateEvent - thumbnail"},
     {"thumbnail(null)"},
     "null"},
    plain("swipeDown", NAVIGATOR_SWIPE_DOWN, "swipe down", {"swipeDown()"}),
    plain("swipeStart", NAVIGATOR_SWIPE_START, "swipe start"),
    plain("lowMemory", NAVIGATOR_LOW_MEMORY, "low memory", {"lowMemory()"}),
    plain("back", NAVIGATOR_BACK, "back"),
    {"active",
     NAVIGATOR_WINDOW_ACTIVE,
     withGroup("app-2"),
     {"eventGetGroupid"},
     {active + "app-2"},
     {"awake(app-2)"},
     "app-2"},
    {"activeWithNoGroup",
     NAVIGATOR_WINDOW_ACTIVE,
     withGroup(std::nullopt),
     {"eventGetGroupid"},
     {active},
     {"awake(null)"},
     "null"},
    {"inactive",
     NAVIGATOR_WINDOW_INACTIVE,
     withGroup("app-2"),
     {"eventGetGroupid"},
     {inactive + "app-2"},
     {"asleep(app-2)"}},
    {"inactiveWithNoGroup",
     NAVIGATOR_WINDOW_INACTIVE,
     withGroup(std::nullopt),
     {"eventGetGroupid"},
     {inactive},
     {"asleep(null)"}},
    plain("orientationDone", NAVIGATOR_ORIENTATION_DONE, "orientation done"),
    plain("orientationResult", NAVIGATOR_ORIENTATION_RESULT, "orientation result"),
    plain("windowLock", NAVIGATOR_WINDOW_LOCK, "window lock"),
    plain("windowUnlock", NAVIGATOR_WINDOW_UNLOCK, "window unlock"),
    plain("code0", 0, "unknown"),
    plain("code16", 16, "unknown"),
    plain("codeBelow0", -1, "unknown"),
    plain("greatestCode", std::numeric_limits<int>::max(), "unknown"),
    plain("smallestCode", std::numeric_limits<int>::min(), "unknown"),
};

class NavigatorEventTest : public NavigatorTest
{
protected:
    NavigatorEventTest()
    {
        make();
        listen();
        deliver(NAVIGATOR_WINDOW_ACTIVE, withGroup("before"));
        logged();
        heard();
        journal.clear();
    }

    std::string windowGroupId()
    {
        const QString id = navigatorImpl().windowGroupId();
        return id.isNull() ? "null" : id.toStdString();
    }
};

class NavigatorEventTableTest : public NavigatorEventTest, public WithParamInterface<Row>
{
};

TEST_P(NavigatorEventTableTest, IsReadLoggedAndEmitted)
{
    deliver(GetParam().code, GetParam().content);
    EXPECT_EQ(logged(), GetParam().lines);
    EXPECT_EQ(heard(), GetParam().emitted);
    EXPECT_EQ(windowGroupId(), GetParam().windowGroupId);
    std::vector<std::string> calls;
    for (const Call& call : journal.calls()) {
        if (call.operation.rfind("navigator.", 0) == 0)
            calls.push_back(call.operation.substr(10));
    }
    EXPECT_EQ(calls, GetParam().reads);
}

INSTANTIATE_TEST_SUITE_P(, NavigatorEventTableTest, ValuesIn(rows),
                         [](const auto& test) { return test.param.name; });

TEST_F(NavigatorEventTest, NoUrlIsEmittedAsWhateverUrlTheTextYields)
{
    for (const char* text : {"http://[no url", "%zz", "", "a path", "x:\xff"}) {
        QSignalSpy invoked(&navigatorImpl(), &Navigator::urlHandlerInvoked);
        deliver(NAVIGATOR_INVOKE, withData(text));
        ASSERT_EQ(invoked.count(), 1);
        EXPECT_EQ(invoked.at(0).at(0).toUrl(), QUrl(QString::fromUtf8(text)));
    }
}

TEST_F(NavigatorEventTest, GroupIdIsThatOfTheLastStateOrActivation)
{
    deliver(NAVIGATOR_WINDOW_STATE, withGroup("state", 0));
    EXPECT_EQ(windowGroupId(), "state");
    deliver(NAVIGATOR_WINDOW_INACTIVE, withGroup("inactive"));
    EXPECT_EQ(windowGroupId(), "state");
    deliver(NAVIGATOR_WINDOW_STATE, withGroup("unknown state", 7));
    EXPECT_EQ(windowGroupId(), "unknown state");
    deliver(NAVIGATOR_WINDOW_ACTIVE, withGroup("active"));
    EXPECT_EQ(windowGroupId(), "active");
    deliver(NAVIGATOR_EXIT, withGroup("exit"));
    deliver(NAVIGATOR_LOW_MEMORY, withGroup("memory"));
    EXPECT_EQ(windowGroupId(), "active");
    EXPECT_THAT(heard(), ElementsAre("fullscreen(state)", "asleep(inactive)", "awake(active)",
                                     "exit()", "lowMemory()"));
}

TEST_F(NavigatorEventTest, GroupIdIsNewAlreadyInTheSlotThatHearsOfIt)
{
    QString seen;
    const auto connection =
        QObject::connect(&navigatorImpl(), &Navigator::thumbnail,
                         [&](const QString&) { seen = navigatorImpl().windowGroupId(); });
    deliver(NAVIGATOR_WINDOW_STATE, withGroup("new", 1));
    EXPECT_EQ(seen, QStringLiteral("new"));
    QObject::disconnect(connection);
}

TEST_F(NavigatorEventTest, GroupIdBeyondAsciiIsTakenByteByByte)
{
    deliver(NAVIGATOR_WINDOW_ACTIVE, withGroup("\xe9"));
    EXPECT_EQ(navigatorImpl().windowGroupId(), QString(QChar(0xe9)));
}

TEST_F(NavigatorEventTest, NothingIsAnswered)
{
    for (int code = 0; code <= 16; ++code) {
        if (code != NAVIGATOR_ORIENTATION_CHECK)
            deliver(code);
    }
    for (const Call& call : journal.calls())
        EXPECT_THAT(call.operation, Not(ContainsRegex("response|done|extend|Response")));
}

TEST_F(NavigatorEventTest, ReceiversInOtherThreadsAreCalledThere)
{
    QObject receiver;
    QThread* thread = nullptr;
    QObject::connect(&navigatorImpl(), &Navigator::swipeDown, &receiver,
                     [&] { thread = QThread::currentThread(); });
    deliver(NAVIGATOR_SWIPE_DOWN);
    EXPECT_EQ(thread, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return thread != nullptr; }));
    EXPECT_EQ(thread, receiver.thread());
}

TEST_F(NavigatorTest, GroupIdIsNullBeforeTheFirst)
{
    EXPECT_TRUE(make().windowGroupId().isNull());
}

} // namespace
