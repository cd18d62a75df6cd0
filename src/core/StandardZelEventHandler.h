// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_STANDARDZELEVENTHANDLER_H
#define TAMO_CORE_STANDARDZELEVENTHANDLER_H

#include "ZelEventHandler.h"

#include <mutex>

namespace tamomock {
class ZelApi;
class ZelEventProvider;
} // namespace tamomock

namespace tamo {

/**
 * A handler with counted subscriptions to one service domain: the domain is registered with the
 * dispatcher while the count is above 0.
 *
 * subscribe() and unsubscribe() may be called from any thread but the dispatch thread. The most
 * derived destructor calls endSubscription() first, or an event in flight meets a half-destroyed
 * object.
 */
class StandardZelEventHandler : public ZelEventHandler
{
public:
    /** @param provider the domain's; not owned, outlives the handler */
    explicit StandardZelEventHandler(tamomock::ZelEventProvider* provider);
    StandardZelEventHandler(const StandardZelEventHandler&) = delete;
    StandardZelEventHandler& operator=(const StandardZelEventHandler&) = delete;

    void dispatchZelEvent(zel_event_t* event) override;

    /** Takes one event of the domain; as dispatchZelEvent(). */
    virtual void handleZelEvent(int code, zel_event_t* event) = 0;

    /**
     * Counts one subscription more. The first one initialises the calling thread's event library
     * and registers the domain.
     *
     * @param signal whatever was connected; not looked at
     * @param flags the request flags; those of the first subscription count while it is open
     * @throws tamo::Exception where the registration fails; the count stays
     */
    void subscribe(const char* signal, int flags);
    void subscribe(const char* signal) { subscribe(signal, 0); }

    /**
     * Counts one subscription less, below 0 as well. At 0 the domain is deregistered: when it
     * returns, no call of the handler is under way, and none begins.
     *
     * @throws tamo::Exception where that fails; the count is 0 then, and endSubscription() does
     * what is left to do
     */
    void unsubscribe();

    /** Ends every subscription, once. When it returns, no call of the handler begins any more. */
    void endSubscription() noexcept;

protected:
    ~StandardZelEventHandler();

    /** The seam that was current when the handler was made. */
    tamomock::ZelApi& api() const { return *m_api; }

private:
    tamomock::ZelApi* const m_api;
    tamomock::ZelEventProvider* const m_provider;
    int m_flags = 0;
    int m_subscribers = 0;
    std::mutex m_mutex; // guards m_flags and m_subscribers; taken before the registry lock
};

} // namespace tamo

#endif
