// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_OBJECT_H
#define PPSFS_OBJECT_H

#include "Mailbox.h"
#include "Node.h"
#include "Topic.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace ppsfs {

class Endpoint;
class Handle;

/** An object: something published, or, once it has been served, a mailbox. */
class Object final : public Node
{
public:
    Object(std::uint64_t number, std::string name, const NodeStatus& status);

    /** The length of what a new reader would read, in bytes; 0 for a mailbox. */
    std::size_t textSize() const { return m_topic.textSize(); }

    /** Whether it has ever been served. */
    bool isMailbox() const { return m_mailbox != nullptr; }

    /** Whether it has a server now. */
    bool isServed() const { return m_mailbox && m_mailbox->server(); }

private:
    friend class Handle;
    friend class ObjectStore;

    void attach(Handle& handle);
    void detach(Handle& handle);
    std::unique_ptr<Endpoint> endpointFor(Handle& handle);
    void becomeMailbox();
    void remove();

    Topic m_topic;
    std::unique_ptr<Mailbox> m_mailbox;
    std::vector<Handle*> m_handles;
};

} // namespace ppsfs

#endif
