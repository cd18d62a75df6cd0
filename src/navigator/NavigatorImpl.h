// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_NAVIGATOR_NAVIGATORIMPL_H
#define TAMO_NAVIGATOR_NAVIGATORIMPL_H

#include "DisplayGeometry.h"

#include "core/ConnectionSubscription.h"
#include "core/StandardZelEventHandler.h"

#include <tamo/Navigator.h>

#include <mutex>

namespace tamo {

/**
 * The Navigator: turns the events of the navigator's domain into signals, and answers the questions
 * about turning.
 *
 * event() takes nothing but OrientationEvent, so nothing in the library queues calls to this
 * object, sets timers in it or deletes it later.
 */
class NavigatorImpl : public Navigator, public StandardZelEventHandler
{
public:
    NavigatorImpl();
    ~NavigatorImpl() override;

    bool event(QEvent* event) override;

    int allowedOrientation() const override;
    void setAllowedOrientation(int allow) override;
    void setOrientationHandler(QSharedPointer<OrientationHandler> handler) override;
    QString windowGroupId() const override;

    void handleZelEvent(int code, zel_event_t* event) override;

protected:
    void connectNotify(const QMetaMethod& signal) override;
    void disconnectNotify(const QMetaMethod& signal) override;

private:
    using EventFunction = void (NavigatorImpl::*)(zel_event_t*);
    struct EventEntry;
    static const EventEntry* findEvent(int code);

    void handleInvoke(zel_event_t* event);
    void handleExit(zel_event_t* event);
    void handleWindowState(zel_event_t* event);
    void handleSwipeDown(zel_event_t* event);
    void handleLowMemory(zel_event_t* event);
    void handleOrientationCheck(zel_event_t* event);
    void handleOrientation(zel_event_t* event);
    void handleWindowActive(zel_event_t* event);
    void handleWindowInactive(zel_event_t* event);

    QString groupId(zel_event_t* event) const;
    void setWindowGroupId(const QString& id);
    bool isDisplayLandscapeForAngle(int angle) const;
    bool isAllowed(int angle) const;
    int targetAngle(int allow) const;

    mutable std::mutex m_orientationMutex; // guards the geometry, the allowed value and the handler
    mutable std::mutex m_groupIdMutex;     // guards the group id
    DisplayGeometry m_geometry;            // the angle is the window's
    int m_allowedOrientation = AllowNone;
    QSharedPointer<OrientationHandler> m_orientationHandler;
    QString m_windowGroupId;
    ConnectionSubscription m_subscription;
};

} // namespace tamo

#endif
