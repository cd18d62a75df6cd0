// SPDX-License-Identifier: Apache-2.0
#include <tamomock/LedPpsChannel.h>

#include "ChannelObjects.h"
#include "CurrentChannel.h"

namespace tamomock {

using tamo::PpsObject;

namespace {

detail::CurrentChannel<LedPpsChannel>& current()
{
    // Never destroyed: threads may use Leds while the process ends.
    static auto& instance = *new detail::CurrentChannel<LedPpsChannel>;
    return instance;
}

} // namespace

LedPpsChannel::LedPpsChannel()
{
    PpsObject* const control =
        detail::openObject(QStringLiteral("/pps/services/led/control"), PpsObject::Publish, this);
    PpsObject* const status =
        detail::openObject(QStringLiteral("/pps/services/led/status"), PpsObject::Subscribe, this);
    detail::receiveFrom(status, this);
    detail::sendTo(control, this);
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
