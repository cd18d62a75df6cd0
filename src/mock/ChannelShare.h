// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_MOCK_CHANNELSHARE_H
#define TAMO_MOCK_CHANNELSHARE_H

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>

namespace tamomock::detail {

/**
 * How a private object meets its channel: takes the current one, to be kept for the object's life,
 * and connects the object's send() to it. What the channel receives the object connects itself,
 * when it wants to hear of it.
 *
 * @throws Failure(arguments...) where there is no channel; what making the default one throws
 */
template<class Channel, class Failure, class... Arguments>
QSharedPointer<Channel> joinChannel(QObject* user, const Arguments&... arguments)
{
    const QSharedPointer<Channel> channel = Channel::channel();
    if (!channel)
        throw Failure(arguments...);
    QObject::connect(user, SIGNAL(send(QVariantMap)), channel.data(),
                     SIGNAL(sendPassthrough(QVariantMap)));
    return channel;
}

} // namespace tamomock::detail

#endif
