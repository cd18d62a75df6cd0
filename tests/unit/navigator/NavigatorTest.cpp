// SPDX-License-Identifier: Apache-2.0
#include "NavigatorTest.h"

#include <QUrl>

#include <gmock/gmock.h>

#include <utility>

using tamo::Navigator;
using tamo::NavigatorImpl;

namespace tamotest {

NavigatorTest::NavigatorTest() = default;

NavigatorTest::~NavigatorTest() = default;

void NavigatorTest::TearDown()
{
    destroy();
    PlatformTest::TearDown();
}

NavigatorImpl& NavigatorTest::make(const SubstituteScreenApi::Display& display)
{
    platform.screen().setDisplays({display});
    m_navigator = std::make_unique<NavigatorImpl>();
    log.clear();
    return *m_navigator;
}

void NavigatorTest::hear(const std::string& signal)
{
    const std::lock_guard lock(m_mutex);
    m_heard.push_back(signal);
}

void NavigatorTest::listen()
{
    // Directly, on whichever thread emits.
    const auto connectWithId = [this](auto signal, const std::string& name) {
        QObject::connect(m_navigator.get(), signal, [this, name](const QString& id) {
            hear(name + '(' + (id.isNull() ? "null" : id.toStdString()) + ')');
        });
    };
    const auto connectPlain = [this](auto signal, const std::string& name) {
        QObject::connect(m_navigator.get(), signal, [this, name] { hear(name + "()"); });
    };
    connectWithId(&Navigator::thumbnail, "thumbnail");
    connectWithId(&Navigator::fullscreen, "fullscreen");
    connectWithId(&Navigator::invisible, "invisible");
    connectPlain(&Navigator::swipeDown, "swipeDown");
    connectPlain(&Navigator::lowMemory, "lowMemory");
    connectWithId(&Navigator::asleep, "asleep");
    connectWithId(&Navigator::awake, "awake");
    connectPlain(&Navigator::exit, "exit");
    connectPlain(&Navigator::orientationHandlerChanged, "orientationHandlerChanged");
    QObject::connect(m_navigator.get(), &Navigator::urlHandlerInvoked, [this](const QUrl& url) {
        hear("urlHandlerInvoked(" + url.toString().toStdString() + ')');
    });
    awaitEvents();
}

void NavigatorTest::awaitEvents()
{
    // The request for them is the first event that the dispatch thread takes.
    ASSERT_TRUE(journal.waitForCount("navigator.requestEvents", 1));
    ASSERT_TRUE(journal.waitForCount("core.getEvent", 2));
    logged();
}

void NavigatorTest::deliver(int code, const EventContent& content)
{
    const int taken = journal.count("core.getEvent");
    ASSERT_TRUE(navigator.deliver(code, content));
    ASSERT_TRUE(journal.waitForCount("core.getEvent", taken + 1));
}

std::vector<std::string> NavigatorTest::heard()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_heard, {});
}

std::vector<std::string> NavigatorTest::logged()
{
    return log.takeWithout("ZelEventDispatcher");
}

std::vector<std::string> NavigatorTest::argumentsOf(const std::string& operation) const
{
    std::vector<std::string> arguments;
    for (const Call& call : journal.calls(operation))
        arguments.push_back(call.arguments);
    return arguments;
}

int NavigatorTest::findAngle()
{
    const auto forcedAngle = [this](int allow) {
        const std::string begin = "NavigatorPrivate::setAllowedOrientation - force angle=";
        log.clear();
        m_navigator->setAllowedOrientation(Navigator::AllowNone);
        m_navigator->setAllowedOrientation(allow);
        const std::vector<std::string> lines = log.linesWith(begin);
        return lines.empty() ? -1 : std::stoi(lines.front().substr(begin.size()));
    };
    int forced = forcedAngle(Navigator::AllowLandscape);
    if (forced == -1)
        forced = forcedAngle(Navigator::AllowPortrait);
    EXPECT_NE(forced, -1);
    m_navigator->setAllowedOrientation(Navigator::AllowNone);
    log.clear();
    return (forced + 270) % 360;
}

} // namespace tamotest
