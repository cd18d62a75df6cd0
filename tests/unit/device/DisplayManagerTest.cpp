// SPDX-License-Identifier: Apache-2.0
#include "DisplayManagerTest.h"

#include <utility>

using tamo::device::Display;
using tamo::device::DisplayManager;

namespace tamotest {

void DisplayManagerTest::TearDown()
{
    destroy();
    PlatformTest::TearDown();
}

DisplayManagerTest::Displays DisplayManagerTest::phoneAndTelevision()
{
    SubstituteScreenApi::Display phone{0, 768, 1280, 1, "Phone"};
    phone.physicalWidth = 53;
    phone.physicalHeight = 88;
    SubstituteScreenApi::Display television{0, 1920, 1080, 2, "Television"};
    television.type = SCREEN_DISPLAY_TYPE_EXTERNAL;
    television.attached = 0;
    television.detachable = 1;
    return {phone, television};
}

DisplayManager& DisplayManagerTest::make(const Displays& displays)
{
    screen.setDisplays(displays);
    m_manager = std::make_unique<DisplayManager>();
    return *m_manager;
}

void DisplayManagerTest::hear(const std::string& signal, int argument)
{
    const std::lock_guard lock(m_mutex);
    m_heard.push_back(signal + '(' + std::to_string(argument) + ')');
}

void DisplayManagerTest::listen(int id)
{
    QObject::connect(&display(id), &Display::attachedChanged,
                     [this](bool attached) { hear("attachedChanged", attached); });
    QObject::connect(m_manager.get(), &DisplayManager::displayAttached,
                     [this](int displayId) { hear("displayAttached", displayId); });
    QObject::connect(m_manager.get(), &DisplayManager::displayDetached,
                     [this](int displayId) { hear("displayDetached", displayId); });
    awaitEvents();
}

void DisplayManagerTest::awaitEvents()
{
    // The request for them is the first event that the dispatch thread takes.
    ASSERT_TRUE(journal.waitForCount("screen.requestEvents", 1));
    ASSERT_TRUE(journal.waitForCount("core.getEvent", 2));
    logged();
}

void DisplayManagerTest::deliver(const SubstituteScreenApi::Event& event)
{
    const int taken = journal.count("core.getEvent");
    ASSERT_TRUE(platform.screenEvents().deliverEvent(event));
    ASSERT_TRUE(journal.waitForCount("core.getEvent", taken + 1));
}

void DisplayManagerTest::setAttached(std::size_t place, bool isAttached)
{
    screen.setAttached(place, isAttached);
    deliver({SCREEN_EVENT_DISPLAY, place, isAttached});
}

std::vector<std::string> DisplayManagerTest::heard()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_heard, {});
}

std::vector<std::string> DisplayManagerTest::logged()
{
    return log.takeWithout("ZelEventDispatcher");
}

} // namespace tamotest
