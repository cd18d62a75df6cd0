// SPDX-License-Identifier: Apache-2.0
#include "FileSystem.h"

#include "Limits.h"

#include <sys/stat.h>
#include <unistd.h>

namespace ppsfs {
namespace {

constexpr mode_t RootPermissions = 0755;

/** At least the longest message, so that programs that go by it read any object at once. */
constexpr blksize_t BlockSize = blksize_t{1} << 20;
static_assert(BlockSize >= static_cast<blksize_t>(limits::TextSize));

constexpr blkcnt_t blocksOf(off_t size)
{
    return (size + 511) / 512; // the unit of st_blocks, whatever the block size
}

} // namespace

FileSystem::FileSystem()
    : m_store(
          NodeStatus{geteuid(), getegid(), RootPermissions, timeStamp(), timeStamp(), timeStamp()})
    , m_nodes(m_store.root())
{
}

struct stat FileSystem::attributesOf(const Node& node)
{
    const NodeStatus& status = node.status();
    struct stat attributes
    {
    };
    attributes.st_ino = node.number();
    attributes.st_uid = status.owner;
    attributes.st_gid = status.group;
    attributes.st_atim = status.accessed;
    attributes.st_mtim = status.modified;
    attributes.st_ctim = status.changed;
    attributes.st_blksize = BlockSize;
    if (const auto* const directory = dynamic_cast<const Directory*>(&node)) {
        attributes.st_mode = S_IFDIR | status.permissions;
        attributes.st_nlink = node.isRemoved() ? 0 : 2 + directory->directories();
    } else {
        attributes.st_mode = S_IFREG | status.permissions;
        attributes.st_nlink = node.isRemoved() ? 0 : 1;
        attributes.st_size = static_cast<off_t>(static_cast<const Object&>(node).textSize());
        attributes.st_blocks = blocksOf(attributes.st_size);
    }
    return attributes;
}

} // namespace ppsfs
