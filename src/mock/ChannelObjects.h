// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_MOCK_CHANNELOBJECTS_H
#define TAMO_MOCK_CHANNELOBJECTS_H

#include "Outbox.h"

#include <tamo/Exception.h>
#include <tamo/PpsAccessor.h>
#include <tamo/PpsObject.h>

namespace tamomock::detail {

/** @throws tamo::Exception where the object cannot be opened */
inline tamo::PpsObject* openObject(const QString& path, tamo::PpsObject::OpenMode mode,
                                   QObject* parent)
{
    auto* const object = new tamo::PpsObject(path, parent);
    if (!object->open(mode))
        throw tamo::Exception();
    return object;
}

/** What comes from the object, the channel has received. */
template<class Channel>
void receiveFrom(tamo::PpsObject* object, Channel* channel)
{
    const auto* const accessor = new tamo::PpsAccessor(object, object);
    QObject::connect(accessor, &tamo::PpsAccessor::received, channel, &Channel::receivePassthrough);
}

/** What the channel sends, goes to the object. */
template<class Channel>
void sendTo(tamo::PpsObject* object, Channel* channel)
{
    const auto* const outbox = new Outbox(object, channel);
    QObject::connect(channel, &Channel::sendPassthrough, outbox, &Outbox::send);
}

} // namespace tamomock::detail

#endif
