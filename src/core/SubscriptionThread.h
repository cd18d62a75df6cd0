// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_SUBSCRIPTIONTHREAD_H
#define TAMO_CORE_SUBSCRIPTIONTHREAD_H

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>

namespace tamo {

class ConnectionSubscription;

/**
 * Looks after subscriptions where nobody holds a lock: on a thread of its own, which is there while
 * there is something to look at.
 *
 * A receiver's deletion is announced before its connections are gone. So a look that finds
 * connections is repeated, after ever longer pauses, for about a second; what a thread in the
 * middle of deleting its receiver does in between is a few instructions.
 */
class SubscriptionThread
{
public:
    /** The process's only one; never destroyed. */
    static SubscriptionThread& instance();

    /** Has a subscription looked at now, and again, unless it is forgotten. Under any lock. */
    void lookAt(ConnectionSubscription& subscription);

    /** Never looks at a subscription any more. Waits for a look that is under way. */
    void forget(ConnectionSubscription& subscription);

    /**
     * Looks at once at each subscription that is still to be looked at, and waits for it. What the
     * calling thread has disconnected or deleted before is unsubscribed then.
     *
     * @return false where that took longer than the limit
     */
    bool settle(std::chrono::milliseconds limit);

private:
    using Clock = std::chrono::steady_clock;
    using Lock = std::unique_lock<std::mutex>;

    struct Look
    {
        Clock::time_point due;
        std::chrono::milliseconds pause; // before the next one; 0 where this is the first
    };

    void run();
    void lookAtOne(Lock& lock, ConnectionSubscription& subscription);
    bool isSettled() const;

    std::mutex m_mutex; // guards everything; nothing is called with it held
    std::condition_variable m_changed;
    std::map<ConnectionSubscription*, Look> m_looks;
    ConnectionSubscription* m_lookedAt = nullptr;
    bool m_isFirstLook = false; // m_lookedAt's
    bool m_isRunning = false;
};

} // namespace tamo

#endif
