// SPDX-License-Identifier: Apache-2.0
#include "NodeTree.h"

#include <climits>
#include <cstdlib>
#include <cstring>

namespace pps {

NodeTree::~NodeTree()
{
    if (m_nodes != m_inline)
        std::free(m_nodes);
}

void NodeTree::makeEmptyObject()
{
    m_size = 1;
    Node& top = m_nodes[0];
    top.name = nullptr;
    top.count = 0;
    top.next = 1;
    top.parent = Node::None;
    top.position = 0;
    top.type = PPS_TYPE_OBJECT;
}

bool NodeTree::grow()
{
    // Callers count elements with an int.
    if (m_capacity > INT_MAX / 2)
        return false;
    const bool isInline = m_nodes == m_inline;
    const std::uint32_t capacity = 2 * m_capacity;
    void* const memory = std::realloc(isInline ? nullptr : m_nodes, capacity * sizeof(Node));
    if (!memory)
        return false;
    if (isInline)
        std::memcpy(memory, m_inline, sizeof m_inline);
    m_nodes = static_cast<Node*>(memory);
    m_capacity = capacity;
    return true;
}

} // namespace pps
