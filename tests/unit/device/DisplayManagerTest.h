// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_TESTS_DISPLAYMANAGERTEST_H
#define TAMO_TESTS_DISPLAYMANAGERTEST_H

#include "SubstitutePlatform.h"

#include <tamo/device/Display.h>
#include <tamo/device/DisplayManager.h>

#include <memory>
#include <string>
#include <vector>

namespace tamotest {

/**
 * A DisplayManager on a substitute platform. It is made by make(), so that a test can say before
 * what displays there are and which calls fail, and is gone before the platform is checked for
 * leftovers.
 */
class DisplayManagerTest : public PlatformTest
{
protected:
    using Displays = std::vector<SubstituteScreenApi::Display>;

    void TearDown() override;

    /** A phone's display, and a television that is not there. */
    static Displays phoneAndTelevision();

    /** Makes the manager; there is one at a time. */
    tamo::device::DisplayManager& make(const Displays& displays);

    tamo::device::DisplayManager& manager() { return *m_manager; }
    tamo::device::Display& display(int id) { return *m_manager->getDisplay(id); }

    /** Deletes the manager. */
    void destroy() { m_manager.reset(); }

    /** Connects directly to the manager's signals and a display's, and waits until events flow. */
    void listen(int id);

    /** Waits until events flow, for a test that makes its own connections. */
    void awaitEvents();

    /** Has an event come, and waits until the dispatch thread has done with it. */
    void deliver(const SubstituteScreenApi::Event& event);

    /** Has the platform's display at a place be attached or not, and its event come. */
    void setAttached(std::size_t place, bool isAttached);

    /** The signals that listen() has heard since the last call: `displayAttached(2)`. */
    std::vector<std::string> heard();

    /** The displays' lines of the log since the last call. */
    std::vector<std::string> logged();

    SubstituteScreenApi& screen = platform.screen();

private:
    void hear(const std::string& signal, int argument);

    std::unique_ptr<tamo::device::DisplayManager> m_manager;
    std::mutex m_mutex; // guards what follows
    std::vector<std::string> m_heard;
};

} // namespace tamotest

#endif
