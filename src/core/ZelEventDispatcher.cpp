// SPDX-License-Identifier: Apache-2.0
#include "ZelEventDispatcher.h"

#include "DispatchGate.h"
#include "InitialExec.h"
#include "Log.h"
#include "NeverDestroyed.h"
#include "ZelEventHandler.h"

#include <tamo/Exception.h>
#include <tamomock/ZelApi.h>
#include <tamomock/ZelCore.h>
#include <tamomock/ZelEventProvider.h>

#include <cerrno>
#include <condition_variable>

namespace tamo {

using detail::logLine;
using tamomock::ZelEventProvider;

struct ZelEventDispatcher::Registry
{
    std::mutex mutex; // the registry lock: guards all of this, and the dispatcher
    std::condition_variable stateChanged;
    QThread thread; // the dispatch thread, whichever dispatcher it runs for; not guarded
    ZelEventDispatcher* dispatcher = nullptr;
    State state = State::Idle;
    unsigned long starts = 0;      // how often a thread was started
    unsigned long failedStart = 0; // the last one that failed
};

namespace {

TAMO_INITIAL_EXEC thread_local bool isInDispatchThread = false;

} // namespace

ZelEventDispatcher::Registry& ZelEventDispatcher::registry()
{
    static detail::NeverDestroyed<Registry> instance;
    return *instance;
}

ZelEventDispatcher::ZelEventDispatcher()
    : m_thread(registry().thread), m_api(tamomock::ZelApi::instance())
{
    moveToThread(&m_thread);
    connect(&m_thread, &QThread::started, this, &ZelEventDispatcher::processZelEvents);
}

tamomock::ZelCore& ZelEventDispatcher::core() const
{
    return *m_api->core();
}

bool ZelEventDispatcher::isDispatchThread()
{
    return isInDispatchThread;
}

void ZelEventDispatcher::refuseOnDispatchThread(const char* operation)
{
    if (!isInDispatchThread)
        return;
    logLine("ZelEventDispatcher::", operation, "() - called on the dispatch thread");
    throw Exception();
}

void ZelEventDispatcher::registerForEvents(ZelEventProvider* provider, int flags,
                                           ZelEventHandler* handler)
{
    refuseOnDispatchThread("registerForEvents");
    Lock lock(registry().mutex);
    const int domain = provider->getDomain();
    awaitRunning(lock);
    ZelEventDispatcher& dispatcher = *registry().dispatcher;
    if (dispatcher.m_handlers.contains(domain)) {
        logLine("ZelEventDispatcher::registerForEvents() - domain (", domain,
                ") already registered. Ignoring registration request.");
        return;
    }
    try {
        dispatcher.pushRequestEventsToDispatchThread(provider, flags);
    } catch (...) {
        endIfUnused(lock);
        throw;
    }
    dispatcher.m_handlers.insert(domain, {handler, provider, flags});
}

void ZelEventDispatcher::unregisterForEvents(ZelEventProvider* provider, int flags,
                                             ZelEventHandler* handler)
{
    refuseOnDispatchThread("unregisterForEvents");
    Registry& all = registry();
    Lock lock(all.mutex);
    const int domain = provider->getDomain();
    all.stateChanged.wait(
        lock, [&] { return all.state != State::Starting && all.state != State::Stopping; });
    ZelEventDispatcher* const dispatcher = all.dispatcher;
    if (!dispatcher || dispatcher->m_handlers.value(domain).handler != handler)
        return;
    if (all.state == State::Running)
        dispatcher->pushStopEventsToDispatchThread(provider, flags);
    dispatcher->m_handlers.remove(domain);
    if (dispatcher->m_handlers.isEmpty())
        dispatcher->stop(lock);
}

void ZelEventDispatcher::forget(ZelEventHandler* handler) noexcept
{
    Registry& all = registry();
    // The dispatch thread holds the lock already, wherever application code can run in it.
    Lock lock(all.mutex, std::defer_lock);
    if (!isInDispatchThread)
        lock.lock();
    if (!all.dispatcher)
        return;
    QMap<int, Registration>& handlers = all.dispatcher->m_handlers;
    bool isForgotten = false;
    for (auto i = handlers.begin(); i != handlers.end();) {
        const bool isIts = i->handler == handler;
        i = isIts ? handlers.erase(i) : std::next(i);
        isForgotten = isForgotten || isIts;
    }
    if (isForgotten && !isInDispatchThread)
        endIfUnused(lock);
}

// Returns while the thread runs; the caller may rely on it until it gives up the lock.
void ZelEventDispatcher::awaitRunning(Lock& lock)
{
    Registry& all = registry();
    while (all.state != State::Running) {
        all.stateChanged.wait(lock, [&] { return all.state != State::Stopping; });
        if (all.state == State::Idle || all.state == State::Failed) {
            if (!all.dispatcher)
                all.dispatcher = new ZelEventDispatcher;
            all.dispatcher->start(lock);
        }
        const unsigned long start = all.starts;
        all.stateChanged.wait(lock,
                              [&] { return all.starts != start || all.state != State::Starting; });
        if (all.failedStart == start) {
            logLine("ZelEventDispatcher::registerForEvents() - zel channel for thread is invalid");
            // Another thread has perhaps done away with the dispatcher, or started it anew.
            if (all.state == State::Failed)
                endIfUnused(lock);
            throw Exception();
        }
    }
}

void ZelEventDispatcher::start(Lock&)
{
    Registry& all = registry();
    // A thread that failed is past the lock by now.
    m_thread.wait();
    all.state = State::Starting;
    ++all.starts;
    m_thread.start(QThread::InheritPriority);
    // The thread needs the lock to come any further; so if it is not there now, it could not be
    // made.
    if (!m_thread.isRunning()) {
        all.state = State::Failed;
        all.failedStart = all.starts;
    }
}

// Ends the dispatcher where nothing is registered; never throws.
void ZelEventDispatcher::endIfUnused(Lock& lock)
{
    Registry& all = registry();
    const bool isSettled = all.state == State::Running || all.state == State::Failed;
    if (!all.dispatcher || !isSettled || !all.dispatcher->m_handlers.isEmpty())
        return;
    try {
        all.dispatcher->stop(lock);
    } catch (const Exception&) {
        // It has been logged, and the thread waits for the next registration.
    }
}

// Ends the thread and deletes the dispatcher. The lock is not held meanwhile: events that lie ahead
// of the quit event are routed first, and each takes it.
void ZelEventDispatcher::stop(Lock& lock)
{
    Registry& all = registry();
    if (all.state == State::Running) {
        zel_event_t* event = nullptr;
        errno = 0;
        if (core().eventCreate(&event, m_quitDomain, 0, nullptr, nullptr) == -1) {
            logLine("ZelEventDispatcher::stop() - failed to create quit event");
            throw Exception();
        }
        errno = 0;
        if (core().channelPushEvent(m_channel, event) == -1) {
            logLine("ZelEventDispatcher::stop() - failed to post quit event");
            core().eventDestroy(event);
            throw Exception();
        }
    }
    all.state = State::Stopping;
    lock.unlock();
    m_thread.wait();
    // The thread's own initialisation ended with the thread; this one is undone here, where the
    // subscription's is.
    if (m_isInitialized)
        core().shutdown();
    lock.lock();
    all.dispatcher = nullptr;
    all.state = State::Idle;
    all.stateChanged.notify_all();
    delete this;
}

void ZelEventDispatcher::processZelEvents()
{
    isInDispatchThread = true;
    logLine("ZelEventDispatcher::processZelEvents() - thread started");
    // No exception leaves the thread: what it has to say is in the log and in the state.
    try {
        openChannel();
        routeEvents();
        m_thread.quit();
        logLine("ZelEventDispatcher::processZelEvents() - thread stopped");
    } catch (...) {
        Registry& all = registry();
        const Lock lock(all.mutex);
        if (all.state == State::Starting)
            all.failedStart = all.starts;
        if (all.state != State::Stopping)
            all.state = State::Failed;
        m_thread.quit();
        all.stateChanged.notify_all();
    }
}

void ZelEventDispatcher::openChannel()
{
    Registry& all = registry();
    const Lock lock(all.mutex);
    errno = 0;
    m_isInitialized = core().initialize() == 0;
    if (!m_isInitialized) {
        logLine("ZelEventDispatcher::processZelEvents() - failed to initialize zel");
        throw Exception();
    }
    m_quitDomain = registerPrivateDomain("quit event");
    m_registerDomain = registerPrivateDomain("\"register domain\" event");
    m_deregisterDomain = registerPrivateDomain("\"deregister domain\" event");
    m_channel = core().channelGetActive();
    if (m_channel == -1)
        throw Exception();
    // Those who were registered when an earlier thread failed are served by this one.
    for (const Registration& registration : std::as_const(m_handlers))
        registration.provider->requestEvents(registration.flags);
    all.state = State::Running;
    all.stateChanged.notify_all();
}

int ZelEventDispatcher::registerPrivateDomain(const char* name)
{
    errno = 0;
    const int domain = core().registerDomain();
    if (domain == -1) {
        logLine("ZelEventDispatcher::processZelEvents() - failed to register ", name);
        throw Exception();
    }
    return domain;
}

void ZelEventDispatcher::routeEvents()
{
    for (;;) {
        zel_event_t* event = nullptr;
        errno = 0;
        if (core().getEvent(&event, -1) != 0) {
            logLine("ZelEventDispatcher::processZelEvents() - failed to get event");
            throw Exception();
        }
        const int domain = core().eventGetDomain(event);
        if (domain == m_quitDomain)
            return;
        routeEvent(domain, event);
    }
}

// The private events are carried out without a lock, in the order in which they were pushed.
void ZelEventDispatcher::routeEvent(int domain, zel_event_t* event)
{
    if (domain == m_registerDomain || domain == m_deregisterDomain) {
        const bool isRequest = domain == m_registerDomain;
        const zel_event_payload_t* const payload = core().eventGetPayload(event);
        if (!payload || payload->data1 == 0) {
            logLine(isRequest ? "applyRequestEvents() - \"register domain\" event payload error"
                              : "applyStopEvents() - \"deregister domain\" event payload error");
            return;
        }
        auto* const provider = reinterpret_cast<ZelEventProvider*>(payload->data1);
        const int flags = static_cast<int>(payload->data2);
        if (isRequest)
            provider->requestEvents(flags);
        else
            provider->stopEvents(flags);
        return;
    }
    const Lock lock(registry().mutex);
    if (ZelEventHandler* const handler = m_handlers.value(domain).handler)
        callHandler(*handler, event);
    else
        logLine(
            "ZelEventDispatcher::processZelEvents() - got an event for an unregistered domain: ",
            domain);
}

void ZelEventDispatcher::callHandler(ZelEventHandler& handler, zel_event_t* event)
{
    DispatchGate& gate = DispatchGate::instance();
    if (!gate.enter())
        return;
    try {
        handler.dispatchZelEvent(event);
    } catch (...) {
        logLine("ZelEventDispatcher::processZelEvents() - a handler threw an exception");
    }
    gate.leave();
}

void ZelEventDispatcher::pushRequestEventsToDispatchThread(ZelEventProvider* provider, int flags)
{
    pushToDispatchThread("pushRequestEventsToDispatchThread", "register domain", m_registerDomain,
                         provider, flags);
}

void ZelEventDispatcher::pushStopEventsToDispatchThread(ZelEventProvider* provider, int flags)
{
    pushToDispatchThread("pushStopEventsToDispatchThread", "deregister domain", m_deregisterDomain,
                         provider, flags);
}

void ZelEventDispatcher::pushToDispatchThread(const char* operation, const char* name, int domain,
                                              ZelEventProvider* provider, int flags)
{
    const zel_event_payload_t payload = {reinterpret_cast<std::uintptr_t>(provider),
                                         static_cast<std::uintptr_t>(flags), 0};
    zel_event_t* event = nullptr;
    errno = 0;
    if (core().eventCreate(&event, domain, 0, &payload, nullptr) == -1) {
        logLine("ZelEventDispatcher::", operation, "() - failed to create \"", name, "\" event");
        throw Exception();
    }
    errno = 0;
    if (core().channelPushEvent(m_channel, event) == -1) {
        logLine("ZelEventDispatcher::", operation, "() - failed to push \"", name, "\" event");
        core().eventDestroy(event);
        throw Exception();
    }
}

} // namespace tamo
