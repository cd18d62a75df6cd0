// SPDX-License-Identifier: Apache-2.0
#include "PpsHelper.h"

#include <tamo/Exception.h>

namespace tamo {
namespace device {
namespace detail {

PpsHelper::PpsHelper(const QString& path, QObject* parent)
    : QObject(parent), m_object(path, this), m_accessor(&m_object, this)
{
    connect(&m_accessor, SIGNAL(received(QVariantMap)), this, SIGNAL(received(QVariantMap)));
    connect(&m_accessor, &PpsAccessor::unparsableDataReceived, this,
            [this] { Q_EMIT received(QVariantMap()); });
    m_object.open(PpsObject::Subscribe);
}

QVariantMap PpsHelper::read()
{
    try {
        return m_accessor.read();
    } catch (const Exception&) {
        return QVariantMap();
    }
}

} // namespace detail
} // namespace device
} // namespace tamo
