// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_CORE_CHANNELTABLE_H
#define ZEL_CORE_CHANNELTABLE_H

#include "Channel.h"

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace zel {

/**
 * All channels of the process, by number: how any thread pushes to any channel. The channels are
 * spread over shards; a shard's mutex is the lock of its channels, so that finding a channel and
 * adding to its queue take one lock between them. Any thread.
 */
class ChannelTable
{
public:
    /** The process' one; never destroyed. */
    static ChannelTable& instance();

    /** A channel with a number of its own, not yet in the table; NULL where no numbers are left. */
    std::shared_ptr<Channel> make();

    void add(const std::shared_ptr<Channel>& channel);

    /** After this nobody pushes to it any more. */
    void remove(const Channel& channel);

    /** Pushes an event that is claimed. 0, and it is the channel's; or EINVAL: no such channel. */
    int push(int id, zel_event* event);

    /// @name Around fork()
    /// @{
    void lockAll();
    void unlockAll();
    /** In the child: forgets all channels. Call it with everything locked. */
    void clear();
    /// @}

private:
    struct Shard
    {
        std::mutex mutex;
        std::unordered_map<int, std::shared_ptr<Channel>> channels;
    };

    Shard& shardOf(int id) { return m_shards[static_cast<unsigned>(id) % m_shards.size()]; }

    std::atomic<int> m_lastId{0};
    std::array<Shard, 16> m_shards;
};

} // namespace zel

#endif
