// SPDX-License-Identifier: Apache-2.0
#include "LedLock.h"

#include "core/InitialExec.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace tamo {
namespace device {

/** A thread that uses Leds. */
struct LedLock::Thread
{
    /** The lock that it waits for; null while it runs. */
    const LedLock* wanted = nullptr;
};

/** What all locks have in common. Its mutex guards every holder and every thread's wish; it is held
 * for moments only, and nothing is called under it. */
struct LedLock::Shared
{
    std::mutex mutex;
    std::condition_variable givenBack;
};

LedLock::Shared& LedLock::shared()
{
    // Never destroyed: threads may use Leds while the process ends.
    static Shared& instance = *new Shared;
    return instance;
}

LedLock::Thread* LedLock::acquire()
{
    TAMO_INITIAL_EXEC static thread_local Thread self;
    std::unique_lock lock(shared().mutex);
    self.wanted = this;
    shared().givenBack.wait(lock, [this] { return !m_holder || waitsFor(&self); });
    self.wanted = nullptr;
    return std::exchange(m_holder, &self);
}

void LedLock::giveBack(Thread* before)
{
    const std::lock_guard lock(shared().mutex);
    if (std::exchange(m_holder, before) != before)
        shared().givenBack.notify_all();
}

/** Whether the holder is a thread, or waits for one, which may itself wait for another's lock. */
bool LedLock::waitsFor(const Thread* thread) const
{
    const Thread* holder = m_holder;
    while (holder && holder != thread)
        holder = holder->wanted ? holder->wanted->m_holder : nullptr;
    return holder == thread;
}

} // namespace device
} // namespace tamo
