// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_NAVIGATORTEST_H
#define TAMO_TESTS_NAVIGATORTEST_H

#include "SubstitutePlatform.h"

#include "navigator/NavigatorImpl.h"

#include <memory>
#include <string>
#include <vector>

namespace tamotest {

/**
 * A Navigator of the test's own on a substitute platform. It is made by make(), so that a test can
 * say before what the display is like and which calls fail, and is gone before the platform is
 * checked for leftovers.
 */
class NavigatorTest : public PlatformTest
{
protected:
    NavigatorTest();
    ~NavigatorTest() override;

    void TearDown() override;

    /** Makes the navigator, on a display that stands like this, and forgets what it logged. */
    tamo::NavigatorImpl& make(const SubstituteScreenApi::Display& display = {0, 768, 1280});

    /** The navigator. */
    tamo::NavigatorImpl& navigatorImpl() { return *m_navigator; }

    /** Deletes the navigator. */
    void destroy() { m_navigator.reset(); }

    /** Makes connections to all of the navigator's signals, and waits until its events flow. */
    void listen();

    /** Waits until its events flow, for a test that makes its own connections. */
    void awaitEvents();

    /** Has an event come, and waits until the dispatch thread has done with it. */
    void deliver(int code, const EventContent& content = {});

    /** The signals that listen() has heard since the last call: `thumbnail(app-1)`. */
    std::vector<std::string> heard();

    /** The navigator's lines of the log since the last call. */
    std::vector<std::string> logged();

    /** The arguments of each call of an operation since the last clear() of the journal. */
    std::vector<std::string> argumentsOf(const std::string& operation) const;

    /**
     * The window's angle, as setAllowedOrientation() betrays it: one of landscape and portrait is
     * not what it is, and forces it to the next. It is another one afterwards, and nothing is
     * allowed.
     */
    int findAngle();

private:
    void hear(const std::string& signal);

    std::unique_ptr<tamo::NavigatorImpl> m_navigator;
    std::mutex m_mutex; // guards what follows
    std::vector<std::string> m_heard;
};

} // namespace tamotest

#endif
