// SPDX-License-Identifier: Apache-2.0
#include "ConnectionSubscription.h"

#include "StandardZelEventHandler.h"
#include "SubscriptionThread.h"
#include "ZelEventDispatcher.h"

namespace tamo {

ConnectionSubscription::ConnectionSubscription(QObject& object, const QMetaObject& metaObject,
                                               IsConnected isConnected,
                                               StandardZelEventHandler& handler, int flags)
    : m_object(object)
    , m_metaObject(metaObject)
    , m_isConnected(std::move(isConnected))
    , m_handler(handler)
    , m_flags(flags)
{
}

void ConnectionSubscription::end() noexcept
{
    SubscriptionThread::instance().forget(*this);
    const std::lock_guard lock(m_mutex);
    m_isEnded = true;
    m_isSubscribed = false;
    m_handler.endSubscription();
}

void ConnectionSubscription::connected(const QMetaMethod& signal)
{
    // A slot that runs directly on the dispatch thread has connected; the registry lock is held.
    if (ZelEventDispatcher::isDispatchThread()) {
        m_isToSubscribe = true;
        SubscriptionThread::instance().lookAt(*this);
        return;
    }
    try {
        const std::lock_guard lock(m_mutex);
        if (m_isSubscribed || m_isEnded)
            return;
        m_handler.subscribe(signal.methodSignature().constData(), m_flags);
        m_isSubscribed = true;
    } catch (...) {
        takeBack(signal);
        throw;
    }
    // Another thread may have taken the connection away before there was a subscription to end.
    if (!m_isConnected(signal))
        SubscriptionThread::instance().lookAt(*this);
}

// An exception that leaves connectNotify() has QObject::connect() with SIGNAL() and SLOT() free the
// connection, and leave it in the object's list; it must not be there any more. What connections
// there are without a subscription came at this moment, or after a failure like this one. Their
// slots' destructors are the application's, so no lock is held.
void ConnectionSubscription::takeBack(const QMetaMethod& signal)
{
    QObject::disconnect(&m_object, signal, nullptr, QMetaMethod());
}

void ConnectionSubscription::disconnected()
{
    SubscriptionThread::instance().lookAt(*this);
}

bool ConnectionSubscription::look()
{
    const std::lock_guard lock(m_mutex);
    if (m_isEnded)
        return true;
    const bool isDue = hasConnections();
    if (isDue && m_isSubscribed)
        m_isToSubscribe = false;
    if (isDue == m_isSubscribed || (isDue && !m_isToSubscribe))
        return !isDue;
    try {
        m_isSubscribed = isDue;
        if (isDue)
            m_handler.subscribe("", m_flags);
        else
            m_handler.unsubscribe();
    } catch (...) {
        // It has been logged. Without a subscription the next connection tries again.
        m_isSubscribed = false;
    }
    return !isDue;
}

bool ConnectionSubscription::hasConnections() const
{
    for (int i = 0; i < m_metaObject.methodCount(); ++i) {
        const QMetaMethod method = m_metaObject.method(i);
        if (method.methodType() == QMetaMethod::Signal && m_isConnected(method))
            return true;
    }
    return false;
}

} // namespace tamo
