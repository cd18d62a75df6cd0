// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_LEDPPSCHANNEL_H
#define TAMOMOCK_LEDPPSCHANNEL_H

#include <tamo/export.h>

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QVariantMap>

namespace tamomock {

/**
 * The way from every `tamo::device::Led` of the process to the LED service: maps out, to
 * `/pps/services/led/control`, and maps in, from `/pps/services/led/status`. A test, or a host,
 * installs a channel of its own in its place, and then sees what is sent and says what is received:
 *
 *     const auto channel = QSharedPointer<tamomock::LedPpsChannel>::create(
 *         tamomock::LedPpsChannel::WithoutPps());
 *     tamomock::LedPpsChannel::setChannel(channel);
 *     QObject::connect(channel.data(), &tamomock::LedPpsChannel::sendPassthrough, ...);
 *     tamo::device::Led led;
 *     led.flash(1);
 *     Q_EMIT channel->receivePassthrough(...);
 *
 * **Lifetime.** The process knows its current channel and does not keep it: its users do, each from
 * its construction to its end, and so does whoever has made one. A default channel, with its PPS
 * objects, is made for the first user and deleted after the last one, by the event loop of the
 * thread that it lives in; a user that comes before that event loop's turn gets a new one.
 * A channel that somebody has installed is deleted by what its QSharedPointer says.
 *
 * What a default channel's service has no room for, because it has not read so much yet, waits and
 * follows in order while the event loop runs. Deleting the channel waits for it as long as the
 * service goes on reading, which it may pause for half a second; a line on standard error says what
 * is lost then.
 *
 * **Threads.** The static operations may be called from any thread. A default channel lives in the
 * thread of its first user; when that thread ends, it moves to the thread of the
 * QCoreApplication. Connections are automatic: to and from users in other threads maps are queued,
 * and the channel's thread needs an event loop. It needs one for whatever is received.
 * Without an event loop that turns, channels are not deleted: a thread that makes and deletes users
 * in a loop of its own keeps one of them for as long.
 *
 * @since 0.1
 */
class TAMO_EXPORT LedPpsChannel : public QObject
{
    Q_OBJECT

public:
    /** Says that a channel is to have no PPS objects. */
    struct WithoutPps
    {
    };

    /**
     * A default channel, over the LED service's PPS objects.
     *
     * @throws tamo::Exception where one of them cannot be opened
     */
    LedPpsChannel();

    /** A channel that sends and receives nothing by itself. */
    explicit LedPpsChannel(WithoutPps);

    ~LedPpsChannel() override;

    /**
     * The current channel; where there is none, a new default one, which is current from then on.
     * Never null.
     *
     * @throws tamo::Exception as LedPpsChannel()
     */
    static QSharedPointer<LedPpsChannel> channel();

    /**
     * Makes a channel the current one, for as long as somebody holds it. Users that are there
     * already keep theirs. With null there is no current channel.
     */
    static void setChannel(const QSharedPointer<LedPpsChannel>& channel);

    /**
     * Leaves no current channel: the next user gets a new default one. Users of the former one go
     * on using it, for as long as they like; it is deleted once, after they have all let go of it,
     * and never under them. Without a current channel nothing happens.
     */
    static void resetChannel();

Q_SIGNALS:
    /** Carries a request to the service. A receiver that is called directly runs inside of the
     * sender's operation, and neither throws nor deletes the sender. */
    void sendPassthrough(const QVariantMap& map);

    /** Carries what the service has published. */
    void receivePassthrough(const QVariantMap& map);
};

} // namespace tamomock

#endif
