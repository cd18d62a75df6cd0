// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_CHANNEL_H
#define ZEL_CORE_CHANNEL_H

#include "DescriptorSet.h"
#include "Domain.h"
#include "Doorbell.h"
#include "EndHandlers.h"
#include "EventList.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zel {

class ObjectWatch;

/**
 * A queue of events and the descriptors that are watched while its thread waits for one.
 *
 * What an event costs: its sender takes one lock, links the event into the queue, and rings the
 * doorbell only where the thread sleeps or is about to, so at most once for each sleep. The thread
 * takes all that is queued under one lock, and hands it out one by one without any. Nothing is
 * allocated and the doorbell is never read. So that descriptors do not starve while there are
 * always events, they are looked at after each EventsBetweenLooks events that were there already.
 *
 * The lock is the mutex that the constructor is given, and is the innermost of all: nothing is
 * called while it is held. Functions that can fail return 0 or an `errno` value.
 */
class Channel
{
public:
    static constexpr int EventsBetweenLooks = 32;

    Channel(int id, std::mutex& mutex);
    ~Channel();

    int id() const { return m_id; }

    /// @name Any thread
    /// @{

    /** Adds an event. Call it with the lock held, and ring() with the result without it. */
    Doorbell::Kind append(zel_event* event);
    void ring(Doorbell::Kind kind) { m_doorbell.ring(kind); }

    /// @}
    /// @name The channel's thread only
    /// @{

    /** The next event, or none. Makes no system call. */
    EventPointer take();

    /** Whether descriptors are watched and it is their turn before the next event. */
    bool isLookDue() const { return m_takenSinceLook >= EventsBetweenLooks && watchedCount() != 0; }

    /** Handles one descriptor that is ready, where there is one. Whether there was. */
    bool look();

    /**
     * Waits until there is an event, or a descriptor is ready, which is then handled, or a signal
     * comes, or the time is over.
     *
     * @return whether a descriptor was handled
     */
    bool wait(int timeoutMs);

    /** Pushes a service's event. */
    void push(std::unique_ptr<zel_event> event);

    int watch(int fd, int ioEvents, DescriptorSet::Owner owner,
              std::shared_ptr<DescriptorWatch> watch);
    int unwatch(int fd, DescriptorSet::Owner owner) { return m_descriptors.remove(fd, owner); }
    std::size_t watchedCount() const { return m_descriptors.count(); }

    EndHandlers& destroyHandlers() { return m_destroyHandlers; }

    /** True while the destroy handlers run, and afterwards. */
    bool isEnding() const { return m_isEnding; }
    void setEnding() { m_isEnding = true; }

    /** Ends all watching and completes all events. Nobody must know the channel any more. */
    void close();
    bool isClosed() const { return m_isClosed; }

    /** After fork(), in the child: as close(), but completes nothing. */
    void discard();

    std::unordered_map<int, void*>& domainData() { return m_domainData; }

    using ObjectKey = std::pair<Domain, std::uintptr_t>;
    std::map<ObjectKey, std::shared_ptr<ObjectWatch>>& objects() { return m_objects; }

    /**
     * Room for a message and a zero after it. It begins small and is enlarged by whoever needs
     * more, up to the limit: a read into room for the longest message has the kernel hold every
     * page of it.
     */
    std::vector<char>& messageBuffer() { return m_messageBuffer; }
    static constexpr std::size_t LargestMessageBuffer = std::size_t{1} << 20;

    /// @}

private:
    void gather();

    const int m_id;
    std::mutex& m_mutex;

    // Under the lock.
    EventList m_queue;
    Doorbell::Kind m_sleepsOn = Doorbell::Kind::None;

    Doorbell m_doorbell; // its descriptor is made before anybody can know of it by m_sleepsOn

    // The thread's own.
    EventList m_gathered;
    int m_takenSinceLook = 0;
    DescriptorSet m_descriptors;
    EndHandlers m_destroyHandlers;
    bool m_isEnding = false;
    bool m_isClosed = false;
    std::unordered_map<int, void*> m_domainData;
    std::map<ObjectKey, std::shared_ptr<ObjectWatch>> m_objects;
    std::vector<char> m_messageBuffer = std::vector<char>(4096);
};

} // namespace zel

#endif
