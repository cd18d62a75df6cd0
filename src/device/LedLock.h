// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_DEVICE_LEDLOCK_H
#define TAMO_DEVICE_LEDLOCK_H

#include <memory>
#include <utility>

namespace tamo {
namespace device {

/**
 * A Led's recursive lock, which is held while signals are emitted.
 *
 * A slot may call another Led. With plain locks, two threads whose slots call each other's Leds
 * would wait for each other for ever; with one lock for all Leds, a slot that waits for another
 * thread would lock that thread out of Leds of its own. So each Led has a lock, and a thread that
 * would close a circle of waiting threads does not wait: it is lent the lock. Every other thread of
 * the circle waits inside of a slot, where its Led can be called anyway, and goes on when the lock
 * has been given back.
 */
class LedLock
{
    struct Thread;

public:
    /** Holds a lock, and keeps it in memory where a slot deletes the Led. */
    class Guard
    {
    public:
        explicit Guard(std::shared_ptr<LedLock> lock)
            : m_lock(std::move(lock)), m_before(m_lock->acquire())
        {
        }
        ~Guard() { m_lock->giveBack(m_before); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

    private:
        const std::shared_ptr<LedLock> m_lock;
        /** Who held it: nobody, the same thread, or one that waits and has lent it. */
        Thread* const m_before;
    };

private:
    struct Shared;
    static Shared& shared();

    Thread* acquire();
    void giveBack(Thread* before);
    bool waitsFor(const Thread* thread) const;

    Thread* m_holder = nullptr;
};

} // namespace device
} // namespace tamo

#endif
