// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_ZELEVENTDISPATCHER_H
#define TAMO_CORE_ZELEVENTDISPATCHER_H

#include <zel/zel.h>

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QThread>

#include <mutex>

namespace tamomock {
class ZelApi;
class ZelCore;
class ZelEventProvider;
} // namespace tamomock

namespace tamo {

class ZelEventHandler;

/**
 * The one thread in which the library takes the platform's events, and the registry of the handlers
 * that it hands them to, one for each domain. It is there while a handler is registered.
 *
 * Requests for a domain's events travel to the thread as private events, since the platform sends a
 * domain's events to the channel of the thread that asked for them.
 *
 * **Locks.** The registry lock guards all state. It is held while a handler is called, so a handler
 * that has been unregistered is not called any more; it is not held while a thread waits for the
 * dispatch thread to start or to end. The whole order, each taken before the next:
 *
 * 1. a ConnectionSubscription's
 * 2. a StandardZelEventHandler's
 * 3. the registry lock
 * 4. what a handler guards its own state with (NavigatorImpl's), and any lock that application code
 *    takes in a slot which runs directly on the dispatch thread
 * 5. locks under which nothing else is called: the DispatchGate's, the SubscriptionThread's, the
 *    seams', the log's, and the platform's own
 *
 * Qt's own locks, inside which disconnectNotify() may run, stand outside this order: under them
 * only a lock of the last kind is taken. None of these locks is ever destroyed while a thread may
 * need it.
 */
class ZelEventDispatcher : public QObject
{
    Q_OBJECT

public:
    /**
     * Registers a handler for the provider's domain and has the domain's events requested in the
     * dispatch thread, which it starts where there is none. A domain that has a handler keeps it:
     * the second one is refused with a line of the log. Where the thread has ended because taking
     * an event failed, it is started anew, for the domains that were registered too.
     *
     * May be called from any thread but the dispatch thread, which throws.
     *
     * @throws tamo::Exception where the thread cannot be started or the request not be made;
     * nothing is registered then
     */
    static void registerForEvents(tamomock::ZelEventProvider* provider, int flags,
                                  ZelEventHandler* handler);

    /**
     * Removes a registration and has the domain's events stopped; with the last one the thread
     * ends. When it returns, no call of the handler is under way and none begins. A handler that is
     * not the registered one changes nothing.
     *
     * May be called from any thread but the dispatch thread, which throws.
     *
     * @throws tamo::Exception where the domain's events cannot be stopped: the registration stays;
     * or where the thread cannot be ended: the registration is gone, the thread can be used again
     */
    static void unregisterForEvents(tamomock::ZelEventProvider* provider, int flags,
                                    ZelEventHandler* handler);

    /** Removes whatever registration a handler has left behind; asks nothing of the platform. */
    static void forget(ZelEventHandler* handler) noexcept;

    /** Whether the calling thread is the dispatch thread. */
    static bool isDispatchThread();

private Q_SLOTS:
    void processZelEvents();

private:
    enum class State {
        Idle,     // no thread
        Starting, // the thread has not said yet whether it could
        Running,
        Stopping, // the thread has been told to end
        Failed    // the thread has ended, or is ending, because the platform failed
    };

    struct Registration
    {
        ZelEventHandler* handler = nullptr;
        tamomock::ZelEventProvider* provider = nullptr;
        int flags = 0;
    };

    struct Registry;
    static Registry& registry();
    using Lock = std::unique_lock<std::mutex>;

    ZelEventDispatcher();

    static void awaitRunning(Lock& lock);
    static void endIfUnused(Lock& lock);
    static void refuseOnDispatchThread(const char* operation);

    void start(Lock& lock);
    void stop(Lock& lock);
    void openChannel();
    void routeEvents();
    void routeEvent(int domain, zel_event_t* event);
    void callHandler(ZelEventHandler& handler, zel_event_t* event);
    int registerPrivateDomain(const char* name);
    void pushRequestEventsToDispatchThread(tamomock::ZelEventProvider* provider, int flags);
    void pushStopEventsToDispatchThread(tamomock::ZelEventProvider* provider, int flags);
    void pushToDispatchThread(const char* operation, const char* name, int domain,
                              tamomock::ZelEventProvider* provider, int flags);
    tamomock::ZelCore& core() const;

    QThread& m_thread;
    int m_quitDomain = -1;
    int m_registerDomain = -1;
    int m_deregisterDomain = -1;
    int m_channel = 0;
    bool m_isInitialized = false; // the event library, in the thread
    QMap<int, Registration> m_handlers;
    tamomock::ZelApi* const m_api;
};

} // namespace tamo

#endif
