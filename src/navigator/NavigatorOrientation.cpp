// SPDX-License-Identifier: Apache-2.0
// NavigatorImpl's half that turns the window.
#include "NavigatorImpl.h"

#include "OrientationEvent.h"
#include "OrientationRequestImpl.h"

#include "core/Log.h"

#include <tamo/OrientationHandler.h>
#include <tamomock/ZelApi.h>
#include <tamomock/ZelNavigator.h>

#include <QtCore/QCoreApplication>

#include <cerrno>

namespace tamo {

using detail::logLine;

int NavigatorImpl::allowedOrientation() const
{
    const std::lock_guard lock(m_orientationMutex);
    return m_allowedOrientation;
}

void NavigatorImpl::setAllowedOrientation(int allow)
{
    const std::lock_guard lock(m_orientationMutex);
    if (allow == m_allowedOrientation)
        return;
    logLine("NavigatorPrivate::setAllowedOrientation - allow=", allow);
    m_allowedOrientation = allow;
    const int target = targetAngle(allow);
    if (target == m_geometry.angle)
        return;
    logLine("NavigatorPrivate::setAllowedOrientation - force angle=", target);
    errno = 0;
    if (api().navigator()->setOrientation(target, nullptr) != 0)
        logLine("NavigatorPrivate::setAllowedOrientation: exlpode");
    m_geometry.angle = target;
}

// The nearest angle to the window's that a new value allows.
int NavigatorImpl::targetAngle(int allow) const
{
    const int angle = m_geometry.angle;
    // An angle that was accepted may be any number.
    const auto turned = static_cast<int>((static_cast<long long>(angle) + 90) % 360);
    switch (allow) {
    case AllowPortrait:
        return isDisplayLandscapeForAngle(angle) ? turned : angle;
    case AllowLandscape:
        return isDisplayLandscapeForAngle(angle) ? angle : turned;
    case AllowDefaultAngle:
        return 0;
    default:
        return angle;
    }
}

bool NavigatorImpl::isDisplayLandscapeForAngle(int angle) const
{
    if (angle == 0 || angle == 180)
        return m_geometry.isNaturalLandscape;
    if (angle == 90 || angle == 270)
        return !m_geometry.isNaturalLandscape;
    logLine("NavigatorPrivate::isDisplayLandscapeForAngle: exlpode");
    return false;
}

bool NavigatorImpl::isAllowed(int angle) const
{
    switch (m_allowedOrientation) {
    case AllowAll:
        return true;
    case AllowLandscape:
        return isDisplayLandscapeForAngle(angle);
    case AllowPortrait:
        return !isDisplayLandscapeForAngle(angle);
    case AllowDefaultAngle:
        return angle == 0;
    default:
        return false;
    }
}

void NavigatorImpl::setOrientationHandler(QSharedPointer<OrientationHandler> handler)
{
    {
        const std::lock_guard lock(m_orientationMutex);
        if (handler == m_orientationHandler)
            return;
        m_orientationHandler.swap(handler);
    }
    // The old handler, which may be the application's last reference to it, goes without the lock.
    handler.reset();
    Q_EMIT orientationHandlerChanged();
}

void NavigatorImpl::handleOrientationCheck(zel_event_t* event)
{
    const std::lock_guard lock(m_orientationMutex);
    const int angle = api().navigator()->eventGetOrientationAngle(event);
    const char* const id = api().navigator()->eventGetId(event);
    logLine("NavigatorPrivate::handleOrientationCheck - angle=", angle);
    const bool isAccepted = isAllowed(angle);
    logLine("NavigatorPrivate::handleOrientationCheck - allow=", isAccepted);
    errno = 0;
    if (api().navigator()->orientationCheckResponseId(id, isAccepted) != 0)
        logLine("NavigatorPrivate::handleOrientationCheck - exlpode");
    if (isAccepted)
        m_geometry.angle = angle;
}

void NavigatorImpl::handleOrientation(zel_event_t* event)
{
    const int angle = api().navigator()->eventGetOrientationAngle(event);
    const QByteArray id = api().navigator()->eventGetId(event);
    logLine("NavigatorPrivate::handleOrientation - angle=", angle, ", id=", id);
    QCoreApplication::postEvent(this, new OrientationEvent(angle, id));
}

// Every other event is left alone on purpose, the base class's included.
bool NavigatorImpl::event(QEvent* event)
{
    if (event->type() != OrientationEvent::eventType())
        return false;
    const auto& orientation = *static_cast<OrientationEvent*>(event);
    const QSharedPointer<OrientationHandler> handler = [this] {
        const std::lock_guard lock(m_orientationMutex);
        return m_orientationHandler;
    }();
    logLine("NavigatorPrivate::event - angle=", orientation.angle, ", id=", orientation.id);
    if (handler) {
        handler->handleOrientationRequest(
            orientation.angle, QSharedPointer<OrientationRequestImpl>::create(orientation.id));
        return true;
    }
    logLine("NavigatorPrivate::event - auto reply");
    errno = 0;
    if (api().navigator()->doneOrientationId(orientation.id.constData()) != 0)
        logLine("NavigatorPrivate::event: exlpode");
    return true;
}

} // namespace tamo
