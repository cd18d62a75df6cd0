// SPDX-License-Identifier: Apache-2.0
#include "PpsAccessorPrivate.h"

#include <tamo/Exception.h>
#include <tamo/PpsAccessor.h>

#include <optional>

namespace tamo {

namespace {

std::optional<QVariantMap> decoded(const QByteArray& data)
{
    try {
        return PpsAccessor::decode(data);
    } catch (const Exception&) {
        return std::nullopt;
    }
}

} // namespace

PpsAccessorPrivate::PpsAccessorPrivate(PpsAccessor* accessor, const QString& path)
    : QObject(accessor), q(accessor), object(new PpsObject(path, this))
{
    if (!object->open(PpsObject::Publish | PpsObject::Subscribe))
        throw Exception();
    connect(object, SIGNAL(readyRead()), this, SLOT(readyRead()));
}

PpsAccessorPrivate::PpsAccessorPrivate(PpsAccessor* accessor, PpsObject* ppsObject)
    : QObject(accessor), q(accessor), object(ppsObject)
{
    if (object)
        connect(object, SIGNAL(readyRead()), this, SLOT(readyRead()));
}

void PpsAccessorPrivate::readyRead()
{
    QByteArray data;
    if (!object || !object->read(data))
        return;
    const std::optional<QVariantMap> map = decoded(data);
    // Outside of the handler for decoding, so that what a receiver throws passes; and the last that
    // is done here, since a receiver may delete the accessor.
    if (map)
        Q_EMIT q->received(*map);
    else
        Q_EMIT q->unparsableDataReceived(data);
}

} // namespace tamo
