// SPDX-License-Identifier: Apache-2.0
#include "DisplayManagerPrivate.h"

#include "DisplayPrivate.h"

#include "core/Log.h"

#include <tamo/Exception.h>
#include <tamomock/ScreenApi.h>
#include <tamomock/ZelApi.h>
#include <tamomock/ZelScreen.h>

#include <zel/screen.h>

#include <cerrno>

namespace tamo {
namespace device {

using detail::logLine;

namespace {

void check(int result, const char* function, const char* property)
{
    if (result == 0)
        return;
    logLine("DisplayManagerPrivate::handleDisplayEvent(): ", function, "(", property, ") failed");
    throw Exception();
}

} // namespace

DisplayManagerPrivate::DisplayManagerPrivate(DisplayManager* manager)
    : StandardZelEventHandler(tamomock::ZelApi::instance()->screen())
    , m_screen(*tamomock::ScreenApi::instance())
    , m_context(m_screen)
    , q(manager)
    , m_subscription(
          *manager, DisplayManager::staticMetaObject,
          [manager](const QMetaMethod& signal) { return manager->isSignalConnected(signal); },
          *this, m_context.flags())
{
    for (const screen_display_t handle : m_context.displays())
        addDisplay(handle);
}

DisplayManagerPrivate::~DisplayManagerPrivate()
{
    m_subscription.end();
}

void DisplayManagerPrivate::addDisplay(screen_display_t handle)
{
    auto* const display = new Display(q);
    display->d->createDisplay(m_screen, handle);
    const int id = display->displayId();
    m_displays[id] = display;
    if (display->displayType() == Display::DisplayTypeInternal && m_primaryDisplayId == -1)
        m_primaryDisplayId = id;
    else
        m_secondaryDisplayIds.append(id);
}

// An unknown id gets an entry without a display.
Display* DisplayManagerPrivate::getDisplay(int displayId)
{
    std::unique_lock lock(m_mutex);
    Display* const display = m_displays[displayId];
    lock.unlock();
    if (!display) {
        logLine("DisplayManagerPrivate::getDisplay(): bad display ID:", displayId);
        throw Exception();
    }
    return display;
}

void DisplayManagerPrivate::handleZelEvent(int code, zel_event_t* event)
{
    if (code == SCREEN_EVENT) {
        handleScreenEvent(api().screen()->eventGetEvent(event));
        return;
    }
    detail::logErrorLine("DisplayManagerPrivate::handleZelEvent(): Event received: Unknown event:",
                         code);
}

void DisplayManagerPrivate::handleScreenEvent(screen_event_t event)
{
    const int type = eventNumber(event, SCREEN_PROPERTY_TYPE, "SCREEN_PROPERTY_TYPE");
    if (type == SCREEN_EVENT_DISPLAY)
        handleDisplayEvent(event);
    else
        logLine("DisplayManagerPrivate::handleDisplayEvent() unhandled: ", type);
}

void DisplayManagerPrivate::handleDisplayEvent(screen_event_t event)
{
    const int id = displayIdOf(event);
    Display* const display = getDisplay(id);
    const int attached = eventNumber(event, SCREEN_PROPERTY_ATTACHED, "SCREEN_PROPERTY_ATTACHED");
    if (attached == 1 && !display->isAttached()) {
        display->d->setAttached(true);
        Q_EMIT q->displayAttached(id);
    } else if (attached == 0 && display->isAttached()) {
        display->d->setAttached(false);
        Q_EMIT q->displayDetached(id);
    }
}

int DisplayManagerPrivate::eventNumber(screen_event_t event, int property, const char* name) const
{
    int value = -1;
    errno = 0;
    check(m_screen.getEventPropertyIv(event, property, &value), "screen_get_event_property_iv",
          name);
    return value;
}

int DisplayManagerPrivate::displayIdOf(screen_event_t event) const
{
    void* display = nullptr;
    errno = 0;
    check(m_screen.getEventPropertyPv(event, SCREEN_PROPERTY_DISPLAY, &display),
          "screen_get_event_property_pv", "SCREEN_PROPERTY_DISPLAY");
    int id = -1;
    errno = 0;
    check(m_screen.getDisplayPropertyIv(static_cast<screen_display_t>(display), SCREEN_PROPERTY_ID,
                                        &id),
          "screen_get_display_property_iv", "SCREEN_PROPERTY_ID");
    return id;
}

} // namespace device
} // namespace tamo
