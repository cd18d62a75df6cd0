// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_THREADCHANGE_H
#define TAMO_CORE_THREADCHANGE_H

#include <QtCore/QEvent>
#include <QtCore/QObject>

namespace tamo::detail {

/**
 * Lets a private object follow its public one to another thread, as that one's child from then on.
 * To be called with each event of the public object.
 */
inline void followToThread(QObject* privateObject, QObject* publicObject, const QEvent* event)
{
    // Sent before the move, which takes the children along.
    if (event->type() == QEvent::ThreadChange)
        privateObject->setParent(publicObject);
}

} // namespace tamo::detail

#endif
