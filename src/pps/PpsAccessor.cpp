// SPDX-License-Identifier: Apache-2.0
#include <tamo/PpsAccessor.h>

#include "PpsAccessorPrivate.h"
#include "PpsMapDecoder.h"
#include "PpsMapEncoder.h"

#include <tamo/Exception.h>
#include <tamo/PpsObject.h>

namespace tamo {

PpsAccessor::PpsAccessor(const QString& path, QObject* parent)
    : QObject(parent), d(std::make_unique<PpsAccessorPrivate>(this, path))
{
}

PpsAccessor::PpsAccessor(PpsObject* object, QObject* parent)
    : QObject(parent), d(std::make_unique<PpsAccessorPrivate>(this, object))
{
}

PpsAccessor::~PpsAccessor() = default;

QVariantMap PpsAccessor::read()
{
    QByteArray data;
    if (!d->object || !d->object->read(data))
        throw Exception();
    return decode(data);
}

bool PpsAccessor::send(const QVariantMap& ppsData)
{
    const QByteArray data = encode(ppsData);
    return d->object && d->object->write(data) == data.size();
}

QByteArray PpsAccessor::encode(const QVariantMap& ppsData)
{
    PpsMapEncoder encoder;
    encoder.addMembers(ppsData);
    return encoder.text();
}

QVariantMap PpsAccessor::decode(const QByteArray& rawData)
{
    return PpsMapDecoder(rawData).members();
}

} // namespace tamo
