// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_PPSHELPER_H
#define TAMO_DEVICE_PPSHELPER_H

#include <tamo/PpsAccessor.h>
#include <tamo/PpsObject.h>

#include <QtCore/QObject>
#include <QtCore/QVariant>

namespace tamo {
namespace device {
namespace detail {

/** A subscription to one PPS object, for a reader to whom all that is unreadable is the same. */
class PpsHelper : public QObject
{
    Q_OBJECT

public:
    /** Opens the object, if it can be opened. */
    explicit PpsHelper(const QString& path, QObject* parent = nullptr);

    /** What the object holds now; an empty map where it cannot be read, or was not published. */
    QVariantMap read();

Q_SIGNALS:
    /** The object was published; an empty map where it is malformed. */
    void received(const QVariantMap& ppsData);

private:
    PpsObject m_object;
    PpsAccessor m_accessor;
};

} // namespace detail
} // namespace device
} // namespace tamo

#endif
