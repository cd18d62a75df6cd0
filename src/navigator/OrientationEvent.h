// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_NAVIGATOR_ORIENTATIONEVENT_H
#define TAMO_NAVIGATOR_ORIENTATIONEVENT_H

#include <QtCore/QByteArray>
#include <QtCore/QEvent>

namespace tamo {

/** The window was turned; posted by the dispatch thread to the Navigator. */
class OrientationEvent : public QEvent
{
public:
    /**
     * @param newAngle degrees
     * @param requestId the navigator's, for the answer
     */
    OrientationEvent(int newAngle, const QByteArray& requestId);
    ~OrientationEvent() override;

    /** The type of these events, taken when the library is loaded. */
    static QEvent::Type eventType();

    const int angle;
    const QByteArray id;
};

} // namespace tamo

#endif
