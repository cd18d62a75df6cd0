// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_CORE_DISPATCHGATE_H
#define TAMO_CORE_DISPATCHGATE_H

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tamo {

/**
 * Keeps the dispatch thread from calling handlers while the application object is being destroyed:
 * their signals and events would be posted to an event loop that is just going. It shuts at the
 * beginning of ~Application, or else, by itself, of ~QCoreApplication, and opens with the next
 * application object; without any it is open.
 *
 * Its lock is held for moments only; it is taken after the registry lock, and nothing is called
 * under it.
 */
class DispatchGate
{
public:
    /** The process's only one. */
    static DispatchGate& instance();

    /** Before a handler is called. False: it is not to be called now. */
    bool enter();

    /** After a handler has been called, where enter() was true. */
    void leave();

    /**
     * Shuts, and waits for the call under way to end. A handler that itself waits for the thread
     * that calls this would hold it for ever; so there is a limit of five seconds. One that is
     * shut already stays so, without waiting.
     *
     * @return whether no call is under way
     */
    bool shut();

    /** Opens again. */
    void open();

private:
    std::mutex m_mutex;
    std::condition_variable m_callEnded;
    bool m_isShut = false;
    bool m_isCalling = false;
    std::thread::id m_caller; // the dispatch thread that called last
};

} // namespace tamo

#endif
