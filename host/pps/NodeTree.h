// SPDX-License-Identifier: Apache-2.0
#ifndef PPS_NODETREE_H
#define PPS_NODETREE_H

#include <pps/decoder.h>

#include <cstdint>
#include <type_traits>

namespace pps {

/**
 * One element of a parsed message. The elements lie in the order of the text, so that a container's
 * first element is the node after it. Nodes are named by their index.
 */
struct Node
{
    static constexpr std::uint32_t None = ~std::uint32_t(0);

    const char* name; ///< null in an array
    union {
        bool boolean;
        std::int64_t integer;
        double real;
        const char* string;
        std::uint32_t count; ///< of a container's elements
    };
    std::uint32_t next;     ///< the node behind this one and all that it contains
    std::uint32_t parent;   ///< the container it is in; None for the message itself
    std::uint32_t position; ///< which element of its container it is, from 0
    std::uint8_t type;      ///< a pps_type_t
    bool isInteger;         ///< of a number: whether `integer` holds it, or `real`
};

// They are left uninitialised until used, and moved with realloc().
static_assert(std::is_trivial_v<Node> && sizeof(Node) == 32);

/** The elements of a parsed message: one array, which for a short message lies in the object. */
class NodeTree
{
public:
    NodeTree() = default;
    ~NodeTree();
    NodeTree(const NodeTree&) = delete;
    NodeTree& operator=(const NodeTree&) = delete;

    std::uint32_t size() const { return m_size; }
    Node& operator[](std::uint32_t index) { return m_nodes[index]; }
    const Node& operator[](std::uint32_t index) const { return m_nodes[index]; }

    /** Adds a node, whose fields are not set. Null when out of memory. */
    Node* append()
    {
        if (m_size == m_capacity && !grow())
            return nullptr;
        return &m_nodes[m_size++];
    }

    /** Removes all nodes and keeps their memory. */
    void clear() { m_size = 0; }

    /** Makes the tree that of a message without elements. */
    void makeEmptyObject();

private:
    /** Keeps a decoder's state within what malloc() hands out fastest, about 1,000 bytes. */
    static constexpr std::uint32_t InlineCapacity = 28;

    bool grow();

    Node* m_nodes = m_inline;
    std::uint32_t m_size = 0;
    std::uint32_t m_capacity = InlineCapacity;
    Node m_inline[InlineCapacity];
};

} // namespace pps

#endif
