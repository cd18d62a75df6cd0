// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_DESCRIPTORSET_H
#define ZEL_CORE_DESCRIPTORSET_H

#include "common/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

namespace zel {

/** What happens when a descriptor is ready. */
class DescriptorWatch
{
public:
    virtual ~DescriptorWatch() = default;

    /**
     * The descriptor is ready. May do anything, also remove this watch or destroy the channel.
     *
     * @param ioEvents ZEL_IO_* values combined
     * @return false: the watching ends
     */
    virtual bool ready(int ioEvents) = 0;
};

/**
 * The descriptors that a channel watches, and its doorbell. Used by the channel's thread alone.
 * Functions that can fail return 0 or an `errno` value.
 */
class DescriptorSet
{
public:
    /** Who asked for a watch; neither can remove the other's. */
    enum class Owner { Application, Service };

    /** What a wait has found. */
    struct Ready
    {
        enum class What { Nothing, Doorbell, Descriptor };
        What what = What::Nothing;
        std::uint64_t key = 0;
        std::uint32_t events = 0;
    };

    /** Makes the epoll set. The doorbell stays the caller's, and is taken as an edge: it is never
     * read. */
    int open(int doorbell);
    bool isOpen() const { return bool(m_epoll); }

    int add(int fd, int ioEvents, Owner owner, std::shared_ptr<DescriptorWatch> watch);

    /** ENOENT where the owner has no such watch. */
    int remove(int fd, Owner owner);

    std::size_t count() const { return m_entries.size(); }

    /**
     * Waits for the doorbell or a descriptor. It finds one at a time, since a handler may take what
     * another one has waited for; those that are ready take turns.
     */
    Ready wait(int timeoutMs) const;

    /** Calls the watch of the descriptor that was found. */
    void handle(const Ready& ready);

    /** Ends all watching. */
    void clear();

private:
    struct Entry
    {
        std::shared_ptr<DescriptorWatch> watch;
        std::uint32_t serial = 0; ///< tells it from an earlier watch of the same number
        std::uint32_t events = 0;
        Owner owner = Owner::Application;
        bool wantsInput = false;
    };

    int control(int epoll, int operation, int fd, const Entry& entry) const;
    void renew();

    host::FileDescriptor m_epoll;
    int m_doorbell = -1;
    std::uint32_t m_nextSerial = 1;
    std::unordered_map<int, Entry> m_entries;
};

} // namespace zel

#endif
