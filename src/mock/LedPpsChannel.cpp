// SPDX-License-Identifier: Apache-2.0
#include <tamomock/LedPpsChannel.h>

#include "CurrentChannel.h"

#include <tamo/Exception.h>
#include <tamo/PpsAccessor.h>
#include <tamo/PpsObject.h>

namespace tamomock {

using tamo::PpsAccessor;
using tamo::PpsObject;

namespace {

detail::CurrentChannel<LedPpsChannel>& current()
{
    // Never destroyed: threads may use Leds while the process ends.
    static auto& instance = *new detail::CurrentChannel<LedPpsChannel>;
    return instance;
}

PpsAccessor* openAccessor(const QString& path, PpsObject::OpenMode mode, QObject* parent)
{
    auto* const object = new PpsObject(path, parent);
    if (!object->open(mode))
        throw tamo::Exception();
    return new PpsAccessor(object, object);
}

} // namespace

LedPpsChannel::LedPpsChannel()
{
    const PpsAccessor* const control =
        openAccessor(QStringLiteral("/pps/services/led/control"), PpsObject::Publish, this);
    const PpsAccessor* const status =
        openAccessor(QStringLiteral("/pps/services/led/status"), PpsObject::Subscribe, this);
    connect(status, &PpsAccessor::received, this, &LedPpsChannel::receivePassthrough);
    connect(this, &LedPpsChannel::sendPassthrough, control, &PpsAccessor::send);
}

LedPpsChannel::LedPpsChannel(WithoutPps) {}

LedPpsChannel::~LedPpsChannel() = default;

QSharedPointer<LedPpsChannel> LedPpsChannel::channel()
{
    return current().get();
}

void LedPpsChannel::setChannel(const QSharedPointer<LedPpsChannel>& channel)
{
    current().set(channel);
}

void LedPpsChannel::resetChannel()
{
    current().reset();
}

} // namespace tamomock
