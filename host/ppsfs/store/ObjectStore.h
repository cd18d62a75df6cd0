// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_OBJECTSTORE_H
#define PPSFS_OBJECTSTORE_H

#include "Directory.h"
#include "Object.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace ppsfs {

/**
 * The objects and their directories: all that /pps is, without a filesystem around it. It knows no
 * processes and no permissions; whoever serves it to others enforces those.
 *
 * The store, its nodes and its handles are used by one thread, and hold no locks: every operation
 * is atomic because it is the only one.
 *
 * Operations return 0 or an `errno` value. Names are plain, without options.
 */
class ObjectStore
{
public:
    /** The number of the root directory; all others are greater. */
    static constexpr std::uint64_t RootNumber = 1;

    /** @param status the root directory's */
    explicit ObjectStore(const NodeStatus& status);

    const std::shared_ptr<Directory>& root() const { return m_root; }

    /** How many objects and directories there are, the root included. */
    std::uint64_t nodes() const { return m_nodes; }

    /** Makes an unpublished object. EEXIST, ENOENT (removed directory), EINVAL (name). */
    int createObject(Directory& directory, std::string_view name, const NodeStatus& status,
                     std::shared_ptr<Object>& object);

    /** Makes an empty directory. Fails as createObject() does. */
    int createDirectory(Directory& directory, std::string_view name, const NodeStatus& status,
                        std::shared_ptr<Directory>& created);

    /** Removes an object; its handles are told. ENOENT, EISDIR. */
    int removeObject(Directory& directory, std::string_view name);

    /** Removes an empty directory. ENOENT, ENOTDIR, ENOTEMPTY. */
    int removeDirectory(Directory& directory, std::string_view name);

private:
    int checkNew(const Directory& directory, std::string_view name) const;
    void insert(Directory& directory, std::shared_ptr<Node> node);
    void erase(Directory& directory, std::string_view name);

    std::shared_ptr<Directory> m_root;
    std::uint64_t m_nodes = 1;
    std::uint64_t m_lastNumber = RootNumber;
};

} // namespace ppsfs

#endif
