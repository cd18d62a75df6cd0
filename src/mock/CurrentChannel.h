// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_MOCK_CURRENTCHANNEL_H
#define TAMO_MOCK_CURRENTCHANNEL_H

#include <QtCore/QCoreApplication>
#include <QtCore/QMutexLocker>
#include <QtCore/QObject>
#include <QtCore/QRecursiveMutex>
#include <QtCore/QSharedPointer>
#include <QtCore/QThread>
#include <QtCore/QWeakPointer>

namespace tamomock::detail {

/** Moves a channel to the application's thread when its own ends. To be called in the channel's
 * thread. */
inline void outliveThread(QObject* channel)
{
    QObject::connect(
        QThread::currentThread(), &QThread::finished, channel,
        [channel] {
            const QCoreApplication* const application = QCoreApplication::instance();
            if (application && channel->thread() == QThread::currentThread())
                channel->moveToThread(application->thread());
        },
        Qt::DirectConnection);
}

/** The channel of a service that the whole process uses, if any, and the lock over it. Its users
 * hold it; here it is only known. */
template<class Channel>
class CurrentChannel
{
public:
    /** The current channel; where there is none, a new default one. */
    QSharedPointer<Channel> get()
    {
        const QMutexLocker locker(&mutex);
        QSharedPointer<Channel> channel = m_channel.toStrongRef();
        if (!channel) {
            channel = QSharedPointer<Channel>(new Channel, &QObject::deleteLater);
            outliveThread(channel.data());
            set(channel);
        }
        return channel;
    }

    void set(const QSharedPointer<Channel>& channel)
    {
        const QMutexLocker locker(&mutex);
        m_channel = channel;
    }

    // The channel goes when its last user lets go of it, by what it was given for that: deleting it
    // from here as well would take it from under its users, and be once too often.
    void reset() { set({}); }

    /** Also over what else is known of the service's channels. Recursive, for a channel that asks
     * for that while it is made. */
    QRecursiveMutex mutex;

private:
    QWeakPointer<Channel> m_channel;
};

} // namespace tamomock::detail

#endif
