// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_HANDLETABLE_H
#define PPSFS_HANDLETABLE_H

#include "FuseApi.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>

namespace ppsfs {

/**
 * Owns what the kernel has open, and gives the kernel its address for a file handle. What the
 * kernel has not released when the filesystem ends, goes with the table.
 */
template<class Opened>
class HandleTable
{
public:
    /** Keeps something that is being opened; the result is its file handle. */
    std::uint64_t keep(std::unique_ptr<Opened> opened)
    {
        Opened* const kept = opened.get();
        m_opened.emplace(kept, std::move(opened));
        return reinterpret_cast<std::uintptr_t>(kept);
    }

    /** What a file handle stands for. */
    static Opened& of(const fuse_file_info* info)
    {
        return *reinterpret_cast<Opened*>(static_cast<std::uintptr_t>(info->fh));
    }

    /** Closes it. */
    void release(std::uint64_t handle)
    {
        m_opened.erase(reinterpret_cast<Opened*>(static_cast<std::uintptr_t>(handle)));
    }

    /** Closes everything. */
    void clear() { m_opened.clear(); }

private:
    std::unordered_map<const Opened*, std::unique_ptr<Opened>> m_opened;
};

} // namespace ppsfs

#endif
