// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_NOTIFICATIONPPSCHANNEL_H
#define TAMOMOCK_NOTIFICATIONPPSCHANNEL_H

#include <tamo/export.h>

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVariantMap>

namespace tamomock {

/**
 * The way from every `tamo::platform::Notification` of the process to the notification service, and
 * back: maps to and from the PPS object path(). A test, or a host, installs a channel of its own in
 * its place. Lifetime and threads are those of LedPpsChannel, which shows how it is done.
 *
 * @since 0.1
 */
class TAMO_EXPORT NotificationPpsChannel : public QObject
{
    Q_OBJECT

public:
    /** Says that a channel is to have no PPS object. */
    struct WithoutPps
    {
    };

    /**
     * A default channel, over the PPS object that path() names now.
     *
     * @throws tamo::Exception where it cannot be opened
     */
    NotificationPpsChannel();

    /** A channel that sends and receives nothing by itself. */
    explicit NotificationPpsChannel(WithoutPps);

    ~NotificationPpsChannel() override;

    /**
     * The current channel; where there is none, a new default one, which is current from then on.
     * Never null.
     *
     * @throws tamo::Exception as NotificationPpsChannel()
     */
    static QSharedPointer<NotificationPpsChannel> channel();

    /**
     * Makes a channel the current one, for as long as somebody holds it. Users that are there
     * already keep theirs. With null there is no current channel.
     */
    static void setChannel(const QSharedPointer<NotificationPpsChannel>& channel);

    /**
     * Leaves no current channel: the next user gets a new default one. Users of the former one go
     * on using it, for as long as they like; it is deleted once, after they have all let go of it,
     * and never under them. Without a current channel nothing happens.
     */
    static void resetChannel();

    /** The PPS object of default channels; `/pps/services/notification/control` at first. */
    static QString path();

    /** Sets the PPS object of the default channels that are made from now on; a null string is as
     * resetPath(). */
    static void setPath(const QString& path);

    /** Sets the path that was there at first. */
    static void resetPath();

Q_SIGNALS:
    /** Carries a request to the service. A receiver that is called directly runs inside of the
     * sender's operation, and neither throws nor deletes the sender. */
    void sendPassthrough(const QVariantMap& map);

    /** Carries an answer of the service's. What a receiver throws comes out of the emission. */
    void receivePassthrough(const QVariantMap& map);
};

} // namespace tamomock

#endif
