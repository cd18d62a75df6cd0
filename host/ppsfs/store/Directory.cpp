// SPDX-License-Identifier: Apache-2.0
#include "Directory.h"

namespace ppsfs {

std::shared_ptr<Node> Directory::find(std::string_view name) const
{
    const auto found = m_children.find(name);
    return found == m_children.end() ? nullptr : found->second;
}

} // namespace ppsfs
