// SPDX-License-Identifier: Apache-2.0
#include "NavigatorImpl.h"

#include "core/Log.h"

#include <tamo/OrientationHandler.h>
#include <tamomock/ZelApi.h>
#include <tamomock/ZelNavigator.h>

#include <algorithm>
#include <iterator>

namespace tamo {

using detail::logLine;

NavigatorImpl::NavigatorImpl()
    : StandardZelEventHandler(tamomock::ZelApi::instance()->navigator())
    , m_geometry(DisplayGeometry::read())
    , m_subscription(
          *this, staticMetaObject,
          [this](const QMetaMethod& signal) { return isSignalConnected(signal); }, *this)
{
}

NavigatorImpl::~NavigatorImpl()
{
    m_subscription.end();
}

void NavigatorImpl::connectNotify(const QMetaMethod& signal)
{
    m_subscription.connected(signal);
}

void NavigatorImpl::disconnectNotify(const QMetaMethod&)
{
    m_subscription.disconnected();
}

QString NavigatorImpl::windowGroupId() const
{
    const std::lock_guard lock(m_groupIdMutex);
    return m_windowGroupId;
}

void NavigatorImpl::setWindowGroupId(const QString& id)
{
    const std::lock_guard lock(m_groupIdMutex);
    m_windowGroupId = id;
}

QString NavigatorImpl::groupId(zel_event_t* event) const
{
    return QString::fromLatin1(api().navigator()->eventGetGroupid(event));
}

struct NavigatorImpl::EventEntry
{
    int code;
    const char* logText;  // null: the function logs
    EventFunction handle; // null: it is only logged
};

const NavigatorImpl::EventEntry* NavigatorImpl::findEvent(int code)
{
    static const EventEntry table[] = {
        {NAVIGATOR_INVOKE, nullptr, &NavigatorImpl::handleInvoke},
        {NAVIGATOR_EXIT, "exit", &NavigatorImpl::handleExit},
        {NAVIGATOR_WINDOW_STATE, "window state", &NavigatorImpl::handleWindowState},
        {NAVIGATOR_SWIPE_DOWN, "swipe down", &NavigatorImpl::handleSwipeDown},
        {NAVIGATOR_SWIPE_START, "swipe start", nullptr},
        {NAVIGATOR_LOW_MEMORY, "low memory", &NavigatorImpl::handleLowMemory},
        {NAVIGATOR_ORIENTATION_CHECK, "orientation check", &NavigatorImpl::handleOrientationCheck},
        {NAVIGATOR_ORIENTATION, "orientation", &NavigatorImpl::handleOrientation},
        {NAVIGATOR_BACK, "back", nullptr},
        {NAVIGATOR_WINDOW_ACTIVE, nullptr, &NavigatorImpl::handleWindowActive},
        {NAVIGATOR_WINDOW_INACTIVE, nullptr, &NavigatorImpl::handleWindowInactive},
        {NAVIGATOR_ORIENTATION_DONE, "orientation done", nullptr},
        {NAVIGATOR_ORIENTATION_RESULT, "orientation result", nullptr},
        {NAVIGATOR_WINDOW_LOCK, "window lock", nullptr},
        {NAVIGATOR_WINDOW_UNLOCK, "window unlock", nullptr},
    };
    const auto entry = std::find_if(std::begin(table), std::end(table),
                                    [code](const EventEntry& e) { return e.code == code; });
    return entry != std::end(table) ? entry : nullptr;
}

void NavigatorImpl::handleZelEvent(int code, zel_event_t* event)
{
    const EventEntry* const entry = findEvent(code);
    if (!entry || entry->logText)
        logLine("NavigatorPrivate::handleZelEvent - ", entry ? entry->logText : "unknown");
    if (entry && entry->handle)
        (this->*entry->handle)(event);
}

void NavigatorImpl::handleInvoke(zel_event_t* event)
{
    const char* const data = api().navigator()->eventGetData(event);
    logLine("NavigatorPrivate::handleZelEvent - invoked ", data);
    Q_EMIT urlHandlerInvoked(QUrl(QString::fromUtf8(data)));
}

void NavigatorImpl::handleExit(zel_event_t*)
{
    Q_EMIT exit();
}

void NavigatorImpl::handleWindowState(zel_event_t* event)
{
    const int state = api().navigator()->eventGetWindowState(event);
    const QString id = groupId(event);
    setWindowGroupId(id);
    switch (state) {
    case NAVIGATOR_WINDOW_FULLSCREEN:
        logLine("NavigatorPrivate::handleWindowStateEvent - fullscreen");
        Q_EMIT fullscreen(id);
        break;
    case NAVIGATOR_WINDOW_THUMBNAIL:
        logLine("NavigatorPrivate::handleWindowStateEvent - thumbnail");
        Q_EMIT thumbnail(id);
        break;
    case NAVIGATOR_WINDOW_INVISIBLE:
        logLine("NavigatorPrivate::handleWindowStateEvent - invisible");
        Q_EMIT invisible(id);
        break;
    default:
        logLine("NavigatorPrivate::handleWindowStateEvent - unknown");
    }
}

void NavigatorImpl::handleSwipeDown(zel_event_t*)
{
    Q_EMIT swipeDown();
}

void NavigatorImpl::handleLowMemory(zel_event_t*)
{
    Q_EMIT lowMemory();
}

void NavigatorImpl::handleWindowActive(zel_event_t* event)
{
    const QString id = groupId(event);
    logLine("NavigatorPrivate::handleZelEvent: Event received: navigator active. WindowGroupID: ",
            id);
    setWindowGroupId(id);
    Q_EMIT awake(id);
}

void NavigatorImpl::handleWindowInactive(zel_event_t* event)
{
    const QString id = groupId(event);
    logLine("NavigatorPrivate::handleZelEvent: Event received: navigator inactive. WindowGroupId: ",
            id);
    Q_EMIT asleep(id);
}

} // namespace tamo
