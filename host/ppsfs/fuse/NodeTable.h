// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_NODETABLE_H
#define PPSFS_NODETABLE_H

#include "FuseApi.h"
#include "Node.h"
#include "ObjectName.h"

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace ppsfs {

/**
 * The nodes that the kernel knows, by the ids under which it knows them.
 *
 * The kernel opens a node id, not a name, so a name's options have to be in the id: an object has
 * an id for each set of options that it was looked up with. Ids are never used again.
 */
class NodeTable
{
public:
    /** A node as it was looked up. */
    struct View
    {
        std::shared_ptr<Node> node;
        OpenOptions options = 0;
    };

    /** @param root the directory that the kernel knows from the start, and for ever */
    explicit NodeTable(std::shared_ptr<Node> root);

    /** The id of a node under these options. */
    static fuse_ino_t idOf(const Node& node, OpenOptions options);

    /** The view of an id, or null where the kernel should not know it. */
    const View* find(fuse_ino_t id) const;

    /** Counts a lookup that the kernel is about to be told of. */
    void remember(const View& view);

    /** Takes lookups back; with the last one, the id is gone. */
    void forget(fuse_ino_t id, std::uint64_t lookups);

private:
    struct Known
    {
        View view;
        std::uint64_t lookups = 0;
    };
    std::unordered_map<fuse_ino_t, Known> m_known;
};

} // namespace ppsfs

#endif
