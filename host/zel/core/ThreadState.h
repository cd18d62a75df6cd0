// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_THREADSTATE_H
#define ZEL_CORE_THREADSTATE_H

#include "Channel.h"
#include "EndHandlers.h"
#include "Event.h"

#include <map>
#include <memory>

namespace zel {

/**
 * What a thread that is initialised has: its channels, its handlers and the event that it took
 * last. It ends with the last zel_shutdown(), or with the thread, after its `thread_local` objects:
 * their destructors may still use it. The main thread's is left alone when the process exits.
 *
 * Every function of the application may call zel_shutdown() or destroy a channel; ask for current()
 * and its channels again after calling one. Functions that can fail return 0 or an `errno` value.
 */
class ThreadState
{
public:
    /** The calling thread's; NULL where it is not initialised. */
    static ThreadState* current();

    static int initialize();
    static int shutdown();

    /** After fork(), in the child: what its thread had was the parent's. Closes the descriptors,
     * frees memory, and calls nothing of the application. */
    static void discardAfterFork();

    ~ThreadState();
    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;

    int createChannel(std::shared_ptr<Channel>& channel);

    /** The thread's channel of a number, or none. */
    std::shared_ptr<Channel> channel(int id) const;

    /** The active channel, which is made where there is none. */
    int activeChannel(std::shared_ptr<Channel>& channel);

    /** The active channel's number; 0: none. */
    int activeId() const { return m_active ? m_active->id() : 0; }
    void setActive(std::shared_ptr<Channel> channel) { m_active = std::move(channel); }

    int destroyChannel(int id);

    /** Completes the event that was taken last. */
    void releaseTaken();

    /** Keeps an event that is being taken out of a channel. */
    zel_event* keepTaken(EventPointer event, int channel);

    int addShutdownHandler(zel_end_handler_t handler, void* data);

private:
    enum class Phase { Running, CallingHandlers, DestroyingChannels };

    ThreadState() = default;
    static void endThread(void* state);
    void end();

    unsigned m_count = 1;
    Phase m_phase = Phase::Running;
    std::map<int, std::shared_ptr<Channel>> m_channels;
    std::shared_ptr<Channel> m_active;
    EventPointer m_taken;
    int m_takenFrom = 0;
    EndHandlers m_shutdownHandlers;
};

} // namespace zel

#endif
