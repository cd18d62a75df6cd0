// SPDX-License-Identifier: Apache-2.0
#include "NodeTable.h"

#include "ObjectStore.h"

#include <algorithm>
#include <utility>

namespace ppsfs {
namespace {

constexpr unsigned OptionBits = 3;
static_assert((WaitOption | ChangesOption | ServeOption) < (1U << OptionBits));

} // namespace

NodeTable::NodeTable(std::shared_ptr<Node> root)
{
    remember({std::move(root), 0});
}

fuse_ino_t NodeTable::idOf(const Node& node, OpenOptions options)
{
    if (node.number() == ObjectStore::RootNumber)
        return FUSE_ROOT_ID;
    return node.number() << OptionBits | options;
}

const NodeTable::View* NodeTable::find(fuse_ino_t id) const
{
    const auto known = m_known.find(id);
    return known == m_known.end() ? nullptr : &known->second.view;
}

void NodeTable::remember(const View& view)
{
    Known& known = m_known[idOf(*view.node, view.options)];
    if (known.lookups++ == 0)
        known.view = view;
}

void NodeTable::forget(fuse_ino_t id, std::uint64_t lookups)
{
    const auto known = m_known.find(id);
    if (known == m_known.end() || id == FUSE_ROOT_ID)
        return;
    known->second.lookups -= std::min(lookups, known->second.lookups);
    if (known->second.lookups == 0)
        m_known.erase(known);
}

} // namespace ppsfs
