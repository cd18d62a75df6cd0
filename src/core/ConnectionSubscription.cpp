// SPDX-License-Identifier: Apache-2.0
#include "ConnectionSubscription.h"

#include "StandardZelEventHandler.h"
#include "SubscriptionThread.h"
#include "ZelEventDispatcher.h"

#include <tamo/Exception.h>

namespace tamo {

ConnectionSubscription::ConnectionSubscription(const QMetaObject& object, IsConnected isConnected,
                                               StandardZelEventHandler& handler, int flags)
    : m_object(object), m_isConnected(std::move(isConnected)), m_handler(handler), m_flags(flags)
{
}

void ConnectionSubscription::end() noexcept
{
    SubscriptionThread::instance().forget(*this);
    m_handler.endSubscription();
}

void ConnectionSubscription::connected(const QMetaMethod& signal)
{
    // A slot that runs directly on the dispatch thread has connected; the registry lock is held.
    if (ZelEventDispatcher::isDispatchThread()) {
        SubscriptionThread::instance().lookAt(*this);
        return;
    }
    const std::lock_guard lock(m_mutex);
    if (m_isSubscribed)
        return;
    m_handler.subscribe(signal.methodSignature().constData(), m_flags);
    m_isSubscribed = true;
}

void ConnectionSubscription::disconnected()
{
    SubscriptionThread::instance().lookAt(*this);
}

bool ConnectionSubscription::look()
{
    const std::lock_guard lock(m_mutex);
    const bool isDue = hasConnections();
    if (isDue == m_isSubscribed)
        return !isDue;
    try {
        m_isSubscribed = isDue;
        if (isDue)
            m_handler.subscribe("", m_flags);
        else
            m_handler.unsubscribe();
    } catch (const Exception&) {
        // It has been logged. Without a subscription the next connection tries again.
        m_isSubscribed = false;
    }
    return !isDue;
}

bool ConnectionSubscription::hasConnections() const
{
    for (int i = 0; i < m_object.methodCount(); ++i) {
        const QMetaMethod method = m_object.method(i);
        if (method.methodType() == QMetaMethod::Signal && m_isConnected(method))
            return true;
    }
    return false;
}

} // namespace tamo
