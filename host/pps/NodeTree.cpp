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
