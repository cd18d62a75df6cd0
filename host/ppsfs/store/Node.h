// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_NODE_H
#define PPSFS_NODE_H

#include <sys/types.h>

#include <cstdint>
#include <ctime>
#include <string>

namespace ppsfs {

/** Whose a node is, who may do what with it, and its times. */
struct NodeStatus
{
    uid_t owner = 0;
    gid_t group = 0;
    mode_t permissions = 0; ///< the twelve permission bits
    timespec accessed{};
    timespec modified{}; ///< of an object: its last publication
    timespec changed{};
};

/** The time of day, as precise as a time stamp needs it. */
timespec timeStamp();

/** What has a name in the filesystem: an object or a directory. */
class Node
{
public:
    virtual ~Node() = default;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    /** Unique for the filesystem's whole life. */
    std::uint64_t number() const { return m_number; }
    const std::string& name() const { return m_name; }

    NodeStatus& status() { return m_status; }
    const NodeStatus& status() const { return m_status; }

    /** Whether it is no longer in its directory. */
    bool isRemoved() const { return m_removed; }

protected:
    Node(std::uint64_t number, std::string name, const NodeStatus& status)
        : m_number(number), m_name(std::move(name)), m_status(status)
    {
    }

    void setRemoved() { m_removed = true; }

private:
    const std::uint64_t m_number;
    const std::string m_name;
    NodeStatus m_status;
    bool m_removed = false;
};

} // namespace ppsfs

#endif
