// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_PPSACCESSORPRIVATE_H
#define TAMO_PPS_PPSACCESSORPRIVATE_H

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

#include <tamo/PpsObject.h>

namespace tamo {

class PpsAccessor;

/** A PpsAccessor's object, and the slot that follows it. It is the accessor's child, to be moved to
 * other threads with it. */
class PpsAccessorPrivate : public QObject
{
    Q_OBJECT

public:
    /** With an object of its own, opened to read and write; throws where that fails. */
    PpsAccessorPrivate(PpsAccessor* accessor, const QString& path);
    /** With the caller's object. */
    PpsAccessorPrivate(PpsAccessor* accessor, PpsObject* ppsObject);

    PpsAccessor* const q;
    /** Null after its owner has deleted it. */
    const QPointer<PpsObject> object;

private Q_SLOTS:
    void readyRead();
};

} // namespace tamo

#endif
