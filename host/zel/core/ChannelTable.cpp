// SPDX-License-Identifier: Apache-2.0
#include "ChannelTable.h"

#include "NeverDestroyed.h"

#include <cerrno>
#include <climits>

namespace zel {

ChannelTable& ChannelTable::instance()
{
    static NeverDestroyed<ChannelTable> table;
    return *table;
}

std::shared_ptr<Channel> ChannelTable::make()
{
    int last = m_lastId.load(std::memory_order_relaxed);
    do {
        if (last == INT_MAX)
            return nullptr;
    } while (!m_lastId.compare_exchange_weak(last, last + 1, std::memory_order_relaxed));
    return std::make_shared<Channel>(last + 1, shardOf(last + 1).mutex);
}

void ChannelTable::add(const std::shared_ptr<Channel>& channel)
{
    Shard& shard = shardOf(channel->id());
    const std::lock_guard<std::mutex> lock(shard.mutex);
    shard.channels.emplace(channel->id(), channel);
}

void ChannelTable::remove(const Channel& channel)
{
    Shard& shard = shardOf(channel.id());
    const std::lock_guard<std::mutex> lock(shard.mutex);
    shard.channels.erase(channel.id());
}

int ChannelTable::push(int id, zel_event* event)
{
    std::shared_ptr<Channel> sleeping;
    Doorbell::Kind kind;
    {
        Shard& shard = shardOf(id);
        const std::lock_guard<std::mutex> lock(shard.mutex);
        const auto found = shard.channels.find(id);
        if (found == shard.channels.end())
            return EINVAL;
        kind = found->second->append(event);
        if (kind == Doorbell::Kind::None)
            return 0;
        sleeping = found->second; // its doorbell must outlive the channel's end
    }
    sleeping->ring(kind);
    return 0;
}

void ChannelTable::lockAll()
{
    for (Shard& shard : m_shards)
        shard.mutex.lock();
}

void ChannelTable::unlockAll()
{
    for (Shard& shard : m_shards)
        shard.mutex.unlock();
}

void ChannelTable::clear()
{
    for (Shard& shard : m_shards)
        shard.channels.clear();
}

} // namespace zel
