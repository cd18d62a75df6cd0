// SPDX-License-Identifier: Apache-2.0
#include "OrientationEvent.h"

namespace tamo {

static const auto registeredType = static_cast<QEvent::Type>(QEvent::registerEventType());

OrientationEvent::OrientationEvent(int newAngle, const QByteArray& requestId)
    : QEvent(registeredType), angle(newAngle), id(requestId)
{
}

OrientationEvent::~OrientationEvent() = default;

QEvent::Type OrientationEvent::eventType()
{
    return registeredType;
}

} // namespace tamo
