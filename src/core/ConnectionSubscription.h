// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_CONNECTIONSUBSCRIPTION_H
#define TAMO_CORE_CONNECTIONSUBSCRIPTION_H

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>

#include <atomic>
#include <functional>
#include <mutex>

namespace tamo {

class StandardZelEventHandler;

/**
 * Keeps a handler subscribed exactly while connections to an object's signals exist, whichever
 * signals they are. The object calls connected() from its connectNotify() and disconnected() from
 * its disconnectNotify().
 *
 * Neither call says how many connections there are: one disconnectNotify() may stand for several
 * connections, and that of a receiver which is being deleted comes before the connection is gone,
 * inside the receiver's lock. So they only say that it is time to look, and what exists counts.
 */
class ConnectionSubscription
{
public:
    /** QObject::isSignalConnected() of the object. */
    using IsConnected = std::function<bool(const QMetaMethod&)>;

    /**
     * @param object outlives this
     * @param metaObject of the class whose signals, its bases' included, are looked at
     * @param handler outlives this; no other subscriptions are made with it
     * @param flags the request flags
     */
    ConnectionSubscription(QObject& object, const QMetaObject& metaObject, IsConnected isConnected,
                           StandardZelEventHandler& handler, int flags = 0);
    ConnectionSubscription(const ConnectionSubscription&) = delete;
    ConnectionSubscription& operator=(const ConnectionSubscription&) = delete;

    ~ConnectionSubscription() { end(); }

    /**
     * Ends the subscription for good: when it returns, no call of the handler begins any more, and
     * connected() and disconnected() do nothing. The most derived destructor of the handler calls
     * it first. Not on the dispatch thread.
     */
    void end() noexcept;

    /**
     * A connection was made. When it returns, the handler is subscribed; on the dispatch thread it
     * is soon after.
     *
     * @throws tamo::Exception where the subscription fails; the connection is gone then (see
     * takeBack()), and the next one tries again
     */
    void connected(const QMetaMethod& signal);

    /**
     * A connection was, or is being, taken away. Takes no lock that any thread holds for long, so
     * that it may be called inside Qt's own. The handler's subscription ends soon after, on a
     * thread that holds no lock.
     */
    void disconnected();

    /**
     * Unsubscribes where that is due; subscribes for a connection that was made on the dispatch
     * thread, since for any other connected() does, which can say that it failed. Not on the
     * dispatch thread.
     *
     * @return whether there are no connections, so that no other look is needed
     */
    bool look();

private:
    friend class SubscriptionThread;

    bool hasConnections() const;
    void takeBack(const QMetaMethod& signal);

    QObject& m_object;
    const QMetaObject& m_metaObject;
    const IsConnected m_isConnected;
    StandardZelEventHandler& m_handler;
    const int m_flags;
    std::atomic<bool> m_isToSubscribe{false}; // for a connection made on the dispatch thread
    bool m_isSubscribed = false;
    bool m_isEnded = false;
    bool m_isForgotten = false; // the SubscriptionThread's, under its lock
    std::mutex m_mutex;         // guards m_isSubscribed and m_isEnded; the first in the order
};

} // namespace tamo

#endif
