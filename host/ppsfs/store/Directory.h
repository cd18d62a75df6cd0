// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_DIRECTORY_H
#define PPSFS_DIRECTORY_H

#include "Node.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace ppsfs {

/** A directory of objects and directories, under their names without options. */
class Directory final : public Node
{
public:
    using Children = std::map<std::string, std::shared_ptr<Node>, std::less<>>;

    Directory(std::uint64_t number, std::string name, const NodeStatus& status)
        : Node(number, std::move(name), status)
    {
    }

    const Children& children() const { return m_children; }

    /** The node of a name, or null. */
    std::shared_ptr<Node> find(std::string_view name) const;

    /** How many of the children are directories. */
    std::size_t directories() const { return m_directories; }

private:
    friend class ObjectStore;

    Children m_children;
    std::size_t m_directories = 0;
};

} // namespace ppsfs

#endif
